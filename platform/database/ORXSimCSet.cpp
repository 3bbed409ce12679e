#include "ORXSimCSet.h"

#include "ORXSimIndexSet.h"
#include "ORXSimStore.h"
#include "omi_BlkBitVect.h"

namespace
{
ORXSimCollectionID CommonCollection(ORXSimCSet const& a, ORXSimCSet const& b, char const* operation)
{
    ORXSimCollectionID const ca = a.CollectionID(), cb = b.CollectionID();
    if (ca.ContextID().IsNull())
        return cb;
    if (cb.ContextID().IsNull() || ca == cb)
        return ca;
    ORXSimRaise(ORXString(operation) + " of sets of different collections: " + ORXSimDescribe(ca) + " and " +
                ORXSimDescribe(cb));
}

ORXSimCSet Result(ORXSimCollectionID const& collection, ORXSimIndexSetPtr const& members)
{
    if (collection.ContextID().IsNull())
        return ORXSimCSet();
    return ORXSimCSet(ORXSimIdentityFactory::CSet(collection, -1), members);
}
} // namespace

ORXSimCSet::ORXSimCSet(ORXSimCSetID const& id, ORXSimIndexSetPtr const& members)
    : m_id(id), m_size(members ? members->Count() : 0), m_members(members)
{
}

bool ORXSimCSet::IsAscending() const
{
    return !m_members || m_members->IsAscending();
}

ORXSimIndexSetPtr const& ORXSimCSet::SortedData() const
{
    return IsAscending() ? m_members : m_members->SortedForm();
}

ORXSimCSet::ORXSimCSet(ORXSimCSetID const& id) : m_id(id)
{
    if (id.IsNull())
        return;
    *this = ORXSimCSet(id, ORXSimStore::Get(id).Members(id));
    m_lead = 1;
}

ORXSimCSet::ORXSimCSet(ORXSimCollectionID const& collection)
{
    if (!collection.IsNull())
        m_id = ORXSimIdentityFactory::CSet(collection, -1);
}

ORXSimCSet::ORXSimCSet(ORXSimPosition const& position) : ORXSimCSet(position.GetCSet()) {}

void ORXSimCSet::Members(int* out) const
{
    if (m_members)
        SortedData()->CopyTo(out);
}

void ORXSimCSet::OrderedMembers(int* out) const
{
    if (m_members)
        m_members->CopyTo(out);
}

int ORXSimCSet::operator[](int index) const
{
    return m_members->At(index);
}

ORXSimIntRange ORXSimCSet::Bounds() const
{
    if (!m_members)
        return {0, -1};
    return {SortedData()->Low(), SortedData()->High()};
}

bool ORXSimCSet::Contains(int member) const
{
    return m_members && SortedData()->RankOf(member) >= 0;
}

ORXSimCSet ORXSimCSet::Union(ORXSimCSet other) const
{
    ORXSimCollectionID const collection = CommonCollection(*this, other, "Union");
    return Result(collection, ORXSimIndexSet::Union(SortedData().Get(), other.SortedData().Get()));
}

ORXSimCSet ORXSimCSet::Intersection(ORXSimCSet other) const
{
    ORXSimCollectionID const collection = CommonCollection(*this, other, "Intersection");
    return Result(collection, ORXSimIndexSet::Intersection(SortedData().Get(), other.SortedData().Get()));
}

ORXSimCSet ORXSimCSet::operator-(ORXSimCSet other) const
{
    ORXSimCollectionID const collection = CommonCollection(*this, other, "Difference");
    return Result(collection, ORXSimIndexSet::Difference(SortedData().Get(), other.SortedData().Get()));
}

bool ORXSimCSet::SameMembers(ORXSimCSet const& other) const
{
    return ORXSimIndexSet::SameMembers(SortedData().Get(), other.SortedData().Get());
}

ORXSimCSetID ORXSimCSet::AscendingID() const
{
    if (m_lead && IsAscending())
        return m_id;
    ORXSimCollectionID const collection = CollectionID();
    if (collection.IsNull())
        ORXSimRaise("a set of no collection has no identity");
    ORXSimIndexSetPtr members = SortedData();
    if (members && !members->IsAscending())
        members = ORXSimIndexSet::MakeAscending(members->Data(), members->Count());
    return ORXSimStore::Get(collection).Register(collection, members, true);
}

ORXSimCSetID ORXSimCSet::RegisterAs(bool temporary)
{
    ORXSimCollectionID const collection = CollectionID();
    if (collection.IsNull())
        ORXSimRaise("a set of no collection cannot be registered");
    m_id = ORXSimStore::Get(collection).Register(collection, m_members, temporary);
    m_lead = 1;
    return m_id;
}

ORXSimCSetID ORXSimCSet::RegisterWithCollection()
{
    return RegisterAs(false);
}

ORXSimCSetID ORXSimCSet::RegisterWithTempCollection()
{
    if (m_lead)
        return m_id;
    return RegisterAs(true);
}

void ORXSimCSet::AsBitVector(omi_BlkBitVect& bits) const
{
    if (!m_members)
        return;
    for (int i = 0; i < m_size; ++i)
        bits.SetBit(static_cast<unsigned int>(m_members->At(i)));
}
