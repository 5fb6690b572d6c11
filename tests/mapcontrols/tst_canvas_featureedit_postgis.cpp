// The feature-editing tools driven as a person drives them on a shown map canvas, on a GeoPackage,
// a shapefile and a PostGIS table (a throwaway server): adding, deleting, undo and redo, refusals
// (read-only source, invalid geometry, a feature changed by someone else), and two layers on the
// same data seeing each other's edits. What was written is read back through OGR itself.
#include <gdal_priv.h>
#include <ogrsf_frmts.h>

#include <QPushButton>
#include <QRadioButton>
#include <QTreeView>
#include <QtTest>

#include "HODataSource.h"
#include "HOFeatureEditQueue.h"
#include "HOFeatureLayer.h"
#include "HOToolAddFeature.h"
#include "HXCombineFeatureMethodDialog.h"
#include "HXEditCanvas.h"
#include "HXTestPostgres.h"
#include "tools/HOFeatureAddedEvent.h"

using namespace HXObjects;

namespace {

// "name|WKT" of each feature, normalised so that ring order and orientation, and polygon or
// multipolygon, do not matter.
QStringList ReadBack(const QString& source, const QString& table) {
    CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
    GDALDatasetUniquePtr dataset(GDALDataset::Open(source.toUtf8(), GDAL_OF_VECTOR | GDAL_OF_READONLY));
    OGRLayer* layer = dataset ? dataset->GetLayerByName(table.toUtf8()) : nullptr;
    if (!layer) return {"cannot read " + source};
    QStringList result;
    for (auto& feature : *layer) {
        const OGRGeometryUniquePtr multi(
            OGRGeometryFactory::forceToMultiPolygon(feature->GetGeometryRef()->clone()));
        const OGRGeometryUniquePtr geometry(multi->Normalize());
        result << QString("%1|%2").arg(feature->GetFieldAsString("name"), geometry->exportToWkt().c_str());
    }
    result.sort();
    return result;
}

// A "name|WKT" row normalised as ReadBack does.
QString Normalised(const QString& row) {
    OGRGeometry* parsed = nullptr;
    OGRGeometryFactory::createFromWkt(row.section('|', 1).toUtf8().constData(), nullptr, &parsed);
    const OGRGeometryUniquePtr multi(OGRGeometryFactory::forceToMultiPolygon(parsed));
    const OGRGeometryUniquePtr geometry(multi->Normalize());
    return row.section('|', 0, 0) + "|" + geometry->exportToWkt().c_str();
}

QString Ring(int x0, int y0, int size) {
    return QString("((%1 %2,%1 %4,%3 %4,%3 %2,%1 %2))").arg(x0).arg(y0).arg(x0 + size).arg(y0 + size);
}

QString Square(const char* name, int x0, int y0, int size) {
    return QString("%1|MULTIPOLYGON (%2)").arg(name, Ring(x0, y0, size));
}

}  // namespace

// Edits are written on a worker: wait for every outcome to come back to the GUI thread.
#define SETTLED() QTRY_COMPARE_WITH_TIMEOUT(HOFeatureEditQueue::Pending(), 0, 20000)

class TestCanvasFeatureEdit : public QObject {
    Q_OBJECT

    HXTestPostgres m_postgres;
    bool m_postgresUp = false;
    QTemporaryDir m_dir;
    int m_serial = 0;

    // A new source of the kind with the squares "a" (50..150) and "b" (200..300) as polygons;
    // `source` is what to open, `table` the layer's name.
    bool makeSource(const QString& kind, QString* source, QString* table) {
        *table = QString("parcels%1").arg(++m_serial);
        const char* driver = kind == "gpkg" ? "GPKG" : kind == "shp" ? "ESRI Shapefile" : "PostgreSQL";
        GDALDatasetUniquePtr dataset;
        CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
        if (kind == "postgis") {
            if (!m_postgresUp) return false;
            *source = m_postgres.connection();
            dataset.reset(GDALDataset::Open(source->toUtf8(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
        } else {
            *source = m_dir.filePath(*table + "." + kind);
            dataset.reset(GetGDALDriverManager()->GetDriverByName(driver)->Create(source->toUtf8(), 0, 0, 0,
                                                                                  GDT_Unknown, nullptr));
        }
        if (!dataset) return false;
        OGRLayer* layer = dataset->CreateLayer(table->toUtf8(), nullptr, wkbMultiPolygon);
        OGRFieldDefn name("name", OFTString);
        if (!layer || layer->CreateField(&name) != OGRERR_NONE) return false;
        for (const QString& row : {Square("a", 50, 50, 100), Square("b", 200, 50, 100)}) {
            OGRFeatureUniquePtr feature(OGRFeature::CreateFeature(layer->GetLayerDefn()));
            feature->SetField("name", row.section('|', 0, 0).toUtf8().constData());
            OGRGeometry* geometry = nullptr;
            OGRGeometryFactory::createFromWkt(row.section('|', 1).toUtf8().constData(), nullptr, &geometry);
            feature->SetGeometryDirectly(geometry);
            if (layer->CreateFeature(feature.get()) != OGRERR_NONE) return false;
        }
        return true;
    }

    HORefPtr<HOFeatureLayer> open(const QString& source, const QString& table) {
        HORefPtr<HODataSource> data = HODataSource::Open(source.toUtf8().constData());
        return data ? dynamic_cast<HOFeatureLayer*>(data->OpenLayer(table.toUtf8().constData()).get())
                    : nullptr;
    }

    // The canvas with the layer current; the layer's features drawn over the canvas's ground.
    bool show(HXEditCanvas& f, HOFeatureLayer* layer) {
        if (!f.show()) return false;
        f.map->AddLayer(layer);
        f.canvas.setCurrentLayer(layer);
        return true;
    }

    void formats() {
        QTest::addColumn<QString>("kind");
        QTest::newRow("GeoPackage") << "gpkg";
        QTest::newRow("Shapefile") << "shp";
        QTest::newRow("PostGIS") << "postgis";
    }

#define OPEN_SOURCE()                                                                  \
    QFETCH(QString, kind);                                                             \
    if (kind == "postgis" && !m_postgresUp)                                            \
        QSKIP(qPrintable("no PostgreSQL server: " + m_postgres.error()));              \
    QString source, table;                                                             \
    QVERIFY(makeSource(kind, &source, &table));                                        \
    HORefPtr<HOFeatureLayer> layer = open(source, table);                              \
    QVERIFY(layer);                                                                    \
    QVERIFY2(layer->IsEditable(), qPrintable(layer->GetReadOnlyReason().toQString())); \
    const QStringList before = ReadBack(source, table)

private slots:
    void initTestCase() {
        QVERIFY(m_dir.isValid());
        GDALAllRegister();
        m_postgresUp = m_postgres.start();
        if (m_postgresUp)
            qInfo("PostgreSQL with PostGIS started in %lld ms", m_postgres.startMilliseconds());
        else
            qWarning("PostGIS rows will be skipped: %s", qPrintable(m_postgres.error()));
    }

    void edits_data() {
        formats();
    }

    // Add by clicks (the host told of the new id), delete the selection with Delete; each undone
    // and redone, every state read back from the source.
    void edits() {
        OPEN_SOURCE();
        QCOMPARE(before, QStringList({Square("a", 50, 50, 100), Square("b", 200, 50, 100)}));
        HXEditCanvas f;
        QVERIFY(show(f, layer.get()));
        auto* tool =
            static_cast<HOToolAddFeature*>(HOCMDPool::GetInstance()->GetTool("HXObjects::HOToolAddFeature"));
        int added = -1;
        tool->FeatureAddedSignal.bind(
            "test", [&](void*, HOEvent* e) { added = static_cast<HOFeatureAddedEvent*>(e)->featureId; });
        // Pixel (x, y) is the map point (x, 300 - y): the square 200..250 x 200..250.
        f.run("t HOToolAddFeature; c 200 100; c 250 100; c 250 50; d 200 50");
        SETTLED();
        tool->FeatureAddedSignal.unbind("test");
        QStringList withNew = QStringList{Square("", 200, 200, 50)} + before;
        withNew.sort();
        QCOMPARE(ReadBack(source, table), withNew);
        QVERIFY(added >= 0);
        QCOMPARE(layer->GetFeatureCount(), 3);

        f.run("t HOToolSingleSelect; c 100 200; k Delete");
        SETTLED();
        const QStringList withoutA = QStringList{Square("b", 200, 50, 100), Square("", 200, 200, 50)};
        QCOMPARE(ReadBack(source, table), withoutA);
        QCOMPARE(layer->GetFeatureCount(), 2);

        QUndoStack* stack = f.map->GetUndoStack();
        QCOMPARE(stack->count(), 2);
        stack->undo();
        SETTLED();
        QCOMPARE(ReadBack(source, table), withNew);
        stack->undo();
        SETTLED();
        QCOMPARE(ReadBack(source, table), before);
        QCOMPARE(layer->GetFeatureCount(), 2);
        stack->redo();
        SETTLED();
        stack->redo();
        SETTLED();
        QCOMPARE(ReadBack(source, table), withoutA);
        stack->undo();
        SETTLED();
        QCOMPARE(ReadBack(source, table), withNew);
    }

    void refusals_data() {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("meddle");  // a change made by another program first
        for (const char* kind : {"gpkg", "shp", "postgis"}) {
            QTest::addRow("%s: self-intersecting polygon", kind)
                << kind << "t HOToolAddFeature; c 200 100; c 250 50; c 250 100; d 200 50"
                << "";
            QTest::addRow("%s: delete of a feature changed meanwhile", kind)
                << kind << "t HOToolSingleSelect; c 100 200; k Delete"
                << "moved";
            QTest::addRow("%s: delete of a feature deleted meanwhile", kind)
                << kind << "t HOToolSingleSelect; c 100 200; k Delete"
                << "delete";
            QTest::addRow("%s: delete of a feature renamed meanwhile", kind)
                << kind << "t HOToolSingleSelect; c 100 200; k Delete"
                << "renamed";
        }
    }

    // Each refused edit leaves the source as the other program left it and the stack empty.
    void refusals() {
        OPEN_SOURCE();
        QFETCH(QString, script);
        QFETCH(QString, meddle);
        HXEditCanvas f;
        QVERIFY(show(f, layer.get()));
        // The user looks at square a (as the identify tool shows it) before the other program meddles.
        QVERIFY(layer->GetFeature(layer->IdentifyAt(HOPoint(100, 100), 1).at(0)));
        if (!meddle.isEmpty()) {
            CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
            GDALDatasetUniquePtr other(GDALDataset::Open(source.toUtf8(), GDAL_OF_VECTOR | GDAL_OF_UPDATE));
            OGRLayer* l = other->GetLayerByName(table.toUtf8());
            l->SetAttributeFilter("name = 'a'");
            OGRFeatureUniquePtr a(l->GetNextFeature());
            QVERIFY(a);
            if (meddle == "moved") {
                OGRGeometry* moved = nullptr;
                OGRGeometryFactory::createFromWkt("MULTIPOLYGON (((50 50,60 150,150 150,150 50,50 50)))",
                                                  nullptr, &moved);
                a->SetGeometryDirectly(moved);
                QCOMPARE(l->SetFeature(a.get()), OGRERR_NONE);
            } else if (meddle == "renamed") {
                a->SetField("name", "z");
                QCOMPARE(l->SetFeature(a.get()), OGRERR_NONE);
            } else {
                QCOMPARE(l->DeleteFeature(a->GetFID()), OGRERR_NONE);
            }
        }
        const QStringList meddled = ReadBack(source, table);
        f.run(script);
        SETTLED();
        QCOMPARE(ReadBack(source, table), meddled);
        QCOMPARE(f.map->GetUndoStack()->count(), 0);
        QCOMPARE(layer->GetFeatureCount(), 2);
    }

    void readOnly_data() {
        QTest::addColumn<QString>("file");
        QTest::addColumn<QString>("reason");
        QTest::newRow("GeoJSON") << "a.geojson"
                                 << "the layer cannot be edited: the GeoJSON format cannot be edited";
        QTest::newRow("read-only GeoPackage") << "ro.gpkg"
                                              << "is read-only";
    }

    // A layer that cannot be edited says why; the tools write nothing to it.
    void readOnly() {
        QFETCH(QString, file);
        QFETCH(QString, reason);
        const QString path = m_dir.filePath(file);
        {
            CPLErrorHandlerPusher quiet(CPLQuietErrorHandler);
            GDALDatasetUniquePtr dataset(GetGDALDriverManager()
                                             ->GetDriverByName(file.endsWith("gpkg") ? "GPKG" : "GeoJSON")
                                             ->Create(path.toUtf8(), 0, 0, 0, GDT_Unknown, nullptr));
            OGRLayer* l = dataset->CreateLayer("a", nullptr, wkbPolygon);
            OGRFeatureUniquePtr feature(OGRFeature::CreateFeature(l->GetLayerDefn()));
            OGRPolygon square;
            OGRLinearRing ring;
            for (const auto& p : {OGRRawPoint{50, 50}, {150, 50}, {150, 150}, {50, 150}, {50, 50}})
                ring.addPoint(p.x, p.y);
            square.addRing(&ring);
            feature->SetGeometry(&square);
            QCOMPARE(l->CreateFeature(feature.get()), OGRERR_NONE);
        }
        if (file.startsWith("ro")) QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::ReadGroup));
        QFile original(path);
        QVERIFY(original.open(QIODevice::ReadOnly));
        const QByteArray bytes = original.readAll();
        HORefPtr<HOFeatureLayer> layer = open(path, "a");
        QVERIFY(layer);
        QVERIFY(!layer->IsEditable());
        QVERIFY2(layer->GetReadOnlyReason().toQString().contains(reason),
                 qPrintable(layer->GetReadOnlyReason().toQString()));
        HXEditCanvas f;
        QVERIFY(show(f, layer.get()));
        f.run(
            "t HOToolAddFeature; c 200 100; c 250 100; d 250 50; t HOToolSingleSelect; c 100 200; k Delete");
        SETTLED();
        QCOMPARE(f.map->GetUndoStack()->count(), 0);
        QCOMPARE(layer->GetFeatureCount(), 1);
        QFile after(path);
        QVERIFY(after.open(QIODevice::ReadOnly));
        QCOMPARE(after.readAll(), bytes);
    }

    void merge_data() {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("answer");  // "largest", "b" or "cancel"
        QTest::addColumn<QString>("result");  // the feature left with the other's geometry; empty: unchanged
        const QString both = "|MULTIPOLYGON (" + Ring(200, 50, 100) + "," + Ring(50, 50, 100) + ")";
        for (const char* kind : {"gpkg", "shp", "postgis"}) {
            QTest::addRow("%s: largest (the first of equals)", kind) << kind << "largest"
                                                                     << "a" + both;
            QTest::addRow("%s: the attributes of b", kind) << kind << "b"
                                                           << "b" + both;
            QTest::addRow("%s: abandoned", kind) << kind << "cancel"
                                                 << "";
        }
    }

    // Two disjoint squares selected by a box and merged: one feature of two parts with the chosen
    // feature's attributes, the other deleted; undo brings both back.
    void merge() {
        OPEN_SOURCE();
        QFETCH(QString, answer);
        QFETCH(QString, result);
        HXEditCanvas f;
        QVERIFY(show(f, layer.get()));
        const int b = layer->IdentifyAt(HOPoint(250, 100), 1).at(0);
        HXModalAnswer<HXCombineFeatureMethodDialog> dialog([&](HXCombineFeatureMethodDialog* d) {
            if (answer == "cancel") return;
            if (answer == "b") {
                auto* tree = d->findChild<QTreeView*>("treeView");
                const QModelIndexList rows =
                    tree->model()->match(tree->model()->index(0, 0), Qt::DisplayRole, QString::number(b));
                QCOMPARE(rows.size(), 1);
                QTest::mouseClick(d->findChild<QRadioButton*>("radioButton_feature"), Qt::LeftButton);
                tree->setCurrentIndex(rows.first());
            }
            QTest::mouseClick(d->findChild<QPushButton*>("pushButton_continue"), Qt::LeftButton);
        });
        f.run("t HOToolSingleSelect; g 40 260 310 140; t HOToolMergeFeature");
        QVERIFY(dialog.answered);
        SETTLED();
        QCOMPARE(ReadBack(source, table), result.isEmpty() ? before : QStringList{result});
        QCOMPARE(f.map->GetUndoStack()->count(), result.isEmpty() ? 0 : 1);
        if (result.isEmpty()) return;
        QCOMPARE(layer->GetFeatureCount(), 1);
        f.map->GetUndoStack()->undo();
        SETTLED();
        QCOMPARE(ReadBack(source, table), before);
    }

    void vertices_data() {
        QTest::addColumn<QString>("kind");
        QTest::addColumn<QString>("script");
        QTest::addColumn<QString>("result");  // square a after the edit; empty: refused
        for (const char* kind : {"gpkg", "shp", "postgis"}) {
            QTest::addRow("%s: vertex dragged", kind) << kind << "c 100 200; g 150 250 170 270"
                                                      << "a|POLYGON ((50 50,50 150,150 150,170 30,50 50))";
            QTest::addRow("%s: vertex inserted on a segment", kind)
                << kind << "c 100 200; d 100 250"
                << "a|POLYGON ((50 50,50 150,150 150,150 50,100 50,50 50))";
            QTest::addRow("%s: vertex deleted", kind) << kind << "c 100 200; m 150 250; k Backspace"
                                                      << "a|POLYGON ((50 50,50 150,150 150,50 50))";
            QTest::addRow("%s: drag that makes the ring cross itself", kind)
                << kind << "c 100 200; g 50 150 200 200"
                << "";
        }
    }

    // A feature's vertices edited with the mouse; undo puts the square back.
    void vertices() {
        OPEN_SOURCE();
        QFETCH(QString, script);
        QFETCH(QString, result);
        HXEditCanvas f;
        QVERIFY(show(f, layer.get()));
        f.run("t HOToolEditVertex; " + script);
        SETTLED();
        QStringList expected = result.isEmpty() ? before : QStringList{Normalised(result), before.at(1)};
        expected.sort();
        QCOMPARE(ReadBack(source, table), expected);
        QCOMPARE(f.map->GetUndoStack()->count(), result.isEmpty() ? 0 : 1);
        f.map->GetUndoStack()->undo();
        SETTLED();
        QCOMPARE(ReadBack(source, table), before);
    }

    void twoViews_data() {
        formats();
    }

    // Two layers on the same data (two canvases, or two programs): each sees the other's edit
    // after a reload, and may not overwrite a feature the other changed since it read it.
    void twoViews() {
        OPEN_SOURCE();
        HORefPtr<HOFeatureLayer> other = open(source, table);
        QVERIFY(other);
        HORefPtr<HOFeature> a = layer->GetFeature(layer->IdentifyAt(HOPoint(100, 100), 1).at(0));
        HORefPtr<HOFeature> aSeenByOther = other->GetFeature(a->GetID());
        std::vector<HOFeatureChange> rename{
            {a, new HOFeature(a->GetID(), a->GetGeometry(), {{"name", "a1"}})}};
        HOString error;
        QVERIFY2(layer->ApplyChanges(rename, &error), error.c_str());
        std::vector<HOFeatureChange> stale{{aSeenByOther, nullptr}};
        QVERIFY(!other->ApplyChanges(stale, &error));
        QVERIFY2(error.toQString().contains("changed by someone else"), error.c_str());
        QVERIFY(other->Reload(&error));
        std::vector<HOFeatureChange> fresh{{other->GetFeature(a->GetID()), nullptr}};
        QVERIFY2(other->ApplyChanges(fresh, &error), error.c_str());
        QCOMPARE(ReadBack(source, table), QStringList{Square("b", 200, 50, 100)});
        QVERIFY(layer->Reload(&error));
        QCOMPARE(layer->GetFeatureCount(), 1);
    }

    // Last, as it stops the server: an edit while the database is gone is refused with the reason
    // and leaves the layer as it was.
    void databaseGone() {
        if (!m_postgresUp) QSKIP(qPrintable("no PostgreSQL server: " + m_postgres.error()));
        QString source, table;
        QVERIFY(makeSource("postgis", &source, &table));
        HORefPtr<HOFeatureLayer> layer = open(source, table);
        QVERIFY(layer && layer->IsEditable());
        HXEditCanvas f;
        QVERIFY(show(f, layer.get()));
        m_postgres.stop();
        f.run("t HOToolSingleSelect; c 100 200; k Delete");
        SETTLED();
        QCOMPARE(f.map->GetUndoStack()->count(), 0);
        QCOMPARE(layer->GetFeatureCount(), 2);
        std::vector<HOFeatureChange> add{
            {nullptr, new HOFeature(
                          -1, layer->GetFeatureGeometry(layer->IdentifyAt(HOPoint(100, 100), 1).at(0)), {})}};
        HOString error;
        QVERIFY(!layer->ApplyChanges(add, &error));
        QVERIFY2(!error.isEmpty(), "no reason given");
        qInfo("with the database gone: %s", error.c_str());
        QCOMPARE(layer->GetFeatureCount(), 2);
    }
};

QTEST_MAIN(TestCanvasFeatureEdit)
#include "tst_canvas_featureedit_postgis.moc"
