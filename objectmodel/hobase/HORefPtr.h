#pragma once
// HORefPtr<T>: holds one reference on an HORefBase-derived object for as long as it points at it.
#include <type_traits>
#include <utility>

namespace HXObjects {

template <class T>
class HORefPtr {
public:
    HORefPtr() = default;
    HORefPtr(std::nullptr_t) {}
    HORefPtr(T* p) : m_p(p) {
        if (m_p) m_p->AddRef();
    }
    HORefPtr(const HORefPtr& o) : HORefPtr(o.m_p) {}
    HORefPtr(HORefPtr&& o) noexcept : m_p(std::exchange(o.m_p, nullptr)) {}
    template <class U, class = std::enable_if_t<std::is_convertible<U*, T*>::value>>
    HORefPtr(const HORefPtr<U>& o) : HORefPtr(o.get()) {}
    ~HORefPtr() {
        if (m_p) m_p->Release();
    }

    HORefPtr& operator=(const HORefPtr& o) {
        reset(o.m_p);
        return *this;
    }
    HORefPtr& operator=(HORefPtr&& o) noexcept {
        if (this != &o) {
            T* old = std::exchange(m_p, std::exchange(o.m_p, nullptr));
            if (old) old->Release();
        }
        return *this;
    }
    HORefPtr& operator=(T* p) {
        reset(p);
        return *this;
    }

    // Takes a reference on p before dropping the old one, so self-assignment is safe.
    void reset(T* p = nullptr) {
        if (p) p->AddRef();
        T* old = std::exchange(m_p, p);
        if (old) old->Release();
    }

    T* get() const { return m_p; }
    T* operator->() const { return m_p; }
    T& operator*() const { return *m_p; }
    explicit operator bool() const { return m_p != nullptr; }
    operator T*() const { return m_p; }

private:
    T* m_p = nullptr;
};

// A checked downcast that keeps the object alive: null when p is not a U.
template <class U, class T>
HORefPtr<U> HODynamicCast(const HORefPtr<T>& p) {
    return HORefPtr<U>(dynamic_cast<U*>(p.get()));
}

}  // namespace HXObjects
