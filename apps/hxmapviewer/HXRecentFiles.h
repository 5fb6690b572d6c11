#pragma once
// HXRecentFiles: the most recently opened files, newest first, kept in the application's settings.
#include <QStringList>

class HXRecentFiles {
public:
    static constexpr int kMaximum = 8;
    static QStringList load();
    static void add(const QString& path);
};
