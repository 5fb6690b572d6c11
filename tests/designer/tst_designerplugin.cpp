// The Qt Designer plugin as Designer meets it: loaded from its file, listing the library's widgets and
// making each; the canvas frame makes its canvas in the view mode a form sets.
#include <QPluginLoader>
#include <QPointer>
#include <QtTest>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>

#include "HXMapCanvasFrame.h"

class TestDesignerPlugin : public QObject {
    Q_OBJECT

    QPluginLoader mLoader{HX_DESIGNER_PLUGIN};

    QDesignerCustomWidgetInterface* Widget(const QString& name) {
        auto* collection = qobject_cast<QDesignerCustomWidgetCollectionInterface*>(mLoader.instance());
        if (!collection) return nullptr;
        for (QDesignerCustomWidgetInterface* widget : collection->customWidgets())
            if (widget->name() == name) return widget;
        return nullptr;
    }

private slots:
    void initTestCase() { QVERIFY2(mLoader.load(), qPrintable(mLoader.errorString())); }

    void createsEachWidget_data() {
        QTest::addColumn<QString>("name");
        QTest::newRow("canvas") << "HXMapCanvasFrame";
        QTest::newRow("message bar") << "HXMessageBar";
        QTest::newRow("scale box") << "HXScaleComboBox";
    }

    void createsEachWidget() {
        QFETCH(QString, name);
        QDesignerCustomWidgetInterface* widget = Widget(name);
        QVERIFY(widget);
        QCOMPARE(widget->includeFile(), name + ".h");
        QVERIFY2(widget->domXml().contains(QString("<widget class=\"%1\"").arg(name)),
                 qPrintable(widget->domXml()));
        QWidget form;
        QWidget* made = widget->createWidget(&form);
        QVERIFY(made);
        QCOMPARE(made->metaObject()->className(), name.toLatin1());
        QCOMPARE(made->parentWidget(), &form);
    }

    // Designer makes the widget, then sets the form's properties, then shows it.
    void viewModeTakesEffectAtCreation() {
        QWidget form;
        QWidget* made = Widget("HXMapCanvasFrame")->createWidget(&form);
        const QMetaProperty mode =
            made->metaObject()->property(made->metaObject()->indexOfProperty("viewMode"));
        QVERIFY(mode.isEnumType() && mode.isWritable());
        QVERIFY(made->setProperty("viewMode", HXMapCanvas::PageLayoutMode));
        QVERIFY(made->setProperty("waterMark", false));
        QVERIFY(made->setProperty("wheelFactor", 3.0));
        auto* frame = qobject_cast<HXMapCanvasFrame*>(made);
        QSignalSpy created(frame, &HXMapCanvasFrame::canvasCreated);
        form.show();
        QCOMPARE(created.count(), 1);
        QPointer<HXMapCanvas> first = frame->canvas();
        QCOMPARE(first->getViewMode(), HXMapCanvas::PageLayoutMode);
        QCOMPARE(first->property("viewMode").toInt(), int(HXMapCanvas::PageLayoutMode));
        QCOMPARE(first->wheelFactor(), 3.0);

        // Changed while shown: a new canvas in the new mode replaces the first.
        frame->setViewMode(HXMapCanvas::MapViewMode);
        QVERIFY(first.isNull());
        QCOMPARE(created.count(), 2);
        QCOMPARE(frame->canvas()->getViewMode(), HXMapCanvas::MapViewMode);
        QCOMPARE(frame->canvas()->wheelFactor(), 3.0);
    }
};

QTEST_MAIN(TestDesignerPlugin)
#include "tst_designerplugin.moc"
