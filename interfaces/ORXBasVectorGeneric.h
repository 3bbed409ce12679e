#pragma once
// The untyped core of ORXBasVector: a contiguous run of elements described by a replicator, in
// storage from the memory entries. Capacity doubles on growth; copies allocate exactly.
#include "ORXBasReplicatorGeneric.h"

#include <cstddef>

// Storage of vector elements: blocks from mem_OperatorNewThrow, released with mem_Free.
struct ORXBasVectorAllocator
{
    static void* Allocate(std::size_t bytes);
    static void Deallocate(void* pointer);
};

class ORXBasVectorGeneric
{
public:
    explicit ORXBasVectorGeneric(ORXBasReplicatorGeneric const& replicator)
        : m_replicator(replicator), m_start(nullptr), m_finish(nullptr), m_endOfStorage(nullptr)
    {
    }
    ORXBasVectorGeneric(ORXBasVectorGeneric const&) = delete;
    ORXBasVectorGeneric& operator=(ORXBasVectorGeneric const&) = delete;
    ~ORXBasVectorGeneric();

    // Fills an empty vector with copies of the elements of other.
    void Init(ORXBasVectorGeneric const& other);
    // Fills an empty vector with count copies of value.
    void Init(std::size_t count, void const* value);
    // Appends a copy of value, which may be an element of this vector.
    void PushBack(void const* value);
    // Shrinks to count elements or grows with copies of value (which may be an element of this
    // vector; unused when shrinking).
    void Resize(std::size_t count, void const* value);
    void swap(ORXBasVectorGeneric& other);

    std::size_t Capacity() const
    {
        return ByteDistance(m_start, m_endOfStorage) / m_replicator.m_elementSize;
    }
    std::size_t Size() const { return ByteDistance(m_start, m_finish) / m_replicator.m_elementSize; }
    void* Begin() const { return m_start; }
    void* End() const { return m_finish; }
    // Raw memory for one more element when the capacity allows, else null; after constructing the
    // element there, CommitSlot() counts it. Lets typed shells append without a call into the core.
    void* FreeSlot() const { return m_finish != m_endOfStorage ? m_finish : nullptr; }
    void CommitSlot() { m_finish += m_replicator.m_elementSize; }

    // Destroys count elements from first on, if the element type needs destruction.
    void Destroy(void* first, std::size_t count);
    // Releases storage of count elements.
    void Deallocate(void* pointer, std::size_t count);

private:
    static std::size_t ByteDistance(char const* from, char const* to)
    {
        return static_cast<std::size_t>(to - from);
    }
    char* Allocate(std::size_t count);
    char* Element(char* base, std::size_t index) const { return base + index * m_replicator.m_elementSize; }
    // Copies value into count raw slots from first on, doubling the copied run each round.
    void Fill(char* first, std::size_t count, void const* value);
    // Moves the elements into new storage of the given capacity and appends count copies of value.
    void Reallocate(std::size_t capacity, std::size_t count, void const* value);
    std::size_t GrownCapacity(std::size_t needed) const;

    [[no_unique_address]] ORXBasVectorAllocator m_allocator;
    ORXBasReplicatorGeneric m_replicator;
    char* m_start;
    char* m_finish;
    char* m_endOfStorage;
};
