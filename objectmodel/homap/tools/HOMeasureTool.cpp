#include "HOMeasureTool.h"

#include <QPainter>
#include <limits>

#include "HOCoordinateSystem.h"
#include "HOMap.h"
#include "HOMeasurement.h"
#include "HORenderContext.h"

namespace HXObjects {

HOMeasureTool::HOMeasureTool() : m_layer(new HOGraphicsLayer) {}

HOMeasureTool::~HOMeasureTool() = default;

void HOMeasureTool::Activate() {
    HOMapTool::Activate();
    ShowCursor(HOToolBuddy::CrossCursor);
    if (HOToolBuddy* buddy = GetToolBuddy()) buddy->setMeasurePointLayerId(m_layer->GetLayerId());
}

void HOMeasureTool::Deactivate() {
    clear();
    HOMapTool::Deactivate();
}

void HOMeasureTool::ClearToolPaint() {
    clear();
}

void HOMeasureTool::OnMouseDown(int button, int x, int y) {
    if (button != 1 || !MapView()) return;
    if (m_finished) clear();
    addPoint(SnapToMap(x, y));
    show(nullptr, x, y);
}

void HOMeasureTool::OnMouseMove(int, int x, int y) {
    if (!MapView()) return;
    const HOPoint hover = SnapToMap(x, y);
    if (!m_points.empty() && !m_finished) show(&hover, x, y);
    RefreshPaint();
}

void HOMeasureTool::OnDoubleClick(int button, int, int) {
    if (button == 1) finish();
}

bool HOMeasureTool::OnKeyDown(int key) {
    switch (PathKeyOf(key)) {
        case EndPathKey:
            finish();
            return true;
        case DropPointKey:
            dropLastPoint();
            return true;
        case DropPathKey:
            clear();
            return true;
        case OtherKey:
            return HOMapTool::OnKeyDown(key);
    }
    return false;
}

void HOMeasureTool::DrawToolPaint(QPainter& painter, const HODisplayTransform& transform) {
    HORenderContext context;
    context.painter = &painter;
    context.transform = transform;
    const double all = std::numeric_limits<double>::max();  // every measured point is drawn
    context.extent = HORect(-all, all, -all, all);
    m_layer->Render(context);
    std::lock_guard<std::mutex> lock(paintMutex());
    DrawSnapMark(painter, transform);
}

HOGeometry::Part HOMeasureTool::GetPoints() const {
    return m_points;
}

QString HOMeasureTool::GetFigureText() const {
    return m_figure;
}

void HOMeasureTool::addPoint(const HOPoint& point) {
    m_points.push_back(point);
    redrawLayer(m_points);
}

void HOMeasureTool::dropLastPoint() {
    if (m_points.empty() || m_finished) return;
    m_points.pop_back();
    redrawLayer(m_points);
}

void HOMeasureTool::finish() {
    if (m_points.empty() || m_finished) return;
    m_finished = true;
    show(nullptr, -1, -1);
    if (HOToolBuddy* buddy = GetToolBuddy()) {
        buddy->ShowTip(0, 0, HOString());
        buddy->AddNoticeInfo(m_figure.toUtf8().data());
    }
}

void HOMeasureTool::clear() {
    m_points.clear();
    m_finished = false;
    ForgetSnap();
    redrawLayer(m_points);
    if (HOToolBuddy* buddy = GetToolBuddy()) buddy->ShowTip(0, 0, HOString());
}

void HOMeasureTool::show(const HOPoint* hover, int x, int y) {
    HOMap* map = TargetMap();
    if (!map) return;
    HOGeometry::Part points = m_points;
    if (hover) points.push_back(*hover);
    redrawLayer(points);
    const HOMeasurement measurement(map->GetSpatialReference().get());
    m_figure = Figure(measurement, points, map->GetMapDisplayUnit());
    HOToolBuddy* buddy = GetToolBuddy();
    if (!buddy) return;
    buddy->SetCmdEditInfo(m_figure.toUtf8().data());
    // Beside the pointer, clear of the cross.
    if (x >= 0) buddy->ShowTip(x + 12, y + 12, m_figure.toUtf8().data());
}

void HOMeasureTool::redrawLayer(const HOGeometry::Part& points) {
    for (const auto& element : m_layer->GetElements()) m_layer->RemoveElement(element->GetID());
    if (points.size() > 1) {
        HORefPtr<HOGeometry> path(new HOGeometry(PathType()));
        HOGeometry::Part part = points;
        if (PathType() == HOGeometry::GeoPolygon) part.push_back(part.front());
        path->AddPart(std::move(part));
        m_layer->AddElement(path, HOGraphicsLayer::DefaultStyle(PathType()));
    }
    for (const HOPoint& p : m_points) {
        HORefPtr<HOGeometry> mark(new HOGeometry(HOGeometry::GeoPoint));
        mark->AddPart({p});
        m_layer->AddElement(mark, HOGraphicsLayer::DefaultStyle(HOGeometry::GeoPoint));
    }
    RefreshPaint();
}

}  // namespace HXObjects
