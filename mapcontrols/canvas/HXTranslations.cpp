#include "HXTranslations.h"

#include <QCoreApplication>
#include <QPointer>
#include <QTranslator>

namespace {

// The .qm files live in the library's resources under this folder, named HXMapControls_<locale>.qm.
const char* const kFolder = ":/i18n";
const char* const kName = "HXMapControls";

QPointer<QTranslator>& Installed() {
    static QPointer<QTranslator> translator;
    return translator;
}

bool& Automatic() {
    static bool automatic = true;
    return automatic;
}

bool& Attempted() {
    static bool attempted = false;
    return attempted;
}

}  // namespace

bool HXTranslations::install(const QLocale& locale) {
    Attempted() = true;
    remove();
    if (!QCoreApplication::instance()) return false;
    auto* translator = new QTranslator(QCoreApplication::instance());
    if (!translator->load(locale, kName, "_", kFolder)) {
        delete translator;
        return false;
    }
    QCoreApplication::installTranslator(translator);
    Installed() = translator;
    return true;
}

void HXTranslations::remove() {
    if (QTranslator* translator = Installed()) {
        QCoreApplication::removeTranslator(translator);
        delete translator;
    }
}

void HXTranslations::setAutomatic(bool enabled) {
    Automatic() = enabled;
}

bool HXTranslations::isAutomatic() {
    return Automatic();
}

void HXTranslations::installOnce() {
    if (Automatic() && !Attempted()) install();
}
