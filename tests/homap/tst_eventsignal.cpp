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
    // A key is "receiver member" in lower-case hex of their low 32 bits, so it differs for each pair.
    void callbackKeys() {
        Receiver r, other;
        auto member = &Receiver::onEvent;
        std::uintptr_t function = 0;
        std::memcpy(&function, &member, sizeof(function));
        const QString expected =
            QString::asprintf("%x %x", unsigned(reinterpret_cast<std::uintptr_t>(&r) & 0xffffffffu),
                              unsigned(function & 0xffffffffu));
        QCOMPARE(HOMakeCallbackKey(&r, member).toQString(), expected);
        QVERIFY(!expected.contains(QRegularExpression("[A-F]")));
        QVERIFY(HOMakeCallbackKey(&r, member) != HOMakeCallbackKey(&other, member));
        QVERIFY(HOMakeCallbackKey(&r, member) != HOMakeCallbackKey(&r, &Receiver::onOther));
    }

    // Binding a key again replaces its callback; unbinding a key never bound is harmless.
    void bindAndUnbindByKey() {
        HOEventSignal signal;
        int first = 0, second = 0;
        signal.bind("k", [&](void*, HOEvent*) { ++first; });
        signal.bind("k", [&](void*, HOEvent*) { ++second; });
        QCOMPARE(signal.count(), 1);
        signal.fire(nullptr, nullptr);
        QVERIFY(first == 0 && second == 1);
        Receiver r;
        HOBindMember(signal, &r, &Receiver::onEvent);
        signal.unbind("no such key");
        HOUnbindMember(signal, &r, &Receiver::onOther);
        QVERIFY(HOIsMemberBound(signal, &r, &Receiver::onEvent));
        HOUnbindMember(signal, &r, &Receiver::onEvent);
        signal.unbind("k");
        QCOMPARE(signal.count(), 0);
    }

    // Sender and event reach the callback unchanged; a callback may unbind itself or one not yet called.
    void firing() {
        HOEventSignal signal;
        HOEvent event;
        int sender = 0, calls = 0, later = 0;
        void* seenSender = nullptr;
        HOEvent* seenEvent = nullptr;
        signal.bind("a", [&](void* s, HOEvent* e) {
            seenSender = s, seenEvent = e, ++calls;
            signal.unbind("a");
            signal.unbind("b");
        });
        signal.bind("b", [&](void*, HOEvent*) { ++later; });
        signal.fire(&sender, &event);
        signal.fire(nullptr, nullptr);
        QVERIFY(seenSender == &sender && seenEvent == &event);
        QVERIFY(calls == 1 && later == 0);
        QCOMPARE(signal.count(), 0);
    }

    void unbindWaitsForCallbackRunningOnWorker() {
        HOEventSignal signal;
        std::atomic<bool> entered{false}, inside{false};
        signal.bind("slow", [&](void*, HOEvent*) {
            inside = true;
            entered = true;
            // The callback's own work, not a wait: it lasts long enough for unbind to come meanwhile.
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
            inside = false;
        });
        std::thread worker([&] { signal.fire(nullptr, nullptr); });
        const bool started = QTest::qWaitFor([&] { return entered.load(); }, 5000);
        if (started) signal.unbind("slow");
        const bool stillInside = inside;  // the receiver may now be destroyed: the callback must be over
        worker.join();
        QVERIFY2(started, "the worker did not enter the callback within 5 s");
        QVERIFY(!stillInside);
    }

    void workerFiresWhileGuiBindsAndUnbinds() {
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
};

QTEST_GUILESS_MAIN(TestEventSignal)
#include "tst_eventsignal.moc"
