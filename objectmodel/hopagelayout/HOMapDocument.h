#pragma once
// HOMapDocument: a data frame's map in a layout document — its layers (source relative to the
// document, name, visibility, style, per-feature styles) in map order, its coordinate system,
// background, grid settings and the extent shown. Reading opens each source through OpenLayer; a
// source that cannot be opened is reported and left out, the rest is kept.
#include <QDir>
#include <QJsonObject>
#include <QStringList>

#include "HORect.h"
#include "HORefPtr.h"

namespace HXObjects {

class HOMapView;

class HOMapDocument {
public:
    static QJsonObject Write(HOMapView& view, const HORect& extent, const QDir& folder);
    // A new map view showing the map; `extent` receives the extent to show, `missing` one line per
    // source that could not be opened.
    static HORefPtr<HOMapView> Read(const QJsonObject& json, const QDir& folder, HORect* extent,
                                    QStringList* missing);
};

}  // namespace HXObjects
