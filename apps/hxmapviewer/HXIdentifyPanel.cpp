#include "HXIdentifyPanel.h"

#include <QHeaderView>
#include <QTreeWidget>

HXIdentifyPanel::HXIdentifyPanel(QWidget* parent) : QDockWidget(tr("Identify results"), parent) {
    setObjectName("identifyPanel");
    mTree = new QTreeWidget(this);
    mTree->setColumnCount(2);
    mTree->setHeaderLabels({tr("Field"), tr("Value")});
    mTree->header()->setSectionResizeMode(0, QHeaderView::ResizeToContents);
    setWidget(mTree);
}

void HXIdentifyPanel::clear() {
    mTree->clear();
}

void HXIdentifyPanel::addFeature(const QString& layerName, int featureId, const Attributes& attributes) {
    auto* feature = new QTreeWidgetItem(mTree, {layerName, tr("feature %1").arg(featureId)});
    for (const auto& attribute : attributes)
        new QTreeWidgetItem(feature, {attribute.first, attribute.second});
    feature->setExpanded(true);
    if (!isVisible()) show();
}
