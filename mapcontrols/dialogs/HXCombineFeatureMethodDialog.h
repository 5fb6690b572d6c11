#pragma once
// HXCombineFeatureMethodDialog: asked when a tool merges the selected features of one layer, it lets
// the user choose whose attribute values the merged feature keeps — the largest feature's or one
// picked from the list of selected ids. Picking an id flashes that feature on the canvas's map.
// Modal; built on the stack by HXMapCanvas::combineFeatureAttributeFID, parented to the canvas.
#include <QDialog>
#include <QModelIndex>
#include <memory>

#include "HORefPtr.h"
#include "HXMapControlsExport.h"

class HXMapCanvas;
class QStandardItemModel;
namespace HXObjects {
class HOFeatureLayer;
}
namespace Ui {
class HXCombineFeatureMethodDialog;
}

class HXMAPCONTROLS_EXPORT HXCombineFeatureMethodDialog : public QDialog {
    Q_OBJECT

public:
    // Keeps a reference on the layer while the dialog lives; the canvas is its parent.
    HXCombineFeatureMethodDialog(HXObjects::HOFeatureLayer* layer, HXMapCanvas* canvas);
    ~HXCombineFeatureMethodDialog() override;

    // True while "Inherited maximum area" is chosen.
    bool isInheritMaxArea() const;
    // The id of the current row, or -2 when no row is current.
    int selectedFeatureId() const;

private slots:
    void onContinue();
    void onCancel();
    void onCurrentChanged(const QModelIndex& current, const QModelIndex& previous);
    void onRadio();

private:
    // Flashes the feature in the map's coordinate system; silently nothing when it cannot be found.
    void twinkleFeature(int id);

    std::unique_ptr<Ui::HXCombineFeatureMethodDialog> ui;
    HXMapCanvas* mCanvas;
    HXObjects::HORefPtr<HXObjects::HOFeatureLayer> mLayer;
    QStandardItemModel* mModel = nullptr;
};
