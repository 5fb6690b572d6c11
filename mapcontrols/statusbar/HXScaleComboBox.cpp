#include "HXScaleComboBox.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QLocale>
#include <QSettings>
#include <QSignalBlocker>
#include <cstdlib>

#include "HXApplication.h"
#include "HXGis.h"
#include "private/HXScaleText.h"

namespace {

// The preset list of the settings file. An unquoted value with commas comes back from QSettings as
// a list; it is read as the comma-separated text it was written as.
QString configuredScales() {
    QSettings settings(HXApplication::hxgisSettingsFilePath(), QSettings::IniFormat);
    const QVariant value = settings.value(QStringLiteral("Map/scales"), QString::fromLatin1(PROJECT_SCALES));
    if (value.type() == QVariant::StringList) return value.toStringList().join(QLatin1Char(','));
    return value.toString();
}

// The denominator after the ':' of a "1:n" text as a plain C-locale integer; 0 when it is not one.
int plainDenominator(const QString& text) {
    return text.section(QLatin1Char(':'), 1, 1).toInt(nullptr, 10);
}

}  // namespace

HXScaleComboBox::HXScaleComboBox(QWidget* parent) : QComboBox(parent) {
    updateScales();
    setEditable(true);
    setInsertPolicy(QComboBox::NoInsert);
    setCompleter(nullptr);
    connect(this, SIGNAL(activated(const QString&)), this, SLOT(fixupScale()));
    connect(lineEdit(), SIGNAL(editingFinished()), this, SLOT(fixupScale()));
}

double HXScaleComboBox::scale() const {
    return mScale;
}

void HXScaleComboBox::setScale(double scale) {
    setScaleString(toString(scale));
}

bool HXScaleComboBox::setScaleString(const QString& scaleTxt) {
    bool ok = false;
    double newScale = toDouble(scaleTxt, &ok);
    const double oldScale = mScale;
    if (newScale < mMinScale && newScale != 0.0) newScale = mMinScale;
    if (!ok) return false;

    mScale = newScale;
    setEditText(toString(mScale));
    setToolTip(toString(mScale));
    clearFocus();
    if (mScale != oldScale) emit scaleChanged(mScale);
    return true;
}

void HXScaleComboBox::showPopup() {
    QComboBox::showPopup();
    if (!currentText().contains(QLatin1Char(':'))) return;

    // Denominators with group separators read as 0 here, so in grouping locales the popup opens on
    // the first preset nearest to 0 rather than to the current scale.
    const qint64 target = plainDenominator(currentText());
    int nearest = 0;
    qint64 bestDistance = 999999;
    for (int i = 0; i < count(); ++i) {
        const qint64 distance = std::llabs(target - plainDenominator(itemText(i)));
        if (distance < bestDistance) {
            bestDistance = distance;
            nearest = i;
        }
    }
    const QSignalBlocker blocker(this);
    view()->setCurrentIndex(model()->index(nearest, modelColumn(), rootModelIndex()));
}

QString HXScaleComboBox::toString(double scale) {
    return HXScaleText::toString(scale);
}

double HXScaleComboBox::toDouble(const QString& scaleString, bool* returnOk) {
    return HXScaleText::toDouble(scaleString, returnOk);
}

void HXScaleComboBox::updateScales(const QStringList& scales) {
    const QString oldScale = currentText();

    QStringList entries = scales;
    if (scales.isEmpty()) {
        const QString configured = configuredScales();
        if (!configured.isEmpty()) entries = configured.split(QLatin1Char(','), Qt::KeepEmptyParts);
    }
    for (QString& entry : entries) {
        bool ok = false;
        const double denominator = QLocale().toDouble(entry.section(QLatin1Char(':'), 1, 1), &ok);
        if (ok) entry = toString(1.0 / denominator);
    }

    // Re-applying the text emits nothing while the signals are blocked: the value shown is unchanged
    // for the user, only the list is new.
    const QSignalBlocker blocker(this);
    clear();
    addItems(entries);
    setScaleString(oldScale);
}

void HXScaleComboBox::updateScales() {
    updateScales(QStringList());
}

void HXScaleComboBox::setMinScale(double scale) {
    mMinScale = scale;
    if (mScale < scale && mScale != 0.0) setScaleString(toString(scale));
}

void HXScaleComboBox::fixupScale() {
    bool ok = false;
    const double newScale = HXScaleText::fromTyped(currentText(), &ok);
    // Unreadable text, or a number too large to show as a scale, reverts to the current scale.
    if (!ok || !setScaleString(toString(newScale))) setScaleString(toString(mScale));
}
