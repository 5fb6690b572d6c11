// How a map view, and a map drawn at once for a page, lay each layer over the ones below: the
// layer's opacity and its composition mode (a hillshade multiplies the colours beneath it).
#include <QPicture>
#include <QtTest>

#include "HOGraphics.h"
#include "HOMap.h"
#include "HOMapPainter.h"
#include "HOMapView.h"
#include "HOTestColumns.h"
#include "HOTestRectLayer.h"

using namespace HXObjects;

class TestLayerCompose : public QObject {
    Q_OBJECT

private:
    enum Surface { View, Image, Vector };

    // The map over 100 x 100 pixels, as a map view shows it.
    static QImage shown(const HORefPtr<HOMap>& map) {
        HORefPtr<HOMapView> view(new HOMapView("compose"));
        view->SetSize(100, 100);
        view->SetMap(map);
        view->SetExtent(HORect(0, 100, 0, 100));
        if (!QTest::qWaitFor([&] { return !view->IsRendering(); }, 5000)) return {};
        HORefPtr<HOGraphics> surface(new HOGraphics);
        surface->SetSize(100, 100);
        view->Draw(surface);
        return surface->Image();
    }
    // The same, drawn at once as for a page: onto an image, or recorded by a vector device (one
    // that cannot blend, as a PDF) and played back onto an image.
    static QImage painted(const HOMap& map, bool vector) {
        HODisplayTransform at;
        at.extentTop = 100.0;
        QPicture picture;
        QImage image(100, 100, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::white);
        {
            QPainter painter;
            if (vector)
                painter.begin(&picture);
            else
                painter.begin(&image);
            HOMapPainter::Paint(painter, map, at, HOSize(100, 100), HOMapPainter::kScreenDpi, nullptr);
        }
        if (vector) QPainter(&image).drawPicture(0, 0, picture);
        return image;
    }

private slots:
    void layerBlendsOverTheOnesBelow_data() {
        HOAddColumns<int, double, QColor, int>({"composition", "opacity", "expected", "surface"});
        // Land (200, 160, 100) under a grey shade (128, 128, 128) on the right half only.
        for (const int surface : {View, Image, Vector}) {
            const char* on = surface == View ? "view" : surface == Image ? "image" : "vector page";
            QTest::addRow("%s, opaque", on)
                << int(HOLayer::SourceOver) << 1.0 << QColor(128, 128, 128) << surface;
            QTest::addRow("%s, half opaque", on)
                << int(HOLayer::SourceOver) << 0.5 << QColor(164, 144, 114) << surface;
            QTest::addRow("%s, multiply", on)
                << int(HOLayer::Multiply) << 1.0 << QColor(100, 80, 50) << surface;
            QTest::addRow("%s, multiply, half opaque", on)
                << int(HOLayer::Multiply) << 0.5 << QColor(150, 120, 75) << surface;
            QTest::addRow("%s, invisible", on)
                << int(HOLayer::SourceOver) << 0.0 << QColor(200, 160, 100) << surface;
            QTest::addRow("%s, screen", on)
                << int(HOLayer::Screen) << 1.0 << QColor(227, 207, 178) << surface;
        }
    }
    void layerBlendsOverTheOnesBelow() {
        QFETCH(int, composition);
        QFETCH(double, opacity);
        QFETCH(QColor, expected);
        QFETCH(int, surface);
        HORefPtr<HOMap> map(new HOMap);
        map->AddLayer(HORefPtr<HOLayer>(new HOTestRectLayer(HORect(0, 100, 0, 100), QColor(200, 160, 100))));
        HORefPtr<HOLayer> shade(new HOTestRectLayer(HORect(50, 100, 0, 100), QColor(128, 128, 128)));
        shade->SetComposition(HOLayer::Composition(composition));
        shade->SetOpacity(opacity);
        map->AddLayer(shade);
        const QImage image = surface == View ? shown(map) : painted(*map, surface == Vector);
        QVERIFY2(!image.isNull(), "the map did not finish rendering");
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
        HOAddColumns<double, double>({"set", "kept"});
        QTest::newRow("above one") << 3.0 << 1.0;
        QTest::newRow("negative") << -0.5 << 0.0;
        QTest::newRow("not a number") << std::nan("") << 0.0;
    }
    void opacityIsClamped() {
        QFETCH(double, set);
        HORefPtr<HOLayer> layer(new HOTestRectLayer(HORect(0, 1, 0, 1), Qt::red));
        layer->SetOpacity(set);
        QTEST(layer->GetOpacity(), "kept");
    }
};

QTEST_MAIN(TestLayerCompose)
#include "tst_layercompose.moc"
