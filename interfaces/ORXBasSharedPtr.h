#pragma once
// Shared ownership of one object. The object must live in memory from mem_OperatorNewThrow: make it
// with ORXBasMakeShared<T>(arguments...), with placement new into mem_OperatorNewThrow memory, or
// with plain new on a class derived from mem_AllocationOperators. The last strong holder destroys it
// and releases its memory with mem_Free; the counter stays until the last weak holder has gone too.
#include "ORXBasRefCounter.h"
#include "ORXBasSwap.h"
#include "mem_Entries.h"

#include <new>
#include <type_traits>
#include <utility>

template <class T> class ORXBasWeakPtr;

template <class T> class ORXBasSharedPtr
{
public:
    ORXBasSharedPtr() : m_object(nullptr), m_counter(nullptr) {}
    // Takes ownership of object (which may be null).
    explicit ORXBasSharedPtr(T* object) : m_object(object), m_counter(nullptr)
    {
        if (!object)
            return;
        try
        {
            m_counter = new ORXBasRefCounter(1, 0);
        }
        catch (...)
        {
            Release(object);
            throw;
        }
    }
    ORXBasSharedPtr(ORXBasSharedPtr const& other) : m_object(other.m_object), m_counter(other.m_counter)
    {
        Connect();
    }
    // From a holder of a derived class.
    template <class U>
    ORXBasSharedPtr(ORXBasSharedPtr<U> const& other) : m_object(other.m_object), m_counter(other.m_counter)
    {
        Connect();
    }
    ORXBasSharedPtr(ORXBasSharedPtr&& other) noexcept : ORXBasSharedPtr() { swap(other); }
    ORXBasSharedPtr& operator=(ORXBasSharedPtr const& other)
    {
        ORXBasSharedPtr copy(other);
        swap(copy);
        return *this;
    }
    ORXBasSharedPtr& operator=(ORXBasSharedPtr&& other) noexcept
    {
        ORXBasSharedPtr taken(static_cast<ORXBasSharedPtr&&>(other));
        swap(taken);
        return *this;
    }
    ~ORXBasSharedPtr() { Disconnect(); }

    // Gives up this holder's share: the last strong holder destroys the object, and the counter goes
    // when no weak holder is left either. Afterwards this holder is empty.
    void Disconnect()
    {
        T* object = m_object;
        ORXBasRefCounter* counter = m_counter;
        m_object = nullptr;
        m_counter = nullptr;
        if (!counter)
            return;
        if (counter->m_strongCount == 1)
        {
            Release(object);
            counter->m_strongCount = 0;
            if (counter->m_weakCount == 0)
                delete counter;
        }
        else
            --counter->m_strongCount;
    }
    void reset() { Disconnect(); }
    void swap(ORXBasSharedPtr& other)
    {
        ORXBasSwap(m_object, other.m_object);
        ORXBasSwap(m_counter, other.m_counter);
    }

    T* get() const { return m_object; }
    T& operator*() const { return *m_object; }
    T* operator->() const { return m_object; }
    explicit operator bool() const { return m_object != nullptr; }
    // Strong holders of the object; 0 for an empty holder.
    int use_count() const { return m_counter ? m_counter->m_strongCount : 0; }

private:
    template <class U> friend class ORXBasSharedPtr;
    friend class ORXBasWeakPtr<T>;

    // Joins an existing share, as ORXBasWeakPtr::lock does.
    ORXBasSharedPtr(T* object, ORXBasRefCounter* counter) : m_object(object), m_counter(counter)
    {
        Connect();
    }

    void Connect()
    {
        if (m_counter)
            ++m_counter->m_strongCount;
    }

    // Destroys the object and frees its block, which begins at the most derived object.
    static void Release(T* object)
    {
        if (!object)
            return;
        void* block = object;
        if constexpr (std::is_polymorphic_v<T>)
            block = dynamic_cast<void*>(object);
        object->~T();
        mem_Free(block);
    }

    T* m_object;
    ORXBasRefCounter* m_counter;
};

// A new T in mem_OperatorNewThrow memory, held by a new shared pointer.
template <class T, class... Arguments> ORXBasSharedPtr<T> ORXBasMakeShared(Arguments&&... arguments)
{
    void* block = mem_OperatorNewThrow(sizeof(T));
    T* object;
    try
    {
        object = ::new (block) T(std::forward<Arguments>(arguments)...);
    }
    catch (...)
    {
        mem_Free(block);
        throw;
    }
    return ORXBasSharedPtr<T>(object);
}
