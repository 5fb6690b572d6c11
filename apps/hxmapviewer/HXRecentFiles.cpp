#include "HXRecentFiles.h"

#include "HXApplication.h"

#include <QSettings>

namespace {
const char* const kKey = "viewer/recentFiles";
}

QStringList HXRecentFiles::load() {
    QSettings settings(HXApplication::hxgisSettingsFilePath(), QSettings::IniFormat);
    return settings.value(kKey).toStringList();
}

void HXRecentFiles::add(const QString& path) {
    QStringList files = load();
    files.removeAll(path);
    files.prepend(path);
    while (files.size() > kMaximum) files.removeLast();
    QSettings settings(HXApplication::hxgisSettingsFilePath(), QSettings::IniFormat);
    settings.setValue(kKey, files);
}
