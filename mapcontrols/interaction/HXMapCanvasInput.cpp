// HXMapCanvas input routing: mouse and key events go to the view of the canvas's mode (and so to
// its current tool), with the host signals around them, the middle-button cursor, the map position
// under the mouse, and the canvas's own key bindings.
#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include "HOCMDPool.h"
#include "HOCommandControl.h"
#include "HODataFrame.h"
#include "HOMap.h"
#include "HOTrackCancel.h"
#include "HXMapCanvas.h"
#include "HXPanState.h"
#include "private/HXModeView.h"

using namespace HXObjects;

namespace {

bool IsControlAlone(const QKeyEvent* e) {
    return e->modifiers() == Qt::ControlModifier;
}

HOTool* PoolTool(const char* name) {
    return HOCMDPool::GetInstance()->GetTool(name);
}

// The map under a page pixel: the last-listed data frame there wins and converts the pixel with
// its own screen transform. Without a frame the pixel stays as it is and there is no map.
HOMap* PageMapAt(HOPageLayoutView* layout, QPointF& point) {
    HOGraphicsContainer* container = layout->get_graphicscontainer();
    if (!container) return nullptr;
    const HOPoint page = layout->GetDisplayTransform().ToMap(point.x(), point.y());
    const auto elements = container->LocateElements(page, 0.0);
    for (auto it = elements.rbegin(); it != elements.rend(); ++it) {
        if ((*it)->get_element_type() != HOElementDataFrame) continue;
        auto* frame = dynamic_cast<HODataFrame*>(it->get());
        if (!frame) continue;
        HOMapView* view = frame->get_map_view();
        const HOPoint map = frame->get_screendisplay()->GetDisplayTransform().ToMap(point.x(), point.y());
        point = QPointF(map.x, map.y);
        return view ? view->GetMap() : nullptr;
    }
    return nullptr;
}

// The canvas's own key bindings on a key press.
void ApplyKeyBinding(HXMapCanvas* canvas, QKeyEvent* e, bool viewUsedKey) {
    HOView* view = HXModeView(canvas);
    const HORect extent = view ? view->GetExtent() : HORect();
    const double dx = qAbs(extent.Width() * 0.25), dy = qAbs(extent.Height() * 0.25);
    const bool mapMode = canvas->getViewMode() == HXMapCanvas::MapViewMode;
    const bool pageMode = canvas->getViewMode() == HXMapCanvas::PageLayoutMode;
    // Arrows pan the map by a quarter of the view, or move the selected page elements by a unit.
    auto step = [&](double mx, double my, double ex, double ey) {
        if (mapMode) {
            canvas->setCenter(canvas->center() + HOPoint(mx, my));
            canvas->refresh();
        } else if (pageMode) {
            canvas->moveOffElement(ex, ey);
            canvas->refresh();
        }
    };
    switch (e->key()) {
        case Qt::Key_Space:
            break;
        case Qt::Key_A:
            if (!IsControlAlone(e)) {
                if (!canvas->getMapTool()) e->ignore();
            } else if (HOMapView* mapView = canvas->GetMapView()) {
                mapView->SelectAll();
            }
            break;
        case Qt::Key_Delete:
            if (!viewUsedKey) break;
            // Feature deletion acts at once; element deletion then stays installed.
            if (mapMode) {
                canvas->setMapTool(PoolTool("HXObjects::HOToolDeleteFeature"));
                canvas->setMapTool(PoolTool("HXObjects::HOToolDeleteElement"));
            } else if (pageMode) {
                canvas->setMapTool(PoolTool("HXObjects::HOCmdDeleteElement"));
            }
            break;
        case Qt::Key_Left:
            step(-dx, 0, -1, 0);
            break;
        case Qt::Key_Up:
            step(0, dy, 0, 1);
            break;
        case Qt::Key_Right:
            step(dx, 0, 1, 0);
            break;
        case Qt::Key_Down:
            step(0, -dy, 0, -1);
            break;
        case Qt::Key_PageUp:
            if (mapMode || pageMode) canvas->zoomIn();
            break;
        case Qt::Key_PageDown:
            if (mapMode || pageMode) canvas->zoomOut();
            break;
        default:
            if (!canvas->getMapTool()) e->ignore();
            break;
    }
}

}  // namespace

void HXMapCanvas::mousePressEvent(QMouseEvent* e) {
    if (e->button() == Qt::MiddleButton) {
        // One cursor per drag: the application's cursor stack gets back exactly what it was given.
        if (!mPanState->overrideCursor) QApplication::setOverrideCursor(Qt::ClosedHandCursor);
        mPanState->overrideCursor = true;
        mPanState->pressPos = mPanState->lastMousePos;
    }
    if (mViewMode == MapViewMode && mCommandControl && mCommandControl->GetCurrentTool() == mMapTool)
        mCommandControl->SetViewFocus(true);

    HOView* view = HXModeView(this);
    const int x = e->pos().x(), y = e->pos().y();
    switch (e->button()) {
        case Qt::LeftButton:
            if (mViewMode == MapViewMode) emit sendLeftButtonClicked(e->pos());
            if (view) view->MouseDown(1, x, y);
            break;
        case Qt::RightButton:
            if (view) view->MouseDown(2, x, y);
            break;
        case Qt::MiddleButton:
            mMiddleButtonDown = true;
            if (view) view->MouseDown(3, x, y);
            break;
        default:
            break;
    }
    emit mousePressed(e, 1);

    // A middle-button drag stays with the view.
    if (mPanState->overrideCursor) return;
    mPanState->buttonDown = true;
    mPanState->pressPos = e->pos();
    QWidget::mousePressEvent(e);
}

void HXMapCanvas::mouseMoveEvent(QMouseEvent* e) {
    mPanState->lastMousePos = e->pos();
    QPointF point(e->pos());
    if (mViewMode == MapViewMode) {
        HOMapView* view = GetMapView();
        if (!view) return;
        HOMap* map = view->GetMap();
        if (map && map->GetLayerCount() > 0) {
            const HOPoint p = view->GetDisplayTransform().ToMap(point.x(), point.y());
            point = QPointF(p.x, p.y);
        }
        emit xyCoordinates(point, map);
    } else if (mViewMode == PageLayoutMode && mPageLayoutView) {
        HOMap* map = PageMapAt(mPageLayoutView, point);
        emit xyCoordinates(point, map);
    }

    int button = 0;
    if (e->buttons() & Qt::LeftButton) {
        button = 1;
    } else if (e->buttons() & Qt::RightButton) {
        button = 2;
    } else if (mMiddleButtonDown) {
        button = 3;
    }
    if (HOView* view = HXModeView(this)) view->MouseMove(button, e->pos().x(), e->pos().y());
    QWidget::mouseMoveEvent(e);
}

void HXMapCanvas::mouseReleaseEvent(QMouseEvent* e) {
    // A release without its press (the second release of a double click) has no cursor to restore:
    // restoring anyway would take the host's own cursor.
    if (e->button() == Qt::MiddleButton && mPanState->overrideCursor) {
        QApplication::restoreOverrideCursor();
        mPanState->overrideCursor = false;
    }
    HOView* view = HXModeView(this);
    const int x = e->pos().x(), y = e->pos().y();
    switch (e->button()) {
        case Qt::LeftButton:
            if (mViewMode == MapViewMode) emit sendLeftButtonRelease(e->pos());
            if (view) view->MouseUp(1, x, y);
            // The name keeps its "class " prefix: that is how the attribute editor is known.
            if (mViewMode == MapViewMode && HOTool::selectFeatureNum != 0 && mMapTool &&
                mMapTool->GetClassName().CompareNoCase("class HXObjects::HOToolEditAttributes") == 0)
                emit EditFeature(mMapTool, mMapTool->IsActive(), HOTool::selectFeatureNum);
            break;
        case Qt::RightButton:
            if (view) view->MouseUp(2, x, y);
            break;
        case Qt::MiddleButton:
            mMiddleButtonDown = false;
            if (view) view->MouseUp(3, x, y);
            break;
        default:
            break;
    }
    mPanState->buttonDown = false;
    QWidget::mouseReleaseEvent(e);
}

void HXMapCanvas::mouseDoubleClickEvent(QMouseEvent* e) {
    if (mCommandControl) mCommandControl->SetViewFocus(true);
    HOView* view = HXModeView(this);
    const int x = e->pos().x(), y = e->pos().y();
    if (e->button() == Qt::LeftButton) {
        if (mViewMode == MapViewMode) emit sendLeftButtonDoubleClicked(e->pos());
        if (view) view->DoubleClick(1, x, y);
    } else if (e->button() == Qt::RightButton) {
        if (view) view->DoubleClick(2, x, y);
    }
    emit mousePressed(e, 2);
}

void HXMapCanvas::keyPressEvent(QKeyEvent* e) {
    // The view (its tool) sees every key first, even during a drag.
    bool viewUsedKey = true;
    if (HOMapView* mapView = GetMapView()) viewUsedKey = mapView->KeyDown(e->key());
    if (!mPanState->buttonDown) ApplyKeyBinding(this, e, viewUsedKey);
    emit keyPressed(e);
}

void HXMapCanvas::moveOffElement(double dx, double dy) {
    if (mViewMode != PageLayoutMode || !mPageLayoutView) return;
    HOGraphicsContainer* container = mPageLayoutView->get_graphicscontainer();
    if (!container) return;
    for (const auto& element : container->GetSelectedElements(true)) {
        element->set_off_x(element->get_off_x() + dx);
        element->set_off_y(element->get_off_y() + dy);
    }
}

void HXMapCanvas::keyReleaseEvent(QKeyEvent* e) {
    const bool mapMode = mViewMode == MapViewMode, pageMode = mViewMode == PageLayoutMode;
    const int key = e->key();
    // Cut, copy and paste act on the release of the key.
    if (key == Qt::Key_Space && !e->isAutoRepeat() && mPanState->overrideCursor) {
        QApplication::restoreOverrideCursor();
        mPanState->overrideCursor = false;
    } else if (key == Qt::Key_C && IsControlAlone(e)) {
        if (mapMode) setMapTool(PoolTool("HXObjects::HOToolCopyElement"));
        if (pageMode) setMapTool(PoolTool("HXObjects::HOCmdCopyElement"));
    } else if (key == Qt::Key_V && IsControlAlone(e)) {
        if (mapMode) setMapTool(PoolTool("HXObjects::HOToolPasteElement"));
        if (pageMode) setMapTool(PoolTool("HXObjects::HOCmdPasteElement"));
    } else if (key == Qt::Key_X && IsControlAlone(e) && mapMode) {
        setMapTool(PoolTool("HXObjects::HOToolCutElement"));
    } else if (key == Qt::Key_Escape) {
        if (HOTrackCancel* cancel = mMapView ? mMapView->GetTrackCancel() : nullptr) cancel->Cancel();
    } else if (!mMapTool) {
        e->ignore();
    }
    emit keyReleased(e);
}

void HXMapCanvas::setForwardKeyEvents(bool forward) {
    mForwardKeyEvents = forward;
}
