#include "HXViewerTools.h"

#include <QCoreApplication>

const QVector<HXViewerTool>& HXViewerTools::all() {
    static const QVector<HXViewerTool> tools = {
        {"pan", "HXObjects::HOToolPan", QCoreApplication::translate("HXViewerTools", "Pan"), "pan", "P"},
        {"zoomin", "HXObjects::HOToolZoomIn", QCoreApplication::translate("HXViewerTools", "Zoom in"),
         "zoom-in.png", "Z"},
        {"zoomout", "HXObjects::HOToolZoomOut", QCoreApplication::translate("HXViewerTools", "Zoom out"),
         "zoom-out.png", "X"},
        {"select", "HXObjects::HOToolSingleSelect", QCoreApplication::translate("HXViewerTools", "Select"),
         "select", "S"},
        {"identify", "HXObjects::HOToolIdentify", QCoreApplication::translate("HXViewerTools", "Identify"),
         "Identify.png", "I"},
        {"addfeature", "HXObjects::HOToolAddFeature",
         QCoreApplication::translate("HXViewerTools", "Add feature"), ":/hxmapviewer/icons/add-feature.svg",
         "F"},
        {"deletefeature", "HXObjects::HOToolDeleteFeature",
         QCoreApplication::translate("HXViewerTools", "Delete selected features"),
         ":/hxmapviewer/icons/delete-feature.svg", "Shift+Del"},
        {"mergefeature", "HXObjects::HOToolMergeFeature",
         QCoreApplication::translate("HXViewerTools", "Merge selected features"),
         ":/hxmapviewer/icons/merge-features.svg", "Shift+M"},
        {"editattributes", "HXObjects::HOToolEditAttributes",
         QCoreApplication::translate("HXViewerTools", "Edit attributes"),
         ":/hxmapviewer/icons/edit-attributes.svg", "E"},
        {"editvertex", "HXObjects::HOToolEditVertex",
         QCoreApplication::translate("HXViewerTools", "Edit vertices"),
         ":/hxmapviewer/icons/edit-vertices.svg", "V"},
    };
    return tools;
}

QString HXViewerTools::classNameForCommand(const QString& command) {
    for (const HXViewerTool& tool : all()) {
        if (tool.command.compare(command, Qt::CaseInsensitive) == 0) return tool.className;
    }
    return QString();
}
