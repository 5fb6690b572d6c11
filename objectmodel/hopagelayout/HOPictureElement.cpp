#include "HOPictureElement.h"

#include <QFileInfo>
#include <QPainter>

#include "HOPageText.h"

namespace HXObjects {

HOPictureElement::HOPictureElement() : HOPageLayoutBaseElement(HOElementPicture) {
    set_size(30.0, 20.0);
}

bool HOPictureElement::set_path(const QString& path) {
    m_path = path;
    m_image = QImage(path);
    return !m_image.isNull();
}

HORefPtr<HOPageLayoutBaseElement> HOPictureElement::create() const {
    HORefPtr<HOPictureElement> copy(new HOPictureElement);
    copy->m_path = m_path;
    copy->m_image = m_image;
    return copy;
}

void HOPictureElement::draw(QPainter& painter, const HOPageRenderContext& context) {
    const QRectF box = context.ToDevice(get_bounds());
    if (m_image.isNull()) {
        painter.save();
        painter.setPen(QPen(Qt::gray, 1.0));
        painter.drawRect(box);
        painter.drawLine(box.topLeft(), box.bottomRight());
        painter.drawLine(box.bottomLeft(), box.topRight());
        painter.restore();
        HOPageText::Draw(painter, context, box, QFileInfo(m_path).fileName(), {7.0, false, Qt::darkGray},
                         Qt::AlignCenter | Qt::TextWrapAnywhere);
        return;
    }
    QSizeF fitted = QSizeF(m_image.size()).scaled(box.size(), Qt::KeepAspectRatio);
    const QRectF target(box.center() - QPointF(fitted.width() / 2, fitted.height() / 2), fitted);
    painter.save();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
    painter.drawImage(target, m_image);
    painter.restore();
}

}  // namespace HXObjects
