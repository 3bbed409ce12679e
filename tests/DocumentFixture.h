#pragma once
// A fresh in-memory document per test, with the small record-building steps the document-layer
// tests share.
#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

inline int Schema(int group, int member)
{
    return vds_CoreFragmentTypeIndex(group, member);
}

// Both positions name the same record (a null position names none).
inline bool Same(ORXSimPosition const& a, ORXSimPosition const& b)
{
    return !a.IsNull() && a.ID() == b.ID();
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

    ORXObjDocument m_document = ORXObjDocument::New();
};
