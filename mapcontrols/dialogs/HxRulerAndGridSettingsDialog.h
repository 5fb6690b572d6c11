#pragma once
// HxRulerAndGridSettingsDialog: edits a map view's ruler-and-grid settings, the kilometre grid (KM)
// and the longitude/latitude grid (BL), each with its ruler. The host loads the stored values with
// the two loaders, runs the dialog modally and, when it is accepted, reads settings(): the slots
// keep that record up to date while the user types, and accept() adds the D/M/S angles and the
// colours. A geographic map shows only the BL groups and the conversion scale. Built on the stack by
// HXMapCanvas::SetMapGridAndRuler.
#include <QColor>
#include <QDialog>

#include "HXMapControlsExport.h"

class QAbstractButton;
class QButtonGroup;
class QLineEdit;
class QWidget;

namespace Ui {
class HxRulerAndGridSettingsDialog;
}

class HXMAPCONTROLS_EXPORT HxRulerAndGridSettingsDialog : public QDialog {
    Q_OBJECT
public:
    // The values of one grid and its ruler as edited. Positions and distances are in map units for
    // the KM grid and in arc seconds for the BL grid.
    struct Grid {
        bool drawRuler = false;
        bool drawGrid = false;
        bool manualSpacing = false;
        double xStart = 0;
        double yStart = 0;
        double xDistance = 0;
        double yDistance = 0;
        double lineWidth = 0;
        double tickMarkWidth = 0;
        int fontHeight = 0;
        int fontWidth = 0;
        QColor tickMarkColor;
        QColor labelFontColor;
        QColor gridColor;
    };
    struct Settings {
        Grid km;
        Grid bl;
        int kmSpacingType = 0;  // 0: by map scale, 1: by scale unit
        double convertScale = 0;
    };

    HxRulerAndGridSettingsDialog(bool geographic, QWidget* parent);
    ~HxRulerAndGridSettingsDialog() override;

    void loadKMGridSettings(bool drawRuler, bool drawGrid, bool manualSpacing, double xStart, double yStart,
                            double xDistance, double yDistance, int spacingType, double lineWidth,
                            double tickMarkWidth, int fontHeight, int fontWidth, const QColor& tickMarkColor,
                            const QColor& labelFontColor, const QColor& gridColor);
    void loadBLGridSettings(bool drawRuler, bool drawGrid, bool manualSpacing, double longitudeStart,
                            double latitudeStart, double longitudeDistance, double latitudeDistance,
                            double convertScale, double lineWidth, double tickMarkWidth, int fontHeight,
                            int fontWidth, const QColor& tickMarkColor, const QColor& labelFontColor,
                            const QColor& gridColor);
    const Settings& settings() const { return mSettings; }

public slots:
    void accept() override;

private slots:
    void onClickedCheckBoxDrawKMGridRuler();
    void onClickedCheckBoxDrawBLGridRuler();
    void onClickedCheckBoxDrawKMGrid();
    void onClickedCheckBoxDrawBLGrid();
    void onClickedCheckBoxManuallySetKMGridSpacing();
    void onClickedCheckBoxManuallySetBLGridSpacing();
    void onTextChangedLineEditKMGridRulerTickMarkWidth();
    void onTextChangedLineEditKMGridRulerLabelFontHeight();
    void onTextChangedLineEditKMGridRulerLabelFontWidth();
    void onTextChangedLineEditKMGridLineWidth();
    void onTextChangedLineEditBLGridRulerTickMarkWidth();
    void onTextChangedLineEditBLGridRulerLabelFontHeight();
    void onTextChangedLineEditBLGridRulerLabelFontWidth();
    void onTextChangedLineEditBLGridLineWidth();
    void onTextChangedLineEditKMGridXStartPosition();
    void onTextChangedLineEditKMGridYStartPosition();
    void onTextChangedLineEditKMGridXDistances();
    void onTextChangedLineEditKMGridYDistances();
    void onTextChangedLineEditConvertMapScaleDenominator();
    void onButtonClickedButtonGroupAutoCalcKMGridSpacingType();

private:
    void setValidators();
    void connectSlots();
    void showLayout(bool geographic);
    // What the manual-spacing check boxes switch: the distances on, and for KM the automatic type off.
    void enableKMGridSpacing(bool manual);
    void enableBLGridSpacing(bool manual);
    // The coupled font fields: height is twice the width.
    static void coupleFontHeight(QLineEdit* height, QLineEdit* width, Grid& grid);
    static void coupleFontWidth(QLineEdit* width, QLineEdit* height, Grid& grid);

    Ui::HxRulerAndGridSettingsDialog* ui;
    QButtonGroup* mButtonGroupAutoCalcKMGridSpacingType;
    Settings mSettings;
};
