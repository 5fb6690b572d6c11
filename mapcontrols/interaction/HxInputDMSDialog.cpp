#include "HxInputDMSDialog.h"

#include <cmath>

#include "CcurrencyFunc.h"
#include "private/HXTypedNumber.h"
#include "ui_HxInputDMSDialog.h"

HxInputDMSDialog::HxInputDMSDialog(QWidget* parent)
    : QDialog(parent), ui(std::make_unique<Ui::HxInputDMSDialog>()) {
    ui->setupUi(this);
    setWindowFlags(Qt::Dialog | Qt::WindowCloseButtonHint);
}

HxInputDMSDialog::~HxInputDMSDialog() = default;

void HxInputDMSDialog::getValue(double& longitude, double& latitude) const {
    longitude = degrees(ui->mLineEditLonDegree, ui->mLineEditLonMinute, ui->mLineEditLonSecond);
    latitude = degrees(ui->mLineEditLatDegree, ui->mLineEditLatMinute, ui->mLineEditLatSecond);
}

double HxInputDMSDialog::degrees(const QLineEdit* degree, const QLineEdit* minute, const QLineEdit* second) {
    // Packed D.MMSS. Minutes and seconds are added even to negative degrees, so -120 30 0 packs to
    // -119.70: the sign is the degrees field's alone, as the packed form has always been read here.
    const double packed =
        std::trunc(HXTypedNumber(degree)) + HXTypedNumber(minute) / 100.0 + HXTypedNumber(second) / 10000.0;
    return CcurrencyFunc::DmsToDegree(packed);
}
