#pragma once
// Describes an element type to the untyped container cores: its size and how to copy and destroy
// runs of it. A null destroy function means the elements need no destruction, so cores skip the loop.
#include <cstddef>

// Copy-constructs count elements from source into the raw memory at destination.
typedef void (*ORXBasCopyFunc)(void const* source, void* destination, std::size_t count);
// Destroys count elements from first on, leaving raw memory.
typedef void (*ORXBasDestroyFunc)(void* first, std::size_t count);

struct ORXBasReplicatorGeneric
{
    constexpr ORXBasReplicatorGeneric(int elementSize, ORXBasCopyFunc copy, ORXBasDestroyFunc destroy)
        : m_elementSize(elementSize), m_copy(copy), m_destroy(destroy)
    {
    }

    int m_elementSize;
    ORXBasCopyFunc m_copy;
    ORXBasDestroyFunc m_destroy;
};
