#include "ORXSimStoreDrawer.h"

#include "ORXSimIndexSet.h"
#include "ORXSimStore.h"
#include "mem_Entries.h"

#include <malloc.h>

#include <cstdlib>
#include <cstring>
#include <new>

ORXSimStoreDrawer::ORXSimStoreDrawer(ORXSimDrawerID id, std::vector<ORXSimCSet> domain,
                                     std::vector<int> chunks, int extendableDim, int valueSize)
    : m_id(id), m_domain(std::move(domain)), m_chunks(std::move(chunks)), m_extendableDim(extendableDim),
      m_valueSize(valueSize)
{
}

ORXSimStoreDrawer::~ORXSimStoreDrawer()
{
    mem_Free(m_data);
}

std::uint64_t ORXSimStoreDrawer::DomainItems() const
{
    std::uint64_t items = 1;
    for (ORXSimCSet const& set : m_domain)
        items *= static_cast<std::uint64_t>(set.Size());
    return items;
}

std::vector<std::int64_t> ORXSimStoreDrawer::Strides() const
{
    int const n = NumDimensions();
    std::vector<std::int64_t> strides(n, 0);
    std::int64_t stride = 1;
    for (int d = n - 1; d >= 0; --d)
        if (d != m_extendableDim)
        {
            strides[d] = stride;
            stride *= m_domain[d].Size();
        }
    if (m_extendableDim >= 0)
        strides[m_extendableDim] = stride;
    return strides;
}

void ORXSimStoreDrawer::Reserve(std::size_t bytes, bool exact)
{
    if (bytes <= m_capacity && m_data)
        return;
    // Growth is geometric by a tenth, the most slack that keeps a drawer of n values within 1.1 n
    // values of memory; large blocks grow in place through the allocator's remapping. A new block
    // may be a large block that the memory entries kept, which the drawer then grows into.
    std::size_t const capacity = exact ? bytes : bytes + bytes / 10;
    void* data = m_data ? std::realloc(m_data, capacity) : mem_MallocGrowable(capacity ? capacity : 1);
    if (!data)
        throw std::bad_alloc();
    m_data = static_cast<char*>(data);
    m_capacity = malloc_usable_size(data);
}

char* ORXSimStoreDrawer::Values(bool zero)
{
    if (!m_data)
    {
        std::size_t const bytes = DomainItems() * m_valueSize;
        Reserve(bytes, true);
        if (zero)
            std::memset(m_data, 0, bytes);
    }
    return m_data;
}

void ORXSimStoreDrawer::Extend(int dim, ORXSimIndexSetPtr const& added, bool zeroNewRows)
{
    ORXSimCSet const old = m_domain[dim];
    ORXSimIndexSetPtr const merged = ORXSimIndexSet::Union(old.SortedData().Get(), added.Get());
    m_domain[dim] = ORXSimCSet(ORXSimIdentityFactory::CSet(old.CollectionID(), -1), merged);
    if (!m_data)
        return;
    std::size_t const rowBytes = static_cast<std::size_t>(DomainItems() / merged->Count()) * m_valueSize;
    std::size_t const oldRows = old.Size(), newRows = merged->Count();
    if (old.IsEmpty() || added->Low() > old.Bounds().second)
    {
        // New members all follow the old ones: the new rows are appended.
        Reserve(rowBytes * newRows, false);
        if (zeroNewRows)
            std::memset(m_data + rowBytes * oldRows, 0, rowBytes * (newRows - oldRows));
        return;
    }
    // New members fall between old ones: lay the rows out afresh in rank order.
    std::size_t const bytes = rowBytes * newRows;
    char* data = static_cast<char*>(mem_MallocGrowable(bytes ? bytes : 1));
    if (!data)
        throw std::bad_alloc();
    std::memset(data, 0, bytes);
    ORXSimIndexSet const* oldMembers = old.SortedData().Get();
    for (std::size_t r = 0; r < oldRows; ++r)
    {
        int const rank = merged->RankOf(oldMembers->At(static_cast<int>(r)));
        std::memcpy(data + rowBytes * rank, m_data + rowBytes * r, rowBytes);
    }
    mem_Free(m_data);
    m_data = data;
    m_capacity = malloc_usable_size(data);
}
