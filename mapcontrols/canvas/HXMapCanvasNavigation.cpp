// HXMapCanvas: extent, scale, zoom and magnification. The bound view does the arithmetic; the canvas
// picks the view, applies the scale lock and keeps the scale widget and the host informed.
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "HXMapCanvas.h"
#include "HXStatusBarCoordinatesWidget.h"
#include "HXStatusBarScaleWidget.h"

using namespace HXObjects;

bool HXMapCanvas::wheelEventSt = false;

namespace {

const double kMinMagnification = 0.1;
const double kMaxMagnification = 16.0;
const double kMagnificationTolerance = 0.01;

// The change in billionths, so that decimal steps such as 1.0 -> 1.01 (0.010000000000000009 in
// binary) meet the tolerance exactly.
double MagnificationChange(double to, double from) {
    return std::round((to - from) * 1e9) / 1e9;
}

bool IsFinite(const HOPoint& p) {
    return std::isfinite(p.x) && std::isfinite(p.y);
}

bool IsUsable(const HORect& r) {
    return r.IsFinite() && !r.IsEmpty();
}

bool IsUsableFactor(double factor) {
    return std::isfinite(factor) && factor > 0.0;
}

}  // namespace

HOView* HXMapCanvas::navigatedView() const {
    if (mViewMode == MapViewMode) return GetMapView();
    if (mViewMode == PageLayoutMode) return mPageLayoutView;
    return nullptr;
}

double HXMapCanvas::scale() {
    HOView* view = navigatedView();
    return view ? view->GetScale() : 1.0;
}

HOPoint HXMapCanvas::center() {
    HOView* view = navigatedView();
    return view ? view->GetCenter() : HOPoint();
}

// Always the focus map's extent, in page-layout mode too.
HORect HXMapCanvas::extent() {
    if (mViewMode != MapViewMode && mViewMode != PageLayoutMode) return HORect();
    HOMapView* view = GetMapView();
    return view ? view->GetExtent() : HORect();
}

void HXMapCanvas::setCenter(const HOPoint& p) {
    HOView* view = navigatedView();
    if (!view || !IsFinite(p)) return;
    const HORect current = view->GetExtent();
    // An empty extent has no size to keep (and would recentre again through setExtent for ever).
    if (current.IsEmpty()) return;
    const double halfWidth = current.Width() / 2.0;
    const double halfHeight = current.Height() / 2.0;
    const HORect recentred(p.x - halfWidth, p.x + halfWidth, p.y - halfHeight, p.y + halfHeight);
    // Far out (1e308) the extent's size is lost in rounding; such a rectangle would recentre for ever.
    if (!IsUsable(recentred)) return;
    // The view's extent is the one shown, so it goes in as magnified.
    setExtent(recentred, true);
}

void HXMapCanvas::setExtent(const HORect& rect, bool magnified) {
    if (!rect.IsFinite()) return;
    if (rect == extent() && !magnified) return;
    if (rect.IsEmpty()) {
        if (!mMapSettings.hasValidSettings()) return;
        setCenter(rect.Center());
    } else {
        mMapSettings.setExtent(rect, magnified);
    }
    emit extentsChanged();
    if (HOView* view = navigatedView()) view->SetExtent(rect);
}

void HXMapCanvas::zoomByFactor(double factor, const HOPoint* center) {
    if (!IsUsableFactor(factor) || (center && !IsFinite(*center))) return;
    if (mScaleLocked) {
        setMagnificationFactor(magnificationFactor() / factor);
        return;
    }
    if (HOView* view = navigatedView()) view->ZoomByFactor(factor, center);
}

void HXMapCanvas::zoomScale(double target) {
    if (mViewMode == PageLayoutMode) {
        // The layout sets its own scale; the lock is for map views only.
        if (mPageLayoutView) mPageLayoutView->SetScale(target);
        return;
    }
    HOMapView* view = mViewMode == MapViewMode ? GetMapView() : nullptr;
    if (!view) return;
    const double ratio = target / view->GetScale();
    // A zero scale (the view's or the target) has no ratio to zoom by.
    if (!IsUsableFactor(ratio)) return;
    if (mScaleLocked)
        setMagnificationFactor(magnificationFactor() / ratio);
    else
        view->ZoomByFactor(ratio, nullptr);
}

void HXMapCanvas::zoomIn() {
    if (HOView* view = navigatedView()) view->ZoomIn();
}

void HXMapCanvas::zoomOut() {
    if (HOView* view = navigatedView()) view->ZoomOut();
}

double HXMapCanvas::magnificationFactor() const {
    return mMapSettings.magnificationFactor();
}

void HXMapCanvas::setMagnificationFactor(double factor) {
    // Clamping cannot place a NaN.
    if (std::isnan(factor)) return;
    const double m = std::max(std::min(factor, kMaxMagnification), kMinMagnification);
    const double change = MagnificationChange(m, mMapSettings.magnificationFactor());
    // Lopsided on purpose: a decrease of exactly a hundredth is applied, an increase is not.
    if (change > -kMagnificationTolerance && change <= kMagnificationTolerance) return;
    mMapSettings.setMagnificationFactor(m);
    if (auto* view = dynamic_cast<HOViewportView*>(navigatedView())) view->SetMagnification(m);
    refresh();
    emit magnificationChanged(m);
}

double HXMapCanvas::rotation() const {
    return mMapSettings.rotation();
}

void HXMapCanvas::setScaleLocked(bool locked) {
    mScaleLocked = locked;
}

void HXMapCanvas::setWheelFactor(double factor) {
    mWheelFactor = factor;
}

void HXMapCanvas::updateScale() {
    if (!mScaleWidget) return;
    HOView* view = navigatedView();
    if (!view) return;
    const double s = view->GetScale();
    if (s == 0.0) return;
    mScaleWidget->setScale(1.0 / s);
    if (mCoordsWidget) mCoordsWidget->showMapUnit();
    emit extentsChanged();
}

// The scale widget follows, but the host hears no extentsChanged() from this path.
void HXMapCanvas::ScaleChanged() {
    blockSignals(true);
    updateScale();
    blockSignals(false);
}

void HXMapCanvas::scaleChangedCallback(void*, HOEvent* event) {
    if (event) emit signal_updateScale();
}

void HXMapCanvas::viewBoundChangedCallback(void*, HOEvent*) {
    emit extentsChanged();
}

void HXMapCanvas::wheelEvent(QWheelEvent* e) {
    if (!GetMapView()) return;
    const QPoint pos = e->position().toPoint();
    wheelEventSt = false;
    if (mViewMode != ReservedMode) {
        if (HOView* view = navigatedView()) {
            wheelEventSt = true;
            view->Wheel(0, e->angleDelta().y(), pos.x(), pos.y());
        }
    }
    QWidget::wheelEvent(e);
}
