#include "HxInputDataDialog.h"

#include "private/HXTypedNumber.h"
#include "ui_HxInputDataDialog.h"

HxInputDataDialog::HxInputDataDialog(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::HxInputDataDialog>()) {
    ui->setupUi(this);
    setWindowFlags(Qt::Dialog | Qt::WindowCloseButtonHint);
}

HxInputDataDialog::~HxInputDataDialog() = default;

void HxInputDataDialog::getValue(double& x, double& y) const {
    x = HXTypedNumber(ui->mLineEditX);
    y = HXTypedNumber(ui->mLineEditY);
}
