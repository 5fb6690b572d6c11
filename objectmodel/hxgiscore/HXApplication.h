#pragma once
// HXApplication: application-wide services of the object model — the image theme compiled into this
// library and the location of the shared settings file. Static members only; the host keeps its own
// QApplication. Pixmaps and icons need a QGuiApplication.
#include <QIcon>
#include <QPixmap>
#include <QString>

#include "HXExport.h"

class HX_EXPORT HXApplication {
public:
    HXApplication() = delete;

    // The resource path of a theme image such as "zoom-in.png" or "/mIconInfo.png" (a leading "/"
    // is ignored), usable in style sheets as url(<path>); empty when the theme has no such image.
    static QString getThemeFilePath(const QString& name);
    // The theme image as an icon / pixmap; null when the theme has no such image. SVG images come
    // as a pixmap of their natural size and as an icon that stays sharp at every size.
    static QIcon getThemeIcon(const QString& name);
    static QPixmap getThemePixmap(const QString& name);

    // The INI file shared by all applications of the system: $HXGIS_SETTINGS_FILE when set (tests
    // and headless runs), otherwise hxgis/hxgis.ini in the user's configuration folder.
    static QString hxgisSettingsFilePath();
};
