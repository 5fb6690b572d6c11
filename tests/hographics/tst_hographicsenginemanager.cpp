// HOGraphicsEngineManager: one process-wide manager, "QT" the only engine.
#include <QtTest>
#include <thread>
#include <vector>

#include "HOGraphicsEngineManager.h"
#include "HORefPtr.h"

using HXObjects::HOGraphics;
using HXObjects::HOGraphicsEngineManager;
using HXObjects::HORefPtr;

class TestHOGraphicsEngineManager : public QObject {
    Q_OBJECT
private slots:
    void sameInstanceFromEveryThread();
    void engines_data();
    void engines();
};

// The first call fixes the plug-in directory; threads racing for the first call get one manager.
void TestHOGraphicsEngineManager::sameInstanceFromEveryThread() {
    std::vector<HOGraphicsEngineManager*> seen(8, nullptr);
    std::vector<std::thread> threads;
    for (std::size_t i = 0; i < seen.size(); ++i)
        threads.emplace_back([&seen, i] { seen[i] = HOGraphicsEngineManager::instance("/first/plugins"); });
    for (std::thread& t : threads) t.join();
    for (HOGraphicsEngineManager* m : seen) QCOMPARE(m, seen.front());
    QCOMPARE(HOGraphicsEngineManager::instance(""), seen.front());
    QCOMPARE(seen.front()->PluginDirectory().toQString(), QStringLiteral("/first/plugins"));
}

void TestHOGraphicsEngineManager::engines_data() {
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("accepted");
    QTest::newRow("QT") << "QT" << true;
    QTest::newRow("lower case") << "qt" << false;
    QTest::newRow("unknown") << "GDI" << false;
    QTest::newRow("empty") << "" << false;
}

// An unknown engine leaves the current one selected, so surfaces keep coming.
void TestHOGraphicsEngineManager::engines() {
    QFETCH(QString, name);
    QFETCH(bool, accepted);
    HOGraphicsEngineManager* manager = HOGraphicsEngineManager::instance("");
    QCOMPARE(manager->SetCurrentEngine(name), accepted);
    QCOMPARE(manager->CurrentEngine().toQString(), QStringLiteral("QT"));
    HORefPtr<HOGraphics> surface = manager->NewGraphics();
    QVERIFY(surface);
}

QTEST_APPLESS_MAIN(TestHOGraphicsEngineManager)
#include "tst_hographicsenginemanager.moc"
