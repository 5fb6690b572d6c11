#include "HOToolDoubleLine.h"

#include <QCoreApplication>

#include "HOCoordinateSystem.h"
#include "HOMap.h"
#include "edit/HODoubleLine.h"
#include "edit/HOElementEditor.h"

namespace HXObjects {

HOToolDoubleLine::HOToolDoubleLine() {
    SetParameter("LineWidth", "10");
}

void HOToolDoubleLine::Create(HOMap* map, HORefPtr<HOGeometry> shape) {
    if (!map) return;
    const double width = GetParameters()["LineWidth"].toQString().toDouble();
    HOElementEditor::AddAll(map, HODoubleLine::Make(*shape, width, map->GetSpatialReference().get()),
                            QCoreApplication::translate("HXObjects::HOToolDoubleLine", "Add double line"));
}

}  // namespace HXObjects
