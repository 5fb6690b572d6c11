#pragma once
// HXPanState: the canvas's record of the mouse buttons while panning.
#include <QPoint>

struct HXPanState {
    bool buttonDown = false;
    QPoint lastMousePos;
    QPoint pressPos;
    bool overrideCursor = false;  // the closed-hand application cursor of a middle drag is showing
};
