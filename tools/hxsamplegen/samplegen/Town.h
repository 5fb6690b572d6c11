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
    // What follows a Chinese place name of this kind: city, town, village.
    QString chineseSuffix() const { return kind == City ? "市" : kind == Market ? "镇" : "村"; }
};
