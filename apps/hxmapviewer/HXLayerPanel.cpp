#include "HXLayerPanel.h"

#include "HOFeatureLayer.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HXLabelMenu.h"
#include "HXMapCanvas.h"

#include <QAbstractItemModel>
#include <QListWidget>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

using namespace HXObjects;

HXLayerPanel::HXLayerPanel(HXMapCanvas* canvas, QWidget* parent)
    : QDockWidget(tr("Layers"), parent), mCanvas(canvas) {
    setObjectName("layerPanel");
    auto* body = new QWidget(this);
    auto* layout = new QVBoxLayout(body);
    layout->setContentsMargins(2, 2, 2, 2);
    mList = new QListWidget(body);
    mList->setDragDropMode(QAbstractItemView::InternalMove);
    mList->setDefaultDropAction(Qt::MoveAction);
    mList->setSelectionMode(QAbstractItemView::SingleSelection);
    auto* remove = new QPushButton(tr("Remove layer"), body);
    layout->addWidget(mList, 1);
    layout->addWidget(remove);
    setWidget(body);

    connect(remove, &QPushButton::clicked, this, &HXLayerPanel::removeSelected);
    auto* del = new QShortcut(QKeySequence::Delete, mList, nullptr, nullptr, Qt::WidgetShortcut);
    connect(del, &QShortcut::activated, this, &HXLayerPanel::removeSelected);
    connect(mList, &QListWidget::itemChanged, this, &HXLayerPanel::applyVisibility);
    connect(mList->model(), &QAbstractItemModel::rowsMoved, this, &HXLayerPanel::applyOrder);
    connect(mList, &QListWidget::currentItemChanged, this, [this](QListWidgetItem* item) {
        if (!mRebuilding) mCanvas->setCurrentLayer(layerOf(item));
    });
    connect(canvas, &HXMapCanvas::layerTreeReload, this, &HXLayerPanel::rebuild);
    mList->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(mList, &QWidget::customContextMenuRequested, this, &HXLayerPanel::showLayerMenu);
}

void HXLayerPanel::showLayerMenu(const QPoint& at) {
    auto* features = dynamic_cast<HOFeatureLayer*>(layerOf(mList->itemAt(at)));
    if (!features) return;
    QMenu menu(mList);
    menu.addMenu(new HXLabelMenu(features, mCanvas, &menu));
    menu.exec(mList->viewport()->mapToGlobal(at));
}

HOMap* HXLayerPanel::map() const {
    HOMapView* view = mCanvas->GetMapView();
    return view ? view->GetMap() : nullptr;
}

HOLayer* HXLayerPanel::layerOf(const QListWidgetItem* item) const {
    if (!item || !map()) return nullptr;
    const int id = item->data(Qt::UserRole).toInt();
    for (const HORefPtr<HOLayer>& layer : map()->GetLayers(true)) {
        if (layer->GetLayerId() == id) return layer.get();
    }
    return nullptr;
}

void HXLayerPanel::rebuild() {
    mRebuilding = true;
    mList->clear();
    if (HOMap* m = map()) {
        const auto layers = m->GetLayers(true);
        // Topmost first, as a person reads a stack.
        for (auto it = layers.rbegin(); it != layers.rend(); ++it) {
            auto* item = new QListWidgetItem((*it)->GetName().toQString(), mList);
            item->setToolTip((*it)->GetSource().toQString());
            item->setData(Qt::UserRole, (*it)->GetLayerId());
            item->setFlags(item->flags() | Qt::ItemIsUserCheckable | Qt::ItemIsDragEnabled);
            item->setCheckState((*it)->IsVisible() ? Qt::Checked : Qt::Unchecked);
        }
    }
    mRebuilding = false;
}

void HXLayerPanel::applyVisibility(QListWidgetItem* item) {
    HOLayer* layer = layerOf(item);
    if (mRebuilding || !layer) return;
    const bool visible = item->checkState() == Qt::Checked;
    if (layer->IsVisible() != visible) map()->SetLayerVisible(layer, visible);
}

void HXLayerPanel::applyOrder() {
    HOMap* m = map();
    if (!m) return;
    const int count = mList->count();
    for (int row = 0; row < count; ++row) {
        // Row 0 is the top of the stack, the last index of the map.
        if (HOLayer* layer = layerOf(mList->item(row))) m->MoveLayer(layer, count - 1 - row);
    }
}

void HXLayerPanel::removeSelected() {
    HOLayer* layer = layerOf(mList->currentItem());
    if (!layer) return;
    HORefPtr<HOLayer> keep(layer);  // the map's reference goes first
    map()->RemoveLayer(layer);
    mCanvas->ReloadLayerTree();
}
