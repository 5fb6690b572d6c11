#pragma once
// Small helpers for tests that drive dialogs by their widgets' object names. Header-only.
#include <QPixmap>
#include <QString>
#include <QWidget>

// The child widget of that class and object name; null (with a warning naming it) when missing.
template <class T>
T* child(QWidget* parent, const QString& name) {
    T* widget = parent->findChild<T*>(name);
    if (!widget) qWarning("no widget %s", qPrintable(name));
    return widget;
}

// Writes what the widget shows to $HX_SCREENSHOT_DIR/<name>.png when that variable is set, so a
// person can look at the dialogs as the tests leave them.
inline void saveScreenshot(QWidget* widget, const QString& name) {
    const QString dir = qEnvironmentVariable("HX_SCREENSHOT_DIR");
    if (!dir.isEmpty()) widget->grab().save(dir + "/" + name + ".png");
}
