#include "HXTooltip.h"

#include <QGuiApplication>
#include <QScreen>
#include <QToolTip>

namespace {

// Far enough from the point that the tip does not hide the mouse cursor drawn on top of it.
const QPoint kOffset(16, 16);

QRect AvailableScreenArea(QPoint globalPos) {
    const QScreen* screen = QGuiApplication::screenAt(globalPos);
    if (!screen) screen = QGuiApplication::primaryScreen();
    return screen ? screen->availableGeometry() : QRect();
}

// Left of / above the point instead when the tip would cross the right / bottom screen edge, and
// inside the screen whatever the point (a drag may go beyond the screen).
QPoint PlaceBeside(QPoint globalPos, QSize size, const QRect& screen) {
    QPoint topLeft = globalPos + kOffset;
    if (screen.isEmpty()) return topLeft;
    if (topLeft.x() + size.width() > screen.right() + 1)
        topLeft.setX(globalPos.x() - kOffset.x() - size.width());
    if (topLeft.y() + size.height() > screen.bottom() + 1)
        topLeft.setY(globalPos.y() - kOffset.y() - size.height());
    topLeft.setX(qBound(screen.left(), topLeft.x(), screen.right() + 1 - size.width()));
    topLeft.setY(qBound(screen.top(), topLeft.y(), screen.bottom() + 1 - size.height()));
    return topLeft;
}

}  // namespace

HXTooltip::HXTooltip(QWidget* parent)
    : QLabel(parent, Qt::ToolTip | Qt::FramelessWindowHint | Qt::WindowDoesNotAcceptFocus) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setPalette(QToolTip::palette());
    setFont(QToolTip::font());
    setAutoFillBackground(true);
    setFrameStyle(QFrame::Box | QFrame::Plain);
    setMargin(3);
    setTextFormat(Qt::PlainText);
}

void HXTooltip::showTip(QPoint globalPos, const QString& text) {
    setText(text);
    adjustSize();
    move(PlaceBeside(globalPos, size(), AvailableScreenArea(globalPos)));
    show();  // a tool-tip window stays above the others by its type
}
