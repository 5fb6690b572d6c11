#pragma once
// HXStylePickerDialog: the modal style picker. A grid of the library's ready symbols of one kind
// (HXStyleLibrary), each drawn as its preview; the chosen symbol is copied into an editable style
// whose pattern (marker shape, dash or fill), colours, size or width, outline or casing and opacity
// the user can change while a large preview follows. The symbols in the library are never changed.
// Built on the stack by selectStyle(); widgets are parent-owned.
#include <QDialog>

#include "HORefPtr.h"
#include "HOStyle.h"

class HXColorBtn;
class QComboBox;
class QDialogButtonBox;
class QDoubleSpinBox;
class QLabel;
class QListWidget;
class QSpinBox;

class HXStylePickerDialog : public QDialog {
    Q_OBJECT
public:
    explicit HXStylePickerDialog(HXObjects::HOStyle::StyleType type, QWidget* parent = nullptr);
    ~HXStylePickerDialog() override;

    // The style as edited; null until a symbol is chosen.
    HXObjects::HOStyle* style() const { return mStyle.get(); }

private:
    void buildForm();
    void fillSymbolList();
    // Copies the symbol of the row and shows its values in the editors.
    void chooseSymbol(int row);
    void showStyleValues();
    // Takes the editors' values into the style.
    void readEditors();
    void updatePreview();

    HXObjects::HOStyle::StyleType mType;
    HXObjects::HORefPtr<HXObjects::HOStyle> mStyle;
    QListWidget* mSymbolList = nullptr;
    QLabel* mPatternLabel = nullptr;
    QComboBox* mPatternCombo = nullptr;
    HXColorBtn* mColorButton = nullptr;
    QLabel* mSizeLabel = nullptr;
    QDoubleSpinBox* mSizeSpin = nullptr;
    QLabel* mOutlineColorLabel = nullptr;
    HXColorBtn* mOutlineColorButton = nullptr;
    QLabel* mOutlineWidthLabel = nullptr;
    QDoubleSpinBox* mOutlineWidthSpin = nullptr;
    QSpinBox* mOpacitySpin = nullptr;
    QLabel* mPreview = nullptr;
    QDialogButtonBox* mButtonBox = nullptr;
};
