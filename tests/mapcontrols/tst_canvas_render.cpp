// What the canvas shows: what a redraw stores and a paint draws (map, watermark, notices, licence), the
// tooltip, and a real map after rendering, resizing and a wheel step.
#include <QPainter>
#include <QtTest>
#include <algorithm>
#include <atomic>
#include <thread>

#include "HOCMDPool.h"
#include "HOMap.h"
#include "HOTestColumns.h"
#include "HOTestRectLayer.h"
#include "HOTool.h"
#include "HXMapCanvas.h"
#include "HXMapWidget.h"
#include "HXTooltip.h"

using namespace HXObjects;

namespace {

const QColor kMapColour(10, 200, 30);
const QColor kLand(200, 40, 40);

QImage Filled(const QSize& size, const QColor& colour) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(colour);
    return image;
}

int CountPixels(const QImage& image, const QColor& colour) {
    int n = 0;
    for (int row = 0; row < image.height(); ++row)
        for (int col = 0; col < image.width(); ++col) n += image.pixelColor(col, row) == colour;
    return n;
}

// The largest difference of any colour channel of any pixel; 256 when the sizes differ.
int MaxDifference(const QImage& a, const QImage& b) {
    const QImage x = a.convertToFormat(QImage::Format_ARGB32), y = b.convertToFormat(QImage::Format_ARGB32);
    int worst = x.size() == y.size() ? 0 : 256;
    for (int row = 0; row < x.height() && worst < 256; ++row) {
        for (int col = 0; col < x.width(); ++col) {
            const QRgb p = x.pixel(col, row), q = y.pixel(col, row);
            worst = std::max({worst, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                              std::abs(qBlue(p) - qBlue(q))});
        }
    }
    return worst;
}

// Shows the canvas at the size that gives its drawing widget `size` (the status bar takes 25 px).
HXMapWidget* ShowWithMapSize(HXMapCanvas& canvas, const QSize& size) {
    canvas.setWindowState(Qt::WindowNoState);
    canvas.resize(size.width(), size.height() + 25);
    canvas.show();
    if (!QTest::qWaitForWindowExposed(&canvas)) return nullptr;
    auto* widget = canvas.findChild<HXMapWidget*>();
    return widget->size() == size ? widget : nullptr;
}

// Waits (at most 20 s) until the view has the drawing widget's size and nothing rendering or
// scheduled: the worker's last redraw, made before it went idle, is then in the widget's image.
bool WaitForPicture(HXMapCanvas& canvas) {
    HOMapView* view = canvas.GetMapView();
    const auto* widget = canvas.findChild<HXMapWidget*>();
    return QTest::qWaitFor(
        [&] {
            const HOSize size = view->GetScreenDisplay()->GetDeviceSize();
            return QSize(size.width, size.height) == widget->size() && !view->IsRendering();
        },
        20000);
}

// A 400 x 300 drawing area over the map square (0, 400) x (0, 300) of background, with land in its
// lower left quarter (0, 200) x (0, 150): one map unit per pixel, y growing upwards.
// `widget` is null when the canvas could not be shown or the picture did not come.
struct RealMap {
    RealMap() {
        canvas.enableWaterMask(false);
        widget = ShowWithMapSize(canvas, QSize(400, 300));
        map->SetBackgroundColor(HOColor(kMapColour));
        map->AddLayer(new HOTestRectLayer(HORect(0, 200, 0, 150), kLand));
        canvas.GetMapView()->SetMap(map);
        canvas.setExtent(HORect(0, 400, 0, 300));
        if (!WaitForPicture(canvas)) widget = nullptr;
    }
    HXMapCanvas canvas{HXMapCanvas::MapViewMode, nullptr};
    HORefPtr<HOMap> map = new HOMap();
    HXMapWidget* widget = nullptr;
};

}  // namespace

class TestCanvasRender : public QObject {
    Q_OBJECT

private slots:
    void paintLayers_data() {
        HOAddColumns<bool, bool>({"watermark", "notice"});
        QTest::newRow("map only") << false << false;
        QTest::newRow("map and watermark") << true << false;
        QTest::newRow("map, watermark and notice") << true << true;
    }

    // The map image at the origin, the watermark 2 px in from the bottom right, the notices on top.
    void paintLayers() {
        QFETCH(bool, watermark);
        QFETCH(bool, notice);
        HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
        canvas.enableWaterMask(watermark);
        const QSize size(200, 100);
        HXMapWidget* widget = ShowWithMapSize(canvas, size);
        QVERIFY(widget);
        widget->mImage = Filled(size, kMapColour);
        QImage overlay = Filled(size, Qt::transparent);
        overlay.setPixelColor(190, 95, Qt::blue);
        widget->mOverlayImage = overlay;
        if (notice) widget->mNotices << new HXNoticeItem{"", Qt::blue, 0, 0.0};

        QImage expected = Filled(size, kMapColour);
        QPainter painter(&expected);
        const QImage mark(":/res/WATERMARK.png");
        QVERIFY(!mark.isNull());
        if (watermark)
            painter.drawImage(size.width() - mark.width() - 2, size.height() - mark.height() - 2, mark);
        if (notice) painter.drawImage(0, 0, overlay);
        painter.end();
        // Blending on the screen's format may round differently by a step or two.
        const int difference = MaxDifference(widget->grab().toImage(), expected);
        QVERIFY2(difference <= 2, qPrintable(QString::number(difference)));
    }

    void unlicensedShowsNoMap() {
        HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
        canvas.enableWaterMask(false);
        HXMapWidget* widget = ShowWithMapSize(canvas, QSize(200, 100));
        QVERIFY(widget);
        widget->mImage = Filled(widget->size(), kMapColour);
        widget->slotCheckLic();
        QVERIFY(widget->mLicensed);  // no check was asked for
        canvas.enableMapViewLic(true);
        widget->slotCheckLic();
        QVERIFY(!widget->mLicensed);
        const QImage shown = widget->grab().toImage();
        QCOMPARE(CountPixels(shown, kMapColour), 0);
        // "No license" stands on the centre point (99, 49) and runs rightwards; left of it is background.
        const QColor background = shown.pixelColor(0, 0);
        QVERIFY(CountPixels(shown.copy(99, 35, 100, 15), background) < 100 * 15);
        QCOMPARE(CountPixels(shown.copy(0, 0, 95, 100), background), 95 * 100);
    }

    // A redraw without a sender keeps the image; one on a 0 x 0 widget stores none and paints.
    void redrawBadInput() {
        HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
        auto* widget = canvas.findChild<HXMapWidget*>();
        HOMapView* view = canvas.GetMapView();
        widget->mImage = Filled(QSize(4, 4), kMapColour);
        const qint64 before = widget->mImage.cacheKey();
        view->RedrawSignal.fire(nullptr, nullptr);
        QCOMPARE(widget->mImage.cacheKey(), before);
        widget->resize(0, 0);
        view->RedrawSignal.fire(view, nullptr);
        QVERIFY(widget->mImage.isNull());
        widget->repaint();
    }

    // The render thread replaces the image while the GUI thread paints it (the sanitizers watch).
    void redrawFromWorkerWhilePainting() {
        HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
        HXMapWidget* widget = ShowWithMapSize(canvas, QSize(320, 240));
        QVERIFY(widget);
        HORefPtr<HOMap> map = new HOMap();
        map->SetBackgroundColor(HOColor(kMapColour));
        HOMapView* view = canvas.GetMapView();
        view->SetMap(map);
        std::atomic<bool> done{false};
        std::thread renderer([&] {
            for (int i = 0; i < 200; ++i) view->RedrawSignal.fire(view, nullptr);
            done = true;
        });
        int paints = 0;
        for (; !done; ++paints) {
            widget->repaint();
            QCoreApplication::processEvents();
        }
        renderer.join();
        QCoreApplication::processEvents();
        QVERIFY(paints > 0 && widget->mImage.size() == widget->size());
        QCOMPARE(widget->grab().toImage().pixelColor(1, 1), kMapColour);
    }

    void noticeScrolls_data() {
        // next: -1: the notice is gone
        HOAddColumns<int, int>({"x", "next"});
        // A 150 px widget moves notices by 10 px a tick.
        QTest::newRow("at the left edge") << 0 << 10;
        QTest::newRow("one step short of the edge") << 139 << 149;
        QTest::newRow("reaching the edge exactly") << 140 << 150;
        QTest::newRow("would pass the edge") << 141 << -1;
    }

    void noticeScrolls() {
        QFETCH(int, x);
        QFETCH(int, next);
        HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
        auto* widget = canvas.findChild<HXMapWidget*>();
        widget->resize(150, 100);
        widget->slotUpdate();
        QVERIFY(widget->mOverlayImage.isNull());  // no notices, no overlay
        auto* item = new HXNoticeItem{"Saved", Qt::blue, x, 0.5};
        widget->mNotices << item;
        widget->slotUpdate();
        QCOMPARE(widget->mOverlayImage.size(), QSize(150, 100));
        QCOMPARE(widget->mNotices.size(), next < 0 ? 0 : 1);
        if (next >= 0) QCOMPARE(item->x, next);
        if (x == 0) QVERIFY(CountPixels(widget->mOverlayImage.copy(0, 30, 75, 25), QColor(0, 0, 255)) > 0);
    }

    void tipHidesWhenTheMouseLeaves() {
        HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
        QEvent leave(QEvent::Leave), deactivate(QEvent::WindowDeactivate), enter(QEvent::Enter);
        QCoreApplication::sendEvent(&canvas, &leave);  // no tip yet: nothing to hide
        for (QEvent* event : {&enter, &leave, &deactivate}) {
            canvas.ShowTip(10, 10, "Next point");
            auto* tip = canvas.findChild<HXTooltip*>();
            QVERIFY(tip && tip->isVisible());
            QCoreApplication::sendEvent(&canvas, event);
            QCOMPARE(tip->isVisible(), event == &enter);
        }
    }

    void realMapFollowsResizes() {
        RealMap f;
        QVERIFY(f.widget);
        QImage image = f.widget->grab().toImage();
        QVERIFY(image.pixelColor(100, 225) == kLand && image.pixelColor(300, 225) == kMapColour &&
                image.pixelColor(100, 75) == kMapColour);
        QCOMPARE(CountPixels(image, kLand), 200 * 150);

        QSignalSpy extents(&f.canvas, &HXMapCanvas::extentsChanged);
        f.canvas.resize(500, 425);
        QTRY_COMPARE(f.widget->size(), QSize(500, 400));
        QVERIFY(WaitForPicture(f.canvas));
        QVERIFY(extents.count() > 0);
        QCOMPARE(f.canvas.mapSettings().outputSize(), QSize(500, 400));
        // The scale stays: the land keeps its size in pixels and the new area is drawn too.
        image = f.widget->grab().toImage();
        QCOMPARE(CountPixels(image, kLand), 200 * 150);
        QCOMPARE(CountPixels(image, kLand) + CountPixels(image, kMapColour), 500 * 400);
    }

    // With the scale locked a zoom magnifies: the picture grows about the centre, the scale stays.
    void lockedZoomMagnifies() {
        RealMap f;
        QVERIFY(f.widget);
        // The land's right edge (map x 200) is at pixel 150, the centre (250, 150) at pixel (200, 150).
        f.canvas.setExtent(HORect(50, 450, 0, 300));
        QVERIFY(WaitForPicture(f.canvas));
        QCOMPARE(CountPixels(f.widget->grab().toImage(), kLand), 150 * 150);
        const double scale = f.canvas.scale();
        f.canvas.setScaleLocked(true);
        f.canvas.zoomByFactor(0.5);
        QCOMPARE(f.canvas.magnificationFactor(), 2.0);
        QVERIFY(WaitForPicture(f.canvas));
        QCOMPARE(f.canvas.scale(), scale);
        // Twice as large: the right edge at pixel 200 - 2 * 50, the top edge stays on the centre line.
        const QImage image = f.widget->grab().toImage();
        QCOMPARE(CountPixels(image, kLand), 100 * 150);
        QVERIFY(image.pixelColor(99, 151) == kLand && image.pixelColor(101, 151) == kMapColour);
    }

    void zoomToolsUseTheWheelFactor_data() {
        // wheelFactor: 0: the canvas's own
        HOAddColumns<QString, double, double>({"tool", "wheelFactor", "scaleFactor"});
        QTest::newRow("zoom in, the canvas's factor") << "HXObjects::HOToolZoomIn" << 0.0 << 0.5;
        QTest::newRow("zoom in by 4") << "HXObjects::HOToolZoomIn" << 4.0 << 0.25;
        QTest::newRow("zoom out by 3") << "HXObjects::HOToolZoomOut" << 3.0 << 3.0;
    }

    // A click of a zoom tool zooms by the wheel factor the host gave the canvas.
    void zoomToolsUseTheWheelFactor() {
        QFETCH(QString, tool);
        QFETCH(double, wheelFactor);
        QFETCH(double, scaleFactor);
        RealMap f;
        QVERIFY(f.widget);
        if (wheelFactor > 0) f.canvas.setWheelFactor(wheelFactor);
        f.canvas.setMapTool(HOCMDPool::GetInstance()->GetTool(HOString(tool)));
        const double before = f.canvas.scale();
        QTest::mouseClick(&f.canvas, Qt::LeftButton, {}, QPoint(100, 100));
        QVERIFY2(qFuzzyCompare(f.canvas.scale(), before * scaleFactor),
                 qPrintable(QString::number(f.canvas.scale() / before)));
        f.canvas.setMapTool(static_cast<HOTool*>(nullptr));
        f.canvas.GetMapView()->StopRender(true);
    }

    void wheelZoomsAboutTheCursor_data() {
        HOAddColumns<int, double>({"delta", "scaleFactor"});
        QTest::newRow("one notch in") << 120 << 0.5;
        QTest::newRow("one notch out") << -120 << 2.0;
    }

    void wheelZoomsAboutTheCursor() {
        QFETCH(int, delta);
        QFETCH(double, scaleFactor);
        RealMap f;
        QVERIFY(f.widget);
        HOMapView* view = f.canvas.GetMapView();
        const QPoint cursor(150, 200);
        const HOPoint under = view->GetDisplayTransform().ToMap(cursor.x(), cursor.y());
        const double before = f.canvas.scale();
        QSignalSpy extents(&f.canvas, &HXMapCanvas::extentsChanged);

        // The drawing widget lets the wheel through to the canvas; their origins coincide.
        QWheelEvent event(QPointF(cursor), QPointF(f.canvas.mapToGlobal(cursor)), QPoint(), QPoint(0, delta),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&f.canvas, &event);
        QCOMPARE(f.canvas.scale(), before * scaleFactor);
        const HOPoint after = view->GetDisplayTransform().ToMap(cursor.x(), cursor.y());
        QVERIFY2(std::abs(after.x - under.x) < 1e-6 && std::abs(after.y - under.y) < 1e-6,
                 qPrintable(QString("%1, %2").arg(after.x).arg(after.y)));
        QVERIFY(extents.count() > 0);

        // The land's corner at (200, 150) moves away from (or towards) the cursor by the zoom.
        QVERIFY(WaitForPicture(f.canvas));
        const double corner = cursor.x() + (200 - under.x) / scaleFactor;
        const QImage image = f.widget->grab().toImage();
        QCOMPARE(image.pixelColor(int(corner) - 2, cursor.y()), kLand);
        if (corner + 2 < image.width()) QCOMPARE(image.pixelColor(int(corner) + 2, cursor.y()), kMapColour);
    }
};

QTEST_MAIN(TestCanvasRender)
#include "tst_canvas_render.moc"
