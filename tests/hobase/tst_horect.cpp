// HORect: emptiness, union and conversion to and from OGR envelopes.
#include <ogr_core.h>

#include <QtTest>
#include <limits>

#include "HORect.h"
#include "HOTestPrinters.h"

using HXObjects::HOPoint;
using HXObjects::HORect;

class TestHORect : public QObject {
    Q_OBJECT
private slots:
    void emptiness_data();
    void emptiness();
    void fromEnvelope_data();
    void fromEnvelope();
    void toEnvelope_data();
    void toEnvelope();
    void united_data();
    void united();
};

void TestHORect::emptiness_data() {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::addColumn<HORect>("rect");
    QTest::addColumn<bool>("empty");
    QTest::newRow("default") << HORect() << true;
    QTest::newRow("area") << HORect(0, 10, 0, 5) << false;
    QTest::newRow("zero width") << HORect(3, 3, 0, 5) << true;
    QTest::newRow("inverted") << HORect(10, 0, 0, 5) << true;
    QTest::newRow("NaN bound") << HORect(0, nan, 0, 5) << true;
}

void TestHORect::emptiness() {
    QFETCH(HORect, rect);
    QFETCH(bool, empty);
    QCOMPARE(rect.IsEmpty(), empty);
}

void TestHORect::fromEnvelope_data() {
    QTest::addColumn<bool>("initialised");
    QTest::addColumn<HORect>("expected");
    QTest::newRow("uninitialised envelope is empty") << false << HORect();
    QTest::newRow("fields in min x, max x, min y, max y order") << true << HORect(-1.5, 2.5, 10, 20);
}

void TestHORect::fromEnvelope() {
    QFETCH(bool, initialised);
    QFETCH(HORect, expected);
    OGREnvelope envelope;
    if (initialised) {
        envelope.MinX = -1.5;
        envelope.MaxX = 2.5;
        envelope.MinY = 10;
        envelope.MaxY = 20;
    }
    const HORect rect(envelope);
    QCOMPARE(rect, expected);
    QCOMPARE(rect.IsEmpty(), !initialised);
}

void TestHORect::toEnvelope_data() {
    QTest::addColumn<HORect>("rect");
    QTest::addColumn<bool>("initialised");
    QTest::newRow("area round trips") << HORect(100, 200, -50, 50) << true;
    QTest::newRow("empty gives uninitialised envelope") << HORect() << false;
    QTest::newRow("inverted gives uninitialised envelope") << HORect(5, 1, 5, 1) << false;
}

void TestHORect::toEnvelope() {
    QFETCH(HORect, rect);
    QFETCH(bool, initialised);
    const OGREnvelope envelope = rect.ToEnvelope();
    QCOMPARE(envelope.IsInit(), initialised);
    if (initialised) QCOMPARE(HORect(envelope), rect);
}

void TestHORect::united_data() {
    QTest::addColumn<HORect>("a");
    QTest::addColumn<HORect>("b");
    QTest::addColumn<HORect>("expected");
    QTest::newRow("overlapping") << HORect(0, 10, 0, 10) << HORect(5, 20, -5, 5) << HORect(0, 20, -5, 10);
    QTest::newRow("empty left") << HORect() << HORect(1, 2, 3, 4) << HORect(1, 2, 3, 4);
    QTest::newRow("empty right ignored, not the origin")
        << HORect(1, 2, 3, 4) << HORect() << HORect(1, 2, 3, 4);
}

void TestHORect::united() {
    QFETCH(HORect, a);
    QFETCH(HORect, b);
    QFETCH(HORect, expected);
    QCOMPARE(a.United(b), expected);
    QCOMPARE(a.United(b).Center(), expected.Center());
}

QTEST_APPLESS_MAIN(TestHORect)
#include "tst_horect.moc"
