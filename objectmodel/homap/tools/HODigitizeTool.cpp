#include "HODigitizeTool.h"

#include <QCoreApplication>
#include <QPainter>
#include <Qt>

#include "HOMap.h"
#include "edit/HOElementEditor.h"

namespace HXObjects {

namespace {

QPolygonF Polyline(const HOGeometry::Part& part, const HODisplayTransform& transform) {
    QPolygonF polygon;
    for (const HOPoint& p : part) {
        const HOPoint d = transform.ToDevice(p);
        polygon << QPointF(d.x, d.y);
    }
    return polygon;
}

}  // namespace

template <class Change>
void HODigitizeTool::edit(Change change) {
    {
        std::lock_guard<std::mutex> lock(paintMutex());
        change();
    }
    RefreshPaint();
}

void HODigitizeTool::Activate() {
    HOMapTool::Activate();
    ShowCursor(HOToolBuddy::CrossCursor);
}

void HODigitizeTool::Deactivate() {
    abandon();
    HOMapTool::Deactivate();
}

void HODigitizeTool::OnCommand(const HOString& command) {
    if (command == "new path") startNewPath();
}

void HODigitizeTool::ClearToolPaint() {
    abandon();
}

void HODigitizeTool::AddPoint(const HOPoint& point) {
    edit([&] { m_current.push_back(point); });
}

void HODigitizeTool::CancelPoint() {
    edit([&] {
        if (!m_current.empty()) m_current.pop_back();
    });
}

void HODigitizeTool::OnMouseDown(int button, int x, int y) {
    if (button == 1 && MapView()) AddPoint(SnapToMap(x, y));
}

void HODigitizeTool::OnMouseMove(int, int x, int y) {
    if (!MapView()) return;
    const HOPoint hover = SnapToMap(x, y);
    edit([&] {
        m_hover = hover;
        m_hovering = true;
    });
}

void HODigitizeTool::OnMouseUp(int button, int x, int y) {
    HOToolBuddy* buddy = GetToolBuddy();
    if (button != 2 || !buddy) return;
    // The menu runs while this call waits; a chosen "New path" leaves its option set.
    SetNewPathOption(buddy, -1);
    OpenContextMenu(x, y);
    if (NewPathOption(buddy) == -1) return;
    SetNewPathOption(buddy, -1);
    startNewPath();
}

void HODigitizeTool::OnDoubleClick(int button, int, int) {
    if (button == 1) finish();
}

bool HODigitizeTool::OnKeyDown(int key) {
    switch (PathKeyOf(key)) {
        case EndPathKey:
            finish();
            return true;
        case DropPointKey:
            CancelPoint();
            return true;
        case DropPathKey:
            abandon();
            return true;
        case OtherKey:
            // While a shape is under way, Delete must not hand over to the deletion tools.
            return !inProgress() && HOMapTool::OnKeyDown(key);
    }
    return false;
}

void HODigitizeTool::DrawToolPaint(QPainter& painter, const HODisplayTransform& transform) {
    std::lock_guard<std::mutex> lock(paintMutex());
    HOGeometry::Part open = m_current;
    if (m_hovering && !open.empty()) open.push_back(m_hover);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QColor(220, 30, 30), 1.5));
    painter.setBrush(IsArea() ? QColor(255, 200, 0, 80) : QColor(Qt::transparent));
    for (const auto& part : m_parts) {
        if (IsArea())
            painter.drawPolygon(Polyline(part, transform));
        else
            painter.drawPolyline(Polyline(part, transform));
    }
    if (IsArea() && open.size() > 2) {
        painter.setPen(Qt::NoPen);
        painter.drawPolygon(Polyline(open, transform));
    }
    painter.setPen(QPen(QColor(220, 30, 30), 1.5, Qt::DashLine));
    painter.setBrush(Qt::NoBrush);
    // An area shows its closing edge back to the first vertex too.
    if (IsArea() && open.size() > 2)
        painter.drawPolygon(Polyline(open, transform));
    else
        painter.drawPolyline(Polyline(open, transform));
    for (const QPointF& vertex : Polyline(m_current, transform))
        painter.drawRect(QRectF(vertex.x() - 2, vertex.y() - 2, 4, 4));
    painter.restore();
    DrawSnapMark(painter, transform);
}

HOGeometry::Part HODigitizeTool::usable(const HOGeometry::Part& part) const {
    HOGeometry::Part distinct;
    for (const HOPoint& p : part) {
        if (distinct.empty() || distinct.back().x != p.x || distinct.back().y != p.y) distinct.push_back(p);
    }
    if (IsArea() && distinct.size() > 1 && distinct.front().x == distinct.back().x &&
        distinct.front().y == distinct.back().y)
        distinct.pop_back();
    if (distinct.size() < (IsArea() ? 3u : 2u)) return {};
    if (IsArea()) distinct.push_back(distinct.front());
    return distinct;
}

void HODigitizeTool::startNewPath() {
    edit([&] {
        HOGeometry::Part part = usable(m_current);
        if (!part.empty()) m_parts.push_back(std::move(part));
        m_current.clear();
    });
}

void HODigitizeTool::finish() {
    std::vector<HOGeometry::Part> parts;
    {
        std::lock_guard<std::mutex> lock(paintMutex());
        parts = m_parts;
        HOGeometry::Part last = usable(m_current);
        if (!last.empty()) parts.push_back(std::move(last));
    }
    abandon();
    if (parts.empty()) return;
    const bool multi = parts.size() > 1;
    HORefPtr<HOGeometry> geometry =
        new HOGeometry(IsArea() ? (multi ? HOGeometry::GeoMultiPolygon : HOGeometry::GeoPolygon)
                                : (multi ? HOGeometry::GeoMultiLineString : HOGeometry::GeoLineString));
    for (auto& part : parts) geometry->AddPart(std::move(part));
    Create(TargetMap(), geometry);
}

void HODigitizeTool::Create(HOMap* map, HORefPtr<HOGeometry> shape) {
    const char* text = IsArea() ? QT_TRANSLATE_NOOP("HXObjects::HODigitizeTool", "Add polygon")
                                : QT_TRANSLATE_NOOP("HXObjects::HODigitizeTool", "Add line");
    HOElementEditor::Add(map, shape, QCoreApplication::translate("HXObjects::HODigitizeTool", text));
}

void HODigitizeTool::abandon() {
    ForgetSnap();
    edit([&] {
        m_parts.clear();
        m_current.clear();
        m_hovering = false;
    });
}

bool HODigitizeTool::inProgress() {
    std::lock_guard<std::mutex> lock(paintMutex());
    return !m_current.empty() || !m_parts.empty();
}

}  // namespace HXObjects
