// Edits survive a crash whole or not at all: a helper process applies a known stream of edits
// (add, change, delete, undo) to a GeoPackage and to a shapefile and is killed (SIGKILL) at random
// moments, many times; after each kill the file must open and hold exactly the state after the
// last step the helper reported, or after the one it was writing — never a mix, nothing lost.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <QElapsedTimer>
#include <QProcess>
#include <QRandomGenerator>
#include <QtTest>

#include "HODataSource.h"

using namespace HXObjects;

namespace {

// "step x y note" of every feature after `steps` steps of the stream, sorted.
QStringList Expected(int steps) {
    QStringList state;
    for (int b = 1; b <= steps; b += 4) {
        const int phase = std::min(steps - b, 3);
        if (phase == 0) state << QString("%1 %1 %1 ").arg(b);
        if (phase == 1 || phase == 3) state << QString("%1 %2 %3 u").arg(b).arg(b + 1).arg(-(b + 1));
    }
    state.sort();
    return state;
}

// The same, read from the file with OGR after the front door has opened it (a shapefile's
// interrupted swap is finished or dropped then); a message when it does not open.
QStringList Stored(const QString& path) {
    HOString error;
    if (!HODataSource::Open(path.toUtf8().constData(), &error))
        return {"does not open: " + error.toQString()};
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    GDALDatasetUniquePtr dataset(GDALDataset::Open(path.toUtf8(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
    if (!dataset || dataset->GetLayerCount() != 1) return {"OGR cannot read it"};
    QStringList state;
    for (auto& feature : *dataset->GetLayer(0)) {
        const OGRPoint* p = feature->GetGeometryRef() ? feature->GetGeometryRef()->toPoint() : nullptr;
        state << QString("%1 %2 %3 %4")
                     .arg(feature->GetFieldAsInteger("step"))
                     .arg(p ? p->getX() : NAN)
                     .arg(p ? p->getY() : NAN)
                     .arg(feature->GetFieldAsString("note"));
    }
    state.sort();
    return state;
}

}  // namespace

class TestFeatureEditKill : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() { GDALAllRegister(); }

    void kill_data() {
        QTest::addColumn<QString>("driver");
        QTest::addColumn<QString>("file");
        QTest::addColumn<int>("kills");
        QTest::newRow("GeoPackage") << "GPKG"
                                    << "stream.gpkg" << 110;
        QTest::newRow("Shapefile") << "ESRI Shapefile"
                                   << "stream.shp" << 110;
    }

    void kill() {
        QFETCH(QString, driver);
        QFETCH(QString, file);
        QFETCH(int, kills);
        QTemporaryDir dir;
        const QString path = dir.filePath(file);
        {
            GDALDatasetUniquePtr dataset(GetGDALDriverManager()
                                             ->GetDriverByName(driver.toUtf8())
                                             ->Create(path.toUtf8(), 0, 0, 0, GDT_Unknown, nullptr));
            OGRLayer* layer = dataset->CreateLayer("stream", nullptr, wkbPoint);
            OGRFieldDefn step("step", OFTInteger), note("note", OFTString);
            QVERIFY(layer->CreateField(&step) == OGRERR_NONE && layer->CreateField(&note) == OGRERR_NONE);
        }
        QRandomGenerator random(20261123);
        int done = 0, interrupted = 0, inWrites = 0;
        QElapsedTimer spent;
        spent.start();
        for (int kill = 0; kill < kills; ++kill) {
            QProcess helper;
            helper.start(HX_EDIT_STREAM, {path, "stream", QString::number(done + 1)});
            QVERIFY2(helper.waitForStarted(10000), "the helper did not start");
            // Let it finish 0, 1 or 2 steps first, so that the stream moves on however busy the machine.
            const int stepsFirst = int(random.bounded(0, 3));
            QByteArray said;
            while (!said.contains("ready\n") || said.count('\n') - said.count("writing") - 1 < stepsFirst) {
                QVERIFY2(helper.waitForReadyRead(20000),
                         qPrintable("the helper never got that far: " + helper.readAllStandardError()));
                said += helper.readAllStandardOutput();
            }
            QTest::qSleep(int(random.bounded(1, 30)));  // the random moment of the kill
            helper.kill();
            QVERIFY2(helper.waitForFinished(10000), "the killed helper did not end");
            said += helper.readAllStandardOutput();
            QVERIFY2(helper.exitStatus() == QProcess::CrashExit,
                     qPrintable("the helper stopped by itself: " + helper.readAllStandardError()));
            int reported = done;
            bool inWrite = false;
            for (const QByteArray& line : said.trimmed().split('\n')) {
                if (line.startsWith("writing"))
                    inWrite = true;
                else if (line != "ready")
                    reported = line.toInt(), inWrite = false;
            }
            inWrites += inWrite;
            const QStringList stored = Stored(path);
            if (stored == Expected(reported + 1)) {
                done = reported + 1;
                ++interrupted;
            } else {
                QVERIFY2(stored == Expected(reported),
                         qPrintable(
                             QString("after kill %1 at step %2 the file holds:\n  %3\nbut should hold:\n  %4")
                                 .arg(kill)
                                 .arg(reported)
                                 .arg(stored.join("\n  "), Expected(reported).join("\n  "))));
                done = reported;
            }
        }
        qInfo(
            "%d kills in %lld ms: %d steps done, %d kills inside a step, %d after a write reached the disk "
            "before its report",
            kills, spent.elapsed(), done, inWrites, interrupted);
        // Kills must have landed inside writes, not only between them.
        QVERIFY2(done >= kills / 2 && inWrites >= kills / 4,
                 "the stream hardly moved: the kills proved little");
    }
};

QTEST_MAIN(TestFeatureEditKill)
#include "tst_featureedit_kill.moc"
