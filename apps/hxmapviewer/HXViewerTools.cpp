#include "HXViewerTools.h"

const QVector<HXViewerTool>& HXViewerTools::all() {
    static const QVector<HXViewerTool> tools = {
        {"pan", "HXObjects::HOToolPan", QObject::tr("Pan"), "", "P"},
        {"zoomin", "HXObjects::HOToolZoomIn", QObject::tr("Zoom in"), "zoom-in.png", "Z"},
        {"zoomout", "HXObjects::HOToolZoomOut", QObject::tr("Zoom out"), "zoom-out.png", "X"},
        {"select", "HXObjects::HOToolSingleSelect", QObject::tr("Select"), "", "S"},
        {"identify", "HXObjects::HOToolIdentify", QObject::tr("Identify"), "Identify.png", "I"},
    };
    return tools;
}

QString HXViewerTools::classNameForCommand(const QString& command) {
    for (const HXViewerTool& tool : all()) {
        if (tool.command.compare(command, Qt::CaseInsensitive) == 0) return tool.className;
    }
    return QString();
}
