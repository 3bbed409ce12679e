// Symbol collections: members and symbols translated both ways, singly and in bulk.
#include "DocumentFixture.h"

typedef ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> IntArray;

namespace
{
IntArray Ints(std::vector<int> const& values)
{
    IntArray array(static_cast<int>(values.size()), 0);
    for (int i = 0; i < array.Size(); ++i)
        array[i] = values[i];
    return array;
}

std::vector<int> Values(IntArray const& array)
{
    std::vector<int> values;
    for (int i = 0; i < array.Size(); ++i)
        values.push_back(array[i]);
    return values;
}
} // namespace

class ORXSrvSymbolCollectionTest : public DocumentFixture
{
protected:
    // Five members of a degree-of-freedom type collection; members 0, 1, 3 and 4 carry the symbols
    // 7, 2, 40 and 0, member 2 carries none.
    void SetUp() override
    {
        m_collection = NewCollection(24, 2, 5).GetCollection();
        int const symbols[] = {7, 2, -1, 40, 0};
        for (int member = 0; member < 5; ++member)
            if (symbols[member] >= 0)
                m_document.GetRecord(m_collection, member).SetSymbol(symbols[member], "S");
    }

    ORXSrvSymbolCollection Symbols() const { return ORXSrvSymbolCollection(m_collection, Schema(24, 2)); }

    ORXSimCollectionID m_collection;
};

TEST_F(ORXSrvSymbolCollectionTest, SingleTranslationsAreInverse)
{
    ORXSrvSymbolCollection const symbols = Symbols();
    for (int member : {0, 1, 3, 4})
        EXPECT_EQ(symbols.GetCMember(symbols.GetSymbol(member)), member);
    EXPECT_EQ(symbols.GetSymbol(2), -1) << "a record without a symbol";
    EXPECT_EQ(symbols.GetCMember(40), 3);

    ORXSimCMemberID const id = symbols.GetCMemberID(2);
    EXPECT_EQ(id.CollectionID(), m_collection);
    EXPECT_EQ(m_document.GetCMemberIndex(ORXSimPosition(id)), 1);
}

TEST_F(ORXSrvSymbolCollectionTest, BulkTranslationsKeepTheirOrder)
{
    ORXSrvSymbolCollection const symbols = Symbols();
    EXPECT_EQ(Values(symbols.GetCMembers(Ints({40, 0, 7}))), (std::vector<int>{3, 4, 0}));
    EXPECT_EQ(Values(symbols.GetCMembers(Ints({}))), std::vector<int>{});

    // The set's stored order decides, with -1 for the member without a symbol.
    ORXSimCSet const ordered =
        ORXSimCollection(m_collection).CreateVolatileOrderedCSet(std::vector<int>{4, 2, 0}.data(), 3);
    EXPECT_EQ(Values(symbols.GetSymbols(ordered)), (std::vector<int>{0, -1, 7}));
    EXPECT_EQ(Values(symbols.GetSymbols(ORXSimCSet(m_collection))), std::vector<int>{});

    ORXSimCSet const descending = symbols.CreateOCSet(Ints({40, 7, 2, 0}));
    EXPECT_EQ(Members(descending), (std::vector<int>{3, 0, 1, 4}));
    EXPECT_EQ(symbols.CreateOCSet(Ints({})).Size(), 0);
}
