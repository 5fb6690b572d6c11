#pragma once
// A number typed into a point-input field. Text that does not read as a finite number counts as 0,
// so a typo never hands a tool NaN or infinity.
#include <QLineEdit>
#include <cmath>

inline double HXTypedNumber(const QLineEdit* edit) {
    bool ok = false;
    const double value = edit->text().toDouble(&ok);
    return ok && std::isfinite(value) ? value : 0.0;
}
