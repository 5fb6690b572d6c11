#pragma once
// HXDataSources: turns the files a person opens into layer sources. A vector dataset with several
// layers (a GeoPackage) yields one "path|layername=NAME" source per layer, areas first, then lines,
// then points, so nothing is hidden under a fill.
#include <QString>
#include <QStringList>

class HXDataSources {
public:
    static QStringList layerSources(const QString& path);
};
