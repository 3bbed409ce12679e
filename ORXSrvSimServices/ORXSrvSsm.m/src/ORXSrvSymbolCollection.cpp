#include "ORXSrvSymbolCollection.h"

#include "ORXSimCSetIterator.h"
#include "ORXSimCollection.h"
#include "ORXSimContext.h"
#include "ORXSimSymbols.h"

namespace
{
int SymbolOfRecord(ORXSimContext const& context, ORXSimSymbols const& symbols,
                   ORXSimCollectionID const& collection, int member)
{
    ORXSimDynamicID const id = context.GetRecord(collection, member);
    return symbols.IsMember(id) ? symbols.Get(id) : -1;
}
} // namespace

ORXSrvSymbolCollection::ORXSrvSymbolCollection(ORXSimCollectionID const& collection, int typeIndex)
    : m_collection(collection), m_typeIndex(typeIndex)
{
}

int ORXSrvSymbolCollection::GetCMember(int symbol) const
{
    ORXSimContext const context(m_collection.ContextID());
    ORXSimSymbols const symbols(m_collection.ContextID());
    return context.GetCMemberIndex(symbols.Get(context.Schema().TypeID(m_typeIndex), symbol, m_collection));
}

int ORXSrvSymbolCollection::GetSymbol(int member) const
{
    ORXSimContext const context(m_collection.ContextID());
    ORXSimSymbols const symbols(m_collection.ContextID());
    return SymbolOfRecord(context, symbols, m_collection, member);
}

ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>>
ORXSrvSymbolCollection::GetCMembers(ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> const& symbolList) const
{
    ORXSimContext const context(m_collection.ContextID());
    ORXSimSymbols const symbols(m_collection.ContextID());
    ORXSimTypeID const type = context.Schema().TypeID(m_typeIndex);
    ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> members(symbolList.Size(), 0);
    for (int i = 0; i < symbolList.Size(); ++i)
        members[i] = context.GetCMemberIndex(symbols.Get(type, symbolList[i], m_collection));
    return members;
}

ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> ORXSrvSymbolCollection::GetSymbols(ORXSimCSet cset) const
{
    ORXSimContext const context(m_collection.ContextID());
    ORXSimSymbols const symbols(m_collection.ContextID());
    ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> result(cset.Size(), 0);
    ORXSimCSetIterator it(cset);
    for (it.First(); !it.IsDone(); it.Next())
        result[it.CurrentLocation()] = SymbolOfRecord(context, symbols, m_collection, it.CurrentValue());
    return result;
}

ORXSimCMemberID ORXSrvSymbolCollection::GetCMemberID(int symbol) const
{
    return ORXSimCMemberID(m_collection, GetCMember(symbol));
}

ORXSimCSet
ORXSrvSymbolCollection::CreateOCSet(ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> const& symbols) const
{
    ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> const members = GetCMembers(symbols);
    return ORXSimCollection(m_collection)
        .CreateVolatileOrderedCSet(ORXSimArrayPointer(members), members.Size());
}
