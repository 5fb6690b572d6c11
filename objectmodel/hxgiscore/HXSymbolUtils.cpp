#include "HXSymbolUtils.h"

#include <QPainter>

#include "HOStylePainter.h"

QPixmap HXSymbolUtils::symbolPreviewPixmap(HXObjects::HOStyle* style, QSize size) {
    QImage image(size.expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    if (style) {
        QPainter painter(&image);
        HXObjects::HOStylePainter::DrawPreview(painter, *style, QRectF(QPointF(0, 0), QSizeF(image.size())));
    }
    return QPixmap::fromImage(image);
}
