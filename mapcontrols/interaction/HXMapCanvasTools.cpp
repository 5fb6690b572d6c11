// HXMapCanvas as tool host: installing and removing map tools, cursors, and the small queries and
// stores that tools reach through the tool-buddy interface.
#include <QApplication>
#include <QCursor>

#include "HOCMDPool.h"
#include "HOCommandControl.h"
#include "HOGeometry.h"
#include "HOTool.h"
#include "HOToolAddFeature.h"
#include "HXApplication.h"
#include "HXMapCanvas.h"
#include "private/HXModeView.h"

using namespace HXObjects;

namespace {

const char kPanTool[] = "HXObjects::HOToolPan";
const char kSingleSelectTool[] = "HXObjects::HOToolSingleSelect";

// Theme images of the cursors the canvas adds after the toolkit's own shapes.
QString ThemeCursorImage(int shape) {
    switch (shape) {
        case HOToolBuddy::ZoomInCursor:
            return QStringLiteral("zoom-in.png");
        case HOToolBuddy::ZoomOutCursor:
            return QStringLiteral("zoom-out.png");
        case HOToolBuddy::RotatePointCursor:
            return QStringLiteral("mActionRotatePointSymbols.png");
        case HOToolBuddy::IdentifyCursor:
            return QStringLiteral("Identify.png");
        default:
            return QString();
    }
}

bool IsThemeCursor(int shape) {
    return shape >= HOToolBuddy::ZoomInCursor && shape <= HOToolBuddy::IdentifyCursor;
}

}  // namespace

void HXMapCanvas::setMapTool(const HOString& name) {
    if (!mToolBuddy) return;
    if (HOTool* tool = mToolBuddy->GetToolByName(name)) setMapTool(tool);
}

void HXMapCanvas::setMapTool(HOTool* tool) {
    if (!tool) {
        // Page layouts keep their tool: removal is a map-view affair.
        if (mViewMode != MapViewMode) return;
        if (mMapTool && mMapTool->IsActive()) mMapTool->Deactivate();
        mMapTool = nullptr;
        if (HOMapView* view = GetMapView()) view->SetCurrentTool(nullptr);
        setCursor(Qt::ArrowCursor);
        return;
    }
    tool->SetToolBuddy(mToolBuddy);
    tool->SetParameter(HOTool::kZoomFactorParameter, HOString(QString::number(mWheelFactor)));
    if (tool->IsOneShot()) {
        tool->Activate();
        tool->Deactivate();
        return;
    }
    const HOString name = tool->GetClassName();
    if (mMapTool && mMapTool->GetClassName() != name) mMapTool->Deactivate();

    // A digitising flag set by an earlier tool survives until a tool outside the four comes.
    if (name == "HXObjects::HOCmdDigitizePolygon") {
        mIsDigitizePolygon = true;
    } else if (name == "HXObjects::HOCmdDigitizeLine") {
        mIsDigitizeLine = true;
    } else if (name == "HXObjects::HOToolAddFeature") {
        mIsAddFeature = true;
    } else if (name == "HXObjects::HOToolAddControlPoint") {
        mIsAddControlPoint = true;
    } else {
        mIsDigitizePolygon = mIsDigitizeLine = mIsAddFeature = mIsAddControlPoint = false;
    }
    mIsBrowseTool = name == kPanTool || name == kSingleSelectTool;

    mMapTool = tool;
    if (HOView* view = HXModeView(this)) view->SetCurrentTool(tool);
    tool->SetToolBuddy(mToolBuddy);
    tool->Activate();
    if (mCommandControl) mCommandControl->SetViewFocus(true);
}

HOTool* HXMapCanvas::getMapTool() const {
    return mMapTool;
}

void HXMapCanvas::SetCursor(HOCursor shape) {
    QCursor cursor(Qt::ArrowCursor);
    if (shape < CustomCursor) {
        cursor = QCursor(static_cast<Qt::CursorShape>(shape));
    } else if (IsThemeCursor(shape)) {
        cursor = QCursor(HXApplication::getThemePixmap(ThemeCursorImage(shape)));
    }
    // 25 and values past the table leave the widget alone but still report the arrow.
    if (shape < CustomCursor || IsThemeCursor(shape)) setCursor(cursor);
    emit signal_cursorChanged(cursor);
}

HOPoint HXMapCanvas::GetCursorPos() {
    const QPoint local = mapFromGlobal(QCursor::pos());
    return HOPoint(local.x(), local.y());
}

HOToolBuddy::HOKeyboardModifier HXMapCanvas::GetKeyboardModifiers() {
    return static_cast<HOKeyboardModifier>(static_cast<int>(QApplication::queryKeyboardModifiers()));
}

quintptr HXMapCanvas::GetMainWindowHandle() {
    return static_cast<quintptr>(winId());
}

void HXMapCanvas::SetHOToolEnabled(HOTool* tool, bool enabled) {
    emit actionEnabled(tool, enabled);
}

void HXMapCanvas::DisplayLinePath(HORefPtr<HOGeometry> path, HOTool*, bool) {
    // The canvas has no path display; the reference taken for the call is dropped on return.
    path.reset();
}

void HXMapCanvas::clearToolpaint() const {
    if (mMapTool) mMapTool->ClearToolPaint();
}

void HXMapCanvas::setCurrentLayer(HOLayer* layer) {
    mCurrentLayer = layer;
    // New features are added to the current layer.
    if (auto* add =
            dynamic_cast<HOToolAddFeature*>(HOCMDPool::GetInstance()->GetTool("HXObjects::HOToolAddFeature")))
        add->SetLayer(layer);
    emit currentLayerChanged(layer);
}

int HXMapCanvas::getImageLayerId() {
    return mImageLayerId;
}
void HXMapCanvas::setImageLayerId(int id) {
    mImageLayerId = id;
}
int HXMapCanvas::getMeasruePointLayerId() {
    return mMeasurePointLayerId;
}
void HXMapCanvas::setMeasurePointLayerId(int id) {
    mMeasurePointLayerId = id;
}
int HXMapCanvas::getTripleLineLayerId() {
    return mTripleLineLayerId;
}
void HXMapCanvas::setTripleLineLayerId(int id) {
    mTripleLineLayerId = id;
}
int HXMapCanvas::getNewPathOption_Polygon() {
    return mNewPathOptionPolygon;
}
void HXMapCanvas::setNewPathOption_Polygon(int option) {
    mNewPathOptionPolygon = option;
}
int HXMapCanvas::getNewPathOption_Line() {
    return mNewPathOptionLine;
}
void HXMapCanvas::setNewPathOption_Line(int option) {
    mNewPathOptionLine = option;
}
int HXMapCanvas::getNewPathOption_AddFeature() {
    return mNewPathOptionAddFeature;
}
void HXMapCanvas::setNewPathOption_AddFeature(int option) {
    mNewPathOptionAddFeature = option;
}
