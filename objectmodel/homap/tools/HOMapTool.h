#pragma once
// HOMapTool: the base of the built-in tools that work on a map view. It gives them the map view
// their input comes from, pixel-to-map conversion, and the buddy's cursor and keyboard modifiers.
// A tool handed to any other kind of view does nothing. Every map tool answers the Delete key when
// something is selected, so that the host's deletion takes over. Tools that place points snap them
// to nearby vertices and segments (HOSnapper) unless Alt is held, and mark the snapped point.
#include "HOMapView.h"
#include "HOSnapResult.h"
#include "HOTool.h"
#include "HOToolBuddy.h"
#include "HXExport.h"

namespace HXObjects {

class HOMap;

class HX_EXPORT HOMapTool : public HOTool {
public:
    using HOTool::AddPoint;
    // Longitude and latitude are projected into a projected map's system first.
    void AddPoint(const HOPoint& point, PointInput input) override;
    bool OnKeyDown(int key) override;

    // The map point of longitude and latitude in the map's system (as given when it has no projection).
    static HOPoint FromLonLat(HOMap* map, const HOPoint& lonLat);

protected:
    // The map the tool edits: its view's, else (a command that never becomes current) the buddy's.
    HOMap* TargetMap() const;
    // A right click asks the buddy for its context menu.
    void OpenContextMenu(int x, int y) const;
    // Tells the view that the tool's temporary drawing changed.
    void RefreshPaint() const;
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

    // The keys of the tools that place a path point by point: Enter (either) ends the path, Backspace
    // drops its last point, Escape drops it all.
    enum PathKey { OtherKey, EndPathKey, DropPointKey, DropPathKey };
    static PathKey PathKeyOf(int key);

    // The map point under a view pixel, snapped unless Alt is held (`ignoredElement` is never snapped
    // to); the snap is remembered for DrawSnapMark until the next call or ForgetSnap.
    HOPoint SnapToMap(int x, int y, int ignoredElement = 0);
    void ForgetSnap();
    // Marks the remembered snapped point; the caller holds paintMutex().
    void DrawSnapMark(QPainter& painter, const HODisplayTransform& transform) const;

private:
    HOSnapResult m_snap;  // guarded by paintMutex
};

}  // namespace HXObjects
