#include "HXCustomRenderDialog.h"

#include <QPushButton>

#include "HOFeatureLayer.h"
#include "HOMapView.h"
#include "HXStyleManager.h"
#include "HXSymbolUtils.h"
#include "ui_HXCustomRenderDialog.h"

using namespace HXObjects;

namespace {

HOFeatureLayer* selectedFeatureLayer(HOLayer* layer) {
    auto* features = dynamic_cast<HOFeatureLayer*>(layer);
    return features && features->HasSelectedFeatures() ? features : nullptr;
}

}  // namespace

HXCustomRenderDialog::HXCustomRenderDialog(const std::vector<HORefPtr<HOLayer>>& layers, HOMapView* view,
                                           QWidget* parent)
    : QDialog(parent), ui(new Ui::HXCustomRenderDialog), mMapView(view) {
    ui->setupUi(this);
    setWindowFlags(Qt::Dialog | Qt::WindowCloseButtonHint);
    // The labels take their laid-out size now, so the previews fit them.
    layout()->activate();
    initFromLayers(layers);
}

HXCustomRenderDialog::~HXCustomRenderDialog() {
    delete ui;
}

void HXCustomRenderDialog::initFromLayers(const std::vector<HORefPtr<HOLayer>>& layers) {
    mLayers.clear();
    ui->pushButton_point->setEnabled(false);
    ui->pushButton_polyline->setEnabled(false);
    ui->pushButton_polygon->setEnabled(false);
    ui->checkBox->setChecked(true);
    const QSize basis = ui->label_point->geometry().size();
    for (const HORefPtr<HOLayer>& layer : layers) {
        HOFeatureLayer* features = selectedFeatureLayer(layer.get());
        if (!features) continue;
        mLayers.push_back(layer);
        switch (features->GetLayerType()) {
            case HOLayer::PointLayer:
                ui->pushButton_point->setEnabled(true);
                // Only ever replaces a style already chosen, and none is at this point: a point
                // layer's custom style is not preloaded, unlike the other kinds.
                if (mPointStyle) mPointStyle = firstCustomStyle(features);
                break;
            case HOLayer::PolylineLayer:
                ui->pushButton_polyline->setEnabled(true);
                if (!mPolylineStyle) mPolylineStyle = firstCustomStyle(features);
                break;
            case HOLayer::PolygonLayer:
                ui->pushButton_polygon->setEnabled(true);
                if (!mPolygonStyle) mPolygonStyle = firstCustomStyle(features);
                break;
            default:
                break;
        }
    }
    showPreview(ui->label_point, mPointStyle, basis);
    showPreview(ui->label_polyline, mPolylineStyle, basis);
    showPreview(ui->label_polygon, mPolygonStyle, basis);
}

HORefPtr<HOStyle> HXCustomRenderDialog::firstCustomStyle(HOFeatureLayer* layer) {
    const HORefPtr<HOUserFeatureRender> render = layer->GetCustomFeatureRender();
    if (!render) return nullptr;
    std::vector<int> ids;
    render->GetCustomIds(ids);
    return ids.empty() ? nullptr : render->GetFeatureStyle(ids[0]);
}

void HXCustomRenderDialog::showPreview(QLabel* label, HOStyle* style, const QSize& basis) {
    if (!style) return;
    label->setPixmap(HXSymbolUtils::symbolPreviewPixmap(
        style, QSize(int(basis.width() * 0.8), int(basis.height() * 0.8))));
    label->setAlignment(Qt::AlignHCenter | Qt::AlignVCenter);
}

void HXCustomRenderDialog::chooseStyle(HOStyle::StyleType type, QLabel* label, HORefPtr<HOStyle>& slot) {
    HORefPtr<HOStyle> chosen(selectStyle(type));
    if (!chosen) return;
    showPreview(label, chosen, label->geometry().size());
    slot = chosen;
}

void HXCustomRenderDialog::on_pushButton_point_clicked() {
    chooseStyle(HOStyle::MarkerStyle, ui->label_point, mPointStyle);
}

void HXCustomRenderDialog::on_pushButton_polyline_clicked() {
    chooseStyle(HOStyle::LineStyle, ui->label_polyline, mPolylineStyle);
}

void HXCustomRenderDialog::on_pushButton_polygon_clicked() {
    chooseStyle(HOStyle::FillStyle, ui->label_polygon, mPolygonStyle);
}

void HXCustomRenderDialog::on_buttonBox_clicked(QAbstractButton* button) {
    if (!button) return;
    if (button == ui->buttonBox->button(QDialogButtonBox::Ok)) {
        applyStyles();
        accept();
    } else if (button == ui->buttonBox->button(QDialogButtonBox::Cancel)) {
        reject();
    } else if (button == ui->buttonBox->button(QDialogButtonBox::Apply)) {
        applyStyles();
    }
}

HOStyle* HXCustomRenderDialog::styleFor(HOLayer::LayerType type) const {
    switch (type) {
        case HOLayer::PointLayer:
            return mPointStyle;
        case HOLayer::PolylineLayer:
            return mPolylineStyle;
        case HOLayer::PolygonLayer:
            return mPolygonStyle;
        default:
            return nullptr;
    }
}

void HXCustomRenderDialog::applyStyles() {
    const bool custom = ui->checkBox->checkState() == Qt::Checked;
    for (const HORefPtr<HOLayer>& layer : mLayers) {
        // The selection as it is now, which may differ from the one the dialog opened with.
        HOFeatureLayer* features = selectedFeatureLayer(layer.get());
        if (!features) continue;
        HOStyle* style = styleFor(features->GetLayerType());
        for (const int id : features->GetSelectedIds()) {
            const HORefPtr<HOUserFeatureRender> render = features->GetCustomFeatureRender();
            if (!custom) {
                if (render) render->RemoveFeatureStyle(id);
                continue;  // the map is not redrawn after a removal
            }
            if (style && render) render->SetFeatureStyle(id, style);
            if (mMapView) mMapView->Refresh(layer, HOMapCache::CacheLayer, HORect());
        }
    }
}
