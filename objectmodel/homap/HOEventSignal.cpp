#include "HOEventSignal.h"

#include <algorithm>
#include <thread>

namespace HXObjects {

struct HOEventSignal::Entry {
    HOString key;
    Callback callback;
    bool alive = true;
    std::vector<std::thread::id> runners;  // threads inside the callback right now
};

HOEventSignal::~HOEventSignal() {
    std::unique_lock<std::mutex> lock(m_mutex);
    const auto entries = std::move(m_entries);
    for (const auto& entry : entries) retire(lock, entry);
}

void HOEventSignal::retire(std::unique_lock<std::mutex>& lock, const std::shared_ptr<Entry>& entry) {
    entry->alive = false;
    // Wait for other threads still inside this callback; the calling thread's own frames (a callback
    // unbinding itself) cannot finish while we wait, so they are not waited for.
    const auto self = std::this_thread::get_id();
    m_idle.wait(lock, [&] {
        return std::all_of(entry->runners.begin(), entry->runners.end(),
                           [&](const std::thread::id& id) { return id == self; });
    });
}

void HOEventSignal::bind(const HOString& key, Callback callback) {
    auto entry = std::make_shared<Entry>();
    entry->key = key;
    entry->callback = std::move(callback);
    std::unique_lock<std::mutex> lock(m_mutex);
    auto it = std::find_if(m_entries.begin(), m_entries.end(), [&](const auto& e) { return e->key == key; });
    if (it == m_entries.end()) {
        m_entries.push_back(std::move(entry));
        return;
    }
    const std::shared_ptr<Entry> old = std::exchange(*it, std::move(entry));
    retire(lock, old);
}

void HOEventSignal::unbind(const HOString& key) {
    std::unique_lock<std::mutex> lock(m_mutex);
    auto it = std::find_if(m_entries.begin(), m_entries.end(), [&](const auto& e) { return e->key == key; });
    if (it == m_entries.end()) return;
    const std::shared_ptr<Entry> old = *it;
    m_entries.erase(it);
    retire(lock, old);
}

void HOEventSignal::fire(void* sender, HOEvent* event) {
    std::vector<std::shared_ptr<Entry>> snapshot;
    {
        std::lock_guard<std::mutex> lock(m_mutex);
        snapshot = m_entries;
    }
    const auto self = std::this_thread::get_id();
    for (const auto& entry : snapshot) {
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            if (!entry->alive) continue;
            entry->runners.push_back(self);
        }
        entry->callback(sender, event);
        {
            std::lock_guard<std::mutex> lock(m_mutex);
            entry->runners.erase(std::find(entry->runners.begin(), entry->runners.end(), self));
        }
        m_idle.notify_all();
    }
}

bool HOEventSignal::isBound(const HOString& key) const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return std::any_of(m_entries.begin(), m_entries.end(), [&](const auto& e) { return e->key == key; });
}

int HOEventSignal::count() const {
    std::lock_guard<std::mutex> lock(m_mutex);
    return static_cast<int>(m_entries.size());
}

}  // namespace HXObjects
