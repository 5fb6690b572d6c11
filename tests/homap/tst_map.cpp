// HOMap: layer order and its edits, the change signal, the coordinate system (the first layer's while
// none is set), the display unit, and the full extent.
#include <QtTest>

#include "HOCoordinateSystem.h"
#include "HOMap.h"
#include "HOSignalCounter.h"
#include "HOTestPrinters.h"
#include "HOTestRectLayer.h"

using namespace HXObjects;

class tst_Map : public QObject {
    Q_OBJECT

private:
    static HORefPtr<HOMap> mapOf(const QString& names) {
        HORefPtr<HOMap> map(new HOMap);
        for (const QChar name : names) {
            HORefPtr<HOLayer> layer(new HOTestRectLayer(HORect(0, 1, 0, 1), Qt::red));
            layer->SetName(QString(name));
            map->AddLayer(layer);
        }
        return map;
    }
    static QString namesOf(const HOMap& map) {
        QString names;
        for (const auto& layer : map.GetLayers(true)) names += layer->GetName().toQString();
        return names;
    }

private slots:
    void moveLayer_data();
    void moveLayer();
    void addAndRemove();
    void visibility();
    void spatialReference();
    void displayUnit();
    void fullExtent_data();
    void fullExtent();
    void background();
};

void tst_Map::moveLayer_data() {
    QTest::addColumn<int>("from");
    QTest::addColumn<int>("to");
    QTest::addColumn<QString>("expected");
    QTest::addColumn<int>("changes");
    QTest::newRow("first to last") << 0 << 3 << "BCDA" << 1;
    QTest::newRow("last to first") << 3 << 0 << "DABC" << 1;
    QTest::newRow("one down") << 1 << 2 << "ACBD" << 1;
    QTest::newRow("past the end clamps") << 0 << 99 << "BCDA" << 1;
    QTest::newRow("negative clamps") << 2 << -5 << "CABD" << 1;
    QTest::newRow("to its own place") << 1 << 1 << "ABCD" << 0;
}

void tst_Map::moveLayer() {
    QFETCH(int, from);
    QFETCH(int, to);
    QFETCH(QString, expected);
    QFETCH(int, changes);
    const auto map = mapOf("ABCD");
    HOSignalCounter changed(map->LayersChangedSignal);
    map->MoveLayer(map->GetLayers(true)[std::size_t(from)], to);
    QCOMPARE(namesOf(*map), expected);
    QCOMPARE(changed.count.load(), changes);
}

void tst_Map::addAndRemove() {
    const auto map = mapOf("AB");
    HOSignalCounter changed(map->LayersChangedSignal);
    const HORefPtr<HOLayer> a = map->GetLayers(true)[0];
    map->AddLayer(a);  // already there
    map->AddLayer(nullptr);
    QCOMPARE(map->GetLayerCount(), 2);
    QCOMPARE(changed.count.load(), 0);

    map->RemoveLayer(a);
    QCOMPARE(namesOf(*map), QString("B"));
    map->RemoveLayer(a);  // no longer there
    HORefPtr<HOLayer> stranger(new HOTestRectLayer(HORect(0, 1, 0, 1), Qt::red));
    map->MoveLayer(stranger, 0);
    QCOMPARE(changed.count.load(), 1);
    QCOMPARE(a->RefCount(), 1);  // the map let go of it
    QCOMPARE(changed.nullEvents.load(), 0);
    QCOMPARE(changed.lastSender.load(), static_cast<void*>(map.get()));
}

void tst_Map::visibility() {
    const auto map = mapOf("A");
    HOSignalCounter changed(map->LayersChangedSignal);
    HOLayer* a = map->GetLayers(true)[0];
    map->SetLayerVisible(a, true);  // already visible
    QCOMPARE(changed.count.load(), 0);
    map->SetLayerVisible(a, false);
    QVERIFY(!a->IsVisible());
    QCOMPARE(changed.count.load(), 1);
}

void tst_Map::spatialReference() {
    HORefPtr<HOMap> map(new HOMap);
    QVERIFY(!map->GetSpatialReference());
    const auto wgs84 = HOCoordinateSystem::FromEpsg(4326);
    const auto mercator = HOCoordinateSystem::FromEpsg(3857);
    QVERIFY(wgs84 && mercator);
    map->AddLayer(new HOTestRectLayer(HORect(0, 1, 0, 1), Qt::red));  // without a system
    map->AddLayer(new HOTestRectLayer(HORect(0, 1, 0, 1), Qt::red, wgs84));
    map->AddLayer(new HOTestRectLayer(HORect(0, 1, 0, 1), Qt::red, mercator));
    QCOMPARE(map->GetSpatialReference().get(), wgs84.get());

    HOSignalCounter changed(map->LayersChangedSignal);
    map->SetSpatialReference(mercator);
    QCOMPARE(map->GetSpatialReference().get(), mercator.get());
    QCOMPARE(changed.count.load(), 1);
    map->SetSpatialReference(mercator);
    QCOMPARE(changed.count.load(), 1);
}

void tst_Map::displayUnit() {
    HORefPtr<HOMap> map(new HOMap);
    QCOMPARE(map->GetMapDisplayUnit(), HOUnitMeter);
    map->AddLayer(new HOTestRectLayer(HORect(0, 1, 0, 1), Qt::red, HOCoordinateSystem::FromEpsg(4326)));
    QCOMPARE(map->GetMapDisplayUnit(), HOUnitDegree);  // the system's unit until one is chosen
    map->SetMapDisplayUnit(HOUnitDegreeMinuteSecond);
    QCOMPARE(map->GetMapDisplayUnit(), HOUnitDegreeMinuteSecond);
}

void tst_Map::fullExtent_data() {
    QTest::addColumn<QList<HORect>>("layers");
    QTest::addColumn<int>("hidden");  // index of a hidden layer, -1 for none
    QTest::addColumn<HORect>("expected");
    QTest::newRow("no layers") << QList<HORect>() << -1 << HORect();
    QTest::newRow("one") << QList<HORect>{HORect(1, 2, 3, 4)} << -1 << HORect(1, 2, 3, 4);
    QTest::newRow("union") << QList<HORect>{HORect(1, 2, 3, 4), HORect(-5, 0, 3.5, 10)} << -1
                           << HORect(-5, 2, 3, 10);
    QTest::newRow("hidden layers do not count")
        << QList<HORect>{HORect(1, 2, 3, 4), HORect(-5, 0, 3.5, 10)} << 1 << HORect(1, 2, 3, 4);
    QTest::newRow("a single point is widened")
        << QList<HORect>{HORect(7, 7, 8, 8)} << -1 << HORect(6.5, 7.5, 7.5, 8.5);
    QTest::newRow("a horizontal line is widened")
        << QList<HORect>{HORect(0, 10, 5, 5)} << -1 << HORect(0, 10, 0, 10);
    QTest::newRow("an inverted extent is ignored") << QList<HORect>{HORect(2, 1, 0, 1)} << -1 << HORect();
}

void tst_Map::fullExtent() {
    QFETCH(QList<HORect>, layers);
    QFETCH(int, hidden);
    QFETCH(HORect, expected);
    HORefPtr<HOMap> map(new HOMap);
    for (int i = 0; i < layers.size(); ++i) {
        HORefPtr<HOLayer> layer(new HOTestRectLayer(layers[i], Qt::red));
        layer->SetVisible(i != hidden);
        map->AddLayer(layer);
    }
    QCOMPARE(map->GetFullExtent(), expected);
}

void tst_Map::background() {
    HORefPtr<HOMap> map(new HOMap);
    QCOMPARE(map->GetBackgroundColor(), HOColor(255, 255, 255));
    map->SetBackgroundColor(HOColor(10, 20, 30, 40));
    QCOMPARE(map->GetBackgroundColor(), HOColor(10, 20, 30, 40));
    QVERIFY(map->GetGraphicsLayer());
    QCOMPARE(map->GetGraphicsLayer()->GetLayerType(), HOLayer::GraphicsLayer);
}

QTEST_MAIN(tst_Map)
#include "tst_map.moc"
