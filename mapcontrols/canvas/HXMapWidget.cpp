#include "HXMapWidget.h"

#include <QResizeEvent>
#include <QThread>

#include <QPainter>
#include <QThread>

#include "HOGraphicsEngineManager.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HOPageLayoutView.h"
#include "HXLicense.h"
#include "HXMapCanvas.h"

using namespace HXObjects;

namespace {

const int kOverlayIntervalMs = 100;
const int kLicenceIntervalMs = 10000;
// A notice crosses the widget in fifteen ticks.
const int kNoticeStepsPerWidth = 15;

// The resources never change, so each is decoded once rather than on every paint. Above a device
// pixel ratio of 1 the double-resolution picture is taken; its size in logical pixels is the same.
const QImage& WatermarkImage(qreal ratio) {
    static const QImage watermark(":/res/WATERMARK.png");
    static const QImage sharp = [] {
        QImage image(":/res/WATERMARK@2x.png");
        image.setDevicePixelRatio(2);
        return image;
    }();
    return ratio > 1 && !sharp.isNull() ? sharp : watermark;
}

}  // namespace

HXMapWidget::HXMapWidget(HXMapCanvas* canvas) : QWidget(canvas) {
    setMouseTracking(true);
    mUpdateTimer.setInterval(kOverlayIntervalMs);
    connect(&mUpdateTimer, SIGNAL(timeout()), this, SLOT(slotUpdate()));
    mUpdateTimer.start();
    mLicensed = true;
    mLicensedKept = true;
    mLicTimer.setInterval(kLicenceIntervalMs);
    connect(&mLicTimer, SIGNAL(timeout()), this, SLOT(slotCheckLic()));
    mLicTimer.start();
    mRedrawWidth.store(width());
    mRedrawHeight.store(height());
}

HXMapWidget::~HXMapWidget() {
    mUpdateTimer.stop();
    std::lock_guard<std::mutex> lock(mNoticeMutex);
    qDeleteAll(mNotices);
    mNotices.clear();
}

void HXMapWidget::onViewRedraw(void* sender, HOEvent*) {
    if (!sender) return;
    const QSize size = redrawSize();
    const double ratio = mRedrawRatio.load();
    const HORefPtr<HOGraphics> surface = HOGraphicsEngineManager::instance(HOString())->NewGraphics();
    if (!surface) return;
    // Drawn at the screen's resolution, painted at the widget's logical size: sharp on HiDPI screens.
    surface->SetDevicePixelRatio(ratio);
    surface->SetSize(size.width(), size.height());
    surface->Begin();
    // Views fire their signals with themselves as the sender.
    drawView(static_cast<HOView*>(sender), surface);

    // The surface is ours alone and goes with this call: its image is taken over, not copied. The old
    // picture is freed outside the lock.
    surface->End();
    QImage pixels = surface->Image();
    {
        std::lock_guard<std::mutex> lock(mImageMutex);
        std::swap(mImage, pixels);
    }
    scheduleRepaint();
}

void HXMapWidget::drawView(HOView* view, HOGraphics* surface) {
    if (auto* mapView = dynamic_cast<HOMapView*>(view)) {
        HOMap* map = mapView->GetMap();
        surface->Clear(map ? map->GetBackgroundColor() : HOColor(255, 255, 255, 255));
        mapView->Draw(surface);
    } else if (auto* layout = dynamic_cast<HOPageLayoutView*>(view)) {
        surface->Clear(HOColor(255, 255, 255, 255));
        layout->DrawTo(surface, 0);
    }
}

void HXMapWidget::scheduleRepaint() {
    // Views fire their redraw from the render thread; update() belongs to the GUI thread.
    if (QThread::currentThread() == thread())
        update();
    else
        QMetaObject::invokeMethod(
            this, [this] { update(); }, Qt::QueuedConnection);
}

void HXMapWidget::paintEvent(QPaintEvent*) {
    // On a screen of another pixel ratio now: the view renders again at that ratio (no resize tells).
    if (devicePixelRatioF() != mRedrawRatio.load()) {
        QResizeEvent again(size(), size());
        resizeEvent(&again);
    }
    const QImage& watermark = WatermarkImage(devicePixelRatioF());
    const QSize watermarkSize = watermark.size() / watermark.devicePixelRatio();
    // Read before taking the image lock: the two locks are never held together.
    const bool hasNotices = noticeCount() > 0;
    std::lock_guard<std::mutex> lock(mImageMutex);
    QPainter painter(this);
    if (!mLicensed) {
        const QRect r = rect();
        painter.drawText(QPoint((r.left() + r.right()) / 2, (r.top() + r.bottom()) / 2), tr("No license"));
    } else {
        painter.drawImage(0, 0, mImage);
    }
    if (mWaterMask)
        painter.drawImage(width() - watermarkSize.width() - 2, height() - watermarkSize.height() - 2,
                          watermark);
    if (hasNotices) painter.drawImage(0, 0, mOverlayImage);
    painter.end();
}

// The GUI thread reads the widget itself (a hidden widget gets its resize events only when shown);
// a render thread must not, and takes the size the GUI thread last saw.
QSize HXMapWidget::redrawSize() {
    if (QThread::currentThread() != thread()) return QSize(mRedrawWidth.load(), mRedrawHeight.load());
    mRedrawWidth.store(width());
    mRedrawHeight.store(height());
    mRedrawRatio.store(devicePixelRatioF());
    return size();
}

void HXMapWidget::resizeEvent(QResizeEvent* e) {
    mRedrawWidth.store(e->size().width());
    mRedrawHeight.store(e->size().height());
    mRedrawRatio.store(devicePixelRatioF());
    emit sizeChanged(e);
}

void HXMapWidget::slotUpdate() {
    if (noticeCount() == 0) return;
    const int w = width();
    const int h = height();
    if (w <= 0 || h <= 0) return;

    QImage overlay(w, h, QImage::Format_ARGB32_Premultiplied);
    overlay.fill(QColor(255, 255, 255, 0));
    QPainter painter(&overlay);
    painter.setPen(QColor(0, 0, 255, 255));
    QFont font;
    font.setWeight(75);
    font.setPixelSize(20);
    painter.setFont(font);

    const int step = w / kNoticeStepsPerWidth;
    for (int i = noticeCount() - 1; i >= 0; --i) {
        HXNoticeItem* item = noticeAt(i);
        if (!item) continue;
        painter.drawText(item->x, static_cast<int>(h * item->fraction), item->text);
        if (item->x + step <= w)
            item->x += step;
        else
            removeNotice(item);
    }
    painter.end();
    mOverlayImage = overlay.copy();
    update();
}

int HXMapWidget::noticeCount() {
    std::lock_guard<std::mutex> lock(mNoticeMutex);
    return mNotices.count();
}

HXNoticeItem* HXMapWidget::noticeAt(int index) {
    std::lock_guard<std::mutex> lock(mNoticeMutex);
    return index < mNotices.count() ? mNotices.at(index) : nullptr;
}

void HXMapWidget::removeNotice(HXNoticeItem* item) {
    {
        std::lock_guard<std::mutex> lock(mNoticeMutex);
        mNotices.removeOne(item);
    }
    delete item;
}

// With the licence flag set, the map is shown only while the process holds a valid licence (loaded by
// the host through HXLicense); an absent, forged, altered or expired one hides it for good. The check
// reads the licence state from memory, so it never touches a file on the GUI thread.
void HXMapWidget::slotCheckLic() {
    if (!mLicenseFlag || !mLicensed || HXLicense::isValid()) return;
    mLicensed = false;
    update();
}
