#include "HxRulerAndGridSettingsDialog.h"

#include <QButtonGroup>
#include <QDoubleValidator>
#include <QIntValidator>
#include <QPushButton>
#include <array>
#include <cmath>

#include "ui_HxRulerAndGridSettingsDialog.h"

namespace {

using Angle = std::array<QLineEdit*, 3>;  // degrees, minutes, seconds

QString general(double value) {
    return QString::number(value, 'g', 6);
}

// Whole degrees, minutes and seconds; the fraction of a second is not shown.
void showAngle(const Angle& edits, double seconds) {
    const double d = std::trunc(seconds / 3600);
    const double m = std::trunc((seconds - d * 3600) / 60);
    const double s = std::trunc(seconds - d * 3600 - m * 60);
    edits[0]->setText(QString::number(qint64(d)));
    edits[1]->setText(QString::number(qint64(m)));
    edits[2]->setText(QString::number(qint64(s)));
}

double readAngle(const Angle& edits) {
    return edits[0]->text().toDouble() * 3600 + edits[1]->text().toDouble() * 60 +
           edits[2]->text().toDouble();
}

void setDecimalValidator(const std::initializer_list<QLineEdit*>& edits, double top, QObject* parent) {
    for (QLineEdit* edit : edits) {
        auto* validator = new QDoubleValidator(0, top, 6, parent);
        validator->setLocale(QLocale::c());  // the texts are read back with the C locale
        edit->setValidator(validator);
    }
}

void setIntValidator(const std::initializer_list<QLineEdit*>& edits, int top, QObject* parent) {
    for (QLineEdit* edit : edits) edit->setValidator(new QIntValidator(0, top, parent));
}

void enableAll(const std::initializer_list<QWidget*>& widgets, bool enabled) {
    for (QWidget* widget : widgets) widget->setEnabled(enabled);
}

QColor colorOf(const HXColorBtn* button) {
    return QColor(button->getColor());
}

}  // namespace

HxRulerAndGridSettingsDialog::HxRulerAndGridSettingsDialog(bool geographic, QWidget* parent)
    : QDialog(parent), ui(new Ui::HxRulerAndGridSettingsDialog) {
    ui->setupUi(this);
    setWindowTitle(tr("Map ruler and grid settings"));
    setWindowFlags(Qt::Dialog | Qt::WindowCloseButtonHint);
    setValidators();
    mButtonGroupAutoCalcKMGridSpacingType = new QButtonGroup(this);
    mButtonGroupAutoCalcKMGridSpacingType->setExclusive(true);
    mButtonGroupAutoCalcKMGridSpacingType->addButton(ui->mRadioButtonAutoCalcKMGridSpacingByMapScale);
    mButtonGroupAutoCalcKMGridSpacingType->addButton(ui->mRadioButtonAutoCalcKMGridSpacingByScaleUnit);
    enableAll({ui->mLabelKMGridXDistances, ui->mLineEditKMGridXDistances, ui->mLabelKMGridYDistances,
               ui->mLineEditKMGridYDistances},
              false);
    ui->mButtonBox->button(QDialogButtonBox::Ok)->setText(tr("OK"));
    ui->mButtonBox->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    showLayout(geographic);
    connectSlots();
}

HxRulerAndGridSettingsDialog::~HxRulerAndGridSettingsDialog() {
    delete ui;
}

void HxRulerAndGridSettingsDialog::setValidators() {
    setDecimalValidator(
        {ui->mLineEditKMGridXStartPosition, ui->mLineEditKMGridYStartPosition, ui->mLineEditKMGridXDistances,
         ui->mLineEditKMGridYDistances, ui->mLineEditConvertMapScaleDenominator},
        1026, this);
    setDecimalValidator({ui->mLineEditKMGridRulerTickMarkWidth, ui->mLineEditKMGridLineWidth,
                         ui->mLineEditBLGridRulerTickMarkWidth, ui->mLineEditBLGridLineWidth},
                        100, this);
    setIntValidator({ui->mLineEditKMGridRulerLabelFontHeight, ui->mLineEditBLGridRulerLabelFontHeight}, 100,
                    this);
    setIntValidator({ui->mLineEditKMGridRulerLabelFontWidth, ui->mLineEditBLGridRulerLabelFontWidth}, 50,
                    this);
    // Latitude takes the same 0 to 180 as longitude.
    setIntValidator(
        {ui->mLineEditBLGridLongitudeStartPositionDegreesValue,
         ui->mLineEditBLGridLatitudeStartPositionDegreesValue,
         ui->mLineEditBLGridLongitudeDistancesDegreesValue, ui->mLineEditBLGridLatitudeDistancesDegreesValue},
        180, this);
    setIntValidator(
        {ui->mLineEditBLGridLongitudeStartPositionMinutesValue,
         ui->mLineEditBLGridLongitudeStartPositionSecondsValue,
         ui->mLineEditBLGridLatitudeStartPositionMinutesValue,
         ui->mLineEditBLGridLatitudeStartPositionSecondsValue,
         ui->mLineEditBLGridLongitudeDistancesMinutesValue, ui->mLineEditBLGridLongitudeDistancesSecondsValue,
         ui->mLineEditBLGridLatitudeDistancesMinutesValue, ui->mLineEditBLGridLatitudeDistancesSecondsValue},
        59, this);
}

void HxRulerAndGridSettingsDialog::showLayout(bool geographic) {
    if (geographic) setFixedSize(450, 650);
    ui->mGroupBoxKMGridRuler->setVisible(!geographic);
    ui->mGroupBoxKMGrid->setVisible(!geographic);
    ui->mGroupBoxSpecifyScale->setVisible(geographic);
}

void HxRulerAndGridSettingsDialog::connectSlots() {
    connect(ui->mButtonBox, SIGNAL(accepted()), this, SLOT(accept()));
    connect(ui->mButtonBox, SIGNAL(rejected()), this, SLOT(reject()));
    connect(ui->mCheckBoxDrawKMGridRuler, SIGNAL(clicked(bool)), this,
            SLOT(onClickedCheckBoxDrawKMGridRuler()));
    connect(ui->mCheckBoxDrawBLGridRuler, SIGNAL(clicked(bool)), this,
            SLOT(onClickedCheckBoxDrawBLGridRuler()));
    connect(ui->mCheckBoxDrawKMGrid, SIGNAL(clicked(bool)), this, SLOT(onClickedCheckBoxDrawKMGrid()));
    connect(ui->mCheckBoxDrawBLGrid, SIGNAL(clicked(bool)), this, SLOT(onClickedCheckBoxDrawBLGrid()));
    connect(ui->mCheckBoxManuallySetKMGridSpacing, SIGNAL(clicked(bool)), this,
            SLOT(onClickedCheckBoxManuallySetKMGridSpacing()));
    connect(ui->mCheckBoxManuallySetBLGridSpacing, SIGNAL(clicked(bool)), this,
            SLOT(onClickedCheckBoxManuallySetBLGridSpacing()));
    const std::pair<QLineEdit*, const char*> edits[] = {
        {ui->mLineEditKMGridRulerTickMarkWidth, SLOT(onTextChangedLineEditKMGridRulerTickMarkWidth())},
        {ui->mLineEditKMGridRulerLabelFontHeight, SLOT(onTextChangedLineEditKMGridRulerLabelFontHeight())},
        {ui->mLineEditKMGridRulerLabelFontWidth, SLOT(onTextChangedLineEditKMGridRulerLabelFontWidth())},
        {ui->mLineEditKMGridLineWidth, SLOT(onTextChangedLineEditKMGridLineWidth())},
        {ui->mLineEditBLGridRulerTickMarkWidth, SLOT(onTextChangedLineEditBLGridRulerTickMarkWidth())},
        {ui->mLineEditBLGridRulerLabelFontHeight, SLOT(onTextChangedLineEditBLGridRulerLabelFontHeight())},
        {ui->mLineEditBLGridRulerLabelFontWidth, SLOT(onTextChangedLineEditBLGridRulerLabelFontWidth())},
        {ui->mLineEditBLGridLineWidth, SLOT(onTextChangedLineEditBLGridLineWidth())},
        {ui->mLineEditKMGridXStartPosition, SLOT(onTextChangedLineEditKMGridXStartPosition())},
        {ui->mLineEditKMGridYStartPosition, SLOT(onTextChangedLineEditKMGridYStartPosition())},
        {ui->mLineEditKMGridXDistances, SLOT(onTextChangedLineEditKMGridXDistances())},
        {ui->mLineEditKMGridYDistances, SLOT(onTextChangedLineEditKMGridYDistances())},
        {ui->mLineEditConvertMapScaleDenominator, SLOT(onTextChangedLineEditConvertMapScaleDenominator())},
    };
    for (const auto& edit : edits) connect(edit.first, SIGNAL(textChanged(QString)), this, edit.second);
    connect(mButtonGroupAutoCalcKMGridSpacingType, SIGNAL(buttonClicked(QAbstractButton*)), this,
            SLOT(onButtonClickedButtonGroupAutoCalcKMGridSpacingType()));
}

void HxRulerAndGridSettingsDialog::loadKMGridSettings(bool drawRuler, bool drawGrid, bool manualSpacing,
                                                      double xStart, double yStart, double xDistance,
                                                      double yDistance, int spacingType, double lineWidth,
                                                      double tickMarkWidth, int fontHeight, int fontWidth,
                                                      const QColor& tickMarkColor,
                                                      const QColor& labelFontColor, const QColor& gridColor) {
    mSettings.km.drawRuler = drawRuler;
    mSettings.km.drawGrid = drawGrid;
    mSettings.km.manualSpacing = manualSpacing;
    mSettings.kmSpacingType = spacingType;
    mSettings.km.tickMarkColor = tickMarkColor;
    mSettings.km.labelFontColor = labelFontColor;
    mSettings.km.gridColor = gridColor;
    // A false flag leaves the form's unchecked default.
    if (drawRuler) ui->mCheckBoxDrawKMGridRuler->setChecked(true);
    if (drawGrid) ui->mCheckBoxDrawKMGrid->setChecked(true);
    if (manualSpacing) ui->mCheckBoxManuallySetKMGridSpacing->setChecked(true);
    // The text-changed slots store what the edits show.
    ui->mLineEditKMGridXStartPosition->setText(general(xStart));
    ui->mLineEditKMGridYStartPosition->setText(general(yStart));
    ui->mLineEditKMGridXDistances->setText(general(xDistance));
    ui->mLineEditKMGridYDistances->setText(general(yDistance));
    if (spacingType == 0) ui->mRadioButtonAutoCalcKMGridSpacingByMapScale->setChecked(true);
    if (spacingType == 1) ui->mRadioButtonAutoCalcKMGridSpacingByScaleUnit->setChecked(true);
    ui->mLineEditKMGridLineWidth->setText(general(lineWidth));
    ui->mLineEditKMGridRulerTickMarkWidth->setText(general(tickMarkWidth));
    ui->mLineEditKMGridRulerLabelFontHeight->setText(QString::number(fontHeight));
    ui->mLineEditKMGridRulerLabelFontWidth->setText(QString::number(fontWidth));
    ui->mToolButtonKMGridRulerTickMarkColor->setColor(tickMarkColor);
    ui->mToolButtonKMGridRulerLabelFontColor->setColor(labelFontColor);
    ui->mToolButtonKMGridColor->setColor(gridColor);
    enableKMGridSpacing(manualSpacing);
}

void HxRulerAndGridSettingsDialog::loadBLGridSettings(bool drawRuler, bool drawGrid, bool manualSpacing,
                                                      double longitudeStart, double latitudeStart,
                                                      double longitudeDistance, double latitudeDistance,
                                                      double convertScale, double lineWidth,
                                                      double tickMarkWidth, int fontHeight, int fontWidth,
                                                      const QColor& tickMarkColor,
                                                      const QColor& labelFontColor, const QColor& gridColor) {
    mSettings.bl.drawRuler = drawRuler;
    mSettings.bl.drawGrid = drawGrid;
    mSettings.bl.manualSpacing = manualSpacing;
    mSettings.bl.xStart = longitudeStart;
    mSettings.bl.yStart = latitudeStart;
    mSettings.bl.xDistance = longitudeDistance;
    mSettings.bl.yDistance = latitudeDistance;
    mSettings.bl.tickMarkColor = tickMarkColor;
    mSettings.bl.labelFontColor = labelFontColor;
    mSettings.bl.gridColor = gridColor;
    if (drawRuler) ui->mCheckBoxDrawBLGridRuler->setChecked(true);
    if (drawGrid) ui->mCheckBoxDrawBLGrid->setChecked(true);
    if (manualSpacing) ui->mCheckBoxManuallySetBLGridSpacing->setChecked(true);
    showAngle({ui->mLineEditBLGridLongitudeStartPositionDegreesValue,
               ui->mLineEditBLGridLongitudeStartPositionMinutesValue,
               ui->mLineEditBLGridLongitudeStartPositionSecondsValue},
              longitudeStart);
    showAngle({ui->mLineEditBLGridLatitudeStartPositionDegreesValue,
               ui->mLineEditBLGridLatitudeStartPositionMinutesValue,
               ui->mLineEditBLGridLatitudeStartPositionSecondsValue},
              latitudeStart);
    showAngle(
        {ui->mLineEditBLGridLongitudeDistancesDegreesValue, ui->mLineEditBLGridLongitudeDistancesMinutesValue,
         ui->mLineEditBLGridLongitudeDistancesSecondsValue},
        longitudeDistance);
    showAngle(
        {ui->mLineEditBLGridLatitudeDistancesDegreesValue, ui->mLineEditBLGridLatitudeDistancesMinutesValue,
         ui->mLineEditBLGridLatitudeDistancesSecondsValue},
        latitudeDistance);
    ui->mLineEditConvertMapScaleDenominator->setText(general(convertScale));
    ui->mLineEditBLGridLineWidth->setText(general(lineWidth));
    ui->mLineEditBLGridRulerTickMarkWidth->setText(general(tickMarkWidth));
    ui->mLineEditBLGridRulerLabelFontHeight->setText(QString::number(fontHeight));
    ui->mLineEditBLGridRulerLabelFontWidth->setText(QString::number(fontWidth));
    ui->mToolButtonBLGridRulerTickMarkColor->setColor(tickMarkColor);
    ui->mToolButtonBLGridRulerLabelFontColor->setColor(labelFontColor);
    ui->mToolButtonBLGridColor->setColor(gridColor);
    enableBLGridSpacing(manualSpacing);
}

void HxRulerAndGridSettingsDialog::accept() {
    mSettings.bl.xStart = readAngle({ui->mLineEditBLGridLongitudeStartPositionDegreesValue,
                                     ui->mLineEditBLGridLongitudeStartPositionMinutesValue,
                                     ui->mLineEditBLGridLongitudeStartPositionSecondsValue});
    mSettings.bl.yStart = readAngle({ui->mLineEditBLGridLatitudeStartPositionDegreesValue,
                                     ui->mLineEditBLGridLatitudeStartPositionMinutesValue,
                                     ui->mLineEditBLGridLatitudeStartPositionSecondsValue});
    mSettings.bl.xDistance = readAngle({ui->mLineEditBLGridLongitudeDistancesDegreesValue,
                                        ui->mLineEditBLGridLongitudeDistancesMinutesValue,
                                        ui->mLineEditBLGridLongitudeDistancesSecondsValue});
    mSettings.bl.yDistance = readAngle({ui->mLineEditBLGridLatitudeDistancesDegreesValue,
                                        ui->mLineEditBLGridLatitudeDistancesMinutesValue,
                                        ui->mLineEditBLGridLatitudeDistancesSecondsValue});
    mSettings.km.gridColor = colorOf(ui->mToolButtonKMGridColor);
    mSettings.km.tickMarkColor = colorOf(ui->mToolButtonKMGridRulerTickMarkColor);
    mSettings.km.labelFontColor = colorOf(ui->mToolButtonKMGridRulerLabelFontColor);
    mSettings.bl.gridColor = colorOf(ui->mToolButtonBLGridColor);
    mSettings.bl.tickMarkColor = colorOf(ui->mToolButtonBLGridRulerTickMarkColor);
    mSettings.bl.labelFontColor = colorOf(ui->mToolButtonBLGridRulerLabelFontColor);
    QDialog::accept();
}

void HxRulerAndGridSettingsDialog::enableKMGridSpacing(bool manual) {
    enableAll({ui->mLabelKMGridXDistances, ui->mLineEditKMGridXDistances, ui->mLabelKMGridXDistancesUnit,
               ui->mLabelKMGridYDistances, ui->mLineEditKMGridYDistances, ui->mLabelKMGridYDistancesUnit},
              manual);
    ui->mGroupBoxAutoSetttingOfKMGridSpacingType->setEnabled(!manual);
}

void HxRulerAndGridSettingsDialog::enableBLGridSpacing(bool manual) {
    enableAll(
        {ui->mLabelBLGridLongitudeDistances, ui->mLabelBLGridLatitudeDistances,
         ui->mLineEditBLGridLongitudeDistancesDegreesValue, ui->mLineEditBLGridLongitudeDistancesMinutesValue,
         ui->mLineEditBLGridLongitudeDistancesSecondsValue, ui->mLineEditBLGridLatitudeDistancesDegreesValue,
         ui->mLineEditBLGridLatitudeDistancesMinutesValue, ui->mLineEditBLGridLatitudeDistancesSecondsValue,
         ui->mLabelBLGridLongitudeDistancesDegreesUnit, ui->mLabelBLGridLongitudeDistancesMinutesUnit,
         ui->mLabelBLGridLongitudeDistancesSecondsUnit, ui->mLabelBLGridLatitudeDistancesDegreesUnit,
         ui->mLabelBLGridLatitudeDistancesMinutesUnit, ui->mLabelBLGridLatitudeDistancesSecondsUnit},
        manual);
}

void HxRulerAndGridSettingsDialog::coupleFontHeight(QLineEdit* height, QLineEdit* width, Grid& grid) {
    grid.fontHeight = height->text().toInt();
    grid.fontWidth = grid.fontHeight / 2;
    // Writing the width calls its slot, which writes the height back; that ends when the text
    // stays the same (an odd height becomes the even one below it).
    width->setText(QString::number(grid.fontWidth));
}

void HxRulerAndGridSettingsDialog::coupleFontWidth(QLineEdit* width, QLineEdit* height, Grid& grid) {
    grid.fontWidth = width->text().toInt();
    grid.fontHeight = grid.fontWidth * 2;
    height->setText(QString::number(grid.fontHeight));
}

void HxRulerAndGridSettingsDialog::onClickedCheckBoxDrawKMGridRuler() {
    mSettings.km.drawRuler = ui->mCheckBoxDrawKMGridRuler->checkState() == Qt::Checked;
}

void HxRulerAndGridSettingsDialog::onClickedCheckBoxDrawBLGridRuler() {
    mSettings.bl.drawRuler = ui->mCheckBoxDrawBLGridRuler->checkState() == Qt::Checked;
}

void HxRulerAndGridSettingsDialog::onClickedCheckBoxDrawKMGrid() {
    mSettings.km.drawGrid = ui->mCheckBoxDrawKMGrid->checkState() == Qt::Checked;
}

void HxRulerAndGridSettingsDialog::onClickedCheckBoxDrawBLGrid() {
    mSettings.bl.drawGrid = ui->mCheckBoxDrawBLGrid->checkState() == Qt::Checked;
}

void HxRulerAndGridSettingsDialog::onClickedCheckBoxManuallySetKMGridSpacing() {
    mSettings.km.manualSpacing = ui->mCheckBoxManuallySetKMGridSpacing->checkState() == Qt::Checked;
    enableKMGridSpacing(mSettings.km.manualSpacing);
}

void HxRulerAndGridSettingsDialog::onClickedCheckBoxManuallySetBLGridSpacing() {
    mSettings.bl.manualSpacing = ui->mCheckBoxManuallySetBLGridSpacing->checkState() == Qt::Checked;
    enableBLGridSpacing(mSettings.bl.manualSpacing);
}

void HxRulerAndGridSettingsDialog::onTextChangedLineEditKMGridRulerTickMarkWidth() {
    mSettings.km.tickMarkWidth = ui->mLineEditKMGridRulerTickMarkWidth->text().toDouble();
}

void HxRulerAndGridSettingsDialog::onTextChangedLineEditKMGridRulerLabelFontHeight() {
    coupleFontHeight(ui->mLineEditKMGridRulerLabelFontHeight, ui->mLineEditKMGridRulerLabelFontWidth,
                     mSettings.km);
}

void HxRulerAndGridSettingsDialog::onTextChangedLineEditKMGridRulerLabelFontWidth() {
    coupleFontWidth(ui->mLineEditKMGridRulerLabelFontWidth, ui->mLineEditKMGridRulerLabelFontHeight,
                    mSettings.km);
}

void HxRulerAndGridSettingsDialog::onTextChangedLineEditKMGridLineWidth() {
    mSettings.km.lineWidth = ui->mLineEditKMGridLineWidth->text().toDouble();
}

void HxRulerAndGridSettingsDialog::onTextChangedLineEditBLGridRulerTickMarkWidth() {
    mSettings.bl.tickMarkWidth = ui->mLineEditBLGridRulerTickMarkWidth->text().toDouble();
}

void HxRulerAndGridSettingsDialog::onTextChangedLineEditBLGridRulerLabelFontHeight() {
    coupleFontHeight(ui->mLineEditBLGridRulerLabelFontHeight, ui->mLineEditBLGridRulerLabelFontWidth,
                     mSettings.bl);
}

void HxRulerAndGridSettingsDialog::onTextChangedLineEditBLGridRulerLabelFontWidth() {
    coupleFontWidth(ui->mLineEditBLGridRulerLabelFontWidth, ui->mLineEditBLGridRulerLabelFontHeight,
                    mSettings.bl);
}

void HxRulerAndGridSettingsDialog::onTextChangedLineEditBLGridLineWidth() {
    mSettings.bl.lineWidth = ui->mLineEditBLGridLineWidth->text().toDouble();
}

void HxRulerAndGridSettingsDialog::onTextChangedLineEditKMGridXStartPosition() {
    mSettings.km.xStart = ui->mLineEditKMGridXStartPosition->text().toDouble();
}

void HxRulerAndGridSettingsDialog::onTextChangedLineEditKMGridYStartPosition() {
    mSettings.km.yStart = ui->mLineEditKMGridYStartPosition->text().toDouble();
}

void HxRulerAndGridSettingsDialog::onTextChangedLineEditKMGridXDistances() {
    mSettings.km.xDistance = ui->mLineEditKMGridXDistances->text().toDouble();
}

void HxRulerAndGridSettingsDialog::onTextChangedLineEditKMGridYDistances() {
    mSettings.km.yDistance = ui->mLineEditKMGridYDistances->text().toDouble();
}

void HxRulerAndGridSettingsDialog::onTextChangedLineEditConvertMapScaleDenominator() {
    mSettings.convertScale = ui->mLineEditConvertMapScaleDenominator->text().toDouble();
}

void HxRulerAndGridSettingsDialog::onButtonClickedButtonGroupAutoCalcKMGridSpacingType() {
    if (ui->mRadioButtonAutoCalcKMGridSpacingByMapScale->isChecked())
        mSettings.kmSpacingType = 0;
    else if (ui->mRadioButtonAutoCalcKMGridSpacingByScaleUnit->isChecked())
        mSettings.kmSpacingType = 1;
}
