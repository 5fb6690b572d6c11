#pragma once
// Counts the firings of an object-model event signal (and the ones with a null event, which no signal
// may send), remembering whether any came from a thread other than the test's. Unbinds itself when
// destroyed. Header-only.
#include <QString>
#include <atomic>
#include <thread>

#include "HOEventSignal.h"

class HOSignalCounter {
public:
    explicit HOSignalCounter(HXObjects::HOEventSignal& signal)
        : m_signal(signal),
          m_key(QStringLiteral("counter %1").arg(quintptr(this))),
          m_owner(std::this_thread::get_id()) {
        m_signal.bind(m_key, [this](void* sender, HXObjects::HOEvent* event) {
            lastSender.store(sender);
            if (!event) ++nullEvents;
            if (std::this_thread::get_id() != m_owner) offThread.store(true);
            ++count;
        });
    }
    ~HOSignalCounter() { m_signal.unbind(m_key); }
    HOSignalCounter(const HOSignalCounter&) = delete;
    HOSignalCounter& operator=(const HOSignalCounter&) = delete;

    void reset() { count = 0; }

    std::atomic<int> count{0};
    std::atomic<int> nullEvents{0};
    std::atomic<bool> offThread{false};
    std::atomic<void*> lastSender{nullptr};

private:
    HXObjects::HOEventSignal& m_signal;
    HXObjects::HOString m_key;
    std::thread::id m_owner;
};
