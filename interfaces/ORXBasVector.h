#pragma once
// A growable array of T: a typed shell over ORXBasVectorGeneric, which does all the work through
// the replicator of T. Vectors of plain values copy as one block and skip destruction.
#include "ORXBasReplicator.h"
#include "ORXBasVectorGeneric.h"

#include <cstddef>
#include <new>

template <class T> class ORXBasVector
{
public:
    typedef T value_type;
    typedef T* iterator;
    typedef T const* const_iterator;

    ORXBasVector() : m_core(ORXBasGetReplicator<T>()) {}
    explicit ORXBasVector(std::size_t count) : ORXBasVector()
    {
        T const value = T();
        m_core.Init(count, &value);
    }
    ORXBasVector(std::size_t count, T const& value) : ORXBasVector() { m_core.Init(count, &value); }
    ORXBasVector(ORXBasVector const& other) : ORXBasVector() { m_core.Init(other.m_core); }
    ORXBasVector(ORXBasVector&& other) noexcept : ORXBasVector() { m_core.swap(other.m_core); }
    ORXBasVector& operator=(ORXBasVector const& other)
    {
        if (this != &other)
        {
            ORXBasVector copy(other);
            swap(copy);
        }
        return *this;
    }
    // The old elements go at once, also when other lives inside one of them.
    ORXBasVector& operator=(ORXBasVector&& other) noexcept
    {
        ORXBasVector taken(static_cast<ORXBasVector&&>(other));
        swap(taken);
        return *this;
    }

    T* begin() { return static_cast<T*>(m_core.Begin()); }
    T* end() { return static_cast<T*>(m_core.End()); }
    T const* begin() const { return static_cast<T const*>(m_core.Begin()); }
    T const* end() const { return static_cast<T const*>(m_core.End()); }
    T& operator[](std::size_t index) { return begin()[index]; }
    T const& operator[](std::size_t index) const { return begin()[index]; }
    T& back() { return end()[-1]; }
    T const& back() const { return end()[-1]; }

    std::size_t size() const { return m_core.Size(); }
    bool empty() const { return m_core.Begin() == m_core.End(); }
    std::size_t capacity() const { return m_core.Capacity(); }

    void resize(std::size_t count)
    {
        if (count <= size())
            m_core.Resize(count, nullptr);
        else
        {
            T const value = T();
            m_core.Resize(count, &value);
        }
    }
    void resize(std::size_t count, T const& value) { m_core.Resize(count, &value); }
    void clear() { m_core.Resize(0, nullptr); }
    void push_back(T const& value)
    {
        if (void* slot = m_core.FreeSlot())
        {
            ::new (slot) T(value);
            m_core.CommitSlot();
        }
        else
            m_core.PushBack(&value);
    }
    void swap(ORXBasVector& other) { m_core.swap(other.m_core); }

private:
    ORXBasVectorGeneric m_core;
};
