#include "ORXSimSymbols.h"

#include "ORXSimCMemberID.h"
#include "ORXSimStore.h"

ORXSimDynamicID ORXSimSymbols::Get(ORXSimTypeID const&, int symbol,
                                   ORXSimCollectionID const& collection) const
{
    if (collection.IsNull())
        return ORXSimDynamicID();
    ORXSimStoreCollection& c = ORXSimStore::Get(m_context).Collection(collection);
    auto found = c.memberBySymbol.find(symbol);
    return found == c.memberBySymbol.end() ? ORXSimDynamicID() : ORXSimCMemberID(collection, found->second);
}

ORXSimDynamicID ORXSimSymbols::GetByName(ORXSimTypeID const&, ORXString const& name,
                                         ORXSimCollectionID const& collection) const
{
    if (collection.IsNull())
        return ORXSimDynamicID();
    ORXSimStoreCollection& c = ORXSimStore::Get(m_context).Collection(collection);
    auto found = c.memberBySymbolName.find(name.CStr());
    return found == c.memberBySymbolName.end() ? ORXSimDynamicID()
                                               : ORXSimCMemberID(collection, found->second);
}

int ORXSimSymbols::Get(ORXSimDynamicID const& record) const
{
    if (record.IsNull())
        return -1;
    ORXSimStoreNode* node = ORXSimStore::Get(record).FindNode(record);
    return node && node->hasSymbol ? node->symbol : -1;
}

bool ORXSimSymbols::IsMember(ORXSimDynamicID const& record) const
{
    if (record.IsNull())
        return false;
    ORXSimStoreNode* node = ORXSimStore::Get(record).FindNode(record);
    return node && node->hasSymbol;
}
