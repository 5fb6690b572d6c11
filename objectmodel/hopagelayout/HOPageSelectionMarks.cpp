#include "HOPageSelectionMarks.h"

#include <QPainter>

namespace HXObjects {

namespace {
const QColor kSelection(0, 120, 215);

QRectF handleRect(const QPointF& centre) {
    const double h = HOPageSelectionMarks::kHandlePixels;
    return QRectF(centre.x() - h / 2, centre.y() - h / 2, h, h);
}
}  // namespace

std::array<QPointF, 8> HOPageSelectionMarks::Handles(const QRectF& r) {
    const QPointF c = r.center();
    return {r.topLeft(),     QPointF(c.x(), r.top()),    r.topRight(),   QPointF(r.right(), c.y()),
            r.bottomRight(), QPointF(c.x(), r.bottom()), r.bottomLeft(), QPointF(r.left(), c.y())};
}

void HOPageSelectionMarks::Draw(QPainter& painter, const QRectF& rect) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(kSelection, 1.0, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect);
    painter.setPen(QPen(kSelection, 1.0));
    painter.setBrush(Qt::white);
    for (const QPointF& p : Handles(rect)) painter.drawRect(handleRect(p));
    painter.restore();
}

void HOPageSelectionMarks::DrawActive(QPainter& painter, const QRectF& rect) {
    painter.save();
    painter.setPen(QPen(QColor(230, 120, 0), 3.0));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(rect.adjusted(-2, -2, 2, 2));
    painter.restore();
}

int HOPageSelectionMarks::HandleAt(const QRectF& rect, const QPointF& pixel) {
    const auto handles = Handles(rect);
    for (int i = 0; i < int(handles.size()); ++i) {
        if (handleRect(handles[i]).adjusted(-1, -1, 1, 1).contains(pixel)) return i;
    }
    return -1;
}

}  // namespace HXObjects
