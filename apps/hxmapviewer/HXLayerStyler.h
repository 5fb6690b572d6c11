#pragma once
// HXLayerStyler: the viewer's cartography for layers it recognises by name (the generated sample
// region's land, lakes, landuse, rivers, roads and towns, and its shaded relief, which multiplies
// the land colours beneath it) and the sea colour behind land. Other layers keep their default style.
namespace HXObjects {
class HOLayer;
class HOMap;
}  // namespace HXObjects

class HXLayerStyler {
public:
    static void style(HXObjects::HOLayer* layer);
    // Styles the layer and adds it to the map; images go under the vector data, whatever order the
    // files came in.
    static void addLayer(HXObjects::HOMap* map, HXObjects::HOLayer* layer);
    // A map with a "land" layer shows the sea as its background; relief goes just above the land.
    static void styleMap(HXObjects::HOMap* map);
};
