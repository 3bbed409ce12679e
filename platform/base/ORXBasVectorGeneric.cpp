#include "ORXBasVectorGeneric.h"

#include "mem_Entries.h"

#include <utility>

void* ORXBasVectorAllocator::Allocate(std::size_t bytes)
{
    return mem_OperatorNewThrow(bytes);
}

void ORXBasVectorAllocator::Deallocate(void* pointer)
{
    mem_Free(pointer);
}

ORXBasVectorGeneric::~ORXBasVectorGeneric()
{
    Destroy(m_start, Size());
    Deallocate(m_start, Capacity());
}

char* ORXBasVectorGeneric::Allocate(std::size_t count)
{
    return static_cast<char*>(m_allocator.Allocate(mem_SaturatingProduct(count, m_replicator.m_elementSize)));
}

void ORXBasVectorGeneric::Deallocate(void* pointer, std::size_t)
{
    m_allocator.Deallocate(pointer);
}

void ORXBasVectorGeneric::Destroy(void* first, std::size_t count)
{
    if (m_replicator.m_destroy && count)
        m_replicator.m_destroy(first, count);
}

void ORXBasVectorGeneric::Fill(char* first, std::size_t count, void const* value)
{
    if (count == 0)
        return;
    m_replicator.m_copy(value, first, 1);
    std::size_t done = 1;
    try
    {
        while (done < count)
        {
            std::size_t run = done < count - done ? done : count - done;
            m_replicator.m_copy(first, Element(first, done), run);
            done += run;
        }
    }
    catch (...)
    {
        Destroy(first, done);
        throw;
    }
}

void ORXBasVectorGeneric::Init(ORXBasVectorGeneric const& other)
{
    std::size_t count = other.Size();
    if (count == 0)
        return;
    char* start = Allocate(count);
    try
    {
        m_replicator.m_copy(other.m_start, start, count);
    }
    catch (...)
    {
        Deallocate(start, count);
        throw;
    }
    m_start = start;
    m_finish = m_endOfStorage = Element(start, count);
}

void ORXBasVectorGeneric::Init(std::size_t count, void const* value)
{
    if (count == 0)
        return;
    char* start = Allocate(count);
    try
    {
        Fill(start, count, value);
    }
    catch (...)
    {
        Deallocate(start, count);
        throw;
    }
    m_start = start;
    m_finish = m_endOfStorage = Element(start, count);
}

std::size_t ORXBasVectorGeneric::GrownCapacity(std::size_t needed) const
{
    std::size_t doubled = 2 * Capacity();
    if (doubled < 4)
        doubled = 4;
    return needed > doubled ? needed : doubled;
}

void ORXBasVectorGeneric::Reallocate(std::size_t capacity, std::size_t count, void const* value)
{
    std::size_t size = Size();
    char* start = Allocate(capacity);
    try
    {
        if (size)
            m_replicator.m_copy(m_start, start, size);
        try
        {
            Fill(Element(start, size), count, value);
        }
        catch (...)
        {
            Destroy(start, size);
            throw;
        }
    }
    catch (...)
    {
        Deallocate(start, capacity);
        throw;
    }
    Destroy(m_start, size);
    Deallocate(m_start, Capacity());
    m_start = start;
    m_finish = Element(start, size + count);
    m_endOfStorage = Element(start, capacity);
}

void ORXBasVectorGeneric::PushBack(void const* value)
{
    if (m_finish == m_endOfStorage)
        Reallocate(GrownCapacity(Size() + 1), 1, value);
    else
    {
        m_replicator.m_copy(value, m_finish, 1);
        m_finish += m_replicator.m_elementSize;
    }
}

void ORXBasVectorGeneric::Resize(std::size_t count, void const* value)
{
    std::size_t size = Size();
    if (count <= size)
    {
        Destroy(Element(m_start, count), size - count);
        m_finish = Element(m_start, count);
    }
    else if (count <= Capacity())
    {
        Fill(m_finish, count - size, value);
        m_finish = Element(m_start, count);
    }
    else
        Reallocate(GrownCapacity(count), count - size, value);
}

void ORXBasVectorGeneric::swap(ORXBasVectorGeneric& other)
{
    std::swap(m_replicator, other.m_replicator);
    std::swap(m_start, other.m_start);
    std::swap(m_finish, other.m_finish);
    std::swap(m_endOfStorage, other.m_endOfStorage);
}
