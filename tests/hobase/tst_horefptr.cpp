// HORefPtr / HORefBase: reference counts, ownership transfer and deletion exactly once, also when
// many threads share one object.
#include <QtTest>
#include <atomic>
#include <thread>
#include <vector>

#include "HORefBase.h"
#include "HORefPtr.h"

using HXObjects::HORefBase;
using HXObjects::HORefPtr;

namespace {

std::atomic<int> gDeleted{0};

class Counted : public HORefBase {
protected:
    ~Counted() override { ++gDeleted; }
};

class Derived : public Counted {};

}  // namespace

class TestHORefPtr : public QObject {
    Q_OBJECT
private slots:
    void init() { gDeleted = 0; }
    void countsFollowPointers();
    void assignmentKeepsOneOwner();
    void checkedDowncast();
    void sharedAcrossThreads();
};

void TestHORefPtr::countsFollowPointers() {
    auto* raw = new Counted;
    QCOMPARE(raw->RefCount(), 0);
    {
        HORefPtr<Counted> a(raw);
        QCOMPARE(raw->RefCount(), 1);
        HORefPtr<Counted> b = a;
        QCOMPARE(raw->RefCount(), 2);
        HORefPtr<Counted> c = std::move(b);
        QVERIFY(!b);
        QCOMPARE(raw->RefCount(), 2);
    }
    QCOMPARE(gDeleted.load(), 1);
}

void TestHORefPtr::assignmentKeepsOneOwner() {
    HORefPtr<Counted> a(new Counted);
    Counted* first = a.get();
    a = a;  // self-assignment must not drop the last reference first
    QCOMPARE(a.get(), first);
    QCOMPARE(first->RefCount(), 1);
    a = a.get();
    QCOMPARE(first->RefCount(), 1);
    a = new Counted;
    QCOMPARE(gDeleted.load(), 1);
    a.reset();
    QCOMPARE(gDeleted.load(), 2);
}

void TestHORefPtr::checkedDowncast() {
    HORefPtr<Counted> base(new Derived);
    HORefPtr<Derived> derived = HXObjects::HODynamicCast<Derived>(base);
    QVERIFY(derived);
    QCOMPARE(base->RefCount(), 2);
    HORefPtr<Counted> plain(new Counted);
    QVERIFY(!HXObjects::HODynamicCast<Derived>(plain));
    QCOMPARE(plain->RefCount(), 1);
}

// Views and surfaces are passed between the GUI and render threads; the count must never tear.
void TestHORefPtr::sharedAcrossThreads() {
    HORefPtr<Counted> shared(new Counted);
    std::vector<std::thread> threads;
    for (int t = 0; t < 8; ++t) {
        threads.emplace_back([&shared] {
            for (int i = 0; i < 20000; ++i) {
                HORefPtr<Counted> copy = shared;
                HORefPtr<Counted> second(copy.get());
                HORefPtr<Counted> moved = std::move(copy);
            }
        });
    }
    for (std::thread& t : threads) t.join();
    QCOMPARE(shared->RefCount(), 1);
    QCOMPARE(gDeleted.load(), 0);

    // The last of many simultaneous owners deletes the object, once.
    std::vector<HORefPtr<Counted>> owners(8, shared);
    shared.reset();
    threads.clear();
    for (HORefPtr<Counted>& owner : owners) threads.emplace_back([&owner] { owner.reset(); });
    for (std::thread& t : threads) t.join();
    QCOMPARE(gDeleted.load(), 1);
}

QTEST_APPLESS_MAIN(TestHORefPtr)
#include "tst_horefptr.moc"
