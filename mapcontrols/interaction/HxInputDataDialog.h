#pragma once
// HxInputDataDialog: asks for a point typed as X and Y in map units, for tools that take points
// from the keyboard. Modal; the canvas builds it on the stack for one question.
#include <QDialog>
#include <memory>

#include "HXMapControlsExport.h"

namespace Ui {
class HxInputDataDialog;
}

class HXMAPCONTROLS_EXPORT HxInputDataDialog : public QDialog {
    Q_OBJECT

public:
    explicit HxInputDataDialog(QWidget* parent = nullptr);
    ~HxInputDataDialog() override;

    // The typed point; a field that does not read as a number gives 0.
    void getValue(double& x, double& y) const;

private:
    std::unique_ptr<Ui::HxInputDataDialog> ui;
};
