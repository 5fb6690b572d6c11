// Map settings: flags, magnification against extent, validity.
#include <QtTest>
#include <limits>

#include "HOTestPrinters.h"
#include "HXMapSettings.h"

using HXObjects::HORect;

class TestHXMapSettings : public QObject {
    Q_OBJECT
private slots:
    void defaults();
    void validity_data();
    void validity();
    void extentAndMagnification_data();
    void extentAndMagnification();
    void rejectsBadNumbers();
};

void TestHXMapSettings::defaults() {
    const HXMapSettings s;
    QVERIFY(s.testFlag(HXMapSettings::Flag::Antialiasing));
    QCOMPARE(int(HXMapSettings::Antialiasing), 1);
    QCOMPARE(s.magnificationFactor(), 1.0);
    QCOMPARE(s.rotation(), 0.0);
    QVERIFY(!s.hasValidSettings());
}

void TestHXMapSettings::validity_data() {
    QTest::addColumn<QSize>("size");
    QTest::addColumn<HORect>("extent");
    QTest::addColumn<bool>("valid");
    const HORect extent(0, 100, 0, 50);
    QTest::newRow("size and extent") << QSize(800, 600) << extent << true;
    QTest::newRow("no size") << QSize() << extent << false;
    QTest::newRow("zero height") << QSize(800, 0) << extent << false;
    QTest::newRow("empty extent") << QSize(800, 600) << HORect() << false;
    QTest::newRow("flat extent") << QSize(800, 600) << HORect(0, 100, 5, 5) << false;
}

void TestHXMapSettings::validity() {
    QFETCH(QSize, size);
    QFETCH(HORect, extent);
    QFETCH(bool, valid);
    HXMapSettings s;
    s.setOutputSize(size);
    s.setExtent(extent, true);
    QCOMPARE(s.outputSize(), size);
    QCOMPARE(s.hasValidSettings(), valid);
}

void TestHXMapSettings::extentAndMagnification_data() {
    QTest::addColumn<double>("factorBefore");
    QTest::addColumn<bool>("magnified");
    QTest::addColumn<double>("factorAfter");
    QTest::addColumn<HORect>("expected");
    // The extent given is always (0, 100, 0, 40), centre (50, 20).
    QTest::newRow("magnified extent kept") << 2.0 << true << 2.0 << HORect(0, 100, 0, 40);
    QTest::newRow("unmagnified extent shrinks") << 2.0 << false << 2.0 << HORect(25, 75, 10, 30);
    QTest::newRow("factor 1 changes nothing") << 1.0 << false << 1.0 << HORect(0, 100, 0, 40);
    QTest::newRow("raising the factor shrinks") << 1.0 << true << 4.0 << HORect(37.5, 62.5, 15, 25);
    QTest::newRow("lowering the factor grows") << 2.0 << true << 1.0 << HORect(-50, 150, -20, 60);
}

void TestHXMapSettings::extentAndMagnification() {
    QFETCH(double, factorBefore);
    QFETCH(bool, magnified);
    QFETCH(double, factorAfter);
    QFETCH(HORect, expected);
    HXMapSettings s;
    s.setMagnificationFactor(factorBefore);
    s.setExtent(HORect(0, 100, 0, 40), magnified);
    s.setMagnificationFactor(factorAfter);
    QCOMPARE(s.magnificationFactor(), factorAfter);
    QCOMPARE(s.extent(), expected);
}

void TestHXMapSettings::rejectsBadNumbers() {
    HXMapSettings s;
    s.setMagnificationFactor(2.0);
    s.setRotation(30.0);
    for (double bad :
         {0.0, -1.0, std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity()})
        s.setMagnificationFactor(bad);
    s.setRotation(std::numeric_limits<double>::quiet_NaN());
    QCOMPARE(s.magnificationFactor(), 2.0);
    QCOMPARE(s.rotation(), 30.0);
}

QTEST_APPLESS_MAIN(TestHXMapSettings)
#include "tst_hxmapsettings.moc"
