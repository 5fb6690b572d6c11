#pragma once
// HOTool: an interactive map command (pan, select, digitise...). Tools are shared objects kept by the
// command pool (HOCMDPool); a view hands its input to its current tool. The first thirteen
// operations are declared in their fixed table order; the input and drawing hooks follow.
//
// Threads: input arrives on the GUI thread. DrawToolPaint() may be called on a view's render thread
// while the GUI thread changes the tool's state, so tools guard their temporary drawing with
// paintMutex().
#include <map>
#include <mutex>

#include "HODisplayTransform.h"
#include "HOPoint.h"
#include "HORefBase.h"
#include "HOString.h"
#include "HXExport.h"

class QPainter;

namespace HXObjects {

class HOToolBuddy;
class HOView;

class HX_EXPORT HOTool : public HORefBase {
public:
    using Parameters = std::map<HOString, HOString>;
    // How a typed point is given: in the map's units, or as longitude and latitude in degrees.
    enum PointInput { MapUnits, LonLatDegrees };

    virtual void Activate();
    virtual void Deactivate();
    virtual bool IsActive();
    virtual void SetToolBuddy(HOToolBuddy* buddy);
    // A typed command such as "new path".
    virtual void OnCommand(const HOString& command);
    // A command that acts once when activated and never becomes the current tool.
    virtual bool IsOneShot();
    virtual void ClearToolPaint();
    virtual HOString GetClassName() = 0;
    virtual Parameters& GetParameters();
    virtual void SetParameter(const HOString& key, const HOString& value);
    virtual void AddPoint(const HOPoint& point);
    virtual void CancelPoint();
    virtual bool AcceptsPointInput();

    // A typed point; the default hands it to AddPoint() as it stands.
    virtual void AddPoint(const HOPoint& point, PointInput input);

    // Input handed on by the view. Buttons: 1 left, 2 right, 3 middle, 0 none; x, y in view pixels.
    virtual void OnMouseDown(int button, int x, int y);
    virtual void OnMouseUp(int button, int x, int y);
    virtual void OnMouseMove(int button, int x, int y);
    virtual void OnDoubleClick(int button, int x, int y);
    // True when the tool used the key.
    virtual bool OnKeyDown(int key);
    // Draws the tool's temporary drawing (rubber band, path under construction) over the map.
    virtual void DrawToolPaint(QPainter& painter, const HODisplayTransform& transform);

    // The view that hands input to this tool (set by the view's SetCurrentTool).
    virtual void SetView(HOView* view);
    HOView* GetView() const { return m_view; }
    HOToolBuddy* GetToolBuddy() const { return m_buddy; }

    // Number of features picked by the last selection.
    static int selectFeatureNum;
    // The parameter under which a tool host hands over its zoom factor (a number above 1, as text):
    // one zoom step of a zooming tool.
    static constexpr const char* kZoomFactorParameter = "WheelFactor";

protected:
    HOTool() = default;
    ~HOTool() override = default;
    std::mutex& paintMutex() { return m_paintMutex; }

private:
    bool m_active = false;
    HOToolBuddy* m_buddy = nullptr;
    HOView* m_view = nullptr;
    Parameters m_parameters;
    std::mutex m_paintMutex;
};

}  // namespace HXObjects
