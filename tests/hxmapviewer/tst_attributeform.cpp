// The viewer's attribute form writes what a person types back to the data source as one undoable
// edit, starts a new feature's fields from their types, and refuses (staying open) when another
// program changed the feature after the form read it. Results are read back through OGR.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <QTableWidget>
#include <QUndoStack>
#include <QtTest>

#include "HODataSource.h"
#include "HOFeatureLayer.h"
#include "HOMap.h"
#include "HXAttributeForm.h"

using namespace HXObjects;

class TestAttributeForm : public QObject {
    Q_OBJECT

    QTemporaryDir m_dir;

    // "name count" of the feature with fid `id`, read with OGR.
    static QString Stored(const QString& path, int id) {
        GDALDatasetUniquePtr dataset(GDALDataset::Open(path.toUtf8(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
        OGRFeatureUniquePtr feature(dataset->GetLayer(0)->GetFeature(id));
        if (!feature) return "gone";
        const QString name = feature->GetFieldAsString("name");
        return name + " " + feature->GetFieldAsString("count");
    }

private slots:
    void form_data() {
        QTest::addColumn<bool>("newFeature");
        QTest::addColumn<QString>("meddle");  // a name another program writes after the form opened
        QTest::addColumn<QString>("stored");  // after OK; the form stays open when it differs from "typed"
        QTest::newRow("edited") << false << ""
                                << "typed 7";
        QTest::newRow("new feature: defaults written") << true << ""
                                                       << "typed 0";
        QTest::newRow("changed by another program meanwhile") << false << "other"
                                                              << "other 7";
    }

    void form() {
        QFETCH(bool, newFeature);
        QFETCH(QString, meddle);
        QFETCH(QString, stored);
        GDALAllRegister();
        const QString path =
            m_dir.filePath(QString("form%1.gpkg").arg(QTest::currentDataTag()).remove(' ').remove(':'));
        int id = -1;
        {
            GDALDatasetUniquePtr dataset(GetGDALDriverManager()->GetDriverByName("GPKG")->Create(
                path.toUtf8(), 0, 0, 0, GDT_Unknown, nullptr));
            OGRLayer* layer = dataset->CreateLayer("points", nullptr, wkbPoint);
            OGRFieldDefn name("name", OFTString), count("count", OFTInteger);
            QVERIFY(layer->CreateField(&name) == OGRERR_NONE && layer->CreateField(&count) == OGRERR_NONE);
            OGRFeatureUniquePtr feature(OGRFeature::CreateFeature(layer->GetLayerDefn()));
            if (!newFeature) {
                feature->SetField("name", "old");
                feature->SetField("count", 7);
            }
            feature->SetGeometryDirectly(new OGRPoint(1, 2));
            QCOMPARE(layer->CreateFeature(feature.get()), OGRERR_NONE);
            id = int(feature->GetFID());
        }
        HORefPtr<HODataSource> source = HODataSource::Open(path.toUtf8().constData());
        HORefPtr<HOFeatureLayer> layer = dynamic_cast<HOFeatureLayer*>(source->OpenLayer("points").get());
        QVERIFY(layer && layer->IsEditable());
        HORefPtr<HOMap> map = new HOMap;
        map->AddLayer(layer.get());
        HXAttributeForm form(map.get(), layer.get(), {id}, newFeature, nullptr, nullptr);
        QCOMPARE(form.table()->item(0, 1)->text(), newFeature ? QString("0") : QString("7"));
        if (!meddle.isEmpty()) {
            GDALDatasetUniquePtr other(GDALDataset::Open(path.toUtf8(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
            OGRFeatureUniquePtr feature(other->GetLayer(0)->GetFeature(id));
            feature->SetField("name", meddle.toUtf8().constData());
            QCOMPARE(other->GetLayer(0)->SetFeature(feature.get()), OGRERR_NONE);
        }
        form.show();
        QVERIFY(QTest::qWaitForWindowExposed(&form));
        form.table()->item(0, 0)->setText("typed");
        form.accept();
        QTRY_VERIFY2_WITH_TIMEOUT(form.isEnabled(), "the form waits for the write's outcome", 20000);
        QCOMPARE(Stored(path, id), stored);
        const bool written = stored.startsWith("typed");
        QCOMPARE(form.result(), written ? int(QDialog::Accepted) : int(QDialog::Rejected));
        QCOMPARE(map->GetUndoStack()->count(), written ? 1 : 0);
        if (!written) return;
        map->GetUndoStack()->undo();
        QTRY_COMPARE_WITH_TIMEOUT(Stored(path, id), newFeature ? QString(" ") : QString("old 7"), 20000);
    }
};

QTEST_MAIN(TestAttributeForm)
#include "tst_attributeform.moc"
