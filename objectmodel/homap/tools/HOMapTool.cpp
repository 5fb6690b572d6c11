#include "HOMapTool.h"

#include <ogr_spatialref.h>
#include <cmath>

#include <QPainter>
#include <Qt>
#include <memory>

#include "HOCoordinateSystem.h"
#include "HOFeatureLayer.h"
#include "HOGeometryProject.h"
#include "HOMap.h"
#include "edit/HOSnapper.h"
#include "private/HOCoordinateSystemOgr.h"

namespace HXObjects {

namespace {

bool HasSelection(HOMap* map) {
    if (!map->GetGraphicsLayer()->GetSelectedIds().empty()) return true;
    for (const auto& layer : map->GetLayers(true)) {
        auto* features = dynamic_cast<HOFeatureLayer*>(layer.get());
        if (features && features->HasSelectedFeatures()) return true;
    }
    return false;
}

}  // namespace

void HOMapTool::AddPoint(const HOPoint& point, PointInput input) {
    AddPoint(input == LonLatDegrees ? FromLonLat(TargetMap(), point) : point);
}

HOPoint HOMapTool::FromLonLat(HOMap* map, const HOPoint& lonLat) {
    const HORefPtr<HOCoordinateSystem> system = map ? map->GetSpatialReference() : nullptr;
    if (!system || !system->IsProjected()) return lonLat;
    // Degrees on the map system's own datum.
    std::unique_ptr<OGRSpatialReference> geographic(HOCoordinateSystemOgr::Ogr(system)->CloneGeogCS());
    const HORefPtr<HOCoordinateSystem> from = HOCoordinateSystemOgr::FromOgr(geographic.get());
    HOGeometryProject project;
    HOPoint point = lonLat;
    if (!from || !project.SetPrj(from.get(), system.get(), nullptr) || !project.ProjPoint(point.x, point.y))
        return lonLat;
    return point;
}

bool HOMapTool::OnKeyDown(int key) {
    HOMap* map = TargetMap();
    return key == Qt::Key_Delete && map && HasSelection(map);
}

HOMap* HOMapTool::TargetMap() const {
    HOMapView* view = MapView();
    if (!view && GetToolBuddy()) view = GetToolBuddy()->GetMapView();
    return view ? view->GetMap() : nullptr;
}

void HOMapTool::OpenContextMenu(int x, int y) const {
    if (HOToolBuddy* buddy = GetToolBuddy()) buddy->OnContextMenu(x, y);
}

void HOMapTool::RefreshPaint() const {
    if (HOMapView* view = MapView()) view->RefreshToolPaint();
}

HOMapView* HOMapTool::MapView() const {
    return dynamic_cast<HOMapView*>(GetView());
}

HOPoint HOMapTool::ToMap(double x, double y) const {
    HOMapView* view = MapView();
    return view ? view->GetDisplayTransform().ToMap(x, y) : HOPoint(x, y);
}

double HOMapTool::PixelsToMap(double pixels) const {
    HOMapView* view = MapView();
    return view ? pixels * view->GetDisplayTransform().unitsPerPixel : pixels;
}

void HOMapTool::ShowCursor(HOToolBuddy::HOCursor shape) const {
    if (HOToolBuddy* buddy = GetToolBuddy()) buddy->SetCursor(shape);
}

HOToolBuddy::HOKeyboardModifier HOMapTool::Modifiers() const {
    HOToolBuddy* buddy = GetToolBuddy();
    return buddy ? buddy->GetKeyboardModifiers() : HOToolBuddy::NoModifier;
}

double HOMapTool::ZoomFactor() {
    const Parameters& parameters = GetParameters();
    const auto given = parameters.find(kZoomFactorParameter);
    bool ok = false;
    const double factor = given == parameters.end() ? 0.0 : given->second.toQString().toDouble(&ok);
    return ok && std::isfinite(factor) && factor > 1.0 ? factor : 2.0;
}

HOMapTool::PathKey HOMapTool::PathKeyOf(int key) {
    switch (key) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return EndPathKey;
        case Qt::Key_Backspace:
            return DropPointKey;
        case Qt::Key_Escape:
            return DropPathKey;
        default:
            return OtherKey;
    }
}

HOPoint HOMapTool::SnapToMap(int x, int y, int ignoredElement) {
    const HOPoint point = ToMap(x, y);
    const HOSnapResult snap = (Modifiers() & HOToolBuddy::AltModifier)
                                  ? HOSnapResult{HOSnapResult::None, point}
                                  : HOSnapper::Snap(point, MapView(), ignoredElement);
    std::lock_guard<std::mutex> lock(paintMutex());
    m_snap = snap;
    return snap.point;
}

void HOMapTool::ForgetSnap() {
    std::lock_guard<std::mutex> lock(paintMutex());
    m_snap = HOSnapResult();
}

void HOMapTool::DrawSnapMark(QPainter& painter, const HODisplayTransform& transform) const {
    if (!m_snap) return;
    const HOPoint d = transform.ToDevice(m_snap.point);
    const QRectF mark(d.x - 5, d.y - 5, 10, 10);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(255, 0, 255), 2));
    painter.setBrush(Qt::NoBrush);
    // A square on a vertex, a circle on a segment.
    if (m_snap.kind == HOSnapResult::Vertex)
        painter.drawRect(mark);
    else
        painter.drawEllipse(mark);
    painter.restore();
}

}  // namespace HXObjects
