// Opening a large source on a worker: the GUI thread's event loop keeps turning while it reads, the
// share read only rises and ends at 1, and a cancelled opening hands out no layer and lets go of
// everything it read (the leak checker watches the rest).
#include <QTimer>
#include <QtTest>
#include <algorithm>

#include "HODataSource.h"
#include "HOLayerOpening.h"
#include "HOLayerOpeningEvent.h"

using namespace HXObjects;

class TestLayerOpening : public QObject {
    Q_OBJECT

private slots:
    void opening_data() {
        QTest::addColumn<bool>("cancel");
        QTest::newRow("read to the end") << false;
        QTest::newRow("cancelled at its first report") << true;
    }

    void opening() {
        QFETCH(bool, cancel);
        const QString path = qEnvironmentVariable("HX_TEST_DATA") + "/large/region.gpkg";
        HORefPtr<HODataSource> listing = HODataSource::Open(path.toUtf8().constData());
        QVERIFY2(listing, qPrintable("no large sample at " + path));
        // A zero timer ticks whenever the loop is free; a GUI thread stuck in the read would let the
        // reports pile up with no tick between them.
        int ticks = 0, run = 0, longestRun = 0, finished = 0;
        QTimer timer;
        timer.setInterval(0);
        connect(&timer, &QTimer::timeout, [&] { ++ticks, run = 0; });
        timer.start();
        std::vector<double> shares;
        HORefPtr<HOLayerOpening> opening = HOLayerOpening::Start(path.toUtf8().constData());
        opening->ProgressSignal.bind("test", [&](void*, HOEvent* event) {
            shares.push_back(static_cast<HOLayerOpeningEvent*>(event)->progress);
            longestRun = std::max(longestRun, ++run);
            if (cancel) opening->Cancel();
        });
        opening->FinishedSignal.bind("test", [&](void*, HOEvent* event) {
            ++finished;
            QCOMPARE(static_cast<HOLayerOpeningEvent*>(event)->cancelled, cancel);
        });
        QCOMPARE(finished, 0);
        const int ticksAtStart = ticks;
        QTRY_COMPARE_WITH_TIMEOUT(finished, 1, 120000);
        QVERIFY2(ticks - ticksAtStart > 2 && longestRun <= 20,
                 qPrintable(QString("%1 ticks while reading, up to %2 reports without one")
                                .arg(ticks - ticksAtStart)
                                .arg(longestRun)));
        QVERIFY(!shares.empty());
        QVERIFY(std::is_sorted(shares.begin(), shares.end()));
        QCOMPARE(opening->IsCancelled(), cancel);
        if (cancel) {
            QVERIFY(opening->GetLayers().empty());
        } else {
            QCOMPARE(shares.back(), 1.0);
            QVERIFY2(shares.size() > 5, "the share read was hardly reported");
            QCOMPARE(opening->GetLayers().size(), listing->GetLayerNames().size());
            QVERIFY2(opening->GetErrors().isEmpty(), opening->GetErrors().c_str());
        }
        // The worker lets go of the opening once it is done.
        QTRY_COMPARE_WITH_TIMEOUT(opening->RefCount(), 1, 10000);
    }
};

QTEST_MAIN(TestLayerOpening)
#include "tst_layeropening_large.moc"
