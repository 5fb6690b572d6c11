#pragma once
// HOToolBuddy: the host that views and tools call back into (cursor, position, modifiers, messages,
// file prompts, current tool). A map canvas implements it; a host may put its own buddy in between.
// Operations are declared in their fixed table order.
#include "HOEventSignal.h"
#include "HOPoint.h"
#include "HOString.h"
#include "HXExport.h"

#include <QtGlobal>
#include <vector>

namespace HXObjects {

class HOMapView;
class HOPageLayoutView;
class HOTool;
class HOLayer;

class HX_EXPORT HOToolBuddy {
public:
    // 0..24 are the toolkit's own cursor shapes; 26..29 are theme images.
    enum HOCursor : qint32 {
        ArrowCursor = 0,
        UpArrowCursor = 1,
        CrossCursor = 2,
        WaitCursor = 3,
        IBeamCursor = 4,
        SizeVerCursor = 5,
        SizeHorCursor = 6,
        SizeBDiagCursor = 7,
        SizeFDiagCursor = 8,
        SizeAllCursor = 9,
        BlankCursor = 10,
        SplitVCursor = 11,
        SplitHCursor = 12,
        PointingHandCursor = 13,
        ForbiddenCursor = 14,
        WhatsThisCursor = 15,
        BusyCursor = 16,
        OpenHandCursor = 17,
        ClosedHandCursor = 18,
        DragCopyCursor = 19,
        DragMoveCursor = 20,
        DragLinkCursor = 21,
        LastCursor = 21,
        BitmapCursor = 24,
        CustomCursor = 25,
        ZoomInCursor = 26,
        ZoomOutCursor = 27,
        RotatePointCursor = 28,
        IdentifyCursor = 29,
    };
    // The toolkit's keyboard-modifier bits.
    enum HOKeyboardModifier : qint32 {
        NoModifier = 0,
        ShiftModifier = 0x02000000,
        ControlModifier = 0x04000000,
        AltModifier = 0x08000000,
        MetaModifier = 0x10000000,
        KeypadModifier = 0x20000000,
    };

    HOToolBuddy() = default;
    virtual ~HOToolBuddy() = default;

    virtual HOMapView* GetMapView() const = 0;
    virtual void SetMapView(HOMapView* view) = 0;
    virtual HOPageLayoutView* GetPageLayoutView() = 0;
    virtual void SetPageLayoutView(HOPageLayoutView* view) = 0;
    virtual bool IsMapView() = 0;
    virtual void SetPageModified() = 0;
    virtual void setMapTool(const HOString& name) = 0;
    virtual void setMapTool(HOTool* tool) = 0;
    virtual void SetCursor(HOCursor shape) = 0;
    virtual HOPoint GetCursorPos() = 0;
    virtual HOString getOpenFileName(const HOString& caption, const HOString& dir,
                                     const HOString& filter) = 0;
    virtual std::vector<HOString> getOpenFileNames(const HOString& caption, const HOString& dir,
                                                   const HOString& filter) = 0;
    virtual void SetHOToolEnabled(HOTool* tool, bool enabled) = 0;
    // The shared tool of a class from the command pool; a host's buddy may answer otherwise.
    virtual HOTool* GetToolByName(const HOString& name);
    virtual void ScaleChanged() = 0;
    virtual void SetCmdEditInfo(HOString text) = 0;
    virtual void AddNoticeInfo(HOString text) = 0;
    virtual void ShowCommandView(HOString text, HOTool* tool, bool show) = 0;
    virtual int getImageLayerId() = 0;
    virtual HOKeyboardModifier GetKeyboardModifiers() = 0;
    virtual void ShowTip(int x, int y, HOString text) = 0;
    virtual void ShowMessage(HOString text) = 0;
    virtual HOString GetCharsetEncoding() = 0;
    virtual quintptr GetMainWindowHandle() = 0;
    virtual void ReloadLayerTree() = 0;
    virtual void setTripleLineLayerId(int id) = 0;
    virtual int getTripleLineLayerId() = 0;
    virtual void setMeasurePointLayerId(int id) = 0;
    virtual int getMeasruePointLayerId() = 0;
    virtual void OnContextMenu(int x, int y) = 0;
    virtual void setNewPathOption_Polygon(int option) = 0;
    virtual int getNewPathOption_Polygon() = 0;
    virtual void setNewPathOption_Line(int option) = 0;
    virtual int getNewPathOption_Line() = 0;
    virtual void setNewPathOption_AddFeature(int option) = 0;
    virtual int getNewPathOption_AddFeature() = 0;
    virtual int combineFeatureAttributeFID(HOLayer* layer) = 0;

    HOEventSignal Request3DRefreshSignal;
};

}  // namespace HXObjects
