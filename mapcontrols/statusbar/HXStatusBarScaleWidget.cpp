#include "HXStatusBarScaleWidget.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSignalBlocker>
#include <cmath>

#include "HXMapCanvas.h"
#include "HXScaleComboBox.h"

HXStatusBarScaleWidget::HXStatusBarScaleWidget(QWidget* parent) : QWidget(parent) {
    mLayout = new QHBoxLayout(this);

    mScaleLabel = new QLabel(QString(), this);
    mScaleLabel->setObjectName(QStringLiteral("mScaleLabel"));
    mScaleLabel->setMargin(3);
    mScaleLabel->setAlignment(Qt::AlignCenter);
    mScaleLabel->setFrameStyle(QFrame::NoFrame);
    mScaleLabel->setText(tr("Scale"));
    mScaleLabel->setToolTip(tr("Current map scale"));

    mScaleEdit = new HXScaleComboBox(this);
    mScaleEdit->setObjectName(QStringLiteral("mScaleEdit"));
    mScaleEdit->setContentsMargins(0, 0, 0, 0);
    mScaleEdit->setScale(1.0);
    mScaleEdit->setWhatsThis(tr("Displays the current map scale"));
    mScaleEdit->setToolTip(tr("Current map scale (x:y)"));

    mLayout->addWidget(mScaleLabel);
    mLayout->addWidget(mScaleEdit);
    mLayout->setContentsMargins(0, 0, 0, 0);
    mLayout->setAlignment(Qt::AlignRight);
    mLayout->setSpacing(0);

    connect(mScaleEdit, SIGNAL(scaleChanged(double)), this, SLOT(userScale()));
}

HXStatusBarScaleWidget::~HXStatusBarScaleWidget() = default;

void HXStatusBarScaleWidget::setMapCanvas(HXMapCanvas* canvas) {
    mMapCanvas = canvas;
}

void HXStatusBarScaleWidget::setFont(const QFont& font) {
    mScaleLabel->setFont(font);
    mScaleEdit->lineEdit()->setFont(font);
}

void HXStatusBarScaleWidget::setScale(double scale) {
    const QSignalBlocker blocker(mScaleEdit);
    mScaleEdit->setScale(scale);
}

void HXStatusBarScaleWidget::updateScales(const QStringList& scales) {
    mScaleEdit->updateScales(scales);
}

void HXStatusBarScaleWidget::updateScales() {
    mScaleEdit->updateScales();
}

void HXStatusBarScaleWidget::userScale() {
    if (!mMapCanvas) return;
    mMapCanvas->zoomScale(1.0 / mScaleEdit->scale());
    // A scale the canvas did not take (0, or one beyond its zoom limits) gives way to the one shown.
    const double shown = mMapCanvas->scale();
    if (std::isfinite(shown) && shown > 0.0) setScale(1.0 / shown);
}
