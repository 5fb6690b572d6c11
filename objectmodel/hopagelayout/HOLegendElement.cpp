#include "HOLegendElement.h"

#include <QCoreApplication>
#include <QLinearGradient>
#include <QPainter>

#include "HOFeatureLayer.h"
#include "HOMap.h"
#include "HOMapPainter.h"
#include "HOMapView.h"
#include "HOPageText.h"
#include "HOStylePainter.h"

namespace HXObjects {

namespace {

constexpr double kMmPerInch = 25.4;
constexpr double kPaddingMm = 2.5;
constexpr double kRowMm = 5.0;
constexpr double kSwatchW = 8.0, kSwatchH = 4.0;
const HOPageText::Style kTitleStyle{10.0, true, Qt::black};
const HOPageText::Style kRowStyle{8.0, false, Qt::black};

// Styles are sized in screen pixels, 1/96 inch on paper: the sample is drawn at that size.
void drawSwatch(QPainter& painter, const HOPageRenderContext& context, HOLayer& layer, const QRectF& rect) {
    painter.save();
    if (auto* features = dynamic_cast<HOFeatureLayer*>(&layer)) {
        const double k = context.PixelsPerMm() * kMmPerInch / HOMapPainter::kScreenDpi;
        painter.translate(rect.topLeft());
        painter.scale(k, k);
        if (const HORefPtr<HOStyle> style = features->GetStyle())
            HOStylePainter::DrawPreview(painter, *style, QRectF(0, 0, rect.width() / k, rect.height() / k));
    } else {
        QLinearGradient ramp(rect.topLeft(), rect.topRight());
        ramp.setColorAt(0, Qt::black);
        ramp.setColorAt(1, Qt::white);
        painter.setPen(Qt::NoPen);
        painter.fillRect(rect, ramp);
    }
    painter.restore();
}

}  // namespace

HOLegendElement::HOLegendElement()
    : HOMapSurroundElement(HOElementLegend),
      m_title(QCoreApplication::translate("HOLegendElement", "Legend")) {
    set_size(50.0, 40.0);
}

void HOLegendElement::draw(QPainter& painter, const HOPageRenderContext& context) {
    const QRectF box = context.ToDevice(get_bounds());
    painter.save();
    painter.setPen(QPen(Qt::black, context.ToPixels(0.2)));
    painter.setBrush(Qt::white);
    painter.drawRect(box);
    painter.restore();

    const double pad = context.ToPixels(kPaddingMm), row = context.ToPixels(kRowMm);
    double y = box.top() + pad;
    HOPageText::Draw(painter, context, QRectF(box.left() + pad, y, box.width() - 2 * pad, row), m_title,
                     kTitleStyle, Qt::AlignLeft | Qt::AlignVCenter);
    y += row;
    const HODataFrame* frame = get_frame();
    HOMapView* view = frame ? frame->get_map_view() : nullptr;
    HOMap* map = view ? view->GetMap() : nullptr;
    if (!map) return;
    auto layers = map->GetLayers(true);
    painter.save();
    painter.setClipRect(box);
    const double swatchW = context.ToPixels(kSwatchW), swatchH = context.ToPixels(kSwatchH);
    for (auto it = layers.rbegin(); it != layers.rend() && y + row <= box.bottom(); ++it) {
        if (!(*it)->IsVisible()) continue;
        drawSwatch(painter, context, **it,
                   QRectF(box.left() + pad, y + (row - swatchH) / 2, swatchW, swatchH));
        const double textLeft = box.left() + 2 * pad + swatchW;
        HOPageText::Draw(painter, context, QRectF(textLeft, y, box.right() - pad - textLeft, row),
                         (*it)->GetName().toQString(), kRowStyle, Qt::AlignLeft | Qt::AlignVCenter);
        y += row;
    }
    painter.restore();
}

}  // namespace HXObjects
