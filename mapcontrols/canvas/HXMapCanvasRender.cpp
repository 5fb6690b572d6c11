// HXMapCanvas: the render controls (status-bar toggle, pause, resume, refresh) and resize handling.
#include <QResizeEvent>
#include <QToolButton>

#include "HXMapCanvas.h"
#include "HXMapWidget.h"
#include "HXTooltip.h"

using namespace HXObjects;

void HXMapCanvas::onRender(bool paused) {
    auto* toggle = qobject_cast<QToolButton*>(sender());
    if (toggle) toggle->setIcon(QIcon(paused ? ":/icon/res/main/stop.png" : ":/icon/res/main/refresh.png"));
    if (paused)
        pauseRender();
    else
        resumeRender();
}

void HXMapCanvas::pauseRender() {
    if (mViewMode == MapViewMode && GetMapView()) GetMapView()->PauseRender();
}

void HXMapCanvas::resumeRender() {
    if (mViewMode != MapViewMode || !GetMapView()) return;
    GetMapView()->ResumeRender();
    GetMapView()->RefreshView(false);
}

void HXMapCanvas::refresh() {
    if (mViewMode == PageLayoutMode && mPageLayoutView) mPageLayoutView->RefreshView(true);
    if (mViewMode == MapViewMode && GetMapView()) GetMapView()->RefreshMap(false, HORect());
}

void HXMapCanvas::onResize(QResizeEvent* e) {
    const QSize size = e->size();
    mMapSettings.setOutputSize(size);
    if (size.width() == 0 || size.height() == 0) return;
    if (mViewMode == MapViewMode && GetMapView()) {
        GetMapView()->SetDevicePixelRatio(mMapWidget->devicePixelRatioF());
        GetMapView()->SetSize(size.width(), size.height());
        GetMapView()->ResizeRefresh(200);
    } else if (mViewMode == PageLayoutMode && mPageLayoutView) {
        mPageLayoutView->SetSize(size.width(), size.height());
        mPageLayoutView->RefreshView(true);
    }
    emit extentsChanged();
}

// The drawing widget and the status bar cover the whole canvas.
void HXMapCanvas::paintEvent(QPaintEvent* e) {
    QWidget::paintEvent(e);
}

bool HXMapCanvas::event(QEvent* e) {
    const bool leaving = e->type() == QEvent::Leave || e->type() == QEvent::WindowDeactivate;
    if (leaving && mTooltip && !mTooltip->isHidden()) mTooltip->hide();
    return QWidget::event(e);
}
