#pragma once
// HXViewerTools: the map tools the viewer offers, by the class names the command pool knows them by.
#include <QString>
#include <QVector>

struct HXViewerTool {
    QString command;    // what the command line accepts
    QString className;  // the command pool's name
    QString label;      // tool-bar text
    QString icon;  // theme image, "pan" / "select" for the viewer's own drawings, or a resource (":/…")
    QString shortcut;
};

class HXViewerTools {
public:
    static const QVector<HXViewerTool>& all();
    // The class name for a typed command ("pan"), or empty.
    static QString classNameForCommand(const QString& command);
};
