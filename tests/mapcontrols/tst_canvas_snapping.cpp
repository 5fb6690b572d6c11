// Snapping while digitising on a shown canvas: the pointer lands on a vertex, else on a segment, of a
// real feature layer or of a graphic element within the map's tolerance, and not beyond it; Alt
// suspends it; the snapped point is marked.
#include <QtTest>

#include "HOFeatureLayer.h"
#include "HOLayerFixture.h"
#include "HXEditCanvas.h"
#include "edit/HOSnapper.h"

using namespace HXObjects;

class TestCanvasSnapping : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;

    // The canvas with a feature line from map (100, 100) to (300, 100): pixels (100, 200) to (300, 200).
    bool showWithLine(HXEditCanvas& f) {
        const QString path = m_dir.filePath("line.geojson");
        if (!QFile::exists(path) && !HOLayerFixture::WriteVector(path, "GeoJSON", 0, wkbLineString,
                                                                 {{"LINESTRING (100 100,300 100)"}}))
            return false;
        if (!f.show()) return false;
        HORefPtr<HOLayer> layer = OpenLayer(path.toUtf8().data());
        auto* features = dynamic_cast<HOFeatureLayer*>(layer.get());
        if (!features) return false;
        f.map->AddLayer(layer.get());
        // Snapping finds nothing until the layer's spatial index is packed (in the background).
        return QTest::qWaitFor([&] { return !features->PartsIn(HORect(0, 400, 0, 300)).empty(); }, 10000);
    }

private slots:
    void snapWhileDigitizing_data() {
        QTest::addColumn<int>("tolerance");
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("result");  // the new line
        const QString line = "t HOCmdDigitizeLine; c %1; d 200 50";
        QTest::newRow("vertex within tolerance")
            << 10 << line.arg("108 205") << "LINESTRING (100 100,200 250)";
        QTest::newRow("vertex beyond tolerance, segment within")
            << 10 << line.arg("108 209") << "LINESTRING (108 100,200 250)";
        QTest::newRow("beyond both") << 10 << line.arg("108 211") << "LINESTRING (108 89,200 250)";
        QTest::newRow("segment") << 10 << line.arg("200 207") << "LINESTRING (200 100,200 250)";
        QTest::newRow("vertex before a nearer segment")
            << 10 << line.arg("107 206") << "LINESTRING (100 100,200 250)";
        QTest::newRow("wider tolerance of the map")
            << 20 << line.arg("115 212") << "LINESTRING (100 100,200 250)";
        QTest::newRow("off for the map") << 0 << line.arg("101 201") << "LINESTRING (101 99,200 250)";
        QTest::newRow("Alt suspends") << 10 << line.arg("101 201 Alt") << "LINESTRING (101 99,200 250)";
        QTest::newRow("an element's vertex")
            << 10 << "t HOCmdDigitizeLine; c 50 50; d 60 150; c 56 146; d 200 20"
            << "LINESTRING (60 150,200 280)";
    }

    void snapWhileDigitizing() {
        QFETCH(int, tolerance);
        QFETCH(QString, script);
        QFETCH(QString, result);
        HXEditCanvas f;
        QVERIFY(showWithLine(f));
        f.map->SetSnapTolerance(tolerance);
        f.run(script);
        QCOMPARE(f.elements().constLast(), result + "*");
    }

    // The snapped point is marked while the mouse moves: a magenta square around the vertex.
    void snapMark() {
        HXEditCanvas f;
        QVERIFY(showWithLine(f));
        const auto colour = [&](int x, int y) { return f.widget->grab().toImage().pixelColor(x, y); };
        f.run("t HOCmdDigitizeLine; m 106 204");
        QTRY_VERIFY_WITH_TIMEOUT(
            colour(95, 200).red() > 200 && colour(95, 200).blue() > 200 && colour(95, 200).green() < 120,
            10000);
        f.run("m 150 150");
        QTRY_COMPARE_WITH_TIMEOUT(colour(95, 200), kGround, 10000);
    }
};

QTEST_MAIN(TestCanvasSnapping)
#include "tst_canvas_snapping.moc"
