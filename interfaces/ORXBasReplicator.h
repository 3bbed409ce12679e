#pragma once
// Typed replicators: the copy and destroy functions that describe an element type to the container
// cores. Plain values (numbers, enumerations, pointers) copy as one block and need no destruction;
// classes are copy-constructed and destroyed one by one.
#include "ORXBasReplicatorGeneric.h"

#include <cstring>
#include <new>
#include <type_traits>

template <class T> void ORXBasPODCopy(void const* source, void* destination, std::size_t count)
{
    std::memcpy(destination, source, count * sizeof(T));
}

template <class T> void ORXBasStandardCopy(void const* source, void* destination, std::size_t count)
{
    T const* from = static_cast<T const*>(source);
    T* to = static_cast<T*>(destination);
    std::size_t done = 0;
    try
    {
        for (; done < count; ++done)
            ::new (static_cast<void*>(to + done)) T(from[done]);
    }
    catch (...)
    {
        for (std::size_t i = 0; i < done; ++i)
            to[i].~T();
        throw;
    }
}

template <class T> void ORXBasStandardDestroy(void* first, std::size_t count)
{
    T* elements = static_cast<T*>(first);
    for (std::size_t i = 0; i < count; ++i)
        elements[i].~T();
}

// Replicator of a class type.
template <class T> struct ORXBasReplicator
{
    static constexpr ORXBasCopyFunc GetCopyFunc() { return &ORXBasStandardCopy<T>; }
    static constexpr ORXBasDestroyFunc GetDestroyFunc() { return &ORXBasStandardDestroy<T>; }
};

// Replicator of a plain value type: block copies, no destruction.
template <class T> struct ORXBasPODReplicator
{
    static constexpr ORXBasCopyFunc GetCopyFunc() { return &ORXBasPODCopy<T>; }
    static constexpr ORXBasDestroyFunc GetDestroyFunc() { return nullptr; }
};

template <class T> constexpr ORXBasReplicatorGeneric ORXBasGetReplicator()
{
    using Replicator = std::conditional_t<std::is_scalar_v<T>, ORXBasPODReplicator<T>, ORXBasReplicator<T>>;
    return ORXBasReplicatorGeneric(static_cast<int>(sizeof(T)), Replicator::GetCopyFunc(),
                                   Replicator::GetDestroyFunc());
}
