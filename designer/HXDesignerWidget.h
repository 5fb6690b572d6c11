#pragma once
// HXDesignerWidget: one of the library's widgets as Qt Designer's widget box offers it: its class, the
// header a generated form includes, the XML a new instance starts from, and the function that makes it.
#include <QObject>
#include <QtUiPlugin/QDesignerCustomWidgetInterface>
#include <functional>

class HXDesignerWidget : public QObject, public QDesignerCustomWidgetInterface {
    Q_OBJECT
    Q_INTERFACES(QDesignerCustomWidgetInterface)

public:
    using Factory = std::function<QWidget*(QWidget* parent)>;

    HXDesignerWidget(const QString& className, const QString& toolTip, const QSize& size, Factory factory,
                     QObject* parent);

    QString name() const override;
    QString group() const override;
    QString toolTip() const override;
    QString whatsThis() const override;
    QString includeFile() const override;
    QIcon icon() const override;
    bool isContainer() const override;
    QWidget* createWidget(QWidget* parent) override;
    QString domXml() const override;

private:
    QString mClassName;
    QString mToolTip;
    QSize mSize;
    Factory mFactory;
};
