#include "HXViewerTools.h"

#include <QCoreApplication>

const QVector<HXViewerTool>& HXViewerTools::all() {
    static const QVector<HXViewerTool> tools = {
        {"pan", "HXObjects::HOToolPan", QCoreApplication::translate("HXViewerTools", "Pan"), "pan", "P"},
        {"zoomin", "HXObjects::HOToolZoomIn", QCoreApplication::translate("HXViewerTools", "Zoom in"), "zoom-in.png", "Z"},
        {"zoomout", "HXObjects::HOToolZoomOut", QCoreApplication::translate("HXViewerTools", "Zoom out"), "zoom-out.png", "X"},
        {"select", "HXObjects::HOToolSingleSelect", QCoreApplication::translate("HXViewerTools", "Select"), "select", "S"},
        {"identify", "HXObjects::HOToolIdentify", QCoreApplication::translate("HXViewerTools", "Identify"), "Identify.png", "I"},
    };
    return tools;
}

QString HXViewerTools::classNameForCommand(const QString& command) {
    for (const HXViewerTool& tool : all()) {
        if (tool.command.compare(command, Qt::CaseInsensitive) == 0) return tool.className;
    }
    return QString();
}
