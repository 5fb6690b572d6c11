// The colour button (colour shown, stored, signalled and picked) and the tip window's placement.
#include <QApplication>
#include <QColorDialog>
#include <QScreen>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

#include "HOTestColumns.h"
#include "HXColorBtn.h"
#include "HXTooltip.h"

class TestHXControlBase : public QObject {
    Q_OBJECT
private slots:
    void colorSet_data() {
        HOAddColumns<QColor, int, QRgb>({"color", "emitted", "stored"});
        QTest::newRow("new colour") << QColor(200, 30, 40) << 1 << qRgb(200, 30, 40);
        QTest::newRow("alpha dropped") << QColor(10, 20, 30, 40) << 1 << qRgb(10, 20, 30);
        QTest::newRow("same as before") << QColor(Qt::black) << 0 << qRgb(0, 0, 0);
        QTest::newRow("invalid ignored") << QColor() << 0 << qRgb(0, 0, 0);
    }
    // The stored colour is signalled once when it changes, and shown on the swatch.
    void colorSet() {
        QFETCH(QColor, color);
        QFETCH(int, emitted);
        QFETCH(QRgb, stored);
        HXColorBtn button(nullptr);
        button.resize(48, 24);
        QSignalSpy changed(&button, &HXColorBtn::colorChanged);
        button.setColor(color);
        QCOMPARE(changed.count(), emitted);
        QCOMPARE(button.getColor(), stored);
        if (emitted) QCOMPARE(changed.first().first().value<QColor>().rgb(), stored);
        const QImage image = button.grab().toImage();
        QCOMPARE(image.pixel(image.width() / 2, image.height() / 2), stored);
    }

    void colorDialog_data() {
        HOAddColumns<bool, QRgb>({"accept", "expected"});
        QTest::newRow("accepted") << true << qRgb(0, 128, 255);
        QTest::newRow("cancelled") << false << qRgb(1, 2, 3);
    }
    // A click opens the colour dialog; only an accepted choice changes the colour.
    void colorDialog() {
        QFETCH(bool, accept);
        HXColorBtn button(nullptr);
        button.setColor(QColor(1, 2, 3));
        button.show();
        QSignalSpy changed(&button, &HXColorBtn::colorChanged);
        bool sawDialog = false;
        QTimer::singleShot(0, this, [&] {
            auto* dialog = qobject_cast<QColorDialog*>(QApplication::activeModalWidget());
            sawDialog = dialog != nullptr;
            if (!dialog) return;
            QCOMPARE(dialog->currentColor().rgb(), qRgb(1, 2, 3));
            dialog->setCurrentColor(QColor(0, 128, 255));
            accept ? dialog->accept() : dialog->reject();
        });
        QTest::mouseClick(&button, Qt::LeftButton);
        QVERIFY(sawDialog);
        QTEST(button.getColor(), "expected");
        QCOMPARE(changed.count(), accept ? 1 : 0);
    }

    void tipPlacement_data() {
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        QTest::addColumn<QPoint>("point");
        QTest::newRow("top left") << screen.topLeft();
        QTest::newRow("bottom right") << screen.bottomRight() - QPoint(2, 2);
        QTest::newRow("beyond bottom right") << screen.bottomRight() + QPoint(500, 500);
    }
    // Below and right of the point where there is room, following later calls; always on screen.
    void tipPlacement() {
        QFETCH(QPoint, point);
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        QWidget owner;
        HXTooltip tip(&owner);
        tip.showTip(point, QStringLiteral("Double-click to finish the line"));
        QVERIFY2(
            screen.contains(tip.geometry()),
            qPrintable(QString("%1,%2 %3x%4").arg(tip.x()).arg(tip.y()).arg(tip.width()).arg(tip.height())));
        QVERIFY(tip.width() > tip.fontMetrics().horizontalAdvance(tip.text()));
        if (point != screen.topLeft()) return;
        QVERIFY(tip.x() > point.x() && tip.y() > point.y());
        const QPoint first = tip.pos();
        tip.showTip(point + QPoint(50, 20), QStringLiteral("Click to add a vertex"));
        QCOMPARE(tip.pos(), first + QPoint(50, 20));
    }
};

QTEST_MAIN(TestHXControlBase)
#include "tst_hxcontrolbase.moc"
