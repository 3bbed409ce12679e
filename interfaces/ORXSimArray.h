#pragma once
// The array value type of the database layer: a contiguous, resizable array that copies deeply.
// The policy says how elements are handled: built-in values and copyable identity classes move as
// bytes; other classes are constructed, copied and destroyed one by one.
#include "ORXSimDynamicID.h"
#include "mem_Entries.h"

#include <cstring>
#include <new>
#include <type_traits>
#include <utility>

template <class T> struct ORXSimArrayBuiltinPolicy
{
    static constexpr bool bitwise = true;
};
template <class T> struct ORXSimArrayCopyClassPolicy
{
    static constexpr bool bitwise = std::is_trivially_copyable_v<T>;
};
template <class T> struct ORXSimArrayClassPolicy
{
    static constexpr bool bitwise = false;
};

// Built-in values take the built-in policy, the identity types the copy-class policy, and other
// classes the class policy, so ORXSimArray<ORXSimCSetID> is ORXSimArray<ORXSimCSetID,
// ORXSimArrayCopyClassPolicy<ORXSimCSetID>>.
template <class T>
using ORXSimArrayDefaultPolicy =
    std::conditional_t<std::is_arithmetic_v<T> || std::is_enum_v<T>, ORXSimArrayBuiltinPolicy<T>,
                       std::conditional_t<std::is_base_of_v<ORXSimDynamicID, T>,
                                          ORXSimArrayCopyClassPolicy<T>, ORXSimArrayClassPolicy<T>>>;

template <class T, class Policy = ORXSimArrayDefaultPolicy<T>> class ORXSimArray;

template <class T, class Policy> T* ORXSimArrayPointer(ORXSimArray<T, Policy> const& array);

template <class T, class Policy> class ORXSimArray
{
public:
    // size value-initialised elements; the second argument is unused and always 0.
    explicit ORXSimArray(int size = 0, int = 0) { SetSize(size); }
    ORXSimArray(ORXSimArray const& other) { CopyFrom(other); }
    // Copies before releasing the old elements, so other may be this array or live inside one of
    // its elements.
    ORXSimArray& operator=(ORXSimArray const& other)
    {
        if (this != &other)
        {
            ORXSimArray copy(other);
            Swap(copy);
        }
        return *this;
    }
    ~ORXSimArray() { Clear(); }

    int Size() const { return m_size; }
    T& Get(int index) { return m_data[index]; }
    T const& ConstGet(int index) const { return m_data[index]; }
    T const& operator[](int index) const { return m_data[index]; }
    T& operator[](int index) { return m_data[index]; }

    // Grows with value-initialised elements or shrinks, keeping the leading elements. A policy with
    // keepsFirstWhenEmptied leaves element 0 readable (not destroyed) when the size drops to 0, for
    // callers that read element 0 without testing the size; it goes at the next change.
    void SetSize(int size)
    {
        if (size < 0)
            size = 0;
        DropKeptFirst();
        if constexpr (KeepsFirst())
            if (size == 0 && m_size > 0)
            {
                for (int i = 1; i < m_size; ++i)
                    m_data[i].~T();
                m_size = 0;
                m_firstKept = true;
                return;
            }
        if (size > m_capacity)
            Reserve(size > 2 * m_capacity ? size : 2 * m_capacity);
        for (int i = m_size; i < size; ++i)
            new (m_data + i) T();
        for (int i = size; i < m_size; ++i)
            m_data[i].~T();
        m_size = size;
    }

    void PushBack(T const& value)
    {
        DropKeptFirst();
        if (m_size == m_capacity)
        {
            T copy(value); // value may live in this array
            Reserve(m_capacity ? 2 * m_capacity : 4);
            new (m_data + m_size) T(static_cast<T&&>(copy));
        }
        else
            new (m_data + m_size) T(value);
        ++m_size;
    }

private:
    static constexpr bool KeepsFirst()
    {
        if constexpr (requires { Policy::keepsFirstWhenEmptied; })
            return Policy::keepsFirstWhenEmptied;
        else
            return false;
    }
    void DropKeptFirst()
    {
        if (m_firstKept)
        {
            m_data[0].~T();
            m_firstKept = false;
        }
    }

    void Swap(ORXSimArray& other)
    {
        std::swap(m_data, other.m_data);
        std::swap(m_size, other.m_size);
        std::swap(m_capacity, other.m_capacity);
        std::swap(m_firstKept, other.m_firstKept);
    }

    friend T* ORXSimArrayPointer<T, Policy>(ORXSimArray const& array);
    T* Ptr() const { return m_data; }

    void Reserve(int capacity)
    {
        T* data = static_cast<T*>(mem_OperatorNewThrow(mem_SaturatingProduct(capacity, sizeof(T))));
        if constexpr (Policy::bitwise)
        {
            if (m_size)
                std::memcpy(static_cast<void*>(data), m_data, sizeof(T) * m_size);
        }
        else
        {
            for (int i = 0; i < m_size; ++i)
            {
                new (data + i) T(static_cast<T&&>(m_data[i]));
                m_data[i].~T();
            }
        }
        mem_Free(m_data);
        m_data = data;
        m_capacity = capacity;
    }

    void CopyFrom(ORXSimArray const& other)
    {
        if (other.m_size == 0)
            return;
        Reserve(other.m_size);
        if constexpr (Policy::bitwise)
            std::memcpy(static_cast<void*>(m_data), other.m_data, sizeof(T) * other.m_size);
        else
            for (int i = 0; i < other.m_size; ++i)
                new (m_data + i) T(other.m_data[i]);
        m_size = other.m_size;
    }

    void Clear()
    {
        DropKeptFirst();
        if constexpr (!std::is_trivially_destructible_v<T>)
            for (int i = 0; i < m_size; ++i)
                m_data[i].~T();
        mem_Free(m_data);
        m_data = nullptr;
        m_size = 0;
        m_capacity = 0;
    }

    T* m_data = nullptr;
    int m_size = 0;
    int m_capacity = 0;
    bool m_firstKept = false;
};

// The contiguous storage of an array.
template <class T, class Policy> T* ORXSimArrayPointer(ORXSimArray<T, Policy> const& array)
{
    return array.Ptr();
}
