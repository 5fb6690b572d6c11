#pragma once
// HXDesignerPlugins: the plugin Qt Designer loads from its designer/ plugin folder; it lists the
// library's widgets for the widget box. The widget descriptions are children of the collection.
#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

class HXDesignerPlugins : public QObject, public QDesignerCustomWidgetCollectionInterface {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID "org.qt-project.Qt.QDesignerCustomWidgetCollectionInterface")
    Q_INTERFACES(QDesignerCustomWidgetCollectionInterface)

public:
    explicit HXDesignerPlugins(QObject* parent = nullptr);

    QList<QDesignerCustomWidgetInterface*> customWidgets() const override;

private:
    QList<QDesignerCustomWidgetInterface*> mWidgets;
};
