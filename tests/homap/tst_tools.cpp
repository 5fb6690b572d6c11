// The command pool's registration by class name, and the zoom-out box geometry.
#include <QtTest>

#include "HOCMDPool.h"
#include "HOTestColumns.h"
#include "HOTestPrinters.h"
#include "HOToolZoomOut.h"

using namespace HXObjects;

namespace {

class NamedTool : public HOTool {
public:
    explicit NamedTool(const char* name) : m_name(name) {}
    HOString GetClassName() override { return m_name; }

private:
    HOString m_name;
};

// Where `inner` lies inside `outer`, as fractions of outer's size.
QRectF Fractions(const HORect& outer, const HORect& inner) {
    return QRectF((inner.minx - outer.minx) / outer.Width(), (inner.miny - outer.miny) / outer.Height(),
                  inner.Width() / outer.Width(), inner.Height() / outer.Height());
}

bool Fuzzy(const QRectF& a, const QRectF& b) {
    return qAbs(a.x() - b.x()) < 1e-12 && qAbs(a.y() - b.y()) < 1e-12 &&
           qAbs(a.width() - b.width()) < 1e-12 && qAbs(a.height() - b.height()) < 1e-12;
}

}  // namespace

class TestTools : public QObject {
    Q_OBJECT

private slots:
    void registerAndUnregister() {
        HOCMDPool* pool = HOCMDPool::GetInstance();
        QVERIFY(!pool->GetTool("HXTest::Tool"));
        QVERIFY(!pool->GetTool("hxobjects::hotoolpan"));
        HORefPtr<NamedTool> first = new NamedTool("HXTest::Tool"), second = new NamedTool("HXTest::Tool");
        pool->RegisterTool(first);
        QCOMPARE(first->RefCount(), 2);
        pool->RegisterTool(second);  // replaces, and lets go of the first
        QCOMPARE(pool->GetTool("HXTest::Tool"), static_cast<HOTool*>(second));
        QCOMPARE(first->RefCount(), 1);
        pool->RegisterTool(nullptr);
        pool->UnregisterTool("HXTest::Tool");
        pool->UnregisterTool("HXTest::Tool");
        QVERIFY(!pool->GetTool("HXTest::Tool"));
        QCOMPARE(second->RefCount(), 1);
    }

    void zoomOutBox_data() {
        HOAddColumns<HORect, HORect>({"current", "box"});
        QTest::newRow("centred half") << HORect(0, 400, 0, 200) << HORect(100, 300, 50, 150);
        QTest::newRow("corner quarter") << HORect(0, 400, 0, 200) << HORect(0, 100, 150, 200);
        QTest::newRow("flat box") << HORect(500000, 600000, 3400000, 3450000)
                                  << HORect(520000, 590000, 3410000, 3415000);
    }

    void zoomOutBox() {
        QFETCH(HORect, current);
        QFETCH(HORect, box);
        const HORect result = HOToolZoomOut::ExtentShowingIn(current, box);
        // The current extent takes the place in the new one that the box takes in the current one.
        QVERIFY2(Fuzzy(Fractions(result, current), Fractions(current, box)), QTest::toString(result));
    }
};

QTEST_MAIN(TestTools)
#include "tst_tools.moc"
