#pragma once
// HXDataSources: opens the files a person picks through the library's data-source front door. All
// the layers of a file come from one open source (a GeoPackage is opened once, whatever its number
// of tables), in drawing order: images first, then areas, lines and points, so nothing is hidden
// under a fill.
#include <QString>
#include <QStringList>
#include <vector>

#include "HOLayer.h"

class HXDataSources {
public:
    // The file's layers in drawing order; every layer that could not be read adds one line to
    // `errors` (a file that cannot be opened at all adds one and yields none).
    static std::vector<HXObjects::HORefPtr<HXObjects::HOLayer>> openLayers(const QString& path,
                                                                           QStringList* errors);

    // Puts the layers in drawing order (stable).
    static void sortForDrawing(std::vector<HXObjects::HORefPtr<HXObjects::HOLayer>>& layers);

private:
    static int drawRank(HXObjects::HOLayer::LayerType type);
};
