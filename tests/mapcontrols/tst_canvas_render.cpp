// The drawing widget and the canvas's render controls: what a redraw stores, what a paint shows, how
// notices scroll, and which view operations the toggle, pause, resume, refresh and resize reach.
#include <QPainter>
#include <QStatusBar>
#include <QToolButton>
#include <QtTest>
#include <atomic>
#include <thread>

#include "HOMap.h"
#include "HXCanvasProbe.h"
#include "HXMapWidget.h"
#include "HXRecordingCanvas.h"
#include "HXTooltip.h"

using namespace HXObjects;
using namespace HXCanvasProbe;

Q_DECLARE_METATYPE(HXMapCanvas::ViewMode)

namespace {

const QColor kMapColour(10, 200, 30);

QImage Filled(const QSize& size, const QColor& colour) {
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(colour);
    return image;
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

QImage IconImage(const QIcon& icon) {
    return icon.pixmap(16, 16).toImage();
}

}  // namespace

class TestCanvasRender : public QObject {
    Q_OBJECT

private slots:
    void paintLayers_data();
    void paintLayers();
    void unlicensedShowsNoMap();
    void redrawWithoutSenderKeepsImage();
    void redrawOnEmptyWidget();
    void redrawFromWorkerWhilePainting();
    void noticeScrolls_data();
    void noticeScrolls();
    void toggle_data();
    void toggle();
    void renderControls_data();
    void renderControls();
    void resize_data();
    void resize();
    void tipHidesWhenTheMouseLeaves_data();
    void tipHidesWhenTheMouseLeaves();
};

void TestCanvasRender::paintLayers_data() {
    QTest::addColumn<bool>("watermark");
    QTest::addColumn<bool>("notice");
    QTest::newRow("map only") << false << false;
    QTest::newRow("map and watermark") << true << false;
    QTest::newRow("map, watermark and notice") << true << true;
}

// The map image at the origin, the watermark 2 px in from the bottom right, the notices on top.
void TestCanvasRender::paintLayers() {
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
    QVERIFY2(difference >= 0 && difference <= 2, qPrintable(QString::number(difference)));
}

void TestCanvasRender::unlicensedShowsNoMap() {
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
    const QImage text = shown.copy(QRect(99, 35, 100, 15));
    QVERIFY(CountPixels(text, background) < text.width() * text.height());
    QCOMPARE(CountPixels(shown.copy(0, 0, 95, 100), background), 95 * 100);
}

void TestCanvasRender::redrawWithoutSenderKeepsImage() {
    HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
    auto* widget = canvas.findChild<HXMapWidget*>();
    widget->mImage = Filled(QSize(4, 4), kMapColour);
    const qint64 before = widget->mImage.cacheKey();
    canvas.GetMapView()->RedrawSignal.fire(nullptr, nullptr);
    QCOMPARE(widget->mImage.cacheKey(), before);
}

void TestCanvasRender::redrawOnEmptyWidget() {
    HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
    auto* widget = canvas.findChild<HXMapWidget*>();
    widget->resize(0, 0);
    HOMapView* view = canvas.GetMapView();
    view->RedrawSignal.fire(view, nullptr);
    QVERIFY(widget->mImage.isNull());
    widget->repaint();
}

// The render thread replaces the image while the GUI thread paints it (the sanitizers watch).
void TestCanvasRender::redrawFromWorkerWhilePainting() {
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
    while (!done) {
        widget->repaint();
        QCoreApplication::processEvents();
        ++paints;
    }
    renderer.join();
    QCoreApplication::processEvents();
    QVERIFY(paints > 0);
    QCOMPARE(widget->mImage.size(), widget->size());
    QCOMPARE(widget->grab().toImage().pixelColor(1, 1), kMapColour);
}

void TestCanvasRender::noticeScrolls_data() {
    QTest::addColumn<int>("x");
    QTest::addColumn<int>("next");  // -1: the notice is gone
    // A 150 px widget moves notices by 10 px a tick.
    QTest::newRow("at the left edge") << 0 << 10;
    QTest::newRow("one step short of the edge") << 139 << 149;
    QTest::newRow("reaching the edge exactly") << 140 << 150;
    QTest::newRow("would pass the edge") << 141 << -1;
}

void TestCanvasRender::noticeScrolls() {
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
    if (next < 0) {
        QVERIFY(widget->mNotices.isEmpty());
        return;
    }
    QCOMPARE(widget->mNotices.size(), 1);
    QCOMPARE(item->x, next);
    if (x == 0) QVERIFY(CountPixels(widget->mOverlayImage.copy(0, 30, 75, 25), QColor(0, 0, 255)) > 0);
}

void TestCanvasRender::toggle_data() {
    QTest::addColumn<HXMapCanvas::ViewMode>("mode");
    QTest::addColumn<QStringList>("paused");
    QTest::addColumn<QStringList>("resumed");
    QTest::newRow("map view") << HXMapCanvas::MapViewMode << QStringList{"PauseRender"}
                              << QStringList{"ResumeRender", "RefreshView 0"};
    QTest::newRow("page layout") << HXMapCanvas::PageLayoutMode << QStringList() << QStringList();
}

void TestCanvasRender::toggle() {
    QFETCH(HXMapCanvas::ViewMode, mode);
    QFETCH(QStringList, paused);
    QFETCH(QStringList, resumed);
    HXRecordingCanvas fixture(mode);
    QToolButton* button = RenderToggle(fixture.canvas);
    QVERIFY(button);
    QCOMPARE(IconImage(button->icon()), IconImage(QIcon(":/icon/res/main/refresh.png")));

    button->setChecked(true);
    QCOMPARE(IconImage(button->icon()), IconImage(QIcon(":/icon/res/main/stop.png")));
    QCOMPARE(fixture.map->calls(), paused);
    fixture.map->clearCalls();
    button->setChecked(false);
    QCOMPARE(IconImage(button->icon()), IconImage(QIcon(":/icon/res/main/refresh.png")));
    QCOMPARE(fixture.map->calls(), resumed);
    QCOMPARE(fixture.layout->calls(), QStringList());
}

void TestCanvasRender::renderControls_data() {
    QTest::addColumn<HXMapCanvas::ViewMode>("mode");
    QTest::addColumn<QString>("member");
    QTest::addColumn<QStringList>("mapCalls");
    QTest::addColumn<QStringList>("layoutCalls");
    const QStringList none;
    QTest::newRow("map: pause") << HXMapCanvas::MapViewMode << "pause" << QStringList{"PauseRender"} << none;
    QTest::newRow("map: resume") << HXMapCanvas::MapViewMode << "resume"
                                 << QStringList{"ResumeRender", "RefreshView 0"} << none;
    QTest::newRow("layout: pause") << HXMapCanvas::PageLayoutMode << "pause" << none << none;
    QTest::newRow("layout: resume") << HXMapCanvas::PageLayoutMode << "resume" << none << none;
    QTest::newRow("layout: refresh") << HXMapCanvas::PageLayoutMode << "refresh" << none
                                     << QStringList{"RefreshView 1"};
    QTest::newRow("reserved: pause") << HXMapCanvas::ReservedMode << "pause" << none << none;
    QTest::newRow("reserved: resume") << HXMapCanvas::ReservedMode << "resume" << none << none;
    QTest::newRow("reserved: refresh") << HXMapCanvas::ReservedMode << "refresh" << none << none;
}

void TestCanvasRender::renderControls() {
    QFETCH(HXMapCanvas::ViewMode, mode);
    QFETCH(QString, member);
    QFETCH(QStringList, mapCalls);
    QFETCH(QStringList, layoutCalls);
    HXRecordingCanvas fixture(mode);
    QSignalSpy refreshed(&fixture.canvas, &HXMapCanvas::mapCanvasRefreshed);
    if (member == "pause") fixture.canvas.pauseRender();
    if (member == "resume") fixture.canvas.resumeRender();
    if (member == "refresh") fixture.canvas.refresh();
    QCOMPARE(fixture.map->calls(), mapCalls);
    QCOMPARE(fixture.layout->calls(), layoutCalls);
    QCOMPARE(refreshed.count(), 0);
}

void TestCanvasRender::resize_data() {
    QTest::addColumn<HXMapCanvas::ViewMode>("mode");
    QTest::addColumn<QSize>("size");
    QTest::addColumn<QStringList>("mapCalls");
    QTest::addColumn<QStringList>("layoutCalls");
    QTest::addColumn<int>("extentSignals");
    const QStringList none;
    QTest::newRow("map") << HXMapCanvas::MapViewMode << QSize(300, 200)
                         << QStringList{"SetSize 300x200", "ResizeRefresh 200"} << none << 1;
    QTest::newRow("map, no width") << HXMapCanvas::MapViewMode << QSize(0, 200) << none << none << 0;
    QTest::newRow("map, no height") << HXMapCanvas::MapViewMode << QSize(300, 0) << none << none << 0;
    QTest::newRow("layout") << HXMapCanvas::PageLayoutMode << QSize(300, 200) << none
                            << QStringList{"SetSize 300x200", "RefreshView 1"} << 1;
    QTest::newRow("layout, empty") << HXMapCanvas::PageLayoutMode << QSize(0, 0) << none << none << 0;
    QTest::newRow("reserved") << HXMapCanvas::ReservedMode << QSize(300, 200) << none << none << 1;
}

void TestCanvasRender::resize() {
    QFETCH(HXMapCanvas::ViewMode, mode);
    QFETCH(QSize, size);
    QFETCH(QStringList, mapCalls);
    QFETCH(QStringList, layoutCalls);
    QFETCH(int, extentSignals);
    HXRecordingCanvas fixture(mode);
    QSignalSpy extents(&fixture.canvas, &HXMapCanvas::extentsChanged);
    QResizeEvent event(size, QSize(640, 480));
    QCoreApplication::sendEvent(fixture.canvas.findChild<HXMapWidget*>(), &event);
    QCOMPARE(fixture.canvas.mapSettings().outputSize(), size);
    QCOMPARE(fixture.map->calls(), mapCalls);
    QCOMPARE(fixture.layout->calls(), layoutCalls);
    QCOMPARE(extents.count(), extentSignals);
}

void TestCanvasRender::tipHidesWhenTheMouseLeaves_data() {
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("stays");
    QTest::newRow("leave") << int(QEvent::Leave) << false;
    QTest::newRow("window deactivated") << int(QEvent::WindowDeactivate) << false;
    QTest::newRow("enter") << int(QEvent::Enter) << true;
}

void TestCanvasRender::tipHidesWhenTheMouseLeaves() {
    QFETCH(int, type);
    QFETCH(bool, stays);
    HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
    QEvent before{QEvent::Type(type)};
    QCoreApplication::sendEvent(&canvas, &before);  // no tip yet: nothing to hide
    canvas.ShowTip(10, 10, "Next point");
    auto* tip = canvas.findChild<HXTooltip*>();
    QVERIFY(tip && tip->isVisible());
    QEvent event{QEvent::Type(type)};
    QCoreApplication::sendEvent(&canvas, &event);
    QCOMPARE(tip->isVisible(), stays);
}

QTEST_MAIN(TestCanvasRender)
#include "tst_canvas_render.moc"
