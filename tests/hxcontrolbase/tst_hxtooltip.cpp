// Tip window: placement beside the point, following, staying on screen, ownership.
#include <QGuiApplication>
#include <QPointer>
#include <QScreen>
#include <QWidget>
#include <QtTest>

#include "HXTooltip.h"

class TestHXTooltip : public QObject {
    Q_OBJECT
private slots:
    void showsTextBesidePoint();
    void followsLaterCalls();
    void staysOnScreen_data();
    void staysOnScreen();
    void ownedByParent();
};

void TestHXTooltip::showsTextBesidePoint() {
    QWidget owner;
    HXTooltip tip(&owner);
    tip.showTip(QPoint(100, 100), QStringLiteral("Click to add a vertex"));
    QVERIFY(tip.isVisible());
    QVERIFY(tip.isWindow());
    QCOMPARE(tip.text(), QStringLiteral("Click to add a vertex"));
    QVERIFY(tip.x() > 100 && tip.y() > 100);
    QVERIFY(tip.width() > tip.fontMetrics().horizontalAdvance(tip.text()));
}

void TestHXTooltip::followsLaterCalls() {
    QWidget owner;
    HXTooltip tip(&owner);
    tip.showTip(QPoint(100, 100), QStringLiteral("a"));
    const QPoint first = tip.pos();
    tip.showTip(QPoint(150, 120), QStringLiteral("a much longer text than before"));
    QCOMPARE(tip.pos(), first + QPoint(50, 20));
    QCOMPARE(tip.text(), QStringLiteral("a much longer text than before"));
}

void TestHXTooltip::staysOnScreen_data() {
    QTest::addColumn<int>("corner");  // 0 top left, 1 bottom right, 2 far outside
    QTest::newRow("top left") << 0;
    QTest::newRow("bottom right") << 1;
    QTest::newRow("beyond bottom right") << 2;
}

void TestHXTooltip::staysOnScreen() {
    QFETCH(int, corner);
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QPoint points[] = {screen.topLeft(), screen.bottomRight() - QPoint(2, 2),
                             screen.bottomRight() + QPoint(500, 500)};
    QWidget owner;
    HXTooltip tip(&owner);
    tip.showTip(points[corner], QStringLiteral("Double-click to finish the line"));
    QVERIFY2(screen.contains(tip.geometry()), qPrintable(QStringLiteral("%1,%2 %3x%4 outside")
                                                             .arg(tip.x())
                                                             .arg(tip.y())
                                                             .arg(tip.width())
                                                             .arg(tip.height())));
}

void TestHXTooltip::ownedByParent() {
    auto* owner = new QWidget;
    QPointer<HXTooltip> tip = new HXTooltip(owner);
    tip->showTip(QPoint(10, 10), QStringLiteral("x"));
    delete owner;
    QVERIFY(tip.isNull());
}

QTEST_MAIN(TestHXTooltip)
#include "tst_hxtooltip.moc"
