#include "HXStyleManager.h"

#include <QApplication>

#include "HXStylePickerDialog.h"

HXObjects::HOStyle* selectStyle(HXObjects::HOStyle::StyleType type, QWidget* parent) {
    HXStylePickerDialog dialog(type, parent ? parent : QApplication::activeModalWidget());
    if (dialog.exec() != QDialog::Accepted || !dialog.style()) return nullptr;
    return dialog.style()->Clone();
}
