#include "HXCombineFeatureMethodDialog.h"

#include <QStandardItemModel>

#include "HOCoordinateSystem.h"
#include "HOFeatureLayer.h"
#include "HOGeometryProject.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HXMapCanvas.h"
#include "ui_HXCombineFeatureMethodDialog.h"

using namespace HXObjects;

namespace {

// How many times a picked feature flashes.
const int kTwinkleTimes = 3;

}  // namespace

HXCombineFeatureMethodDialog::HXCombineFeatureMethodDialog(HOFeatureLayer* layer, HXMapCanvas* canvas)
    : QDialog(canvas),
      ui(std::make_unique<Ui::HXCombineFeatureMethodDialog>()),
      mCanvas(canvas),
      mLayer(layer) {
    ui->setupUi(this);
    setWindowFlags(Qt::Dialog | Qt::WindowCloseButtonHint);
    resize(245, 205);

    mModel = new QStandardItemModel(0, 1, ui->treeView);
    mModel->setHorizontalHeaderLabels({tr("Selected feature id")});
    // Duplicates and order are the layer's: the list shows exactly what the merge will take.
    const std::vector<int> ids = mLayer ? mLayer->GetSelectedIds() : std::vector<int>();
    for (int id : ids) mModel->appendRow(new QStandardItem(QString::number(id)));
    ui->treeView->expandAll();
    ui->treeView->setModel(mModel);

    connect(ui->pushButton_cancel, SIGNAL(clicked()), this, SLOT(onCancel()));
    connect(ui->pushButton_continue, SIGNAL(clicked()), this, SLOT(onContinue()));
    connect(ui->radioButton_area, SIGNAL(clicked()), this, SLOT(onRadio()));
    connect(ui->radioButton_feature, SIGNAL(clicked()), this, SLOT(onRadio()));
    connect(ui->treeView->selectionModel(), SIGNAL(currentChanged(QModelIndex, QModelIndex)), this,
            SLOT(onCurrentChanged(QModelIndex, QModelIndex)));
    ui->radioButton_area->setChecked(true);
}

HXCombineFeatureMethodDialog::~HXCombineFeatureMethodDialog() = default;

bool HXCombineFeatureMethodDialog::isInheritMaxArea() const {
    return ui->radioButton_area->isChecked();
}

int HXCombineFeatureMethodDialog::selectedFeatureId() const {
    const QModelIndex current = ui->treeView->currentIndex();
    return current.isValid() ? current.data().toString().toInt() : -2;
}

void HXCombineFeatureMethodDialog::onContinue() {
    accept();
}

void HXCombineFeatureMethodDialog::onCancel() {
    reject();
}

void HXCombineFeatureMethodDialog::onCurrentChanged(const QModelIndex& current, const QModelIndex&) {
    if (!mCanvas) return;
    if (current.isValid()) {
        ui->pushButton_continue->setEnabled(true);
        twinkleFeature(current.data().toString().toInt());
    } else {
        ui->pushButton_continue->setEnabled(!ui->radioButton_feature->isChecked());
    }
}

void HXCombineFeatureMethodDialog::onRadio() {
    if (ui->radioButton_area->isChecked())
        ui->pushButton_continue->setEnabled(true);
    else if (ui->radioButton_feature->isChecked())
        ui->pushButton_continue->setEnabled(ui->treeView->currentIndex().isValid());
}

void HXCombineFeatureMethodDialog::twinkleFeature(int id) {
    if (!mLayer || !mLayer->IsValid()) return;
    // The layer's in-memory copy of the geometry: no file is read on the GUI thread, and projecting
    // the copy below leaves the stored feature as it is.
    HORefPtr<HOGeometry> geometry = mLayer->GetFeatureGeometry(id);
    if (!geometry) return;
    const HOGeometry::GeoType type = geometry->GetType();
    HOMapView* view = mCanvas->GetMapView();
    HOMap* map = view ? view->GetMap() : nullptr;
    if (!map) return;
    HORefPtr<HOCoordinateSystem> mapSystem = map->GetSpatialReference();
    if (mapSystem && !mLayer->IsSameCoordinateSystem(mapSystem)) {
        HOGeometryProject project;
        project.SetPrj(mLayer->GetSpatialReference(), mapSystem, nullptr);
        project.ProjHxGeometry(geometry, type);
    }
    view->TwinkleGeometry(geometry, nullptr, kTwinkleTimes);
}
