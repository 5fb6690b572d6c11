#pragma once

#include <QPointF>
#include <QString>

// A settlement of the region; the kind ranks it for the road network and for drawing.
struct Town {
    enum Kind { City, Market, Village };

    QPointF position;
    QString name;
    int population = 0;
    Kind kind = Village;

    // The value of the layer's `kind` field.
    QString kindName() const { return kind == City ? "city" : kind == Market ? "town" : "village"; }
};
