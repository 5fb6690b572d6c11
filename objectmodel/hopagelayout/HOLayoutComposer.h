#pragma once
// HOLayoutComposer: the default composition of a map on a sheet — a title across the top, the map
// frame (with its kilometre grid), and beside it (landscape) or below it (portrait) a north arrow,
// a legend and a scale bar tied to the frame.
#include <QString>

#include "HXExport.h"

namespace HXObjects {

class HOPageLayoutView;
class HOMapView;

class HX_EXPORT HOLayoutComposer {
public:
    // Puts the map view into the layout's operating frame and lays every element out on the layout's
    // sheet; elements already on the page other than that frame are removed.
    static void ComposeDefault(HOPageLayoutView& layout, HOMapView* view, const QString& title);
};

}  // namespace HXObjects
