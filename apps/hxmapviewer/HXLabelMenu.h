#pragma once
// HXLabelMenu: the "Label by" choice of a feature layer — none, or one of its fields — shown from
// the layer list's context menu. Choosing keeps the layer's other label settings and redraws it.
#include <QMenu>

class HXMapCanvas;

namespace HXObjects {
class HOFeatureLayer;
}  // namespace HXObjects

class HXLabelMenu : public QMenu {
    Q_OBJECT

public:
    HXLabelMenu(HXObjects::HOFeatureLayer* layer, HXMapCanvas* canvas, QWidget* parent);
};
