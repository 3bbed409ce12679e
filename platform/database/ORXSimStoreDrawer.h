#pragma once
// A stored drawer: its domain (one ascending CSet per grid dimension), chunk sizes, extendable
// dimension, and its values in one contiguous block. The block is laid out row by row with the
// extendable dimension outermost and the other dimensions in grid order, each indexed by the rank
// of a member in its domain set, so that growth in the extendable dimension appends at the end.
// Before the first write the drawer holds no values and no block.
#include "ORXSimCSet.h"
#include "ORXSimDrawerID.h"

#include <cstddef>
#include <cstdint>
#include <vector>

class ORXSimStoreDrawer
{
public:
    ORXSimStoreDrawer(ORXSimDrawerID id, std::vector<ORXSimCSet> domain, std::vector<int> chunks,
                      int extendableDim, int valueSize);
    ~ORXSimStoreDrawer();
    ORXSimStoreDrawer(ORXSimStoreDrawer const&) = delete;
    ORXSimStoreDrawer& operator=(ORXSimStoreDrawer const&) = delete;

    ORXSimDrawerID ID() const { return m_id; }
    int NumDimensions() const { return static_cast<int>(m_domain.size()); }
    std::vector<ORXSimCSet> const& Domain() const { return m_domain; }
    // The domain set of one dimension, for giving it an identity once it is asked for.
    ORXSimCSet& DomainSet(int dim) { return m_domain[dim]; }
    std::vector<int> const& Chunks() const { return m_chunks; }
    int ExtendableDim() const { return m_extendableDim; }
    int ValueSize() const { return m_valueSize; }

    // Number of values the drawer stores: the product of its domain sizes once written, else 0.
    std::uint64_t ItemCount() const { return m_data ? DomainItems() : 0; }
    std::uint64_t DomainItems() const;
    // Bytes of the value block as allocated.
    std::size_t AllocatedBytes() const { return m_capacity; }

    // Distance in values between neighbours along each grid dimension of the block.
    std::vector<std::int64_t> Strides() const;
    // The value block, allocated on first use; zeroed unless the caller fills all of it at once.
    char* Values(bool zero);
    char const* Values() const { return m_data; }

    // Adds members (ascending, none held yet) to dimension dim, the outermost of the block: the
    // extendable dimension, or dimension 0 of a drawer made without one. Stored rows move to their
    // new places. New rows are zero when zeroNewRows is set; a caller that writes every new row
    // whole at once leaves it unset and fills them itself.
    void Extend(int dim, ORXSimIndexSetPtr const& added, bool zeroNewRows);

private:
    void Reserve(std::size_t bytes, bool exact);

    ORXSimDrawerID m_id;
    std::vector<ORXSimCSet> m_domain;
    std::vector<int> m_chunks;
    int m_extendableDim;
    int m_valueSize;
    char* m_data = nullptr;
    std::size_t m_capacity = 0;
};
