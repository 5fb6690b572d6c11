// A map view over a real feature layer read through OGR: it fits the data, renders the polygons
// where they are, and selects every feature with SelectAll.
#include <QTemporaryDir>
#include <QtTest>

#include "HOFeatureLayer.h"
#include "HOGraphics.h"
#include "HOLayerFixture.h"
#include "HOMap.h"
#include "HOMapScale.h"
#include "HOMapView.h"
#include "HOSignalCounter.h"
#include "HOTestPrinters.h"

using namespace HXObjects;

class tst_MapViewFeatures : public QObject {
    Q_OBJECT

private slots:
    void rendersAndSelectsAFeatureLayer();
};

void tst_MapViewFeatures::rendersAndSelectsAFeatureLayer() {
    QTemporaryDir dir;
    const QString path = dir.filePath("parcels.geojson");
    QVERIFY(HOLayerFixture::WriteVector(path, "GeoJSON", 4326, wkbPolygon,
                                        {{"POLYGON ((10 10, 20 10, 20 20, 10 20, 10 10))", 1, "west"},
                                         {"POLYGON ((30 10, 40 10, 40 20, 30 20, 30 10))", 2, "east"}}));
    HOString error;
    const HORefPtr<HOFeatureLayer> layer = HODynamicCast<HOFeatureLayer>(OpenLayer(path, &error));
    QVERIFY2(layer, error.c_str());
    layer->SetStyle(HOStyle::NewFill(HOColor(255, 0, 0), HOColor(255, 0, 0), 0));
    HORefPtr<HOMap> map(new HOMap);
    map->AddLayer(layer);

    HORefPtr<HOMapView> view(new HOMapView);
    HOSignalCounter finished(view->RenderFinishedSignal);
    view->SetSize(300, 100);
    view->SetMap(map);
    QTRY_VERIFY_WITH_TIMEOUT(finished.count > 0 && !view->IsRendering(), 5000);
    // (10..40, 10..20) fills the 300 x 100 view: ten pixels per degree.
    QCOMPARE(view->GetExtent(), HORect(10, 40, 10, 20));
    HORefPtr<HOGraphics> surface(new HOGraphics);
    surface->SetSize(300, 100);
    view->Draw(surface);
    QCOMPARE(surface->Image().pixel(50, 50), qRgb(255, 0, 0));
    QCOMPARE(surface->Image().pixel(150, 50), qRgb(255, 255, 255));
    QCOMPARE(surface->Image().pixel(250, 50), qRgb(255, 0, 0));
    const double degreeScale =
        0.1 * HOMapScale::MetresPerUnit(HOUnitDegree) * HOMapScale::ScreenDpi() / 0.0254;
    QVERIFY(qFuzzyCompare(view->GetScale(), degreeScale));

    finished.reset();
    view->SelectAll();
    QCOMPARE(layer->GetSelectedIds().size(), std::size_t(2));
    QTRY_VERIFY_WITH_TIMEOUT(finished.count > 0, 5000);  // drawn again with the selection
}

QTEST_MAIN(tst_MapViewFeatures)
#include "tst_mapviewfeatures.moc"
