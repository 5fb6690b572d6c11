// Custom feature style: the dialog's form, what it enables and preloads for a selection, and what a
// run through HXMapCanvas::CustomStyle stores in the layers' user feature renderers and redraws,
// with styles chosen in the style picker through its widgets.
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>
#include <map>

#include "HOFeatureLayer.h"
#include "HOLayerFixture.h"
#include "HOMap.h"
#include "HORedrawRecordingView.h"
#include "HOTestColumns.h"
#include "HXCustomRenderDialog.h"
#include "HXDialogTesting.h"
#include "HXMapCanvas.h"
#include "HXModalAnswer.h"
#include "HXStylePickerDialog.h"

using namespace HXObjects;

namespace {

// Preset per-feature styles are told apart by their colour.
const std::map<QString, QColor> kColors{{"red", Qt::red}, {"green", Qt::green}, {"blue", Qt::blue}};
const char* const kLayerNames[] = {"points", "lines", "polysA", "polysB"};

// A canvas whose map holds a point, a line and two polygon layers, each with features 1 to 3.
struct Scene {
    QTemporaryDir dir;
    HXMapCanvas canvas{HXMapCanvas::MapViewMode, nullptr};
    HORefPtr<HORedrawRecordingView> view = new HORedrawRecordingView;
    HORefPtr<HOMap> map = new HOMap;
    std::map<QString, HOFeatureLayer*> layers;

    Scene() {
        add("points", wkbPoint, {"POINT (1 1)", "POINT (2 2)", "POINT (3 3)"});
        add("lines", wkbLineString, {"LINESTRING (0 0,1 1)", "LINESTRING (1 0,2 1)", "LINESTRING (2 0,3 1)"});
        for (const char* name : {"polysA", "polysB"})
            add(name, wkbPolygon,
                {"POLYGON ((0 0,1 0,1 1,0 0))", "POLYGON ((1 0,2 0,2 1,1 0))",
                 "POLYGON ((2 0,3 0,3 1,2 0))"});
        canvas.SetMapView(view);
        view->SetMap(map);
        view->calls.clear();
    }
    void add(const QString& name, OGRwkbGeometryType type, const std::vector<const char*>& wkts) {
        std::vector<HOLayerFixture::Feature> features;
        for (std::size_t i = 0; i < wkts.size(); ++i) features.emplace_back(wkts[i], GIntBig(i + 1));
        HORefPtr<HOFeatureLayer> layer =
            HOLayerFixture::OpenVector(dir.filePath(name + ".gpkg"), 0, type, features);
        QVERIFY(layer);
        layer->SetName(name.toStdWString());
        map->AddLayer(layer);
        layers[name] = layer.get();
    }
    // "points:1,2 lines:3" selects those ids; other layers keep no selection.
    void select(const QString& text) {
        for (const auto& entry : layers) entry.second->ClearSelection();
        for (const QString& part : text.split(' ', Qt::SkipEmptyParts)) {
            const QStringList nameIds = part.split(':');
            std::vector<int> ids;
            for (const QString& id : nameIds[1].split(',')) ids.push_back(id.toInt());
            layers.at(nameIds[0])->SetSelectedIds(ids);
        }
    }
    // "polysB:2=blue" gives feature 2 of polysB a fill of that colour (a marker or line for the
    // point and line layers).
    void presetStyles(const QString& text) {
        for (const QString& part : text.split(' ', Qt::SkipEmptyParts)) {
            const QStringList nameRest = part.split(':'), idColor = nameRest[1].split('=');
            const QColor c = kColors.at(idColor[1]);
            const HOColor color(c.red(), c.green(), c.blue());
            HOFeatureLayer* layer = layers.at(nameRest[0]);
            const HOLayer::LayerType type = layer->GetLayerType();
            layer->GetCustomFeatureRender()->SetFeatureStyle(
                idColor[0].toInt(), type == HOLayer::PointLayer
                                        ? HOStyle::NewMarker(HOStyle::Square, 20, color)
                                    : type == HOLayer::PolylineLayer ? HOStyle::NewLine(4, color)
                                                                     : HOStyle::NewFill(color, color, 1));
        }
    }
    // "lines:1=#2c7bb6 polysB:2=#0000ff": every per-feature style by the colour it draws with.
    QString customStyles() const {
        QStringList result;
        for (const char* name : kLayerNames) {
            const auto styles = layers.at(name)->GetCustomFeatureRender()->GetAllStyles();
            QStringList entries;
            for (const auto& entry : styles) {
                const HOColor c = entry.second->GetColor();
                entries << QString("%1=%2").arg(entry.first).arg(QColor(c.getR(), c.getG(), c.getB()).name());
            }
            if (!entries.isEmpty()) result << QString("%1:%2").arg(name, entries.join(','));
        }
        return result.join(' ');
    }
};

bool hasColor(const QPixmap& pixmap, const QColor& color) {
    const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) == color.rgba()) return true;
    return false;
}

// Picks row `row` of the picker opened by the button and presses OK (or Cancel for row -1).
void pickStyle(QDialog* dialog, const QString& kind, int row) {
    HXModalAnswer<HXStylePickerDialog> picker([row](HXStylePickerDialog* d) {
        auto* list = d->findChild<QListWidget*>("mSymbolList");
        if (row >= 0)
            QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                              list->visualItemRect(list->item(row)).center());
        auto* buttons = d->findChild<QDialogButtonBox*>("mButtonBox");
        QTest::mouseClick(buttons->button(row >= 0 ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel),
                          Qt::LeftButton);
    });
    QTest::mouseClick(child<QPushButton>(dialog, "pushButton_" + kind), Qt::LeftButton);
    QVERIFY2(picker.answered, "the style picker did not open");
}

}  // namespace

class TestDialogCustomStyle : public QObject {
    Q_OBJECT

private slots:
    void form_data() {
        // text: a group box's title or a button's, label's or box's text
        HOAddColumns<QString, QString>({"name", "text"});
        for (const QString row : {"groupBox_3=Point", "groupBox_2=Polyline", "groupBox=Polygon",
                                  "groupBox_4=", "checkBox=Custom feature style"})
            QTest::newRow(qPrintable(row)) << row.section('=', 0, 0) << row.section('=', 1);
        for (const char* kind : {"point", "polyline", "polygon"}) {
            QTest::addRow("%s button", kind) << QString("pushButton_%1").arg(kind) << "...";
            QTest::addRow("%s preview", kind) << QString("label_%1").arg(kind) << "";
        }
    }
    void form() {
        QFETCH(QString, name);
        QFETCH(QString, text);
        HXCustomRenderDialog dialog({}, nullptr, nullptr);
        QWidget* widget = child<QWidget>(&dialog, name);
        QVERIFY(widget);
        const char* property = qobject_cast<QGroupBox*>(widget) ? "title" : "text";
        QCOMPARE(widget->property(property).toString(), text);
        if (auto* label = qobject_cast<QLabel*>(widget)) {
            QCOMPARE(label->minimumSize(), QSize(200, 70));
            QCOMPARE(label->frameShape(), QFrame::StyledPanel);
        }
    }

    void window() {
        HXCustomRenderDialog dialog({}, nullptr, nullptr);
        QCOMPARE(dialog.windowTitle(), QString("Custom feature style"));
        QCOMPARE(
            dialog.windowFlags() & (Qt::WindowContextHelpButtonHint | Qt::WindowCloseButtonHint | Qt::Dialog),
            Qt::WindowCloseButtonHint | Qt::Dialog);
        auto* buttons = child<QDialogButtonBox>(&dialog, "buttonBox");
        QCOMPARE(buttons->standardButtons(),
                 QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply);
        // The check box sits in the polygon group, under its label and button.
        QCOMPARE(child<QWidget>(&dialog, "groupBox_4")->parentWidget(), child<QWidget>(&dialog, "groupBox"));
    }

    // What the dialog offers for a selection: the buttons of the kinds selected and, for lines and
    // polygons, the first layer's first per-feature style as the preview (never for points).
    void construction_data() {
        // enabled: kinds whose "..." button is enabled
        // previews: kind=colour of each preview shown
        HOAddColumns<QString, QString, QString, QString>({"selection", "presets", "enabled", "previews"});
        const auto row = [](const char* tag, const char* selection, const char* presets, const char* enabled,
                            const char* previews) {
            QTest::newRow(tag) << selection << presets << enabled << previews;
        };
        row("points with custom styles: no preview", "points:1,2", "points:3=red", "point", "");
        row("lines: the first custom style, selected or not", "lines:1", "lines:3=green lines:2=red",
            "polyline", "polyline=red");
        row("two polygon layers, only the second styled", "polysA:1 polysB:2", "polysB:3=blue", "polygon",
            "polygon=blue");
        row("two polygon layers, the first in map order wins", "polysA:1 polysB:2",
            "polysA:3=green polysB:1=blue", "polygon", "polygon=green");
        row("a styled layer without selection is not asked", "polysB:1", "polysA:1=green", "polygon", "");
        row("every kind", "points:1 lines:2 polysA:3", "points:1=red lines:1=green polysA:1=blue",
            "point polyline polygon", "polyline=green polygon=blue");
    }
    void construction() {
        QFETCH(QString, selection);
        QFETCH(QString, presets);
        QFETCH(QString, enabled);
        Scene scene;
        scene.select(selection);
        scene.presetStyles(presets);
        HXCustomRenderDialog dialog(scene.map->GetLayers(true), scene.view, nullptr);
        const QSize basis = child<QLabel>(&dialog, "label_point")->geometry().size();
        QVERIFY(child<QCheckBox>(&dialog, "checkBox")->isChecked());
        QStringList shown;
        for (const QString kind : {"point", "polyline", "polygon"}) {
            QCOMPARE(child<QPushButton>(&dialog, "pushButton_" + kind)->isEnabled(),
                     enabled.split(' ').contains(kind));
            auto* label = child<QLabel>(&dialog, "label_" + kind);
            const QPixmap pixmap = label->pixmap(Qt::ReturnByValue);
            if (pixmap.isNull()) continue;
            QCOMPARE(pixmap.size(), QSize(int(basis.width() * 0.8), int(basis.height() * 0.8)));
            QCOMPARE(label->alignment(), Qt::AlignHCenter | Qt::AlignVCenter);
            for (const auto& color : kColors)
                if (hasColor(pixmap, color.second)) shown << kind + "=" + color.first;
        }
        QTEST(shown.join(' '), "previews");
        QVERIFY(scene.view->calls.isEmpty());
        saveScreenshot(&dialog, "customstyle");
    }

    void noSelectionNoDialog() {
        Scene scene;
        scene.presetStyles("lines:1=red");
        HXModalAnswer<QDialog> guard([](QDialog* dialog) { dialog->reject(); }, 300);
        scene.canvas.CustomStyle();
        QVERIFY2(!guard.answered, "a dialog opened without a selection");
        QCOMPARE(scene.customStyles(), QString("lines:1=#ff0000"));
    }

    // One run of CustomStyle: the steps act on the dialog, then the stored styles and the redraws
    // asked for are compared. Picker rows: marker 0 #d7191c, line 2 #2c7bb6, fill 0 #a6cee3.
    void run_data() {
        HOAddColumns<QString, QString, QString, QString, QString>(
            {"selection", "presets", "steps", "styles", "redraws"});
        const auto row = [](const char* tag, const char* selection, const char* presets, const char* steps,
                            const char* styles, const char* redraws) {
            QTest::newRow(tag) << selection << presets << steps << styles << redraws;
        };
        const char* twice = "Refresh points 1; Refresh points 1";
        row("points, OK without a style: nothing stored, one redraw per feature", "points:1,2",
            "points:3=red", "ok", "points:3=#ff0000", twice);
        row("a picked marker style, OK", "points:1,3", "", "pick point 0; ok", "points:1=#d7191c,3=#d7191c",
            twice);
        row("picker cancelled keeps the preloaded line style", "lines:1,2", "lines:3=green",
            "pick polyline -1; ok", "lines:1=#00ff00,2=#00ff00,3=#00ff00",
            "Refresh lines 1; Refresh lines 1");
        row("apply twice, then cancel: both applies stay", "lines:2", "",
            "pick polyline 2; apply; apply; cancel", "lines:2=#2c7bb6", "Refresh lines 1; Refresh lines 1");
        row("cancel alone changes nothing", "polysA:1", "polysA:2=blue", "pick polygon 0; cancel",
            "polysA:2=#0000ff", "");
        row("box cleared: every selected feature loses its style, no redraw", "points:1 lines:1 polysB:1,2",
            "points:1=red lines:1=green lines:2=red polysB:1=blue polysB:3=blue", "uncheck; ok",
            "lines:2=#ff0000 polysB:3=#0000ff", "");
        row("selection read again at apply; unlisted layers untouched", "polysA:1", "",
            "pick polygon 0; select polysA:2,3 lines:1; ok", "polysA:2=#a6cee3,3=#a6cee3",
            "Refresh polysA 1; Refresh polysA 1");
        row("a listed layer whose selection went is skipped", "polysA:1 lines:1", "",
            "pick polygon 0; select lines:1; ok", "", "Refresh lines 1");
    }
    void run() {
        QFETCH(QString, selection);
        QFETCH(QString, presets);
        QFETCH(QString, steps);
        Scene scene;
        scene.select(selection);
        scene.presetStyles(presets);
        HXModalAnswer<HXCustomRenderDialog> driver([&](HXCustomRenderDialog* dialog) {
            auto* buttons = child<QDialogButtonBox>(dialog, "buttonBox");
            for (const QString& step : steps.split("; ")) {
                const QStringList words = step.split(' ');
                if (words[0] == "pick")
                    pickStyle(dialog, words[1], words[2].toInt());
                else if (words[0] == "uncheck")
                    QTest::mouseClick(child<QCheckBox>(dialog, "checkBox"), Qt::LeftButton, {}, QPoint(5, 5));
                else if (words[0] == "select")
                    scene.select(step.mid(7));
                else
                    QTest::mouseClick(buttons->button(words[0] == "apply" ? QDialogButtonBox::Apply
                                                      : words[0] == "ok"  ? QDialogButtonBox::Ok
                                                                          : QDialogButtonBox::Cancel),
                                      Qt::LeftButton);
            }
            if (dialog->isVisible()) {
                saveScreenshot(dialog, "customstyle");
                dialog->reject();
                QFAIL("the steps did not close the dialog");
            }
        });
        scene.canvas.CustomStyle();
        QVERIFY2(driver.answered, "the custom style dialog did not open");
        QTEST(scene.customStyles(), "styles");
        QTEST(scene.view->calls.join("; "), "redraws");
    }
};

QTEST_MAIN(TestDialogCustomStyle)
#include "tst_dialog_customstyle.moc"
