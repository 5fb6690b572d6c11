#include "HXMapCanvasFrame.h"

#include <QVBoxLayout>

HXMapCanvasFrame::HXMapCanvasFrame(QWidget* parent) : QWidget(parent) {
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
}

HXMapCanvas* HXMapCanvasFrame::canvas() {
    if (mCanvas) return mCanvas;
    mCanvas = new HXMapCanvas(mViewMode, this);
    // A canvas asks to be maximised as a window; inside a form it is a child that fills the frame.
    mCanvas->setWindowState(Qt::WindowNoState);
    layout()->addWidget(mCanvas);
    applySettings();
    emit canvasCreated(mCanvas);
    return mCanvas;
}

void HXMapCanvasFrame::setViewMode(HXMapCanvas::ViewMode mode) {
    if (mode == mViewMode) return;
    mViewMode = mode;
    if (!mCanvas) return;
    delete mCanvas;
    canvas();
}

void HXMapCanvasFrame::setWaterMark(bool enabled) {
    mWaterMark = enabled;
    applySettings();
}

void HXMapCanvasFrame::setLicenceRequired(bool required) {
    mLicenceRequired = required;
    applySettings();
}

void HXMapCanvasFrame::setWheelFactor(double factor) {
    mWheelFactor = factor;
    applySettings();
}

void HXMapCanvasFrame::setScaleLocked(bool locked) {
    mScaleLocked = locked;
    applySettings();
}

void HXMapCanvasFrame::showEvent(QShowEvent* e) {
    canvas();
    QWidget::showEvent(e);
}

void HXMapCanvasFrame::applySettings() {
    if (!mCanvas) return;
    mCanvas->enableWaterMask(mWaterMark);
    mCanvas->enableMapViewLic(mLicenceRequired);
    mCanvas->setWheelFactor(mWheelFactor);
    mCanvas->setScaleLocked(mScaleLocked);
}
