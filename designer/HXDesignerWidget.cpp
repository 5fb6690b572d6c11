#include "HXDesignerWidget.h"

#include <QIcon>
#include <QSize>

HXDesignerWidget::HXDesignerWidget(const QString& className, const QString& toolTip, const QSize& size,
                                   Factory factory, QObject* parent)
    : QObject(parent), mClassName(className), mToolTip(toolTip), mSize(size), mFactory(std::move(factory)) {}

QString HXDesignerWidget::name() const {
    return mClassName;
}

QString HXDesignerWidget::group() const {
    return QStringLiteral("HXMapControls");
}

QString HXDesignerWidget::toolTip() const {
    return mToolTip;
}

QString HXDesignerWidget::whatsThis() const {
    return mToolTip;
}

// The headers are installed flat, one per class, named after it.
QString HXDesignerWidget::includeFile() const {
    return mClassName + ".h";
}

QIcon HXDesignerWidget::icon() const {
    return QIcon();
}

bool HXDesignerWidget::isContainer() const {
    return false;
}

QWidget* HXDesignerWidget::createWidget(QWidget* parent) {
    return mFactory(parent);
}

QString HXDesignerWidget::domXml() const {
    const QString name = mClassName.mid(2, 1).toLower() + mClassName.mid(3);
    return QStringLiteral(
               "<ui language=\"c++\"><widget class=\"%1\" name=\"%2\">"
               "<property name=\"geometry\"><rect><x>0</x><y>0</y><width>%3</width>"
               "<height>%4</height></rect></property></widget></ui>")
        .arg(mClassName, name)
        .arg(mSize.width())
        .arg(mSize.height());
}
