#pragma once
// HXCustomRenderDialog: gives the selected features of the map's point, polyline and polygon layers
// a style of their own (one per kind, chosen with the style picker) or, with the check box cleared,
// takes such per-feature styles away again. Styles are stored in each layer's user feature
// renderer; the dialog itself keeps only the layers and the chosen styles of one run. Built on the
// stack by HXMapCanvas::CustomStyle and run modally.
#include <QDialog>
#include <vector>

#include "HOLayer.h"
#include "HORefPtr.h"
#include "HOStyle.h"
#include "HXMapControlsExport.h"

class QAbstractButton;
class QLabel;

namespace HXObjects {
class HOFeatureLayer;
class HOMapView;
}  // namespace HXObjects

namespace Ui {
class HXCustomRenderDialog;
}

class HXMAPCONTROLS_EXPORT HXCustomRenderDialog : public QDialog {
    Q_OBJECT
public:
    // `layers`: every layer of the map (the dialog keeps those with a selection); `view` is borrowed
    // and only asked to redraw.
    HXCustomRenderDialog(const std::vector<HXObjects::HORefPtr<HXObjects::HOLayer>>& layers,
                         HXObjects::HOMapView* view, QWidget* parent);
    ~HXCustomRenderDialog() override;

private slots:
    void on_pushButton_point_clicked();
    void on_pushButton_polyline_clicked();
    void on_pushButton_polygon_clicked();
    void on_buttonBox_clicked(QAbstractButton* button);

private:
    void initFromLayers(const std::vector<HXObjects::HORefPtr<HXObjects::HOLayer>>& layers);
    // The style of the first feature, in the renderer's order, that has one; null when none has.
    static HXObjects::HORefPtr<HXObjects::HOStyle> firstCustomStyle(HXObjects::HOFeatureLayer* layer);
    // Shows the style in the label at 0.8 of `basis`.
    static void showPreview(QLabel* label, HXObjects::HOStyle* style, const QSize& basis);
    void chooseStyle(HXObjects::HOStyle::StyleType type, QLabel* label,
                     HXObjects::HORefPtr<HXObjects::HOStyle>& slot);
    void applyStyles();
    HXObjects::HOStyle* styleFor(HXObjects::HOLayer::LayerType type) const;

    Ui::HXCustomRenderDialog* ui;
    std::vector<HXObjects::HORefPtr<HXObjects::HOLayer>> mLayers;
    HXObjects::HOMapView* mMapView;
    HXObjects::HORefPtr<HXObjects::HOStyle> mPointStyle;
    HXObjects::HORefPtr<HXObjects::HOStyle> mPolylineStyle;
    HXObjects::HORefPtr<HXObjects::HOStyle> mPolygonStyle;
};
