#pragma once
// HOMapTool: the base of the built-in tools that work on a map view. It gives them the map view
// their input comes from, pixel-to-map conversion, and the buddy's cursor and keyboard modifiers.
// A tool handed to any other kind of view does nothing.
#include "HOMapView.h"
#include "HOTool.h"
#include "HOToolBuddy.h"

namespace HXObjects {

class HOMapTool : public HOTool {
protected:
    // The view as a map view; null when there is none or it is not a map view.
    HOMapView* MapView() const;
    // The map point under a view pixel.
    HOPoint ToMap(double x, double y) const;
    // A distance of `pixels` in map units.
    double PixelsToMap(double pixels) const;
    void ShowCursor(HOToolBuddy::HOCursor shape) const;
    HOToolBuddy::HOKeyboardModifier Modifiers() const;
    // The zoom factor the tool host handed over (kZoomFactorParameter); 2 until one is given.
    double ZoomFactor();
};

}  // namespace HXObjects
