#pragma once
// HXLayerPanel: the viewer's layer list, topmost layer first. Check boxes switch visibility, dragging
// reorders, Delete or the remove button drops the selected layer; the current row becomes the
// canvas's current layer; a feature layer's context menu chooses the field it is labelled by. Rebuilt
// whenever the canvas asks for a layer-tree reload.
#include <QDockWidget>

class QListWidget;
class QListWidgetItem;
class HXMapCanvas;

namespace HXObjects {
class HOLayer;
class HOMap;
}  // namespace HXObjects

class HXLayerPanel : public QDockWidget {
    Q_OBJECT

public:
    HXLayerPanel(HXMapCanvas* canvas, QWidget* parent);

    QListWidget* list() const { return mList; }

public slots:
    void rebuild();
    void removeSelected();

private:
    HXObjects::HOMap* map() const;
    HXObjects::HOLayer* layerOf(const QListWidgetItem* item) const;
    void applyVisibility(QListWidgetItem* item);
    void applyOrder();
    void showLayerMenu(const QPoint& at);

    HXMapCanvas* mCanvas;
    QListWidget* mList;
    bool mRebuilding = false;
};
