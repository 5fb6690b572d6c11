// Navigation of a map view (display transform, true scales, zoom about a point, change signals), the
// map's layer list, coordinate system and full extent.
#include <QtTest>
#include <cmath>

#include "HOCoordinateSystem.h"
#include "HOGraphics.h"
#include "HOMap.h"
#include "HOMapScale.h"
#include "HOMapView.h"
#include "HOSignalCounter.h"
#include "HOTestColumns.h"
#include "HOTestPrinters.h"
#include "HOTestRectLayer.h"

using namespace HXObjects;

Q_DECLARE_METATYPE(HOSize)

namespace {

HORefPtr<HOMapView> viewOf(const HOSize& size, const HORect& extent) {
    HORefPtr<HOMapView> view(new HOMapView("test"));
    view->SetSize(size);
    view->SetExtent(extent);
    return view;
}

HORefPtr<HOMap> mapWith(const HORect& extent, HORefPtr<HOCoordinateSystem> crs = nullptr) {
    HORefPtr<HOMap> map(new HOMap);
    map->AddLayer(new HOTestRectLayer(extent, Qt::red, crs));
    return map;
}

HORefPtr<HOMap> mapOf(const QString& names) {
    HORefPtr<HOMap> map(new HOMap);
    for (const QChar name : names) {
        HORefPtr<HOLayer> layer(new HOTestRectLayer(HORect(0, 1, 0, 1), Qt::red));
        layer->SetName(QString(name));
        map->AddLayer(layer);
    }
    return map;
}

QString namesOf(const HOMap& map) {
    QString names;
    for (const auto& layer : map.GetLayers(true)) names += layer->GetName().toQString();
    return names;
}

}  // namespace

class tst_MapView : public QObject {
    Q_OBJECT

private slots:
    void displayTransform_data() {
        // expected: NaN: only the extent's corners are checked
        HOAddColumns<HOSize, HORect, HOPoint, HOPoint>({"size", "extent", "pixel", "expected"});
        // 200x100 showing 400x100: 2 units per pixel, the height grows to 200 about y = 50.
        QTest::newRow("wide, corner")
            << HOSize(200, 100) << HORect(0, 400, 0, 100) << HOPoint(200, 100) << HOPoint(400, -50);
        // 100x100 showing 10x40: 0.4 per pixel, the width grows to 40 about x = 5.
        QTest::newRow("tall, origin")
            << HOSize(100, 100) << HORect(0, 10, 0, 40) << HOPoint(0, 0) << HOPoint(-15, 40);
        QTest::newRow("projected metres") << HOSize(1000, 500) << HORect(500000, 510000, 3000000, 3005000)
                                          << HOPoint(250, 125) << HOPoint(502500, 3003750);
        const HORect odd(123.456, 789.012, -45.5, 300.25);
        const HOPoint none(qQNaN(), qQNaN());
        QTest::newRow("odd size 1921x1081") << HOSize(1921, 1081) << odd << none << none;
        QTest::newRow("odd size 3x7") << HOSize(3, 7) << odd << none << none;
        QTest::newRow("one pixel") << HOSize(1, 1) << odd << none << none;
    }

    void displayTransform() {
        QFETCH(HOSize, size);
        QFETCH(HORect, extent);
        QFETCH(HOPoint, pixel);
        QFETCH(HOPoint, expected);
        const auto view = viewOf(size, extent);
        const HODisplayTransform t = view->GetDisplayTransform();
        if (!std::isnan(expected.x)) {
            QCOMPARE(t.ToMap(pixel.x, pixel.y), expected);
            QCOMPARE(t.ToDevice(expected), pixel);
        }
        // The reported extent is exactly pixel (0, 0) to pixel (width, height) and holds the asked-for one.
        const HORect shown = view->GetExtent();
        QCOMPARE(t.ToMap(0, 0), HOPoint(shown.minx, shown.maxy));
        QCOMPARE(t.ToMap(size.width, size.height), HOPoint(shown.maxx, shown.miny));
        const double e = 1e-9;
        QVERIFY(shown.minx <= extent.minx + e && shown.maxx >= extent.maxx - e);
        QVERIFY(shown.miny <= extent.miny + e && shown.maxy >= extent.maxy - e);
    }

    void scale_data() {
        HOAddColumns<QString, double, double>({"system", "unitsPerPixel", "denominatorAt96"});
        // A 96 dpi pixel is 0.0254 / 96 m: 1 m per pixel is 1:3779.53.
        QTest::newRow("metres") << "EPSG:3857" << 1.0 << 3779.527559055118;
        QTest::newRow("metres, 2.5 per pixel") << "EPSG:3857" << 2.5 << 9448.818897637795;
        // 1 ft = 0.3048 m: 0.3048 * 96 / 0.0254 = 1152 exactly.
        QTest::newRow("international feet")
            << "+proj=tmerc +lat_0=0 +lon_0=0 +k=1 +x_0=0 +y_0=0 +ellps=WGS84 +units=ft +no_defs" << 1.0
            << 1152.0;
        // A degree is 2 * pi * 6378137 / 360 m along the equator.
        QTest::newRow("degrees") << "EPSG:4326" << 0.001 << 420735.08331316005;
    }

    void scale() {
        QFETCH(QString, system);
        QFETCH(double, unitsPerPixel);
        QFETCH(double, denominatorAt96);
        const auto crs = HOCoordinateSystem::FromUserInput(system);
        QVERIFY(crs);
        HORefPtr<HOMapView> view(new HOMapView);
        view->SetMap(mapWith(HORect(0, 1, 0, 1), crs));
        view->SetSize(1000, 500);
        view->SetExtent(HORect(0, 1000 * unitsPerPixel, 0, 500 * unitsPerPixel));
        QVERIFY(qFuzzyCompare(view->GetScale(), denominatorAt96 * HOMapScale::ScreenDpi() / 96.0));
        view->StopRender(true);
    }

    void zoomKeepsThePoint_data() {
        // wheelDelta: 0: ZoomByFactor about the point
        HOAddColumns<int, double, HOPoint>({"wheelDelta", "factor", "pixel"});
        QTest::newRow("in about the top-left quarter") << 0 << 0.5 << HOPoint(100, 75);
        QTest::newRow("out about a corner") << 0 << 2.0 << HOPoint(400, 300);
        QTest::newRow("far out about the origin") << 0 << 16.0 << HOPoint(0, 0);
        QTest::newRow("wheel notch forward") << 120 << 0.5 << HOPoint(321, 45);
        QTest::newRow("wheel notch back") << -120 << 2.0 << HOPoint(321, 45);
        QTest::newRow("wheel two notches") << 240 << 0.25 << HOPoint(321, 45);
        QTest::newRow("touchpad step of 30") << 30 << 0.8408964152537145 << HOPoint(321, 45);  // 2^-0.25
        QTest::newRow("fine step of -8") << -8 << 1.0472941228206267 << HOPoint(321, 45);      // 2^(8/120)
    }

    void zoomKeepsThePoint() {
        QFETCH(int, wheelDelta);
        QFETCH(double, factor);
        QFETCH(HOPoint, pixel);
        const auto view = viewOf(HOSize(400, 300), HORect(0, 4000, 0, 3000));
        const double before = view->GetDisplayTransform().unitsPerPixel;
        const HOPoint fixed = view->GetDisplayTransform().ToMap(pixel.x, pixel.y);
        if (wheelDelta)
            view->Wheel(0, wheelDelta, int(pixel.x), int(pixel.y));
        else
            view->ZoomByFactor(factor, &fixed);
        const HODisplayTransform t = view->GetDisplayTransform();
        QVERIFY(qFuzzyCompare(t.unitsPerPixel, before * factor));
        const HOPoint after = t.ToDevice(fixed);
        QVERIFY2(std::abs(after.x - pixel.x) < 1e-6 && std::abs(after.y - pixel.y) < 1e-6,
                 QTest::toString(after));
    }

    void signalsOnlyOnRealChange() {
        const auto view = viewOf(HOSize(400, 300), HORect(0, 400, 0, 300));
        HOSignalCounter bound(view->BoundChangedSignal), scale(view->ScaleChangedSignal);
        const auto counts = [&] { return qMakePair(bound.count.load(), scale.count.load()); };
        view->SetExtent(HORect(0, 400, 0, 300));  // the same place
        view->SetScale(view->GetScale());
        QCOMPARE(counts(), qMakePair(0, 0));
        view->BeginPan();
        view->PanTo(10, 0);
        QCOMPARE(counts(), qMakePair(0, 0));  // a pan in progress moves only the picture
        view->EndPan(10, 0);
        QCOMPARE(counts(), qMakePair(1, 0));
        const HOPoint centre = view->GetCenter();
        view->ZoomIn();
        QCOMPARE(counts(), qMakePair(2, 1));
        view->SetScale(25000);
        QVERIFY(qFuzzyCompare(view->GetDisplayTransform().unitsPerPixel,
                              25000 * 0.0254 / HOMapScale::ScreenDpi()));
        QCOMPARE(view->GetCenter(), centre);
        view->SetSize(800, 300);  // more of the map shows at the same scale
        QCOMPARE(counts(), qMakePair(4, 2));
        QVERIFY(bound.nullEvents + scale.nullEvents == 0 && bound.lastSender == view.get());
        QVERIFY(view->GetScreenDisplay()->GetDisplayTransform() == view->GetDisplayTransform());
        QCOMPARE(view->GetScreenDisplay()->GetDeviceSize(), HOSize(800, 300));
    }

    void extentBeforeSizeIsFittedLater() {
        HORefPtr<HOMapView> view(new HOMapView);
        view->SetExtent(HORect(0, 100, 0, 50));
        QCOMPARE(view->GetScale(), 0.0);  // no pixels yet: no scale
        view->SetSize(200, 100);
        QVERIFY(view->GetExtent() == HORect(0, 100, 0, 50) &&
                view->GetDisplayTransform().unitsPerPixel == 0.5);
    }

    void navigationLimits_data() {
        // system: EPSG code of the map, 0: none (metres)
        HOAddColumns<int, QString, double>({"system", "moves", "metresPerUnit"});
        const double degree = HOMapScale::MetresPerUnit(HOUnitDegree);
        // The wheel turns at the pixel (390, 10), far from the centre, so the centre runs away too.
        QTest::newRow("sixty notches out") << 0 << "out 60" << 1.0;
        QTest::newRow("sixty notches out and back in") << 0 << "out 60, in 60" << 1.0;
        QTest::newRow("degrees, sixty out and back in") << 4326 << "out 60, in 60" << degree;
        QTest::newRow("a hundred notches in") << 0 << "in 100" << 1.0;
        QTest::newRow("a nanometre extent") << 0 << "fit tiny" << 1.0;
        QTest::newRow("an extent far out") << 0 << "fit far" << 1.0;
        QTest::newRow("degrees, an extent far out") << 4326 << "fit far" << degree;
    }

    // However the view is zoomed or fitted it stays where the map can be found: from a millimetre per
    // pixel to the equator across eight pixels, with the centre within 100 000 km of the origin.
    void navigationLimits() {
        QFETCH(int, system);
        QFETCH(QString, moves);
        QFETCH(double, metresPerUnit);
        const auto view = viewOf(HOSize(400, 300), HORect(100, 120, 20, 35));
        view->SetMap(
            mapWith(HORect(100, 120, 20, 35), system ? HOCoordinateSystem::FromEpsg(system) : nullptr));
        view->StopRender(true);
        for (const QString& move : moves.split(", ")) {
            const QStringList word = move.split(' ');
            for (int i = 0; word[0] != "fit" && i < word[1].toInt(); ++i)
                view->Wheel(0, word[0] == "in" ? 120 : -120, 390, 10);
            if (move == "fit tiny") view->SetExtent(HORect(5, 5 + 1e-9, 5, 5 + 1e-9));
            if (move == "fit far") view->SetExtent(HORect(1e15, 1e15 + 1000, -1e15, -1e15 + 1000));
        }
        view->StopRender(true);
        const double metresPerPixel = view->GetDisplayTransform().unitsPerPixel * metresPerUnit;
        const HOPoint centre = view->GetCenter();
        QVERIFY2(
            metresPerPixel >= 0.001 * (1 - 1e-9) && metresPerPixel <= 2 * M_PI * 6378137.0 / 8 * (1 + 1e-9),
            qPrintable(QString::number(metresPerPixel)));
        QVERIFY2(std::abs(centre.x) * metresPerUnit <= 1e8 * (1 + 1e-9) &&
                     std::abs(centre.y) * metresPerUnit <= 1e8 * (1 + 1e-9),
                 qPrintable(QString("%1, %2").arg(centre.x).arg(centre.y)));
        QVERIFY(std::isfinite(view->GetScale()) && view->GetScale() > 0);
    }

    // The full extent lies 8 pixels in from the nearer edges, so features on its boundary show whole;
    // a magnification draws larger at the same scale.
    void fullExtentMarginAndMagnification() {
        const auto view = viewOf(HOSize(400, 300), HORect(0, 10, 0, 10));
        view->SetMap(mapWith(HORect(0, 400, 0, 100)));
        view->ZoomToFullExtent();
        view->StopRender(true);
        const HODisplayTransform shown = view->GetDisplayTransform();
        QCOMPARE(shown.ToDevice(HOPoint(0, 100)).x, 8.0);
        QCOMPARE(shown.ToDevice(HOPoint(400, 0)).x, 392.0);
        QCOMPARE(view->GetCenter(), HOPoint(200, 50));

        HOSignalCounter bound(view->BoundChangedSignal), scale(view->ScaleChangedSignal);
        const double before = view->GetScale();
        view->SetMagnification(2.0);
        view->StopRender(true);
        QVERIFY(view->GetScale() == before && view->GetCenter() == HOPoint(200, 50));
        QCOMPARE(view->GetDisplayTransform().unitsPerPixel, shown.unitsPerPixel / 2);
        QVERIFY(bound.count == 1 && scale.count == 0);
        view->SetScale(before / 2);  // the scale asked for, drawn magnified
        QCOMPARE(view->GetScale(), before / 2);
        QCOMPARE(view->GetDisplayTransform().unitsPerPixel, shown.unitsPerPixel / 4);
    }

    void badInputIsANoOp() {
        const auto view = viewOf(HOSize(400, 300), HORect(0, 400, 0, 300));
        HOSignalCounter bound(view->BoundChangedSignal);
        const HORect before = view->GetExtent();
        view->SetExtent(HORect(5, 5, 0, 10));
        view->SetExtent(HORect(0, 10, 3, 3));
        view->SetExtent(HORect(0, qQNaN(), 0, 10));
        view->SetScale(0);
        view->SetScale(-5);
        view->ZoomByFactor(0, nullptr);
        view->ZoomByFactor(qInf(), nullptr);
        view->Wheel(0, 0, 10, 10);
        QVERIFY(view->GetExtent() == before && bound.count == 0);

        // A view of no size draws nothing and reports no scale; without a map nothing renders or hangs.
        view->SetSize(0, 0);
        QCOMPARE(view->GetScale(), 0.0);
        HORefPtr<HOGraphics> surface(new HOGraphics);
        surface->SetSize(10, 10);
        view->Draw(surface);
        view->Draw(nullptr);
        view->SetSize(400, 300);
        view->RefreshMap(false, HORect());
        view->ZoomToFullExtent();
        QVERIFY(!view->IsRendering());
    }

    void moveLayer_data() {
        HOAddColumns<int, int, QString, int>({"from", "to", "expected", "changes"});
        QTest::newRow("first to last") << 0 << 3 << "BCDA" << 1;
        QTest::newRow("last to first") << 3 << 0 << "DABC" << 1;
        QTest::newRow("one down") << 1 << 2 << "ACBD" << 1;
        QTest::newRow("past the end clamps") << 0 << 99 << "BCDA" << 1;
        QTest::newRow("negative clamps") << 2 << -5 << "CABD" << 1;
        QTest::newRow("to its own place") << 1 << 1 << "ABCD" << 0;
    }

    void moveLayer() {
        QFETCH(int, from);
        QFETCH(int, to);
        const auto map = mapOf("ABCD");
        HOSignalCounter changed(map->LayersChangedSignal);
        map->MoveLayer(map->GetLayers(true)[std::size_t(from)], to);
        QTEST(namesOf(*map), "expected");
        QTEST(changed.count.load(), "changes");
    }

    void layerEditsSignalOnlyRealChange() {
        const auto map = mapOf("AB");  // layers without a coordinate system
        HOSignalCounter changed(map->LayersChangedSignal);
        const HORefPtr<HOLayer> a = map->GetLayers(true)[0];
        HORefPtr<HOLayer> stranger(new HOTestRectLayer(HORect(0, 1, 0, 1), Qt::red));
        map->AddLayer(a);  // already there
        map->AddLayer(nullptr);
        map->SetLayerVisible(a, true);  // already visible
        map->MoveLayer(stranger, 0);    // not there
        QVERIFY(map->GetLayerCount() == 2 && changed.count == 0);
        map->SetLayerVisible(a, false);
        QVERIFY(!a->IsVisible() && changed.count == 1);
        map->RemoveLayer(a);
        map->RemoveLayer(a);  // no longer there
        QVERIFY(namesOf(*map) == "B" && changed.count == 2);
        QCOMPARE(a->RefCount(), 1);  // the map let go of it
        QVERIFY(changed.nullEvents == 0 && changed.lastSender == map.get());

        // The system and display unit are those of the first layer that has a system, until one is set.
        QVERIFY(!map->GetSpatialReference() && map->GetMapDisplayUnit() == HOUnitMeter);
        const auto wgs84 = HOCoordinateSystem::FromEpsg(4326), mercator = HOCoordinateSystem::FromEpsg(3857);
        map->AddLayer(new HOTestRectLayer(HORect(0, 1, 0, 1), Qt::red, wgs84));
        map->AddLayer(new HOTestRectLayer(HORect(0, 1, 0, 1), Qt::red, mercator));
        QVERIFY(map->GetSpatialReference().get() == wgs84.get() && map->GetMapDisplayUnit() == HOUnitDegree);
        changed.reset();
        map->SetSpatialReference(mercator);
        map->SetSpatialReference(mercator);
        QVERIFY(map->GetSpatialReference().get() == mercator.get() && changed.count == 1);
    }

    void fullExtent_data() {
        // hidden: index of a hidden layer, -1 for none
        HOAddColumns<QList<HORect>, int, HORect>({"layers", "hidden", "expected"});
        const QList<HORect> two{HORect(1, 2, 3, 4), HORect(-5, 0, 3.5, 10)};
        QTest::newRow("no layers") << QList<HORect>() << -1 << HORect();
        QTest::newRow("union") << two << -1 << HORect(-5, 2, 3, 10);
        QTest::newRow("hidden layers do not count") << two << 1 << HORect(1, 2, 3, 4);
        QTest::newRow("a point is widened")
            << QList<HORect>{HORect(7, 7, 8, 8)} << -1 << HORect(6.5, 7.5, 7.5, 8.5);
        QTest::newRow("a line is widened")
            << QList<HORect>{HORect(0, 10, 5, 5)} << -1 << HORect(0, 10, 0, 10);
        QTest::newRow("inverted is ignored") << QList<HORect>{HORect(2, 1, 0, 1)} << -1 << HORect();
        // A layer without features (the empty rectangle) or with a broken extent takes no part.
        QTest::newRow("an empty layer is ignored")
            << QList<HORect>{HORect(), HORect(5, 6, 5, 6)} << -1 << HORect(5, 6, 5, 6);
        QTest::newRow("a non-finite extent is ignored")
            << QList<HORect>{HORect(5, 6, 5, 6), HORect(0, qInf(), 0, 1)} << -1 << HORect(5, 6, 5, 6);
    }

    void fullExtent() {
        QFETCH(QList<HORect>, layers);
        QFETCH(int, hidden);
        HORefPtr<HOMap> map(new HOMap);
        for (int i = 0; i < layers.size(); ++i) {
            HORefPtr<HOLayer> layer(new HOTestRectLayer(layers[i], Qt::red));
            layer->SetVisible(i != hidden);
            map->AddLayer(layer);
        }
        QTEST(map->GetFullExtent(), "expected");
    }
};

QTEST_MAIN(tst_MapView)
#include "tst_mapview.moc"
