#include "HXStatusBarInputGuard.h"

#include <QEvent>

HXStatusBarInputGuard::HXStatusBarInputGuard(QObject* parent) : QObject(parent) {}

bool HXStatusBarInputGuard::eventFilter(QObject*, QEvent* event) {
    switch (event->type()) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ContextMenu:
            // Handled here: the toolkit hands an event it propagates no further up.
            event->accept();
            return true;
        default:
            return false;
    }
}
