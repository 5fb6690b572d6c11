// Colour button: the colour shown, stored, signalled and picked.
#include <QApplication>
#include <QColorDialog>
#include <QSignalSpy>
#include <QTimer>
#include <QtTest>

#include "HXColorBtn.h"

class TestHXColorBtn : public QObject {
    Q_OBJECT
private slots:
    void setColor_data();
    void setColor();
    void swatchShowsColor();
    void dialogPicksColor_data();
    void dialogPicksColor();
};

void TestHXColorBtn::setColor_data() {
    QTest::addColumn<QColor>("color");
    QTest::addColumn<int>("emitted");
    QTest::addColumn<QRgb>("stored");
    QTest::newRow("new colour") << QColor(10, 20, 30) << 1 << qRgb(10, 20, 30);
    QTest::newRow("alpha dropped") << QColor(10, 20, 30, 40) << 1 << qRgb(10, 20, 30);
    QTest::newRow("same as before") << QColor(Qt::black) << 0 << qRgb(0, 0, 0);
    QTest::newRow("invalid ignored") << QColor() << 0 << qRgb(0, 0, 0);
}

void TestHXColorBtn::setColor() {
    QFETCH(QColor, color);
    QFETCH(int, emitted);
    QFETCH(QRgb, stored);
    HXColorBtn button(nullptr);
    QSignalSpy changed(&button, &HXColorBtn::colorChanged);
    button.setColor(color);
    QCOMPARE(changed.count(), emitted);
    QCOMPARE(button.getColor(), stored);
    if (emitted) QCOMPARE(changed.first().first().value<QColor>().rgb(), stored);
}

void TestHXColorBtn::swatchShowsColor() {
    HXColorBtn button(nullptr);
    button.resize(48, 24);
    button.setColor(QColor(200, 30, 40));
    const QImage image = button.grab().toImage();
    QCOMPARE(QColor(image.pixel(image.width() / 2, image.height() / 2)), QColor(200, 30, 40));
}

void TestHXColorBtn::dialogPicksColor_data() {
    QTest::addColumn<bool>("accept");
    QTest::addColumn<QRgb>("expected");
    QTest::newRow("accepted") << true << qRgb(0, 128, 255);
    QTest::newRow("cancelled") << false << qRgb(1, 2, 3);
}

// A click opens the colour dialog; only an accepted choice changes the colour.
void TestHXColorBtn::dialogPicksColor() {
    QFETCH(bool, accept);
    QFETCH(QRgb, expected);
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
    QCOMPARE(button.getColor(), expected);
    QCOMPARE(changed.count(), accept ? 1 : 0);
}

QTEST_MAIN(TestHXColorBtn)
#include "tst_hxcolorbtn.moc"
