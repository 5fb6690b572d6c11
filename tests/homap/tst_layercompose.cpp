// How a map view lays each layer's picture over the ones below: the layer's opacity and its
// composition mode (a hillshade multiplies the colours beneath it).
#include <QtTest>

#include "HOGraphics.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HOTestRectLayer.h"

using namespace HXObjects;

class TestLayerCompose : public QObject {
    Q_OBJECT

private slots:
    void layerBlendsOverTheOnesBelow_data() {
        QTest::addColumn<int>("composition");
        QTest::addColumn<double>("opacity");
        QTest::addColumn<QColor>("expected");
        // Land (200, 160, 100) under a grey shade (128, 128, 128) on the right half only.
        QTest::newRow("opaque") << int(HOLayer::SourceOver) << 1.0 << QColor(128, 128, 128);
        QTest::newRow("half opaque") << int(HOLayer::SourceOver) << 0.5 << QColor(164, 144, 114);
        QTest::newRow("multiply") << int(HOLayer::Multiply) << 1.0 << QColor(100, 80, 50);
        QTest::newRow("multiply, half opaque") << int(HOLayer::Multiply) << 0.5 << QColor(150, 120, 75);
        QTest::newRow("invisible") << int(HOLayer::SourceOver) << 0.0 << QColor(200, 160, 100);
        QTest::newRow("screen") << int(HOLayer::Screen) << 1.0 << QColor(227, 207, 178);
    }
    void layerBlendsOverTheOnesBelow() {
        QFETCH(int, composition);
        QFETCH(double, opacity);
        QFETCH(QColor, expected);
        HORefPtr<HOMap> map(new HOMap);
        map->AddLayer(HORefPtr<HOLayer>(new HOTestRectLayer(HORect(0, 100, 0, 100), QColor(200, 160, 100))));
        HORefPtr<HOLayer> shade(new HOTestRectLayer(HORect(50, 100, 0, 100), QColor(128, 128, 128)));
        shade->SetComposition(HOLayer::Composition(composition));
        shade->SetOpacity(opacity);
        map->AddLayer(shade);
        HORefPtr<HOMapView> view(new HOMapView("compose"));
        view->SetSize(100, 100);
        view->SetMap(map);
        view->SetExtent(HORect(0, 100, 0, 100));
        QTRY_VERIFY2_WITH_TIMEOUT(!view->IsRendering(), "the map did not finish rendering", 5000);

        HORefPtr<HOGraphics> surface(new HOGraphics);
        surface->SetSize(100, 100);
        view->Draw(surface);
        const QImage image = surface->Image();
        // Blending rounds: a step or two off is the same colour.
        const auto check = [&](const QPoint& at, const QColor& wanted) {
            const QColor got(image.pixel(at));
            const bool close = std::abs(got.red() - wanted.red()) <= 2 &&
                               std::abs(got.green() - wanted.green()) <= 2 &&
                               std::abs(got.blue() - wanted.blue()) <= 2;
            if (!close) QFAIL(qPrintable(QString("got %1, expected %2").arg(got.name(), wanted.name())));
        };
        check({20, 50}, QColor(200, 160, 100));  // the shade covers only the right half
        check({80, 50}, expected);
    }

    void opacityIsClamped_data() {
        QTest::addColumn<double>("set");
        QTest::addColumn<double>("kept");
        QTest::newRow("above one") << 3.0 << 1.0;
        QTest::newRow("negative") << -0.5 << 0.0;
        QTest::newRow("not a number") << std::nan("") << 0.0;
    }
    void opacityIsClamped() {
        QFETCH(double, set);
        QFETCH(double, kept);
        HORefPtr<HOLayer> layer(new HOTestRectLayer(HORect(0, 1, 0, 1), Qt::red));
        layer->SetOpacity(set);
        QCOMPARE(layer->GetOpacity(), kept);
    }
};

QTEST_MAIN(TestLayerCompose)
#include "tst_layercompose.moc"
