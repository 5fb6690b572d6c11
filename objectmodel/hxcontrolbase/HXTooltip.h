#pragma once
// HXTooltip: a small frameless tip window that shows a text beside a screen point and follows it
// on later calls — for tools that explain what the next click does. It never takes the focus or
// the mouse, so the widget under it keeps receiving input. Owned by its parent widget; hide() it
// when the tip is no longer wanted.
#include <QLabel>

#include "HXExport.h"

class HX_EXPORT HXTooltip : public QLabel {
    Q_OBJECT
public:
    explicit HXTooltip(QWidget* parent);

    // Shows text below and to the right of globalPos (in global screen coordinates), moved inside
    // the screen when it would leave it.
    void showTip(QPoint globalPos, const QString& text);
};
