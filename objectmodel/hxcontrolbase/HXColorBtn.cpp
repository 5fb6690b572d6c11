#include "HXColorBtn.h"

#include <QColorDialog>
#include <QPainter>
#include <QStyleOptionToolButton>

namespace {
constexpr int kSwatchMargin = 4;
}

HXColorBtn::HXColorBtn(QWidget* parent) : QToolButton(parent) {
    setMinimumSize(32, 20);
    connect(this, &QToolButton::clicked, this, &HXColorBtn::chooseColor);
}

void HXColorBtn::setColor(const QColor& color) {
    if (!color.isValid()) return;
    const QColor opaque = QColor::fromRgb(color.rgb());
    if (opaque == mColor) return;
    mColor = opaque;
    update();
    emit colorChanged(mColor);
}

void HXColorBtn::chooseColor() {
    // Qt's own dialog: it behaves the same on every desktop and can be driven in tests.
    const QColor picked =
        QColorDialog::getColor(mColor, this, tr("Select color"), QColorDialog::DontUseNativeDialog);
    setColor(picked);  // invalid when cancelled, which changes nothing
}

void HXColorBtn::paintEvent(QPaintEvent* event) {
    QToolButton::paintEvent(event);  // frame and hover state of the style
    QStyleOptionToolButton option;
    initStyleOption(&option);
    const QRect area = style()->subControlRect(QStyle::CC_ToolButton, &option, QStyle::SC_ToolButton, this);
    const QRect swatch = area.adjusted(kSwatchMargin, kSwatchMargin, -kSwatchMargin - 1, -kSwatchMargin - 1);
    if (swatch.isEmpty()) return;
    QPainter painter(this);
    painter.setPen(isEnabled() ? palette().color(QPalette::Shadow) : palette().color(QPalette::Mid));
    painter.setBrush(isEnabled() ? mColor : palette().color(QPalette::Disabled, QPalette::Button));
    painter.drawRect(swatch);
}
