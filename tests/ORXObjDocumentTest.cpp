#include "DocumentFixture.h"

#include <gtest/gtest.h>

namespace
{
class ORXObjDocumentTest : public DocumentFixture
{
};
} // namespace

TEST_F(ORXObjDocumentTest, NewDocumentHasOnlyItsFocusAndClosesOnEveryCopy)
{
    EXPECT_FALSE(m_document.ContextID().IsNull());
    ORXSimPosition focus = m_document.Focus();
    ASSERT_FALSE(focus.IsNull());
    EXPECT_TRUE(Same(focus.Focus(), focus));
    EXPECT_TRUE(m_document.GetModel().IsNull());
    EXPECT_TRUE(m_document.GetMesh().IsNull());
    EXPECT_TRUE(m_document.GetResults().IsNull());
    EXPECT_TRUE(m_document.GetMaterialCollection().IsNull());
    EXPECT_TRUE(m_document.GetPointCollection().GetCollection().IsNull());
    EXPECT_TRUE(focus.GetPosition(Schema(15, 9)).IsNull());

    ORXObjDocument second = ORXObjDocument::New();
    EXPECT_FALSE(second.ContextID() == m_document.ContextID());
    ORXObjDocument copy = second;
    ORXObjDocument fromPosition(second.Focus());
    ORXObjDocument fromDatabase(second.Focus().Doc());
    EXPECT_TRUE(fromPosition.ContextID() == second.ContextID());
    EXPECT_FALSE(fromDatabase.IsClosed());
    copy.Close();
    EXPECT_TRUE(second.IsClosed());
    EXPECT_TRUE(fromPosition.IsClosed());
    EXPECT_TRUE(fromDatabase.IsClosed());
    EXPECT_FALSE(m_document.IsClosed());
    EXPECT_TRUE(ORXObjDocument().IsClosed());
}

TEST_F(ORXObjDocumentTest, ModelAndResultsStandWhereHostsPutThem)
{
    ORXSimPosition model = NewRecord(25, 2);
    m_document.SetModel(model);
    EXPECT_TRUE(Same(m_document.GetModel(), model));
    EXPECT_TRUE(Same(m_document.Focus().GetPosition(Schema(25, 1)), model));

    ORXSimPosition results = NewRecord(15, 12);
    m_document.SetResults(results);
    EXPECT_TRUE(Same(m_document.GetResults(), results));
    EXPECT_TRUE(Same(m_document.Focus().Follow(Schema(15, 1), 1), results));
    ORXSimPosition newer = NewRecord(15, 12);
    m_document.SetResults(newer);
    EXPECT_TRUE(Same(m_document.GetResults(), newer));
}

TEST_F(ORXObjDocumentTest, LibraryCollectionsAreMadeOnDemandAndReadBack)
{
    // A library record the host linked itself is read as it stands.
    ORXSimPosition hostLibrary = NewRecord(15, 10);
    m_document.Focus().SetPosition(Schema(15, 9), hostLibrary);
    ORXSimPosition specs = NewCollection(23, 48, 1);
    hostLibrary.SetPosition(Schema(23, 47), specs);
    EXPECT_TRUE(Same(m_document.GetElementSpecCollection(), specs));
    EXPECT_TRUE(m_document.GetComponentCollection().IsNull());
    m_document.Focus().SetPosition(Schema(15, 9), ORXSimPosition());

    struct Entry
    {
        void (ORXObjDocument::*set)(ORXSimPosition const&) const;
        ORXSimPosition (ORXObjDocument::*get)() const;
        int group, member;
    };
    Entry const entries[] = {
        {&ORXObjDocument::SetElementSpecCollection, &ORXObjDocument::GetElementSpecCollection, 23, 47},
        {&ORXObjDocument::SetComponentCollection, &ORXObjDocument::GetComponentCollection, 13, 120},
        {&ORXObjDocument::SetDofTypeCollection, &ORXObjDocument::GetDofTypeCollection, 24, 120},
        {&ORXObjDocument::SetMaterialCollection, &ORXObjDocument::GetMaterialCollection, 42, 120},
        {&ORXObjDocument::SetPointCollection, &ORXObjDocument::GetPointCollection, 23, 120},
    };
    ORXSimPosition library;
    for (Entry const& entry : entries)
    {
        ORXSimPosition collection = NewCollection(entry.group, entry.member + 1, 2);
        (m_document.*entry.set)(collection);
        if (library.IsNull())
            library = m_document.Focus().GetPosition(Schema(15, 9));
        ASSERT_FALSE(library.IsNull());
        EXPECT_TRUE(Same(m_document.Focus().GetPosition(Schema(15, 9)), library)) << "one library record";
        EXPECT_TRUE(Same(library.GetPosition(Schema(entry.group, entry.member)), collection));
        EXPECT_TRUE(Same((m_document.*entry.get)(), collection));
        EXPECT_EQ((m_document.*entry.get)().GetCollection(), collection.GetCollection());
    }
}

TEST_F(ORXObjDocumentTest, SymbolsFindTheirMembers)
{
    int const dofType = Schema(24, 2);
    ORXSimPosition collection = NewCollection(24, 2, 3);
    ORXSimCollectionID id = collection.GetCollection();
    m_document.GetRecord(id, 0).SetSymbol(0, "U1");
    m_document.GetRecord(id, 2).SetSymbol(5, "UR3");

    ORXSimPosition third = m_document.GetRecord(id, 2);
    EXPECT_EQ(third.TypePosition(), dofType);
    EXPECT_EQ(m_document.GetCMemberIndex(third), 2);
    EXPECT_TRUE(Same(ORXSimPosition(m_document.GetSymbol(dofType, "UR3", id)), third));
    EXPECT_EQ(m_document.GetCMemberIndex(ORXSimPosition(m_document.GetSymbol(dofType, "U1", id))), 0);
    EXPECT_TRUE(ORXSimPosition(m_document.GetSymbol(dofType, "U2", id)).IsNull());
    EXPECT_TRUE(ORXSimPosition(m_document.GetSymbol(dofType, "", id)).IsNull());
}
