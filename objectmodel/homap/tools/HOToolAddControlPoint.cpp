#include "HOToolAddControlPoint.h"

#include <QCoreApplication>
#include <Qt>
#include <algorithm>

#include "HOMap.h"
#include "edit/HOElementEditor.h"

namespace HXObjects {

void HOToolAddControlPoint::Activate() {
    HOMapTool::Activate();
    ShowCursor(HOToolBuddy::CrossCursor);
}

void HOToolAddControlPoint::AddPoint(const HOPoint& point) {
    HOMap* map = TargetMap();
    if (!map) return;
    const int number = nextNumber(map);
    HORefPtr<HOGeometry> geometry = new HOGeometry(HOGeometry::GeoPoint);
    geometry->AddPart({point});
    const QString text =
        QCoreApplication::translate("HXObjects::HOToolAddControlPoint", "Add control point %1").arg(number);
    if (const int id = HOElementEditor::Add(map, geometry, text, nullptr, HOString(QString::number(number))))
        m_placed.push_back(id);
}

void HOToolAddControlPoint::CancelPoint() {
    HOMap* map = TargetMap();
    // Points taken back by undo or deleted meanwhile are skipped.
    while (map && !m_placed.empty()) {
        const int id = m_placed.back();
        m_placed.pop_back();
        const HORefPtr<HOElement> element = map->GetGraphicsLayer()->GetElement(id);
        if (!element) continue;
        HOElementEditor::Remove(
            map, id,
            QCoreApplication::translate("HXObjects::HOToolAddControlPoint", "Cancel control point %1")
                .arg(element->GetLabel().toQString()));
        return;
    }
}

void HOToolAddControlPoint::OnMouseDown(int button, int x, int y) {
    if (button == 1 && MapView()) AddPoint(ToMap(x, y));
}

void HOToolAddControlPoint::OnMouseUp(int button, int x, int y) {
    if (button == 2) OpenContextMenu(x, y);
}

bool HOToolAddControlPoint::OnKeyDown(int key) {
    if (key != Qt::Key_Backspace) return HOMapTool::OnKeyDown(key);
    CancelPoint();
    return true;
}

int HOToolAddControlPoint::nextNumber(HOMap* map) {
    int highest = 0;
    for (const auto& element : map->GetGraphicsLayer()->GetElements()) {
        bool ok = false;
        const int number = element->GetLabel().toQString().toInt(&ok);
        if (ok && element->GetGeometry()->GetType() == HOGeometry::GeoPoint)
            highest = std::max(highest, number);
    }
    return highest + 1;
}

}  // namespace HXObjects
