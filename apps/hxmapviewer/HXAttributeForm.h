#pragma once
// HXAttributeForm: the viewer's attribute table for features of one editable layer — one row per
// feature, one column per field. On OK the rows that changed are written back as one undoable edit
// (one transaction). For a feature just digitised, the fields start with defaults from their types
// (0 for numbers, today for dates, empty text) and are written as they stand.
#include <QDialog>
#include <vector>

#include "HOFeatureLayer.h"
#include "HOMap.h"

class QTableWidget;

namespace HXObjects {
class HOTool;
}  // namespace HXObjects

class HXAttributeForm : public QDialog {
    Q_OBJECT
public:
    // `tool` reports refusals in the canvas's message bar.
    HXAttributeForm(HXObjects::HOMap* map, HXObjects::HOFeatureLayer* layer, const std::vector<int>& ids,
                    bool newFeature, HXObjects::HOTool* tool, QWidget* parent);

    QTableWidget* table() const { return mTable; }

    void accept() override;

private:
    // The text a new feature's field of the type starts with.
    static QString defaultFor(const QString& type);

    HXObjects::HORefPtr<HXObjects::HOMap> mMap;
    HXObjects::HORefPtr<HXObjects::HOFeatureLayer> mLayer;
    HXObjects::HOTool* mTool;
    std::vector<HXObjects::HORefPtr<HXObjects::HOFeature>> mFeatures;  // as read when the form opened
    bool mNewFeature;
    QTableWidget* mTable;
};
