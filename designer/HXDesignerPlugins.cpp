#include "HXDesignerPlugins.h"

#include "HXDesignerWidget.h"
#include "HXMapCanvasFrame.h"
#include "HXMessageBar.h"
#include "HXScaleComboBox.h"

HXDesignerPlugins::HXDesignerPlugins(QObject* parent) : QObject(parent) {
    mWidgets << new HXDesignerWidget(
                    "HXMapCanvasFrame", tr("Map canvas (HXMapCanvas); its view mode is chosen with viewMode"),
                    QSize(400, 300), [](QWidget* p) { return new HXMapCanvasFrame(p); }, this)
             << new HXDesignerWidget(
                    "HXMessageBar", tr("Message bar with timed, levelled messages"), QSize(400, 30),
                    [](QWidget* p) { return new HXMessageBar(p); }, this)
             << new HXDesignerWidget(
                    "HXScaleComboBox", tr("Scale box: preset and typed map scales"), QSize(140, 24),
                    [](QWidget* p) { return new HXScaleComboBox(p); }, this);
}

QList<QDesignerCustomWidgetInterface*> HXDesignerPlugins::customWidgets() const {
    return mWidgets;
}
