// A layer over the memory budget, drawn from its source: the same picture as the same file loaded
// whole (from the source and from its simplified overview), and the same answers to identify,
// select and feature lookups; it refuses edits with a reason.
#include <QTemporaryDir>
#include <QtTest>
#include <cmath>

#include "HOFeatureLayer.h"
#include "HOLayerFixture.h"
#include "HOTestPrinters.h"

using namespace HXObjects;

Q_DECLARE_METATYPE(std::vector<int>)

namespace {

constexpr int kTimeout = 30000;

// Rings of 1440 vertices on a 12 x 12 grid of 100-unit cells, radii varying so edges meet and miss;
// closer than the overview's tolerance, so that it drops about half of them.
std::vector<HOLayerFixture::Feature> rings() {
    std::vector<HOLayerFixture::Feature> features;
    for (int cell = 0; cell < 144; ++cell) {
        const double cx = 50 + 100 * (cell % 12), cy = 50 + 100 * (cell / 12), r = 30 + cell % 5 * 5;
        QString wkt = QStringLiteral("POLYGON((");
        for (int i = 0; i <= 1440; ++i) {
            const double a = 2 * M_PI * (i % 1440) / 1440;
            wkt += QStringLiteral("%1%2 %3")
                       .arg(i ? "," : "")
                       .arg(cx + r * std::cos(a))
                       .arg(cy + r * std::sin(a));
        }
        features.emplace_back((wkt + "))").toStdString());
    }
    return features;
}

bool near(QRgb p, QRgb q) {
    return std::max({std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                     std::abs(qBlue(p) - qBlue(q))}) <= 32;
}

// How many pixels of `drawn` have no pixel of the same colour in `expected` within `reach` pixels
// (exactly the same colour when the reach is 0, else within a few shades).
int unmatchedPixels(const QImage& expected, const QImage& drawn, int reach) {
    int count = 0;
    for (int y = 0; y < drawn.height(); ++y)
        for (int x = 0; x < drawn.width(); ++x) {
            bool matched = false;
            for (int dy = -reach; dy <= reach && !matched; ++dy)
                for (int dx = -reach; dx <= reach && !matched; ++dx) {
                    const QPoint at(x + dx, y + dy);
                    matched =
                        expected.rect().contains(at) && (reach ? near(expected.pixel(at), drawn.pixel(x, y))
                                                               : expected.pixel(at) == drawn.pixel(x, y));
                }
            count += !matched;
        }
    return count;
}

}  // namespace

class TestStreamedLayer : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        QVERIFY(m_dir.isValid());
        for (const QString suffix : {"gpkg", "shp"}) {
            const QString path = m_dir.filePath("rings." + suffix);
            m_loaded[suffix] = HOLayerFixture::OpenVector(path, 4509, wkbPolygon, rings());
            QVERIFY(m_loaded[suffix]);
            // Less than the layer needs, more than its overview.
            HOFeatureLayer::SetMemoryBudget(m_loaded[suffix]->GetGeometryBytes() * 3 / 4);
            m_streamed[suffix] = HODynamicCast<HOFeatureLayer>(OpenLayer(HOString(path)));
            HOFeatureLayer::SetMemoryBudget(0);
            QVERIFY(m_streamed[suffix]);
            QVERIFY(!m_loaded[suffix]->IsStreamed() && m_streamed[suffix]->IsStreamed());
            QCOMPARE(m_streamed[suffix]->GetFeatureCount(), 144);
            QCOMPARE(m_streamed[suffix]->GetExtent(), m_loaded[suffix]->GetExtent());
        }
    }

    void drawsTheSamePicture_data() {
        QTest::addColumn<QString>("suffix");
        QTest::addColumn<HORect>("extent");
        QTest::addColumn<bool>("fromOverview");  // else read from the source
        QTest::addColumn<std::vector<int>>("selected");
        QTest::addColumn<int>("mapEpsg");  // 0: the layer's system; else the whole layer in that one
        const HORect whole(0, 1200, 0, 1200), zoomed(430, 460, 230, 260);
        for (const QString suffix : {"gpkg", "shp"}) {
            QTest::addRow("%s, whole layer, overview", qPrintable(suffix))
                << suffix << whole << true << std::vector<int>{} << 0;
            QTest::addRow("%s, deep zoom across edges, source", qPrintable(suffix))
                << suffix << zoomed << false << std::vector<int>{} << 0;
        }
        QTest::newRow("gpkg, selection over the source")
            << "gpkg" << zoomed << false << std::vector<int>{40, 41} << 0;
        QTest::newRow("gpkg, selection over the overview")
            << "gpkg" << whole << true << std::vector<int>{5, 77} << 0;
        QTest::newRow("gpkg, another system, source")
            << "gpkg" << HORect() << false << std::vector<int>{} << 4490;
    }

    void drawsTheSamePicture() {
        QFETCH(QString, suffix);
        QFETCH(HORect, extent);
        QFETCH(bool, fromOverview);
        QFETCH(std::vector<int>, selected);
        QFETCH(int, mapEpsg);
        const HORefPtr<HOCoordinateSystem> system = mapEpsg ? HOCoordinateSystem::FromEpsg(mapEpsg) : nullptr;
        if (system) extent = m_loaded[suffix]->GetExtentIn(system);
        HOFeatureLayer* streamed = m_streamed[suffix].get();
        // The overview is built on its own thread after the open; it holds the only geometry kept.
        if (fromOverview) QTRY_VERIFY_WITH_TIMEOUT(streamed->GetGeometryBytes() > 0, kTimeout);
        m_loaded[suffix]->SetSelectedIds(selected);
        streamed->SetSelectedIds(selected);
        const QSize size(240, 240);
        const QImage expected = HOLayerFixture::Render({m_loaded[suffix].get()}, extent, size, system);
        const QImage drawn = HOLayerFixture::Render({streamed}, extent, size, system);
        m_loaded[suffix]->ClearSelection();
        streamed->ClearSelection();
        QVERIFY(expected != HOLayerFixture::WhiteImage(size));
        // The overview drops vertices within a seventeenth of a pixel: outlines may step a pixel aside.
        const int unmatched = unmatchedPixels(expected, drawn, fromOverview ? 1 : 0);
        QVERIFY2(unmatched == 0, qPrintable(QString::number(unmatched)));
    }

    void answersAsLoaded_data() {
        QTest::addColumn<HORect>("rect");
        QTest::newRow("inside one ring") << HORect(440, 460, 240, 260);
        QTest::newRow("across four rings") << HORect(80, 120, 80, 120);
        // Within the rings' boxes, outside the rings: only the geometry decides.
        QTest::newRow("box corners only") << HORect(96, 104, 96, 104);
        QTest::newRow("a point on a ring") << HORect(80, 80, 50, 50);
        QTest::newRow("outside the layer") << HORect(2000, 2100, 2000, 2100);
    }

    void answersAsLoaded() {
        QFETCH(HORect, rect);
        HOFeatureLayer* loaded = m_loaded["gpkg"].get();
        HOFeatureLayer* streamed = m_streamed["gpkg"].get();
        const std::vector<int> ids = loaded->IdentifyIn(rect);
        QCOMPARE(streamed->IdentifyIn(rect), ids);
        QCOMPARE(streamed->IdentifyAt(HOPoint(rect.minx, rect.miny), 1),
                 loaded->IdentifyAt(HOPoint(rect.minx, rect.miny), 1));
        QCOMPARE(streamed->SelectByRect(rect, false), int(ids.size()));
        QCOMPARE(streamed->GetSelectedIds(), ids);
        streamed->ClearSelection();
        for (const int id : ids) {
            const HORefPtr<HOFeature> feature = streamed->GetFeature(id);
            QVERIFY(feature);
            QVERIFY(feature->GetGeometry()->Parts() == loaded->GetFeatureGeometry(id)->Parts());
        }
    }

    void refusesEdits() {
        HOFeatureLayer* streamed = m_streamed["gpkg"].get();
        QVERIFY(!streamed->IsEditable());
        QVERIFY(streamed->GetReadOnlyReason().toQString().contains("memory budget"));
        std::vector<HOFeatureChange> changes(1);
        changes[0].before = streamed->GetFeature(1);
        HOString error;
        QVERIFY(!streamed->ApplyChanges(changes, &error));
        QCOMPARE(error, streamed->GetReadOnlyReason());
    }

private:
    QTemporaryDir m_dir;
    std::map<QString, HORefPtr<HOFeatureLayer>> m_loaded, m_streamed;
};

QTEST_MAIN(TestStreamedLayer)
#include "tst_streamedlayer.moc"
