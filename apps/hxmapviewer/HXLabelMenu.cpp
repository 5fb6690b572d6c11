#include "HXLabelMenu.h"

#include <QActionGroup>

#include "HOFeatureLayer.h"
#include "HOMapView.h"
#include "HXMapCanvas.h"

using namespace HXObjects;

HXLabelMenu::HXLabelMenu(HOFeatureLayer* layer, HXMapCanvas* canvas, QWidget* parent)
    : QMenu(tr("Label by"), parent) {
    const HOLabelSettings current = layer->GetLabelSettings();
    auto* group = new QActionGroup(this);
    QStringList choices{QString()};
    for (const HOString& field : layer->GetFieldNames()) choices << field.toQString();
    for (const QString& field : choices) {
        QAction* action = addAction(field.isEmpty() ? tr("No labels") : field);
        action->setCheckable(true);
        action->setChecked(current.expression == field);
        group->addAction(action);
        // The layer is held by the map while the menu shows; the menu is modal.
        connect(action, &QAction::triggered, this, [layer, canvas, field] {
            HOLabelSettings settings = layer->GetLabelSettings();
            settings.expression = field;
            layer->SetLabelSettings(settings);
            if (HOMapView* view = canvas->GetMapView())
                view->Refresh(layer, HOMapCache::CacheLayer, HORect());
        });
    }
}
