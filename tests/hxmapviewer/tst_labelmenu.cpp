// The viewer labels the sample's towns, lakes and rivers in both scripts, and the layer list's
// "Label by" menu switches a layer's label field, or its labels off, keeping the rest of its settings.
#include <QAction>
#include <QtTest>

#include "HOFeatureLayer.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HXLabelMenu.h"
#include "HXMapCanvas.h"
#include "HXViewerWindow.h"

using namespace HXObjects;

class TestLabelMenu : public QObject {
    Q_OBJECT

private slots:
    void initTestCase() {
        const QString sample = qEnvironmentVariable("HX_TEST_DATA") + "/sample/region.gpkg";
        QVERIFY2(QFile::exists(sample), "the sample region fixture is missing");
        m_window.resize(900, 600);
        m_window.show();
        m_window.openFiles({sample});
        QVERIFY2(m_window.waitForOpened(120000), "the files were not read in time");
        QCOMPARE(m_window.openFailures(), 0);
        QVERIFY2(m_window.waitForRender(120000), "the sample did not finish rendering");
    }

    void sampleLayersAreLabelledInBothScripts_data() {
        QTest::addColumn<QString>("layer");
        QTest::addColumn<QString>("expression");
        QTest::newRow("towns") << "towns"
                               << "{name} {name_zh}";
        QTest::newRow("rivers") << "rivers"
                                << "{name} {name_zh}";
        QTest::newRow("lakes") << "lakes"
                               << "{name} {name_zh}";
        QTest::newRow("roads") << "roads"
                               << "";
    }

    void sampleLayersAreLabelledInBothScripts() {
        QFETCH(QString, layer);
        HOFeatureLayer* features = layerNamed(layer);
        QVERIFY(features);
        QTEST(features->GetLabelSettings().expression, "expression");
    }

    void menuChoosesTheField_data() {
        QTest::addColumn<QString>("choice");
        QTest::addColumn<QString>("expression");
        QTest::newRow("a field") << "name_zh"
                                 << "name_zh";
        QTest::newRow("no labels") << "No labels"
                                   << "";
    }

    void menuChoosesTheField() {
        QFETCH(QString, choice);
        HOFeatureLayer* rivers = layerNamed("rivers");
        QVERIFY(rivers);
        const int priority = rivers->GetLabelSettings().priority;
        HXLabelMenu menu(rivers, m_window.canvas(), nullptr);
        QStringList texts;
        for (QAction* action : menu.actions()) texts << action->text();
        QCOMPARE(texts, QStringList({"No labels", "name", "name_zh"}));
        menu.actions().at(texts.indexOf(choice))->trigger();
        QTEST(rivers->GetLabelSettings().expression, "expression");
        QCOMPARE(rivers->GetLabelSettings().priority, priority);
        QVERIFY2(m_window.waitForRender(60000), "the relabelled map did not finish rendering");
    }

private:
    HOFeatureLayer* layerNamed(const QString& name) {
        for (const HORefPtr<HOLayer>& layer : m_window.canvas()->GetMapView()->GetMap()->GetLayers(true))
            if (layer->GetName().toQString() == name) return dynamic_cast<HOFeatureLayer*>(layer.get());
        return nullptr;
    }

    HXViewerWindow m_window;
};

QTEST_MAIN(TestLabelMenu)
#include "tst_labelmenu.moc"
