#pragma once
// A watcher of an object held by ORXBasSharedPtr: it counts in the weak count, keeps the counter
// alive but not the object, and gives a strong holder again through lock() while the object lives.
#include "ORXBasRefCounter.h"
#include "ORXBasSharedPtr.h"
#include "ORXBasSwap.h"

template <class T> class ORXBasWeakPtr
{
public:
    ORXBasWeakPtr() : m_object(nullptr), m_counter(nullptr) {}
    ORXBasWeakPtr(ORXBasSharedPtr<T> const& shared) : m_object(shared.m_object), m_counter(shared.m_counter)
    {
        Connect();
    }
    ORXBasWeakPtr(ORXBasWeakPtr const& other) : m_object(other.m_object), m_counter(other.m_counter)
    {
        Connect();
    }
    ORXBasWeakPtr& operator=(ORXBasWeakPtr const& other)
    {
        ORXBasWeakPtr copy(other);
        swap(copy);
        return *this;
    }
    ~ORXBasWeakPtr()
    {
        if (m_counter && --m_counter->m_weakCount == 0 && m_counter->m_strongCount == 0)
            delete m_counter;
    }

    void swap(ORXBasWeakPtr& other)
    {
        ORXBasSwap(m_object, other.m_object);
        ORXBasSwap(m_counter, other.m_counter);
    }
    // True when there is no object or it has been destroyed.
    bool expired() const { return !m_counter || m_counter->m_strongCount == 0; }
    // A strong holder of the object, or an empty one when it has gone.
    ORXBasSharedPtr<T> lock() const
    {
        return expired() ? ORXBasSharedPtr<T>() : ORXBasSharedPtr<T>(m_object, m_counter);
    }

private:
    void Connect()
    {
        if (m_counter)
            ++m_counter->m_weakCount;
    }

    T* m_object;
    ORXBasRefCounter* m_counter;
};
