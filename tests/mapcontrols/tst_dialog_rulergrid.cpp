// Map ruler and grid settings: the dialog's form, validators and two layouts, the loaders (general
// format, D/M/S split), the manual-spacing rules, the coupled font fields, what accept() and the
// slots store, and HXMapCanvas::SetMapGridAndRuler writing back to the view's settings on OK only.
#include <QAbstractButton>
#include <QButtonGroup>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDoubleValidator>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>
#include <functional>
#include <map>

#include "HOCoordinateSystem.h"
#include "HOMap.h"
#include "HOMapRulerAndGrid.h"
#include "HORedrawRecordingView.h"
#include "HOTestColumns.h"
#include "HXColorBtn.h"
#include "HXDialogTesting.h"
#include "HXMapCanvas.h"
#include "HXModalAnswer.h"
#include "HxRulerAndGridSettingsDialog.h"

using namespace HXObjects;
using Settings = HxRulerAndGridSettingsDialog::Settings;

namespace {

QString dms(const QString& angle, const char* part) {
    return QString("mLineEditBLGrid%1%2Value").arg(angle, part);
}

const char* const kByScale = "mRadioButtonAutoCalcKMGridSpacingByMapScale";
const char* const kByUnit = "mRadioButtonAutoCalcKMGridSpacingByScaleUnit";

const QStringList kAngles{"LongitudeStartPosition", "LatitudeStartPosition", "LongitudeDistances",
                          "LatitudeDistances"};

// Stored values that show every format: general with 6 digits, integers, D/M/S with a fraction.
void loadSample(HxRulerAndGridSettingsDialog& dialog, bool manualKM = false, bool manualBL = false,
                int spacingType = 1, bool drawFlags = true) {
    dialog.loadKMGridSettings(drawFlags, drawFlags, manualKM, 500123.456, 3500000, 1000, 2500.25, spacingType,
                              0.5, 1.25, 12, 6, QColor(255, 0, 0), QColor(0, 255, 0), QColor(0, 0, 255));
    dialog.loadBLGridSettings(drawFlags, drawFlags, manualBL, 3725.5, 648000, 59.9, 1800, 50000, 2, 3, 16, 8,
                              QColor(1, 2, 3), QColor(4, 5, 6), QColor(7, 8, 9));
}

// The record's numeric fields by name.
const std::map<QString, std::function<double(const Settings&)>> kFields{
    {"kmGridXStartPosition", [](const Settings& s) { return s.km.xStart; }},
    {"kmGridYStartPosition", [](const Settings& s) { return s.km.yStart; }},
    {"kmGridXDistance", [](const Settings& s) { return s.km.xDistance; }},
    {"kmGridYDistance", [](const Settings& s) { return s.km.yDistance; }},
    {"kmGridLineWidth", [](const Settings& s) { return s.km.lineWidth; }},
    {"kmGridRulerTickMarkWidth", [](const Settings& s) { return s.km.tickMarkWidth; }},
    {"blGridLineWidth", [](const Settings& s) { return s.bl.lineWidth; }},
    {"blGridRulerTickMarkWidth", [](const Settings& s) { return s.bl.tickMarkWidth; }},
    {"convertScale", [](const Settings& s) { return s.convertScale; }},
    {"blGridXStartPosition", [](const Settings& s) { return s.bl.xStart; }},
    {"blGridYStartPosition", [](const Settings& s) { return s.bl.yStart; }},
    {"blGridXDistance", [](const Settings& s) { return s.bl.xDistance; }},
    {"blGridYDistance", [](const Settings& s) { return s.bl.yDistance; }},
    {"kmFont", [](const Settings& s) { return s.km.fontHeight * 1000 + s.km.fontWidth; }},
    {"blFont", [](const Settings& s) { return s.bl.fontHeight * 1000 + s.bl.fontWidth; }},
    {"kmGridSpacingType", [](const Settings& s) { return s.kmSpacingType; }},
};

}  // namespace

class TestDialogRulerGrid : public QObject {
    Q_OBJECT

private slots:
    void form_data() {
        // text: a group box's title, otherwise the widget's text
        HOAddColumns<QString, QString>({"name", "text"});
        const std::pair<const char*, const char*> rows[] = {
            {"mGroupBoxKMGrid", "KM grid"},
            {"mGroupBoxKMGridRuler", "KM grid ruler"},
            {"mGroupBoxBLGrid", "Longitude and latitude grid"},
            {"mGroupBoxBLGridRuler", "Longitude and latitude grid ruler"},
            {"mGroupBoxSpecifyScale", "Specify map scale"},
            {"mGroupBoxAutoSetttingOfKMGridSpacingType",
             "The type of grid spacing is automatically calculated"},
            {"mCheckBoxDrawKMGrid", "Draw grid"},
            {"mCheckBoxDrawKMGridRuler", "Draw ruler"},
            {"mCheckBoxManuallySetKMGridSpacing", "Manually set grid spacing"},
            {"mCheckBoxDrawBLGrid", "Draw grid"},
            {"mCheckBoxDrawBLGridRuler", "Draw ruler"},
            {"mCheckBoxManuallySetBLGridSpacing", "Manually set grid spacing"},
            {"mRadioButtonAutoCalcKMGridSpacingByMapScale", "Calculate the spacing according to the scale"},
            {"mRadioButtonAutoCalcKMGridSpacingByScaleUnit",
             "Calculate the spacing according to the scale unit"},
            {"mLabelKMGridXStartPosition", "X start position:"},
            {"mLabelKMGridYStartPosition", "Y start position:"},
            {"mLabelKMGridXDistances", "X distances:"},
            {"mLabelKMGridYDistances", "Y distances:"},
            {"mLabelKMGridLineWidth", "Grid line width:"},
            {"mLabelKMGridColor", "Grid line color:"},
            {"mLabelBLGridLineWidth", "Grid line width:"},
            {"mLabelBLGridColor", "Grid line color:"},
            {"mLabelBLGridLongitudeStartPosition", "Longitude start position:"},
            {"mLabelBLGridLatitudeStartPosition", "Latitude start position:"},
            {"mLabelBLGridLongitudeDistances", "Longitude distances:"},
            {"mLabelBLGridLatitudeDistances", "Latitude distances:"},
            {"mLabelConvertMapScale", "Map scale:"},
            {"mLabelConvertMapScaleNote",
             "If the current map scale is greater than or equal to the specified scale, the latitude and "
             "longitude "
             "grid is automatically converted to the kilometer grid."},
        };
        for (const auto& row : rows) QTest::newRow(row.first) << row.first << row.second;
        for (const char* grid : {"KM", "BL"}) {
            const std::pair<QString, QString> ruler[] = {{"RulerTickMarkWidth", "Ruler tick mark width:"},
                                                         {"RulerTickMarkColor", "Ruler tick mark color:"},
                                                         {"RulerLabelFontHeight", "Ruler label font height:"},
                                                         {"RulerLabelFontWidth", "Ruler label font width:"},
                                                         {"RulerLabelFontColor", "Ruler label font color:"}};
            for (const auto& row : ruler) {
                const QString name = QString("mLabel%1Grid%2").arg(grid, row.first);
                QTest::newRow(qPrintable(name)) << name << row.second;
            }
            for (const char* unit : {"LineWidthUnit", "RulerTickMarkWidthUnit", "RulerLabelFontHeightUnit",
                                     "RulerLabelFontWidthUnit"}) {
                const QString name = QString("mLabel%1Grid%2").arg(grid, unit);
                QTest::newRow(qPrintable(name)) << name << "Pixel";
            }
        }
    }
    void form() {
        QFETCH(QString, name);
        HxRulerAndGridSettingsDialog dialog(false, nullptr);
        QWidget* widget = child<QWidget>(&dialog, name);
        QVERIFY(widget);
        QTEST(widget->property(qobject_cast<QGroupBox*>(widget) ? "title" : "text").toString(), "text");
    }

    // Each line edit's validator ("int|double bottom top [decimals]") and its text for the sample values.
    void lineEdits_data() {
        HOAddColumns<QString, QString, QString>({"name", "validator", "text"});
        const auto row = [](const QString& name, const char* validator, const QString& text) {
            QTest::newRow(qPrintable(name)) << name << validator << text;
        };
        const char *position = "double 0 1026 6", *width = "double 0 100 6";
        row("mLineEditKMGridXStartPosition", position, "500123");
        row("mLineEditKMGridYStartPosition", position, "3.5e+06");
        row("mLineEditKMGridXDistances", position, "1000");
        row("mLineEditKMGridYDistances", position, "2500.25");
        row("mLineEditConvertMapScaleDenominator", position, "50000");
        row("mLineEditKMGridLineWidth", width, "0.5");
        row("mLineEditKMGridRulerTickMarkWidth", width, "1.25");
        row("mLineEditBLGridLineWidth", width, "2");
        row("mLineEditBLGridRulerTickMarkWidth", width, "3");
        row("mLineEditKMGridRulerLabelFontHeight", "int 0 100", "12");
        row("mLineEditBLGridRulerLabelFontHeight", "int 0 100", "16");
        row("mLineEditKMGridRulerLabelFontWidth", "int 0 50", "6");
        row("mLineEditBLGridRulerLabelFontWidth", "int 0 50", "8");
        // 3725.5" is 1° 2' 5" (the half second is not shown), 648000" is 180°, 59.9" is 59".
        const char* angles[] = {"1 2 5", "180 0 0", "0 0 59", "0 30 0"};
        for (int i = 0; i < kAngles.size(); ++i) {
            const QStringList parts = QString(angles[i]).split(' ');
            row(dms(kAngles[i], "Degrees"), "int 0 180", parts[0]);
            row(dms(kAngles[i], "Minutes"), "int 0 59", parts[1]);
            row(dms(kAngles[i], "Seconds"), "int 0 59", parts[2]);
        }
    }
    void lineEdits() {
        QFETCH(QString, name);
        HxRulerAndGridSettingsDialog dialog(false, nullptr);
        loadSample(dialog);
        const QLineEdit* edit = child<QLineEdit>(&dialog, name);
        QVERIFY(edit);
        QString validator = "none";
        if (auto* ints = qobject_cast<const QIntValidator*>(edit->validator()))
            validator = QString("int %1 %2").arg(ints->bottom()).arg(ints->top());
        else if (auto* reals = qobject_cast<const QDoubleValidator*>(edit->validator()))
            validator =
                QString("double %1 %2 %3").arg(reals->bottom()).arg(reals->top()).arg(reals->decimals());
        QTEST(validator, "validator");
        QTEST(edit->text(), "text");
    }

    void layout_data() {
        QTest::addColumn<bool>("geographic");
        QTest::newRow("geographic") << true;
        QTest::newRow("projected") << false;
    }
    void layout() {
        QFETCH(bool, geographic);
        HxRulerAndGridSettingsDialog dialog(geographic, nullptr);
        QCOMPARE(dialog.windowTitle(), QString("Map ruler and grid settings"));
        QCOMPARE(
            dialog.windowFlags() & (Qt::WindowContextHelpButtonHint | Qt::WindowCloseButtonHint | Qt::Dialog),
            Qt::WindowCloseButtonHint | Qt::Dialog);
        QCOMPARE(dialog.minimumSize() == QSize(450, 650) && dialog.maximumSize() == QSize(450, 650),
                 geographic);
        QCOMPARE(child<QWidget>(&dialog, "mGroupBoxKMGrid")->isHidden(), geographic);
        QCOMPARE(child<QWidget>(&dialog, "mGroupBoxKMGridRuler")->isHidden(), geographic);
        QCOMPARE(child<QWidget>(&dialog, "mGroupBoxSpecifyScale")->isHidden(), !geographic);
        QVERIFY(!child<QWidget>(&dialog, "mGroupBoxBLGrid")->isHidden());
        QVERIFY(!child<QWidget>(&dialog, "mGroupBoxBLGridRuler")->isHidden());
        // Before any loader: the manual KM distances are off.
        for (const char* name : {"mLabelKMGridXDistances", "mLineEditKMGridXDistances",
                                 "mLabelKMGridYDistances", "mLineEditKMGridYDistances"})
            QVERIFY2(!child<QWidget>(&dialog, name)->isEnabled(), name);
        auto* byScale = child<QRadioButton>(&dialog, kByScale);
        auto* byUnit = child<QRadioButton>(&dialog, kByUnit);
        QVERIFY(byScale->group() && byScale->group() == byUnit->group() && byScale->group()->exclusive());
        loadSample(dialog);
        dialog.show();
        saveScreenshot(&dialog, geographic ? "rulergrid-geographic" : "rulergrid-projected");
    }

    // Flags as loaded, and what the manual-spacing check boxes and the spacing-type radio buttons switch
    // when clicked afterwards. The stored spacing type is the checked radio button's, else the loaded one.
    void flags_data() {
        // click: a button clicked after loading, or empty
        // radios: checked radio buttons: "scale", "unit" or ""
        HOAddColumns<bool, bool, bool, int, QString, QString, bool, bool>({"draw", "manualKM", "manualBL",
                                                                           "spacingType", "click", "radios",
                                                                           "kmDistancesOn", "blDistancesOn"});
        const auto row = [](const char* tag, bool draw, bool km, bool bl, int type, QString click,
                            const char* radios, bool kmOn, bool blOn) {
            click = click == "unit"    ? kByUnit
                    : click == "scale" ? kByScale
                    : click.isEmpty()  ? click
                                       : "mCheckBoxManuallySet" + click + "GridSpacing";
            QTest::newRow(tag) << draw << km << bl << type << click << radios << kmOn << blOn;
        };
        row("nothing drawn, automatic, by scale", false, false, false, 0, "", "scale", false, false);
        row("drawn, manual KM, by unit", true, true, false, 1, "", "unit", true, false);
        row("manual BL, unknown type", true, false, true, 7, "", "", false, true);
        row("KM switched to manual", false, false, false, 0, "KM", "scale", true, false);
        row("KM switched back to automatic", true, true, true, 1, "KM", "unit", false, true);
        row("BL switched to manual", false, false, false, 0, "BL", "scale", false, true);
        row("BL switched back", false, false, true, 0, "BL", "scale", false, false);
        row("unknown type, by unit clicked", false, false, false, 7, "unit", "unit", false, false);
        row("unknown type, by scale clicked", false, false, false, 7, "scale", "scale", false, false);
    }
    void flags() {
        QFETCH(bool, draw);
        QFETCH(bool, manualKM);
        QFETCH(bool, manualBL);
        QFETCH(int, spacingType);
        QFETCH(QString, click);
        QFETCH(QString, radios);
        QFETCH(bool, kmDistancesOn);
        QFETCH(bool, blDistancesOn);
        HxRulerAndGridSettingsDialog dialog(false, nullptr);
        dialog.show();
        loadSample(dialog, manualKM, manualBL, spacingType, draw);
        if (!click.isEmpty())
            QTest::mouseClick(child<QAbstractButton>(&dialog, click), Qt::LeftButton, {}, QPoint(5, 5));
        for (const char* name : {"mCheckBoxDrawKMGrid", "mCheckBoxDrawKMGridRuler", "mCheckBoxDrawBLGrid",
                                 "mCheckBoxDrawBLGridRuler"})
            QCOMPARE(child<QCheckBox>(&dialog, name)->isChecked(), draw);
        QCOMPARE(child<QCheckBox>(&dialog, "mCheckBoxManuallySetKMGridSpacing")->isChecked(), kmDistancesOn);
        QCOMPARE(child<QCheckBox>(&dialog, "mCheckBoxManuallySetBLGridSpacing")->isChecked(), blDistancesOn);
        QCOMPARE(dialog.settings().km.manualSpacing, kmDistancesOn);
        QCOMPARE(dialog.settings().bl.manualSpacing, blDistancesOn);
        QStringList checked;
        if (child<QRadioButton>(&dialog, kByScale)->isChecked()) checked << "scale";
        if (child<QRadioButton>(&dialog, kByUnit)->isChecked()) checked << "unit";
        QCOMPARE(checked.join(' '), radios);
        QCOMPARE(dialog.settings().kmSpacingType, radios == "scale" ? 0 : radios == "unit" ? 1 : spacingType);
        for (const char* name :
             {"mLabelKMGridXDistances", "mLineEditKMGridXDistances", "mLabelKMGridXDistancesUnit",
              "mLabelKMGridYDistances", "mLineEditKMGridYDistances", "mLabelKMGridYDistancesUnit"})
            QVERIFY2(child<QWidget>(&dialog, name)->isEnabled() == kmDistancesOn, name);
        QCOMPARE(child<QWidget>(&dialog, "mGroupBoxAutoSetttingOfKMGridSpacingType")->isEnabled(),
                 !kmDistancesOn);
        QStringList blDistances{"mLabelBLGridLongitudeDistances", "mLabelBLGridLatitudeDistances"};
        for (const QString angle : {"LongitudeDistances", "LatitudeDistances"})
            for (const char* part : {"Degrees", "Minutes", "Seconds"})
                blDistances << dms(angle, part) << QString("mLabelBLGrid%1%2Unit").arg(angle, part);
        for (const QString& name : blDistances)
            QVERIFY2(child<QWidget>(&dialog, name)->isEnabled() == blDistancesOn, qPrintable(name));
        // Start positions are never switched off.
        for (const QString name : {"mLineEditKMGridXStartPosition", "mLineEditKMGridYStartPosition"})
            QVERIFY(child<QWidget>(&dialog, name)->isEnabled());
        for (const QString angle : {"LongitudeStartPosition", "LatitudeStartPosition"})
            QVERIFY(child<QWidget>(&dialog, dms(angle, "Degrees"))->isEnabled());
    }

    // Height and width of the ruler labels keep height = 2 × width, whichever is edited.
    void fontCoupling_data() {
        // edited: "Height" or "Width"
        HOAddColumns<QString, QString, QString, QString, QString>(
            {"grid", "edited", "text", "height", "width"});
        for (const QString grid : {"KM", "BL"}) {
            // "edited text height width" per row.
            for (const QString row : {"Height 12 12 6", "Height 15 14 7", "Width 9 18 9", "Height x 0 0"}) {
                const QStringList v = row.split(' ');
                QTest::addRow("%s %s", qPrintable(grid), qPrintable(row))
                    << grid << v[0] << v[1] << v[2] << v[3];
            }
        }
    }
    void fontCoupling() {
        QFETCH(QString, grid);
        QFETCH(QString, edited);
        QFETCH(QString, text);
        QFETCH(QString, height);
        QFETCH(QString, width);
        HxRulerAndGridSettingsDialog dialog(false, nullptr);
        loadSample(dialog);
        auto* edit = child<QLineEdit>(&dialog, QString("mLineEdit%1GridRulerLabelFont%2").arg(grid, edited));
        edit->setText(text);
        QCOMPARE(child<QLineEdit>(&dialog, QString("mLineEdit%1GridRulerLabelFontHeight").arg(grid))->text(),
                 height);
        QCOMPARE(child<QLineEdit>(&dialog, QString("mLineEdit%1GridRulerLabelFontWidth").arg(grid))->text(),
                 width);
        QCOMPARE(kFields.at(grid.toLower() + "Font")(dialog.settings()),
                 height.toInt() * 1000.0 + width.toInt());
    }

    // What OK stores for typed text: slots parse as the user types, accept() reads the angles.
    void storedOnAccept_data() {
        // edits: name=text pairs
        HOAddColumns<QStringList, QString, double>({"edits", "field", "value"});
        const auto row = [](const char* tag, const QStringList& edits, const char* field, double value) {
            QTest::newRow(tag) << edits << field << value;
        };
        row("untouched BL start drops the half second", {}, "blGridXStartPosition", 3725.0);
        row("untouched KM start keeps its shown digits", {}, "kmGridXStartPosition", 500123.0);
        row("KM x start", {"mLineEditKMGridXStartPosition=12.5"}, "kmGridXStartPosition", 12.5);
        row("KM y start", {"mLineEditKMGridYStartPosition=1026"}, "kmGridYStartPosition", 1026.0);
        row("KM x distance", {"mLineEditKMGridXDistances=250"}, "kmGridXDistance", 250.0);
        row("KM y distance", {"mLineEditKMGridYDistances=0.5"}, "kmGridYDistance", 0.5);
        row("KM line width", {"mLineEditKMGridLineWidth=2.25"}, "kmGridLineWidth", 2.25);
        row("KM tick width", {"mLineEditKMGridRulerTickMarkWidth=4"}, "kmGridRulerTickMarkWidth", 4.0);
        row("BL line width", {"mLineEditBLGridLineWidth=7"}, "blGridLineWidth", 7.0);
        row("BL tick width", {"mLineEditBLGridRulerTickMarkWidth=0.1"}, "blGridRulerTickMarkWidth", 0.1);
        row("scale", {"mLineEditConvertMapScaleDenominator=25000"}, "convertScale", 25000.0);
        row("unreadable text is 0", {"mLineEditKMGridLineWidth=abc"}, "kmGridLineWidth", 0.0);
        const QString lon = "LongitudeStartPosition";
        row("longitude start with a fraction of a second",
            {dms(lon, "Degrees") + "=1", dms(lon, "Minutes") + "=2", dms(lon, "Seconds") + "=5.5"},
            "blGridXStartPosition", 3725.5);
        row("latitude start", {dms("LatitudeStartPosition", "Degrees") + "=90"}, "blGridYStartPosition",
            324000.0);
        row("longitude distance", {dms("LongitudeDistances", "Minutes") + "=15"}, "blGridXDistance", 959.0);
        row("latitude distance, empty degrees", {dms("LatitudeDistances", "Degrees") + "="},
            "blGridYDistance", 1800.0);
    }
    void storedOnAccept() {
        QFETCH(QStringList, edits);
        QFETCH(QString, field);
        HxRulerAndGridSettingsDialog dialog(false, nullptr);
        loadSample(dialog);
        for (const QString& edit : edits) {
            const int eq = edit.indexOf('=');
            child<QLineEdit>(&dialog, edit.left(eq))->setText(edit.mid(eq + 1));
        }
        dialog.accept();
        QCOMPARE(dialog.result(), int(QDialog::Accepted));
        QTEST(kFields.at(field)(dialog.settings()), "value");
    }

    // One modal run through the canvas: the settings change on OK only, followed by one redraw.
    void canvasRun_data() {
        // system: empty: the map has none
        HOAddColumns<QString, bool, bool>({"system", "ok", "dialogShown"});
        QTest::newRow("geographic, OK") << "EPSG:4490" << true << true;
        QTest::newRow("projected, OK") << "EPSG:4547" << true << true;
        QTest::newRow("edited, then Cancel") << "EPSG:4490" << false << true;
        QTest::newRow("no coordinate system: no dialog") << "" << true << false;
    }
    void canvasRun() {
        QFETCH(QString, system);
        QFETCH(bool, ok);
        QFETCH(bool, dialogShown);
        HXMapCanvas canvas(HXMapCanvas::MapViewMode, nullptr);
        HORefPtr<HORedrawRecordingView> view = new HORedrawRecordingView;
        HORefPtr<HOMap> map = new HOMap;
        if (!system.isEmpty())
            map->SetSpatialReference(HOCoordinateSystem::FromUserInput(system.toStdWString()));
        map->SetMapDisplayUnit(HOUnitKilometer);
        canvas.SetMapView(view);
        view->SetMap(map);
        view->calls.clear();
        HOMapRulerAndGrid* grid = view->GetRulerAndGridSetting();
        grid->set_bl_grid_x_start_position(3725.5);
        grid->set_km_grid_x_start_position(1234.5678);
        grid->set_km_grid_ruler_label_font_height(20);
        grid->set_km_grid_ruler_label_font_width(10);
        grid->set_bl_grid_color(HOColor(10, 20, 30, 128));

        HXModalAnswer<HxRulerAndGridSettingsDialog> driver(
            [&](HxRulerAndGridSettingsDialog* dialog) {
                QTest::mouseClick(child<QCheckBox>(dialog, "mCheckBoxDrawBLGrid"), Qt::LeftButton, {},
                                  QPoint(5, 5));
                auto* denominator = child<QLineEdit>(dialog, "mLineEditConvertMapScaleDenominator");
                denominator->selectAll();
                QTest::keyClicks(denominator, "10000");
                auto* kmWidth = child<QLineEdit>(dialog, "mLineEditKMGridRulerLabelFontWidth");
                kmWidth->selectAll();
                QTest::keyClicks(kmWidth, "7");
                child<HXColorBtn>(dialog, "mToolButtonKMGridColor")->setColor(QColor(200, 100, 50));
                auto* buttons = child<QDialogButtonBox>(dialog, "mButtonBox");
                QTest::mouseClick(buttons->button(ok ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel),
                                  Qt::LeftButton);
            },
            dialogShown ? 10000 : 300);
        canvas.SetMapGridAndRuler();
        QCOMPARE(driver.answered, dialogShown);
        const bool written = ok && dialogShown;
        QCOMPARE(view->calls.join("; "), QString(written ? "RequestRedraw 0" : ""));
        QCOMPARE(grid->get_draw_bl_grid(), written);
        QCOMPARE(grid->get_convert_scale(), written ? 10000.0 : 50000.0);
        QCOMPARE(grid->get_km_grid_ruler_label_font_width(), written ? 7 : 10);
        QCOMPARE(grid->get_km_grid_ruler_label_font_height(), written ? 14 : 20);
        QCOMPARE(grid->get_bl_grid_x_start_position(), written ? 3725.0 : 3725.5);
        QCOMPARE(grid->get_km_grid_x_start_position(), written ? 1234.57 : 1234.5678);
        QCOMPARE(grid->get_km_grid_color(), written ? HOColor(200, 100, 50) : HOColor(0, 0, 0));
        QCOMPARE(grid->get_bl_grid_color(), written ? HOColor(10, 20, 30) : HOColor(10, 20, 30, 128));
        QCOMPARE(grid->get_ruler_unit_type(), written ? HOUnitKilometer : HOUnitMeter);
        QCOMPARE(grid->get_bl_grid_x_distance(), 600.0);  // untouched values come back unchanged
    }
};

QTEST_MAIN(TestDialogRulerGrid)
#include "tst_dialog_rulergrid.moc"
