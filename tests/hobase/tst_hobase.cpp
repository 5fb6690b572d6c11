// The base value types: HORect, HORefPtr and HOString.

#include <QtTest>
#include <atomic>
#include <thread>
#include <vector>

#include "HORefBase.h"
#include "HORefPtr.h"
#include "HOString.h"
#include "HOTestColumns.h"
#include "HOTestPrinters.h"

using namespace HXObjects;

namespace {

std::atomic<int> gDeleted{0};

class Counted : public HORefBase {
protected:
    ~Counted() override { ++gDeleted; }
};
class Derived : public Counted {};

}  // namespace

class TestHOBase : public QObject {
    Q_OBJECT
private slots:
    void init() { gDeleted = 0; }

    void rectEmptiness_data() {
        HOAddColumns<HORect, bool>({"rect", "empty"});
        QTest::newRow("default") << HORect() << true;
        QTest::newRow("area") << HORect(100, 200, -50, 50) << false;
        QTest::newRow("zero width") << HORect(3, 3, 0, 5) << true;
        QTest::newRow("inverted") << HORect(10, 0, 0, 5) << true;
        QTest::newRow("NaN bound") << HORect(0, qQNaN(), 0, 5) << true;
    }
    void rectEmptiness() {
        QFETCH(HORect, rect);
        QTEST(rect.IsEmpty(), "empty");
    }

    void rectUnited_data() {
        HOAddColumns<HORect, HORect, HORect>({"a", "b", "expected"});
        QTest::newRow("overlapping") << HORect(0, 10, 0, 10) << HORect(5, 20, -5, 5) << HORect(0, 20, -5, 10);
        QTest::newRow("empty left") << HORect() << HORect(1, 2, 3, 4) << HORect(1, 2, 3, 4);
        QTest::newRow("empty right, not the origin") << HORect(1, 2, 3, 4) << HORect() << HORect(1, 2, 3, 4);
    }
    void rectUnited() {
        QFETCH(HORect, a);
        QFETCH(HORect, b);
        QTEST(a.United(b), "expected");
    }

    void refCountsAndAssignment() {
        auto* raw = new Counted;
        QCOMPARE(raw->RefCount(), 0);
        {
            HORefPtr<Counted> a(raw);
            a = a;  // self-assignment must not drop the last reference first
            a = a.get();
            QCOMPARE(raw->RefCount(), 1);
            HORefPtr<Counted> b = a;
            QCOMPARE(raw->RefCount(), 2);
            HORefPtr<Counted> c = std::move(b);
            QVERIFY(!b);
            QCOMPARE(raw->RefCount(), 2);
            a = new Counted;
            c.reset();
            QCOMPARE(gDeleted.load(), 1);
        }
        QCOMPARE(gDeleted.load(), 2);
        HORefPtr<Counted> base(new Derived), plain(new Counted);
        QVERIFY(HODynamicCast<Derived>(base));
        QVERIFY(!HODynamicCast<Derived>(plain));
        QCOMPARE(base->RefCount(), 1);
    }

    // Views and surfaces pass between the GUI and render threads; the count must never tear, and the
    // last of many simultaneous owners deletes the object exactly once.
    void refCountsAcrossThreads() {
        HORefPtr<Counted> shared(new Counted);
        std::vector<std::thread> threads;
        for (int t = 0; t < 8; ++t) {
            threads.emplace_back([&shared] {
                for (int i = 0; i < 20000; ++i) {
                    HORefPtr<Counted> copy = shared, second(copy.get()), moved = std::move(copy);
                }
            });
        }
        for (std::thread& t : threads) t.join();
        QCOMPARE(shared->RefCount(), 1);
        std::vector<HORefPtr<Counted>> owners(8, shared);
        shared.reset();
        threads.clear();
        for (HORefPtr<Counted>& owner : owners) threads.emplace_back([&owner] { owner.reset(); });
        for (std::thread& t : threads) t.join();
        QCOMPARE(gDeleted.load(), 1);
    }

    void stringEncodings_data() {
        QTest::addColumn<QString>("text");
        QTest::newRow("ascii") << QStringLiteral("HXObjects::HOToolPan");
        QTest::newRow("empty") << QString();
        QTest::newRow("umlauts") << QStringLiteral("Größe der Fläche");
        QTest::newRow("chinese") << QStringLiteral("经纬度网格");
        QTest::newRow("outside the BMP") << QStringLiteral("map \U0001F5FA end");
    }
    // Narrow (UTF-8), wide and Qt texts must be the same text whichever way they come in.
    void stringEncodings() {
        QFETCH(QString, text);
        const std::string utf8 = text.toStdString();
        const std::wstring wide = text.toStdWString();
        for (const HOString& s :
             {HOString(utf8.c_str()), HOString(wide), HOString(wide.c_str()), HOString(text)}) {
            QCOMPARE(s.toQString(), text);
            QCOMPARE(s.toStdString(), utf8);
            QVERIFY(s.toStdWString() == wide && std::wstring(s) == wide);
            QVERIFY(s == utf8.c_str() && s == wide.c_str());
        }
    }

    void stringFormatLongerThanAnyBuffer() {
        const std::string block(5000, 'x');
        HOString s("old contents");
        QCOMPARE(&s.Format("%s|%d|%.2f", block.c_str(), 42, 2.5), &s);
        QCOMPARE(s.toStdString(), block + "|42|2.50");
    }

    void stringCompareNoCase_data() {
        HOAddColumns<QString, QString, int>({"text", "other", "sign"});
        QTest::newRow("ascii case") << QString("HXObjects::HOToolPan") << QString("hxobjects::hotoolpan")
                                    << 0;
        QTest::newRow("non-ascii case") << QString("Ärger") << QString("äRGER") << 0;
        QTest::newRow("less") << QString("abc") << QString("ABD") << -1;
        QTest::newRow("prefix is less") << QString("ab") << QString("ABC") << -1;
        QTest::newRow("greater") << QString("abd") << QString("ABC") << 1;
    }
    void stringCompareNoCase() {
        QFETCH(QString, text);
        QFETCH(QString, other);
        const int result = HOString(text).CompareNoCase(other.toUtf8().constData());
        QTEST((result > 0) - (result < 0), "sign");
    }

    void stringToDouble_data() {
        HOAddColumns<QString, double>({"text", "value"});
        QTest::newRow("blanks around") << "  -2.25 " << -2.25;
        QTest::newRow("exponent") << "2.5e3" << 2500.0;
        QTest::newRow("trailing garbage") << "12.5abc" << 12.5;
        QTest::newRow("decimal comma stops") << "1,5" << 1.0;
        QTest::newRow("garbage") << "abc" << 0.0;
        QTest::newRow("empty") << "" << 0.0;
    }
    void stringToDouble() {
        QFETCH(QString, text);
        QTEST(HOString(text).ToDouble(), "value");
    }
};

QTEST_APPLESS_MAIN(TestHOBase)
#include "tst_hobase.moc"
