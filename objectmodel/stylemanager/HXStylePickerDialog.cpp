#include "HXStylePickerDialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QVBoxLayout>

#include "HXColorBtn.h"
#include "HXStyleLibrary.h"
#include "HXSymbolUtils.h"

using HXObjects::HOColor;
using HXObjects::HOStyle;

namespace {

constexpr QSize kSymbolIconSize(56, 40);
constexpr QSize kPreviewSize(180, 110);
constexpr QSize kGridCell(112, 92);  // room for a name of two lines under each symbol

QColor toQColor(const HOColor& color) {
    return QColor(color.getR(), color.getG(), color.getB());
}

HOColor fromRgb(QRgb rgb) {
    return HOColor(qRed(rgb), qGreen(rgb), qBlue(rgb));
}

// The choices of the pattern box per kind, in the order of the matching enumeration.
QStringList patternNames(HOStyle::StyleType type) {
    switch (type) {
        case HOStyle::MarkerStyle:
            return {HXStylePickerDialog::tr("Circle"),   HXStylePickerDialog::tr("Square"),
                    HXStylePickerDialog::tr("Triangle"), HXStylePickerDialog::tr("Diamond"),
                    HXStylePickerDialog::tr("Cross"),    HXStylePickerDialog::tr("Star")};
        case HOStyle::LineStyle:
            return {HXStylePickerDialog::tr("Solid"), HXStylePickerDialog::tr("Dashed"),
                    HXStylePickerDialog::tr("Dotted"), HXStylePickerDialog::tr("Dash-dot")};
        case HOStyle::FillStyle:
            break;
    }
    return {HXStylePickerDialog::tr("Solid"),
            HXStylePickerDialog::tr("No fill"),
            HXStylePickerDialog::tr("Horizontal hatch"),
            HXStylePickerDialog::tr("Vertical hatch"),
            HXStylePickerDialog::tr("Cross hatch"),
            HXStylePickerDialog::tr("Diagonal hatch"),
            HXStylePickerDialog::tr("Reverse diagonal hatch"),
            HXStylePickerDialog::tr("Diagonal cross hatch")};
}

QDoubleSpinBox* newSpin(double minimum, double maximum, QWidget* parent) {
    auto* spin = new QDoubleSpinBox(parent);
    spin->setRange(minimum, maximum);
    spin->setDecimals(1);
    spin->setSingleStep(0.5);
    spin->setSuffix(HXStylePickerDialog::tr(" px"));
    return spin;
}

}  // namespace

HXStylePickerDialog::HXStylePickerDialog(HOStyle::StyleType type, QWidget* parent)
    : QDialog(parent), mType(type) {
    setWindowFlags(Qt::Dialog | Qt::WindowCloseButtonHint);
    const QString titles[] = {tr("Select marker symbol"), tr("Select line symbol"), tr("Select fill symbol")};
    setWindowTitle(titles[type]);
    buildForm();
    fillSymbolList();
    mSymbolList->setCurrentRow(0);
}

HXStylePickerDialog::~HXStylePickerDialog() = default;

void HXStylePickerDialog::buildForm() {
    mSymbolList = new QListWidget(this);
    mSymbolList->setObjectName("mSymbolList");
    mSymbolList->setViewMode(QListView::IconMode);
    mSymbolList->setIconSize(kSymbolIconSize);
    mSymbolList->setGridSize(kGridCell);
    mSymbolList->setResizeMode(QListView::Adjust);
    mSymbolList->setMovement(QListView::Static);
    mSymbolList->setWordWrap(true);
    mSymbolList->setTextElideMode(Qt::ElideNone);
    mSymbolList->setMinimumSize(4 * kGridCell.width() + 24, 3 * kGridCell.height() + 8);

    auto* properties = new QGroupBox(tr("Properties"), this);
    auto* form = new QFormLayout(properties);
    mPatternLabel = new QLabel(properties);
    mPatternCombo = new QComboBox(properties);
    mPatternCombo->setObjectName("mPatternCombo");
    mPatternCombo->addItems(patternNames(mType));
    mColorButton = new HXColorBtn(properties);
    mColorButton->setObjectName("mColorButton");
    mSizeLabel = new QLabel(properties);
    mSizeSpin = newSpin(0.5, 64, properties);
    mSizeSpin->setObjectName("mSizeSpin");
    mOutlineColorLabel = new QLabel(properties);
    mOutlineColorButton = new HXColorBtn(properties);
    mOutlineColorButton->setObjectName("mOutlineColorButton");
    mOutlineWidthLabel = new QLabel(properties);
    mOutlineWidthSpin = newSpin(0, 20, properties);
    mOutlineWidthSpin->setObjectName("mOutlineWidthSpin");
    mOpacitySpin = new QSpinBox(properties);
    mOpacitySpin->setObjectName("mOpacitySpin");
    mOpacitySpin->setRange(0, 100);
    mOpacitySpin->setSuffix(tr(" %"));

    // A line's width is its main size and its outline is a casing; a fill has no size of its own.
    const bool line = mType == HOStyle::LineStyle;
    const QString patternTitles[] = {tr("Shape:"), tr("Dash:"), tr("Fill:")};
    mPatternLabel->setText(patternTitles[mType]);
    mSizeLabel->setText(line ? tr("Width:") : tr("Size:"));
    mOutlineColorLabel->setText(line ? tr("Casing color:") : tr("Outline color:"));
    mOutlineWidthLabel->setText(line ? tr("Casing width:") : tr("Outline width:"));
    form->addRow(mPatternLabel, mPatternCombo);
    form->addRow(tr("Color:"), mColorButton);
    form->addRow(mSizeLabel, mSizeSpin);
    form->addRow(mOutlineColorLabel, mOutlineColorButton);
    form->addRow(mOutlineWidthLabel, mOutlineWidthSpin);
    form->addRow(tr("Opacity:"), mOpacitySpin);
    mSizeLabel->setVisible(mType != HOStyle::FillStyle);
    mSizeSpin->setVisible(mType != HOStyle::FillStyle);

    mPreview = new QLabel(this);
    mPreview->setObjectName("mPreview");
    mPreview->setFixedSize(kPreviewSize);
    mPreview->setFrameShape(QFrame::StyledPanel);
    mPreview->setAlignment(Qt::AlignCenter);
    mPreview->setAutoFillBackground(true);
    mPreview->setBackgroundRole(QPalette::Base);

    auto* side = new QVBoxLayout;
    side->addWidget(properties);
    side->addWidget(new QLabel(tr("Preview:"), this));
    side->addWidget(mPreview);
    side->addStretch();
    auto* columns = new QHBoxLayout;
    columns->addWidget(mSymbolList, 1);
    columns->addLayout(side);

    mButtonBox = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
    mButtonBox->setObjectName("mButtonBox");
    mButtonBox->button(QDialogButtonBox::Ok)->setText(tr("OK"));
    mButtonBox->button(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(columns);
    layout->addWidget(mButtonBox);

    connect(mButtonBox, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(mButtonBox, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(mSymbolList, &QListWidget::currentRowChanged, this, &HXStylePickerDialog::chooseSymbol);
    connect(mPatternCombo, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
            &HXStylePickerDialog::readEditors);
    connect(mColorButton, &HXColorBtn::colorChanged, this, &HXStylePickerDialog::readEditors);
    connect(mOutlineColorButton, &HXColorBtn::colorChanged, this, &HXStylePickerDialog::readEditors);
    for (QDoubleSpinBox* spin : {mSizeSpin, mOutlineWidthSpin})
        connect(spin, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this,
                &HXStylePickerDialog::readEditors);
    connect(mOpacitySpin, QOverload<int>::of(&QSpinBox::valueChanged), this,
            &HXStylePickerDialog::readEditors);
}

void HXStylePickerDialog::fillSymbolList() {
    for (const HXStyleLibrary::Symbol& symbol : HXStyleLibrary::instance().symbols(mType)) {
        auto* item = new QListWidgetItem(
            QIcon(HXSymbolUtils::symbolPreviewPixmap(symbol.style.get(), kSymbolIconSize)), symbol.name,
            mSymbolList);
        item->setToolTip(symbol.name);
    }
    mButtonBox->button(QDialogButtonBox::Ok)->setEnabled(mSymbolList->count() > 0);
}

void HXStylePickerDialog::chooseSymbol(int row) {
    const std::vector<HXStyleLibrary::Symbol> symbols = HXStyleLibrary::instance().symbols(mType);
    if (row < 0 || row >= int(symbols.size())) return;
    mStyle = symbols[std::size_t(row)].style->Clone();
    showStyleValues();
    updatePreview();
}

void HXStylePickerDialog::showStyleValues() {
    // The editors show the style; their change signals would write it back half-read.
    const QSignalBlocker blockers[] = {QSignalBlocker(mPatternCombo),     QSignalBlocker(mColorButton),
                                       QSignalBlocker(mSizeSpin),         QSignalBlocker(mOutlineColorButton),
                                       QSignalBlocker(mOutlineWidthSpin), QSignalBlocker(mOpacitySpin)};
    const int patterns[] = {mStyle->GetMarkerShape(), mStyle->GetDash(), mStyle->GetFillPattern()};
    const bool line = mType == HOStyle::LineStyle;
    mPatternCombo->setCurrentIndex(patterns[mType]);
    mColorButton->setColor(toQColor(mStyle->GetColor()));
    mSizeSpin->setValue(line ? mStyle->GetWidth() : mStyle->GetSize());
    mOutlineColorButton->setColor(toQColor(mStyle->GetOutlineColor()));
    mOutlineWidthSpin->setValue(line ? mStyle->GetCasingWidth() : mStyle->GetWidth());
    mOpacitySpin->setValue(qRound(mStyle->GetOpacity() * 100));
}

void HXStylePickerDialog::readEditors() {
    if (!mStyle) return;
    const int pattern = mPatternCombo->currentIndex();
    switch (mType) {
        case HOStyle::MarkerStyle:
            mStyle->SetMarkerShape(HOStyle::MarkerShape(pattern));
            mStyle->SetSize(mSizeSpin->value());
            mStyle->SetWidth(mOutlineWidthSpin->value());
            break;
        case HOStyle::LineStyle:
            mStyle->SetDash(HOStyle::DashPattern(pattern));
            mStyle->SetWidth(mSizeSpin->value());
            mStyle->SetCasingWidth(mOutlineWidthSpin->value());
            break;
        case HOStyle::FillStyle:
            mStyle->SetFillPattern(HOStyle::FillPattern(pattern));
            mStyle->SetWidth(mOutlineWidthSpin->value());
            break;
    }
    mStyle->SetColor(fromRgb(mColorButton->getColor()));
    mStyle->SetOutlineColor(fromRgb(mOutlineColorButton->getColor()));
    mStyle->SetOpacity(mOpacitySpin->value() / 100.0);
    updatePreview();
}

void HXStylePickerDialog::updatePreview() {
    mPreview->setPixmap(HXSymbolUtils::symbolPreviewPixmap(mStyle.get(), kPreviewSize - QSize(4, 4)));
}
