#pragma once
// HXStatusBarInputGuard: keeps input that belongs to the status bar in the status bar. Installed
// as an event filter on the canvas's status bar, it stops the mouse, wheel, key and context-menu
// events that the bar's labels and boxes leave unused (a click on a label, an arrow key or Ctrl+C
// typed in the coordinates box) before they travel on to the canvas and so to the map and its tool.
// Owned by the status bar (its parent).
#include <QObject>

class HXStatusBarInputGuard : public QObject {
    Q_OBJECT

public:
    explicit HXStatusBarInputGuard(QObject* parent);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};
