#pragma once
// HOEventSignal: a list of callbacks (sender, event) bound under text keys.
//
// Thread safety: a signal may fire on a worker thread while the GUI thread binds or unbinds. No lock
// is held while a callback runs. unbind() returns only when no other thread is still running that
// callback, so a receiver may be destroyed right after unbinding itself. A callback may unbind
// itself or others while the signal fires; an unbound callback is never called afterwards.
#include "HOEvent.h"
#include "HOString.h"
#include "HXExport.h"

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace HXObjects {

class HX_EXPORT HOEventSignal {
public:
    using Callback = std::function<void(void* sender, HOEvent* event)>;

    HOEventSignal() = default;
    HOEventSignal(const HOEventSignal&) = delete;
    HOEventSignal& operator=(const HOEventSignal&) = delete;
    ~HOEventSignal();

    // Binding a key that is already bound replaces its callback in place.
    void bind(const HOString& key, Callback callback);
    void unbind(const HOString& key);
    void fire(void* sender, HOEvent* event);

    bool isBound(const HOString& key) const;
    int count() const;

private:
    struct Entry;
    void retire(std::unique_lock<std::mutex>& lock, const std::shared_ptr<Entry>& entry);

    mutable std::mutex m_mutex;
    std::condition_variable m_idle;
    std::vector<std::shared_ptr<Entry>> m_entries;
};

}  // namespace HXObjects
