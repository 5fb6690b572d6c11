#pragma once
// HXNoticeItem: a text that scrolls across the map, owned by the drawing widget's notice list.
#include <QColor>
#include <QString>

struct HXNoticeItem {
    QString text;
    QColor color{0, 0, 255, 255};
    int x = 0;              // pixels from the left edge
    double fraction = 0.0;  // vertical position as a fraction of the widget height
};
