// Attribute inheritance when features are merged: the dialog the canvas shows for a feature layer's
// selection, its radio and Continue rules, the answer the merge tool gets, and the flash of a picked
// feature where the map draws it.
#include <QPushButton>
#include <QRadioButton>
#include <QStandardItemModel>
#include <QTemporaryDir>
#include <QTreeView>
#include <QtTest>

#include "HOCoordinateSystem.h"
#include "HOFeatureLayer.h"
#include "HOGraphics.h"
#include "HOLayerFixture.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HOTestColumns.h"
#include "HOTestPrinters.h"
#include "HXCombineFeatureMethodDialog.h"
#include "HXMapCanvas.h"
#include "HXModalAnswer.h"

Q_DECLARE_METATYPE(std::vector<int>)

using namespace HXObjects;

namespace {

using Answer = HXModalAnswer<HXCombineFeatureMethodDialog>;

// A feature layer of three squares (ids 3, 7, 12) in EPSG:4326, and a canvas whose 200 x 200 map
// view shows a map in `mapSystem` (none when empty).
struct Scene {
    explicit Scene(const QString& mapSystem = "EPSG:4326") : canvas(HXMapCanvas::MapViewMode, nullptr) {
        layer = HOLayerFixture::OpenVector(dir.filePath("parcels.geojson"), 4326, wkbPolygon,
                                           {{"POLYGON ((10 50, 11 50, 11 51, 10 51, 10 50))", 3},
                                            {"POLYGON ((20 50, 21 50, 21 51, 20 51, 20 50))", 7},
                                            {"POLYGON ((10 40, 11 40, 11 41, 10 41, 10 40))", 12}});
        if (!layer) qFatal("cannot write or open parcels.geojson");
        if (!mapSystem.isEmpty())
            map->SetSpatialReference(HOCoordinateSystem::FromUserInput(HOString(mapSystem)));
        canvas.SetMapView(view);
        canvas.move(120, 90);
        view->SetSize(200, 200);
        view->SetMap(map);
    }
    QImage drawn() const {
        HORefPtr<HOGraphics> surface(new HOGraphics);
        surface->SetSize(200, 200);
        surface->Clear(HOColor(255, 255, 255));
        view->Draw(surface);
        return surface->Image().copy();
    }

    QTemporaryDir dir;
    HORefPtr<HOFeatureLayer> layer;
    HORefPtr<HOMap> map = new HOMap;
    HORefPtr<HOMapView> view = new HOMapView("combine");
    HXMapCanvas canvas;
};

// Acts on the open dialog as a person does: "row N" clicks the N-th row, "area" and "feature" the
// radio buttons, "continue" and "cancel" the buttons; "escape" presses Escape, "close" is the
// window's close button. After each step that leaves the dialog open, logs whether Continue is on.
void Act(HXCombineFeatureMethodDialog* dialog, const QStringList& steps, QStringList& log) {
    auto* tree = dialog->findChild<QTreeView*>("treeView");
    auto* continueButton = dialog->findChild<QPushButton*>("pushButton_continue");
    QStringList rows;
    for (int row = 0; row < tree->model()->rowCount(); ++row)
        rows << tree->model()->index(row, 0).data().toString();
    log << rows.join(' ');
    for (const QString& step : steps) {
        if (step.startsWith("row ")) {
            const QModelIndex index = tree->model()->index(step.mid(4).toInt(), 0);
            tree->scrollTo(index);
            QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                              tree->visualRect(index).center());
        } else if (step == "area" || step == "feature") {
            QTest::mouseClick(dialog->findChild<QRadioButton*>("radioButton_" + step), Qt::LeftButton);
        } else if (step == "continue" || step == "cancel") {
            QTest::mouseClick(dialog->findChild<QPushButton*>("pushButton_" + step), Qt::LeftButton);
        } else if (step == "escape") {
            QTest::keyClick(dialog, Qt::Key_Escape);
        } else if (step == "close") {
            dialog->close();
        }
        if (dialog->isVisible()) log << (continueButton->isEnabled() ? "on" : "off");
    }
}

bool IsRed(QRgb pixel) {
    return qRed(pixel) > 200 && qGreen(pixel) < 60 && qBlue(pixel) < 60;
}

}  // namespace

class TestDialogCombine : public QObject {
    Q_OBJECT

private slots:
    // The dialog as it opens: "object.property" of a child, or a property of the dialog itself.
    void form_data() {
        HOAddColumns<QString, QVariant>({"key", "value"});
        const auto row = [](const char* key, const QVariant& value) { QTest::newRow(key) << key << value; };
        row("windowTitle", "Combin feature");
        row("windowFlags", int(Qt::Dialog | Qt::WindowCloseButtonHint));
        row("modal", true);
        row("posOnCanvas", QPoint(0, 0));  // on the canvas's top-left corner
        row("groupBox.title", "Attribute inheritance mode");
        row("radioButton_area.text", "Inherited maximum area");
        row("radioButton_area.checked", true);
        row("radioButton_feature.text", "Inherits the specified feature");
        row("radioButton_feature.checked", false);
        row("pushButton_continue.text", "Continue");
        row("pushButton_continue.enabled", true);
        row("pushButton_cancel.text", "Cancel");
        row("treeView.editTriggers", int(QAbstractItemView::NoEditTriggers));
        row("treeView.selectionBehavior", int(QAbstractItemView::SelectRows));
        row("header", "Selected feature id");
        row("currentRow", -1);  // nothing preselected
    }
    void form() {
        QFETCH(QString, key);
        QFETCH(QVariant, value);
        Scene s;
        s.layer->SetSelectedIds({3, 7});
        QVariant seen;
        Answer answer([&](HXCombineFeatureMethodDialog* dialog) {
            auto* tree = dialog->findChild<QTreeView*>("treeView");
            if (key == "windowFlags")
                seen = int(HXWindowButtonFlags(dialog));
            else if (key == "posOnCanvas")
                seen = dialog->pos() - s.canvas.mapToGlobal(QPoint(0, 0));
            else if (key == "header")
                seen = tree->model()->headerData(0, Qt::Horizontal);
            else if (key == "currentRow")
                seen = tree->currentIndex().row();
            else if (key.contains('.'))
                seen = dialog->findChild<QObject*>(key.section('.', 0, 0))
                           ->property(qPrintable(key.section('.', 1)));
            else
                seen = dialog->property(qPrintable(key));
        });
        QCOMPARE(s.canvas.combineFeatureAttributeFID(s.layer), -2);
        QVERIFY(answer.answered);
        QVERIFY2(seen.convert(value.userType()), qPrintable(key));
        QCOMPARE(seen, value);
    }

    // Rows shown, Continue after each step, and the answer the merge tool gets.
    void answers_data() {
        HOAddColumns<std::vector<int>, QStringList, QStringList, int>({"selected", "steps", "log", "result"});
        const std::vector<int> all{12, 3, 7, 99}, none;
        const QString rows = "3 7 12 99";
        QTest::newRow("largest area at once") << all << QStringList{"continue"} << QStringList{rows} << -1;
        QTest::newRow("cancelled") << all << QStringList{"row 1", "cancel"} << QStringList{rows, "on"} << -2;
        QTest::newRow("escape") << all << QStringList{"escape"} << QStringList{rows} << -2;
        QTest::newRow("closed") << all << QStringList{"close"} << QStringList{rows} << -2;
        QTest::newRow("a feature needs a row")
            << all << QStringList{"feature", "continue", "cancel"} << QStringList{rows, "off", "off"} << -2;
        QTest::newRow("feature, then a row")
            << all << QStringList{"feature", "row 1", "continue"} << QStringList{rows, "off", "on"} << 7;
        QTest::newRow("a row, then feature")
            << all << QStringList{"row 2", "feature", "continue"} << QStringList{rows, "on", "on"} << 12;
        QTest::newRow("back to the largest after a row")
            << all << QStringList{"feature", "row 0", "area", "continue"}
            << QStringList{rows, "off", "on", "on"} << -1;
        QTest::newRow("a row under the largest stays -1")
            << all << QStringList{"row 0", "continue"} << QStringList{rows, "on"} << -1;
        QTest::newRow("an id the layer no longer has")
            << all << QStringList{"feature", "row 3", "continue"} << QStringList{rows, "off", "on"} << 99;
        QTest::newRow("nothing selected") << none << QStringList{"continue"} << QStringList{""} << -1;
        QTest::newRow("nothing selected, feature")
            << none << QStringList{"feature", "continue", "cancel"} << QStringList{"", "off", "off"} << -2;
        QTest::newRow("one feature") << std::vector<int>{7} << QStringList{"feature", "row 0", "continue"}
                                     << QStringList{"7", "off", "on"} << 7;
    }
    void answers() {
        QFETCH(std::vector<int>, selected);
        QFETCH(QStringList, steps);
        Scene s;
        s.layer->SetSelectedIds(selected);
        QStringList seen;
        Answer answer([&](HXCombineFeatureMethodDialog* dialog) { Act(dialog, steps, seen); });
        QTEST(s.canvas.combineFeatureAttributeFID(s.layer), "result");
        QVERIFY(answer.answered);
        QTEST(seen, "log");
    }

    void notAFeatureLayer_data() {
        QTest::addColumn<bool>("raster");
        QTest::newRow("raster layer") << true;
        QTest::newRow("no layer") << false;
    }
    void notAFeatureLayer() {
        QFETCH(bool, raster);
        QTemporaryDir dir;
        const QString path = dir.filePath("dem.tif");
        const double geoTransform[6] = {0, 1, 0, 10, 0, -1};
        QVERIFY(HOLayerFixture::WriteRaster(path, 10, 10, 1, GDT_Byte, 4326, geoTransform,
                                            [](int, int x, int) { return x; }));
        HORefPtr<HOLayer> layer = raster ? OpenLayer(HOString(path)) : nullptr;
        QCOMPARE(bool(layer), raster);
        HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
        Answer answer([](HXCombineFeatureMethodDialog*) {});
        QCOMPARE(canvas.combineFeatureAttributeFID(layer), -2);
        QVERIFY(!answer.answered);
    }

    // Picking feature 3 (the square 10..11 E, 50..51 N) flashes its outline where the map draws it;
    // `probe` is a pixel on its western edge in the view of `extent`.
    void flashInMapSystem_data() {
        HOAddColumns<QString, HORect, QPoint>({"mapSystem", "extent", "probe"});
        QTest::newRow("map in the layer's system") << "EPSG:4326" << HORect(9, 13, 48, 52) << QPoint(50, 75);
        QTest::newRow("map without a system") << "" << HORect(9, 13, 48, 52) << QPoint(50, 75);
        // Web Mercator: 10 E is x 1113195 m, 50..51 N is y 6446276..6621294 m; 2000 m a pixel.
        QTest::newRow("projected map") << "EPSG:3857" << HORect(1.0e6, 1.4e6, 6.3e6, 6.7e6) << QPoint(56, 83);
    }
    void flashInMapSystem() {
        QFETCH(QString, mapSystem);
        QFETCH(HORect, extent);
        QFETCH(QPoint, probe);
        Scene s(mapSystem);
        s.view->SetExtent(extent);
        s.layer->SetSelectedIds({3, 7});
        QVERIFY(!IsRed(s.drawn().pixel(probe)));
        QStringList log;
        Answer answer([&](HXCombineFeatureMethodDialog* dialog) { Act(dialog, {"row 0", "continue"}, log); });
        QCOMPARE(s.canvas.combineFeatureAttributeFID(s.layer), -1);
        // Three flashes of 200 ms, 200 ms apart, from the click: one of them is seen.
        QTRY_VERIFY2_WITH_TIMEOUT(IsRed(s.drawn().pixel(probe)), "feature 3 flashed at the probe", 3000);
        // The layer's own geometry is not reprojected.
        QCOMPARE(s.layer->GetFeatureGeometry(3)->GetEnvelope(), HORect(10, 11, 50, 51));
    }
};

QTEST_MAIN(TestDialogCombine)
#include "tst_dialog_combine.moc"
