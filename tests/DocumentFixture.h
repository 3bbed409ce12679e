#pragma once
// A fresh in-memory document per test, with the small record-building steps the database and
// document-layer tests share.
#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <vector>

typedef ORXSimArray<ORXSimCSetID, ORXSimArrayCopyClassPolicy<ORXSimCSetID>> CSetIDArray;
typedef ORXSimArray<ORXSimCollectionID, ORXSimArrayCopyClassPolicy<ORXSimCollectionID>> CollectionIDArray;
typedef ORXSimArray<ORXSimCompartment, ORXSimArrayClassPolicy<ORXSimCompartment>> CompartmentArray;
typedef ORXSimArray<ORXSimPersistentDrawerDesc, ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>>
    DrawerDescArray;

inline int Schema(int group, int member)
{
    return vds_CoreFragmentTypeIndex(group, member);
}

// Both positions name the same record (a null position names none).
inline bool Same(ORXSimPosition const& a, ORXSimPosition const& b)
{
    return !a.IsNull() && a.ID() == b.ID();
}

// The members of a set in the set's own order.
inline std::vector<int> Members(ORXSimCSet const& set)
{
    std::vector<int> members(set.Size());
    set.OrderedMembers(members.data());
    return members;
}

// A compartment of one CSet per collection.
inline ORXSimCompartment Compartment(ORXSimCSetID const& first, ORXSimCSetID const& second)
{
    CSetIDArray ids(2, 0);
    ids.Get(0) = first;
    ids.Get(1) = second;
    return ORXSimCompartment(ids);
}

class DocumentFixture : public ::testing::Test
{
protected:
    void TearDown() override { m_document.Close(); }

    ORXSimPosition NewRecord(int group, int member) const
    {
        return m_document.CreateDataRecord(Schema(group, member)).Pos();
    }
    ORXSimPosition NewCollection(int group, int member, int space) const
    {
        return ORXSimPosition(m_document.Focus().CreateTypedCollection(space, Schema(group, member)));
    }
    // A collection of `space` members of the given type.
    ORXSimCollection Collection(int space, int group = 23, int member = 79) const
    {
        return ORXSimCollection(NewCollection(group, member, space).GetCollection());
    }

    ORXObjDocument m_document = ORXObjDocument::New();
};
