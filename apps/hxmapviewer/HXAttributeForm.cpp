#include "HXAttributeForm.h"

#include <QDate>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPointer>
#include <QTableWidget>
#include <QVBoxLayout>

#include "HOFeatureEditor.h"
#include "HOMap.h"

using namespace HXObjects;

HXAttributeForm::HXAttributeForm(HOMap* map, HOFeatureLayer* layer, const std::vector<int>& ids,
                                 bool newFeature, HOTool* tool, QWidget* parent)
    : QDialog(parent),
      mMap(map),
      mLayer(layer),
      mTool(tool),
      mNewFeature(newFeature),
      mTable(new QTableWidget(this)) {
    setWindowTitle(newFeature ? tr("New feature of %1").arg(layer->GetName().toQString())
                              : tr("Attributes of %1").arg(layer->GetName().toQString()));
    const auto fields = layer->GetFields();
    mTable->setColumnCount(int(fields.size()));
    QStringList headers;
    for (const auto& field : fields) headers << field.first.toQString();
    mTable->setHorizontalHeaderLabels(headers);
    for (const int id : ids) {
        HORefPtr<HOFeature> feature = HOFeatureEditor::Current(layer, id);
        if (!feature) continue;
        mFeatures.push_back(feature);
        const int row = mTable->rowCount();
        mTable->insertRow(row);
        mTable->setVerticalHeaderItem(row, new QTableWidgetItem(QString::number(id)));
        const auto& values = feature->GetAttributes();
        for (int c = 0; c < int(fields.size()) && c < int(values.size()); ++c) {
            const QString text = newFeature && values[std::size_t(c)].second.isEmpty()
                                     ? defaultFor(fields[std::size_t(c)].second.toQString())
                                     : values[std::size_t(c)].second.toQString();
            mTable->setItem(row, c, new QTableWidgetItem(text));
        }
    }
    mTable->horizontalHeader()->setStretchLastSection(true);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    connect(buttons, &QDialogButtonBox::accepted, this, &HXAttributeForm::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &HXAttributeForm::reject);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(mTable);
    layout->addWidget(buttons);
    resize(480, 240);
}

QString HXAttributeForm::defaultFor(const QString& type) {
    if (type.startsWith("Integer") || type == "Real") return "0";
    if (type == "Date") return QDate::currentDate().toString(Qt::ISODate);
    return QString();
}

void HXAttributeForm::accept() {
    std::vector<HOFeatureChange> changes;
    for (int row = 0; row < int(mFeatures.size()); ++row) {
        const HORefPtr<HOFeature>& feature = mFeatures[std::size_t(row)];
        std::vector<HOFeature::Attribute> edited;
        const auto& values = feature->GetAttributes();
        for (int c = 0; c < int(values.size()) && c < mTable->columnCount(); ++c) {
            const QString text = mTable->item(row, c) ? mTable->item(row, c)->text() : QString();
            if (mNewFeature || text != values[std::size_t(c)].second.toQString())
                edited.emplace_back(values[std::size_t(c)].first, HOString(text));
        }
        // Attributes only: the geometry is kept, and not compared.
        if (!edited.empty())
            changes.push_back({new HOFeature(feature->GetID(), nullptr, values),
                               new HOFeature(feature->GetID(), nullptr, edited)});
    }
    if (changes.empty()) {
        QDialog::accept();
        return;
    }
    // The form closes once the edit is written; refused, it stays open with the reason in the
    // message bar. It takes no input meanwhile.
    setEnabled(false);
    QPointer<HXAttributeForm> self(this);
    if (!HOFeatureEditor::Commit(mMap.get(), mLayer.get(), std::move(changes), tr("Edit attributes"), mTool,
                                 [self](bool written, const std::vector<HOFeatureChange>&) {
                                     if (!self) return;
                                     self->setEnabled(true);
                                     if (written) self->QDialog::accept();
                                 }))
        setEnabled(true);
}
