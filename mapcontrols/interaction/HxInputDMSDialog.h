#pragma once
// HxInputDMSDialog: asks for a point typed as longitude and latitude in degrees, minutes and seconds,
// for tools that take points from the keyboard. Modal; the canvas builds it on the stack for one
// question.
#include <QDialog>
#include <memory>

#include "HXMapControlsExport.h"

class QLineEdit;
namespace Ui {
class HxInputDMSDialog;
}

class HXMAPCONTROLS_EXPORT HxInputDMSDialog : public QDialog {
    Q_OBJECT

public:
    explicit HxInputDMSDialog(QWidget* parent = nullptr);
    ~HxInputDMSDialog() override;

    // The typed point in decimal degrees; a field that does not read as a number gives 0.
    void getValue(double& longitude, double& latitude) const;

private:
    static double degrees(const QLineEdit* degree, const QLineEdit* minute, const QLineEdit* second);

    std::unique_ptr<Ui::HxInputDMSDialog> ui;
};
