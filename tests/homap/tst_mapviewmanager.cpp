// HOMapViewManager: groups of views, the current group, the active view, and removing a group (which
// stops its renders).
#include <QElapsedTimer>
#include <QtTest>

#include "HOMap.h"
#include "HOMapView.h"
#include "HOMapViewManager.h"
#include "HOTestRectLayer.h"

using namespace HXObjects;

class tst_MapViewManager : public QObject {
    Q_OBJECT

private slots:
    void groupsAndViews();
    void viewsGoToTheCurrentGroup();
    void removeGroupStopsItsRenders();
};

void tst_MapViewManager::groupsAndViews() {
    HOMapViewManager* manager = HOMapViewManager::GetInstance();
    QCOMPARE(HOMapViewManager::GetInstance(), manager);
    const int group = manager->addGroup();
    QVERIFY(manager->hasGroup(group));
    QCOMPARE(manager->currentGroup(), group);

    HOMapView* first = manager->addView("first");
    HOMapView* second = manager->addView("second");
    QVERIFY(first && second && first != second);
    QCOMPARE(first->GetName(), HOString("first"));
    QCOMPARE(manager->views(group), (std::vector<HOMapView*>{first, second}));
    QCOMPARE(manager->activeView(group), first);
    manager->activate(second);
    QCOMPARE(manager->activeView(group), second);

    manager->removeGroup(group);
    QVERIFY(!manager->hasGroup(group));
    QVERIFY(manager->views(group).empty());
    QCOMPARE(manager->activeView(group), static_cast<HOMapView*>(nullptr));
    QCOMPARE(manager->addView("orphan"), static_cast<HOMapView*>(nullptr));  // no current group any more
    manager->removeGroup(group);                                             // twice: nothing
}

void tst_MapViewManager::viewsGoToTheCurrentGroup() {
    HOMapViewManager* manager = HOMapViewManager::GetInstance();
    const int a = manager->addGroup();
    const int b = manager->addGroup();
    QVERIFY(a != b);
    manager->setCurrentGroup(a);
    HOMapView* inA = manager->addView("a");
    QCOMPARE(manager->views(a), std::vector<HOMapView*>{inA});
    QVERIFY(manager->views(b).empty());
    manager->activate(inA);
    QCOMPARE(manager->activeView(b), static_cast<HOMapView*>(nullptr));  // activation stays in its group
    manager->removeGroup(a);
    manager->removeGroup(b);
}

void tst_MapViewManager::removeGroupStopsItsRenders() {
    HOMapViewManager* manager = HOMapViewManager::GetInstance();
    const int group = manager->addGroup();
    HORefPtr<HOMapView> view = manager->addView("slow");
    HORefPtr<HOMap> map(new HOMap);
    HORefPtr<HOTestRectLayer> layer(new HOTestRectLayer(HORect(0, 10, 0, 10), Qt::red));
    layer->renderMs = 10000;
    map->AddLayer(layer);
    view->SetSize(50, 50);
    view->SetMap(map);
    QTRY_VERIFY_WITH_TIMEOUT(layer->renders > 0, 5000);

    QElapsedTimer timer;
    timer.start();
    manager->removeGroup(group);
    QVERIFY(timer.elapsed() < 1000);
    QVERIFY(!view->IsRendering());
    QCOMPARE(layer->cancelled.load(), 1);
    QCOMPARE(view->RefCount(), 1);  // only ours is left
}

QTEST_MAIN(tst_MapViewManager)
#include "tst_mapviewmanager.moc"
