// Editing in the viewer on the sample region, as a person does it: tools chosen by their shortcuts, a
// polygon, a double line and control points drawn with the mouse, the Edit menu's Undo/Redo texts and
// its clipboard actions enabled only when they can act, and the elements back after the viewer is
// closed and opened again. With HX_EDITING_PNG set, the picture is written there (the README's).
#include <QAction>
#include <QMenu>
#include <QUndoStack>
#include <QtTest>

#include "HOGraphicsLayer.h"
#include "HOMap.h"
#include "HOMapView.h"
#include "HOTool.h"
#include "HXEditActions.h"
#include "HXElementAutosave.h"
#include "HXMapCanvas.h"
#include "HXMapWidget.h"
#include "HXViewerWindow.h"
#include "edit/HOGeometryWkt.h"

using namespace HXObjects;

namespace {

QString samplePath(const QString& name) {
    return qEnvironmentVariable("HX_TEST_DATA") + "/sample/" + name;
}

HOMap* mapOf(HXViewerWindow& window) {
    return window.canvas()->GetMapView()->GetMap();
}

QStringList elementTexts(HXViewerWindow& window) {
    QStringList texts;
    for (const auto& e : mapOf(window)->GetGraphicsLayer()->GetElements())
        texts << HOGeometryWkt::ToWkt(*e->GetGeometry()).toQString();
    return texts;
}

}  // namespace

class TestViewerEditing : public QObject {
    Q_OBJECT

    QTemporaryDir m_settings;

    std::unique_ptr<HXViewerWindow> open() {
        auto window = std::make_unique<HXViewerWindow>();
        window->resize(1100, 750);
        if (window->showAndOpen({samplePath("region.gpkg")}) != 0 || !window->waitForRender(120000))
            return nullptr;
        return window;
    }

    // A key for the window's shortcuts, then clicks on the map widget (the last one a double click).
    static void draw(HXViewerWindow& window, char key, const QVector<QPoint>& clicks) {
        QTest::keyClick(&window, key);
        auto* widget = window.canvas()->findChild<HXMapWidget*>();
        for (const QPoint& p : clicks) QTest::mouseClick(widget, Qt::LeftButton, Qt::NoModifier, p);
        QTest::mouseDClick(widget, Qt::LeftButton, Qt::NoModifier, clicks.last());
    }

private slots:
    void initTestCase() {
        QVERIFY2(QFile::exists(samplePath("region.gpkg")), "the sample region fixture is missing");
        // This test's own settings and elements file, away from the other viewer tests.
        qputenv("HXGIS_SETTINGS_FILE", m_settings.filePath("hxgis.ini").toUtf8());
    }

    void editAndReopen() {
        QStringList drawn;
        {
            auto window = open();
            QVERIFY(window);
            auto* edit = window->findChild<HXEditActions*>();
            QVERIFY(edit);
            QUndoStack* stack = mapOf(*window)->GetUndoStack();
            QVERIFY(!edit->copyAction()->isEnabled() && !edit->deleteAction()->isEnabled());

            draw(*window, 'G', {{300, 200}, {470, 180}, {440, 380}, {330, 360}});
            QCOMPARE(window->canvas()->getMapTool()->GetClassName().toQString(),
                     QString("HXObjects::HOCmdDigitizePolygon"));
            QCOMPARE(stack->undoText(), QString("Add polygon"));
            QTRY_VERIFY_WITH_TIMEOUT(edit->copyAction()->isEnabled() && edit->deleteAction()->isEnabled(),
                                     5000);
            QTest::keyClick(window.get(), 'D');
            window->canvas()->getMapTool()->SetParameter("LineWidth", "1500");  // metres
            draw(*window, 'D', {{120, 120}, {260, 60}, {420, 90}});
            QCOMPARE(stack->undoText(), QString("Add double line"));
            QTest::keyClick(window.get(), 'C');
            for (const QPoint& p : {QPoint(150, 300), QPoint(210, 340)})
                QTest::mouseClick(window->canvas()->findChild<HXMapWidget*>(), Qt::LeftButton, Qt::NoModifier,
                                  p);
            QCOMPARE(mapOf(*window)->GetGraphicsLayer()->GetElements().size(), std::size_t(5));

            // Undo names the command; the edit comes back on redo.
            QAction* undo = nullptr;
            for (QAction* a : edit->menu()->actions())
                if (a->text().startsWith("Undo")) undo = a;
            QVERIFY(undo && undo->isEnabled());
            QCOMPARE(undo->text(), "Undo " + stack->undoText());
            const QStringList before = elementTexts(*window);
            undo->trigger();
            QCOMPARE(elementTexts(*window).size(), before.size() - 1);
            stack->redo();
            QCOMPARE(elementTexts(*window), before);

            // Paste is offered once something was copied.
            edit->copyAction()->trigger();
            QTRY_VERIFY_WITH_TIMEOUT(edit->pasteAction()->isEnabled(), 5000);

            QVERIFY(window->waitForRender(60000));
            const QString png = qEnvironmentVariable("HX_EDITING_PNG");
            if (!png.isEmpty()) QVERIFY(window->grab().save(png));
            drawn = elementTexts(*window);
            window->close();
            QVERIFY(QFile::exists(HXElementAutosave::defaultPath()));
        }
        auto again = open();
        QVERIFY(again);
        QTRY_COMPARE_WITH_TIMEOUT(elementTexts(*again), drawn, 10000);
        QCOMPARE(mapOf(*again)->GetUndoStack()->count(), 0);  // restored, not an edit
    }
};

QTEST_MAIN(TestViewerEditing)
#include "tst_viewer_editing.moc"
