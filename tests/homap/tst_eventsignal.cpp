// Event signals: binding by key, firing, and the guarantees that let a render thread fire while the
// GUI thread unbinds.
#include "HOCallbackKey.h"
#include "HOEventSignal.h"

#include <QtTest>
#include <atomic>
#include <thread>

using namespace HXObjects;

namespace {

struct Receiver {
    std::atomic<int> calls{0};
    void onEvent(void*, HOEvent*) { ++calls; }
    void onOther(void*, HOEvent*) { calls += 100; }
};

}  // namespace

class TestEventSignal : public QObject {
    Q_OBJECT

private slots:
    void keyIsLowHexOfReceiverAndMember();
    void keysDifferPerReceiverAndMember();
    void bindingAKeyAgainReplacesIt();
    void unbindingAnUnknownKeyIsHarmless();
    void callbackMayUnbindItselfWhileFiring();
    void callbackUnbindingAnotherStopsIt();
    void firesSenderAndEventUnchanged();
    void unbindWaitsForCallbackRunningOnWorker();
    void workerFiresWhileGuiBindsAndUnbinds();
};

void TestEventSignal::keyIsLowHexOfReceiverAndMember() {
    Receiver r;
    auto member = &Receiver::onEvent;
    std::uintptr_t function = 0;
    std::memcpy(&function, &member, sizeof(function));
    const QString expected = QString::asprintf("%x %x", unsigned(reinterpret_cast<std::uintptr_t>(&r) & 0xffffffffu),
                                               unsigned(function & 0xffffffffu));
    QCOMPARE(HOMakeCallbackKey(&r, member).toQString(), expected);
    QVERIFY(!expected.contains(QRegularExpression("[A-F]")));
}

void TestEventSignal::keysDifferPerReceiverAndMember() {
    Receiver a, b;
    QCOMPARE(HOMakeCallbackKey(&a, &Receiver::onEvent), HOMakeCallbackKey(&a, &Receiver::onEvent));
    QVERIFY(HOMakeCallbackKey(&a, &Receiver::onEvent) != HOMakeCallbackKey(&b, &Receiver::onEvent));
    QVERIFY(HOMakeCallbackKey(&a, &Receiver::onEvent) != HOMakeCallbackKey(&a, &Receiver::onOther));
}

void TestEventSignal::bindingAKeyAgainReplacesIt() {
    HOEventSignal signal;
    int first = 0, second = 0;
    signal.bind("k", [&](void*, HOEvent*) { ++first; });
    signal.bind("k", [&](void*, HOEvent*) { ++second; });
    QCOMPARE(signal.count(), 1);
    signal.fire(nullptr, nullptr);
    QCOMPARE(first, 0);
    QCOMPARE(second, 1);
}

void TestEventSignal::unbindingAnUnknownKeyIsHarmless() {
    HOEventSignal signal;
    Receiver r;
    HOBindMember(signal, &r, &Receiver::onEvent);
    signal.unbind("no such key");
    HOUnbindMember(signal, &r, &Receiver::onOther);
    QVERIFY(HOIsMemberBound(signal, &r, &Receiver::onEvent));
    HOUnbindMember(signal, &r, &Receiver::onEvent);
    QCOMPARE(signal.count(), 0);
}

void TestEventSignal::callbackMayUnbindItselfWhileFiring() {
    HOEventSignal signal;
    int calls = 0;
    signal.bind("self", [&](void*, HOEvent*) {
        ++calls;
        signal.unbind("self");
    });
    signal.fire(nullptr, nullptr);
    signal.fire(nullptr, nullptr);
    QCOMPARE(calls, 1);
    QCOMPARE(signal.count(), 0);
}

void TestEventSignal::callbackUnbindingAnotherStopsIt() {
    HOEventSignal signal;
    int later = 0;
    signal.bind("first", [&](void*, HOEvent*) { signal.unbind("second"); });
    signal.bind("second", [&](void*, HOEvent*) { ++later; });
    signal.fire(nullptr, nullptr);
    QCOMPARE(later, 0);
}

void TestEventSignal::firesSenderAndEventUnchanged() {
    HOEventSignal signal;
    HOEvent event;
    int sender = 0;
    void* seenSender = nullptr;
    HOEvent* seenEvent = nullptr;
    signal.bind("k", [&](void* s, HOEvent* e) {
        seenSender = s;
        seenEvent = e;
    });
    signal.fire(&sender, &event);
    QCOMPARE(seenSender, static_cast<void*>(&sender));
    QCOMPARE(seenEvent, &event);
}

void TestEventSignal::unbindWaitsForCallbackRunningOnWorker() {
    HOEventSignal signal;
    std::atomic<bool> entered{false}, inside{false};
    signal.bind("slow", [&](void*, HOEvent*) {
        inside = true;
        entered = true;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        inside = false;
    });
    std::thread worker([&] { signal.fire(nullptr, nullptr); });
    while (!entered) std::this_thread::yield();
    signal.unbind("slow");
    // The receiver may now be destroyed: the callback must not be running any more.
    QVERIFY(!inside);
    worker.join();
}

void TestEventSignal::workerFiresWhileGuiBindsAndUnbinds() {
    HOEventSignal signal;
    std::atomic<bool> stop{false};
    std::thread worker([&] {
        HOEvent event;
        while (!stop) signal.fire(nullptr, &event);
    });
    for (int round = 0; round < 2000; ++round) {
        auto receiver = std::make_unique<Receiver>();
        HOBindMember(signal, receiver.get(), &Receiver::onEvent);
        if (round % 3 == 0) std::this_thread::yield();
        HOUnbindMember(signal, receiver.get(), &Receiver::onEvent);
        receiver.reset();  // a use after this would be reported by the address sanitizer
    }
    stop = true;
    worker.join();
    QCOMPARE(signal.count(), 0);
}

QTEST_GUILESS_MAIN(TestEventSignal)
#include "tst_eventsignal.moc"
