#include "HXViewerIcons.h"

#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <functional>

namespace {

QIcon drawn(const std::function<void(QPainter&)>& draw) {
    QIcon icon;
    for (int size : {16, 24, 32, 48}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(size / 24.0, size / 24.0);
        draw(painter);
        icon.addPixmap(pixmap);
    }
    return icon;
}

}  // namespace

// Four arrows pointing out from the centre.
QIcon HXViewerIcons::pan() {
    return drawn([](QPainter& p) {
        p.setPen(QPen(QColor(45, 75, 120), 2.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        p.drawLine(QPointF(12, 3), QPointF(12, 21));
        p.drawLine(QPointF(3, 12), QPointF(21, 12));
        p.setBrush(QColor(45, 75, 120));
        for (int turn = 0; turn < 4; ++turn) {
            p.save();
            p.translate(12, 12);
            p.rotate(90.0 * turn);
            p.drawPolygon(QPolygonF({QPointF(0, -11), QPointF(-3.5, -6.5), QPointF(3.5, -6.5)}));
            p.restore();
        }
    });
}

// A pointer over a dashed selection box.
QIcon HXViewerIcons::select() {
    return drawn([](QPainter& p) {
        p.setPen(QPen(QColor(40, 120, 200), 1.5, Qt::DashLine));
        p.setBrush(QColor(40, 120, 200, 50));
        p.drawRect(QRectF(2.5, 2.5, 15, 12));
        QPainterPath arrow;
        arrow.moveTo(10, 8);
        arrow.lineTo(10, 22);
        arrow.lineTo(13.5, 18.5);
        arrow.lineTo(16.5, 23);
        arrow.lineTo(18.5, 22);
        arrow.lineTo(15.5, 17.5);
        arrow.lineTo(20, 17);
        arrow.closeSubpath();
        p.setPen(QPen(Qt::white, 1.2));
        p.setBrush(QColor(30, 30, 30));
        p.drawPath(arrow);
    });
}
