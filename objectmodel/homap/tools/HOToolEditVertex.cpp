#include "HOToolEditVertex.h"

#include <QCoreApplication>
#include <QPainter>
#include <cmath>

#include "HOCoordinateSystem.h"
#include "HOGeometryProject.h"
#include "HOMap.h"
#include "edit/HOFeatureEditor.h"

namespace HXObjects {

namespace {

bool Closed(const HOGeometry::Part& part) {
    return part.size() > 3 && part.front().x == part.back().x && part.front().y == part.back().y;
}

double Distance(const HOPoint& a, const HOPoint& b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

// The point of the segment nearest `p`.
HOPoint Nearest(const HOPoint& a, const HOPoint& b, const HOPoint& p) {
    const double dx = b.x - a.x, dy = b.y - a.y, length = dx * dx + dy * dy;
    const double t = length > 0 ? std::clamp(((p.x - a.x) * dx + (p.y - a.y) * dy) / length, 0.0, 1.0) : 0.0;
    return HOPoint(a.x + t * dx, a.y + t * dy);
}

}  // namespace

void HOToolEditVertex::Activate() {
    HOMapTool::Activate();
    ShowCursor(HOToolBuddy::CrossCursor);
}

void HOToolEditVertex::Deactivate() {
    release();
    HOMapTool::Deactivate();
}

void HOToolEditVertex::ClearToolPaint() {
    release();
}

void HOToolEditVertex::release() {
    {
        std::lock_guard<std::mutex> lock(paintMutex());
        m_parts.clear();
        m_dragged = m_hovered = Vertex();
    }
    m_layer = nullptr;
    m_feature = nullptr;
    m_id = -1;
    RefreshPaint();
}

void HOToolEditVertex::pick(const HOPoint& point) {
    HOMap* map = TargetMap();
    const HORefPtr<HOCoordinateSystem> system = map ? map->GetSpatialReference() : nullptr;
    const double tolerance = PixelsToMap(kTolerancePixels);
    std::vector<HORefPtr<HOLayer>> layers = map ? map->GetLayers() : std::vector<HORefPtr<HOLayer>>();
    // The topmost layer first.
    for (auto it = layers.rbegin(); it != layers.rend(); ++it) {
        auto* layer = dynamic_cast<HOFeatureLayer*>(it->get());
        const std::vector<int> ids =
            layer ? layer->IdentifyAt(point, tolerance, system.get()) : std::vector<int>();
        if (ids.empty()) continue;
        if (!HOFeatureEditor::Editable(layer, this)) return;
        m_layer = layer;
        m_id = ids.front();
        showFeature();
        return;
    }
    release();
}

void HOToolEditVertex::showFeature() {
    HORefPtr<HOGeometry> geometry = m_layer->GetFeatureGeometry(m_id);
    HOMap* map = TargetMap();
    const HORefPtr<HOCoordinateSystem> system = map ? map->GetSpatialReference() : nullptr;
    const HORefPtr<HOCoordinateSystem> own = m_layer->GetSpatialReference();
    if (geometry && system && own && !own->IsSame(system.get())) {
        HOGeometryProject project;
        if (!project.SetPrj(own.get(), system.get(), nullptr) ||
            !project.ProjHxGeometry(geometry.get(), geometry->GetType()))
            geometry = nullptr;
    }
    if (!geometry) {
        release();
        return;
    }
    m_feature = geometry;
    {
        std::lock_guard<std::mutex> lock(paintMutex());
        m_parts = geometry->Parts();
    }
    RefreshPaint();
}

HOToolEditVertex::Vertex HOToolEditVertex::vertexAt(const HOPoint& point) const {
    Vertex best;
    double nearest = PixelsToMap(kTolerancePixels);
    for (int p = 0; p < int(m_parts.size()); ++p) {
        for (int i = 0; i < int(m_parts[std::size_t(p)].size()); ++i) {
            const double d = Distance(m_parts[std::size_t(p)][std::size_t(i)], point);
            if (d <= nearest) {
                nearest = d;
                best = {p, i};
            }
        }
    }
    return best;
}

void HOToolEditVertex::OnMouseDown(int button, int x, int y) {
    if (button != 1 || !MapView()) return;
    const HOPoint point = ToMap(x, y);
    const Vertex vertex = m_feature ? vertexAt(point) : Vertex();
    if (vertex.part >= 0) {
        std::lock_guard<std::mutex> lock(paintMutex());
        m_dragged = vertex;
        return;
    }
    pick(point);
}

void HOToolEditVertex::OnMouseMove(int, int x, int y) {
    if (!MapView() || !m_feature) return;
    {
        std::lock_guard<std::mutex> lock(paintMutex());
        m_hovered = vertexAt(ToMap(x, y));
    }
    if (m_dragged.part < 0) return;
    const HOPoint to = SnapToMap(x, y);
    {
        std::lock_guard<std::mutex> lock(paintMutex());
        HOGeometry::Part& part = m_parts[std::size_t(m_dragged.part)];
        const bool closed = Closed(part);
        part[std::size_t(m_dragged.index)] = to;
        // A ring's first and last vertex are one.
        if (closed && m_dragged.index == 0) part.back() = to;
        if (closed && m_dragged.index == int(part.size()) - 1) part.front() = to;
    }
    RefreshPaint();
}

void HOToolEditVertex::OnMouseUp(int button, int x, int y) {
    if (button != 1 || m_dragged.part < 0) return;
    OnMouseMove(button, x, y);
    std::vector<HOGeometry::Part> parts;
    {
        std::lock_guard<std::mutex> lock(paintMutex());
        m_dragged = Vertex();
        parts = m_parts;
    }
    ForgetSnap();
    commit(parts);
}

void HOToolEditVertex::OnDoubleClick(int button, int x, int y) {
    if (button != 1 || !m_feature || !MapView()) return;
    const HOPoint point = ToMap(x, y);
    double nearest = PixelsToMap(kTolerancePixels);
    std::vector<HOGeometry::Part> parts = m_feature->Parts();
    int part = -1, after = -1;
    HOPoint at;
    for (int p = 0; p < int(parts.size()); ++p) {
        for (int i = 0; i + 1 < int(parts[std::size_t(p)].size()); ++i) {
            const HOPoint n = Nearest(parts[std::size_t(p)][std::size_t(i)],
                                      parts[std::size_t(p)][std::size_t(i + 1)], point);
            if (Distance(n, point) <= nearest) {
                nearest = Distance(n, point);
                part = p;
                after = i;
                at = n;
            }
        }
    }
    if (part < 0) return;
    auto& points = parts[std::size_t(part)];
    points.insert(points.begin() + after + 1, at);
    commit(parts);
}

bool HOToolEditVertex::OnKeyDown(int key) {
    if (key == Qt::Key_Escape && m_feature) {
        release();
        return true;
    }
    if (key != Qt::Key_Backspace || m_hovered.part < 0) return HOMapTool::OnKeyDown(key);
    std::vector<HOGeometry::Part> parts = m_feature->Parts();
    auto& points = parts[std::size_t(m_hovered.part)];
    const bool closed = Closed(points);
    points.erase(points.begin() + m_hovered.index);
    if (closed && (m_hovered.index == 0 || m_hovered.index == int(points.size()))) {
        if (m_hovered.index == 0)
            points.back() = points.front();
        else
            points.front() = points.back();
    }
    commit(parts);
    return true;
}

void HOToolEditVertex::commit(std::vector<HOGeometry::Part> parts) {
    HORefPtr<HOGeometry> changed = new HOGeometry(m_feature->GetType());
    for (auto& part : parts) changed->AddPart(std::move(part));
    HORefPtr<HOFeatureLayer> layer = m_layer;
    HORefPtr<HOGeometry> held = layer->GetFeatureGeometry(m_id);
    if (!held) {
        HOFeatureEditor::Report(this, HOString(QCoreApplication::translate("HXObjects::HOToolEditVertex",
                                                                           "Feature %1 no longer exists")
                                                   .arg(m_id)));
        release();
        return;
    }
    {
        // The edited shape stays on screen while it is written.
        std::lock_guard<std::mutex> lock(paintMutex());
        m_parts = changed->Parts();
        m_hovered = Vertex();
    }
    RefreshPaint();
    HOFeatureEditor::ToLayer(TargetMap(), layer.get(), changed.get());
    // The shape only: the attributes are not touched, nor compared. Once written or refused, shows
    // what the layer holds: the change, or the feature as it was.
    HORefPtr<HOToolEditVertex> self(this);
    const int id = m_id;
    if (!HOFeatureEditor::Commit(TargetMap(), layer.get(),
                                 {{new HOFeature(id, held, {}), new HOFeature(id, changed, {})}},
                                 QCoreApplication::translate("HXObjects::HOToolEditVertex", "Edit vertices"),
                                 this, [self, layer, id](bool, const std::vector<HOFeatureChange>&) {
                                     if (self->m_layer == layer && self->m_id == id) self->showFeature();
                                 }))
        showFeature();
}

void HOToolEditVertex::DrawToolPaint(QPainter& painter, const HODisplayTransform& transform) {
    std::lock_guard<std::mutex> lock(paintMutex());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    for (const HOGeometry::Part& part : m_parts) {
        QPolygonF line;
        for (const HOPoint& p : part) {
            const HOPoint d = transform.ToDevice(p);
            line << QPointF(d.x, d.y);
        }
        painter.setPen(QPen(QColor(220, 30, 30), 1.5, Qt::DashLine));
        painter.setBrush(Qt::NoBrush);
        painter.drawPolyline(line);
        painter.setPen(QPen(QColor(220, 30, 30), 1));
        painter.setBrush(Qt::white);
        for (const QPointF& v : line) painter.drawRect(QRectF(v.x() - 3, v.y() - 3, 6, 6));
    }
    DrawSnapMark(painter, transform);
    painter.restore();
}

}  // namespace HXObjects
