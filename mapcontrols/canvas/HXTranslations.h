#pragma once
// HXTranslations: the library's own translations (its widgets' and the object model's texts), compiled
// into the library. The first HXMapCanvas installs the one for the application's locale (QLocale()), so
// a host needs no files; a host that manages its translators itself turns that off with
// setAutomatic(false) before it creates a canvas, and may call install() with a locale of its choice.
// Texts are translated when a widget is built: install before creating widgets. GUI thread only; the
// translator is owned by the application object.
#include <QLocale>

#include "HXMapControlsExport.h"

class HXMAPCONTROLS_EXPORT HXTranslations {
public:
    // Replaces the library's translator by the one for `locale`. True when the library has a translation
    // for it (English, the source language, has an empty one); false, with none installed, otherwise.
    static bool install(const QLocale& locale = QLocale());
    // Removes the library's translator: texts show in English again.
    static void remove();

    // Whether the first canvas installs the translation for QLocale() (on unless turned off).
    static void setAutomatic(bool enabled);
    static bool isAutomatic();
    // Installs for QLocale() once per process, unless turned off or installed already.
    static void installOnce();
};
