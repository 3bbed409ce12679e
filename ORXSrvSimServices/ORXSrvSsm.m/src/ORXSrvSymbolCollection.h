#pragma once
// Translation between the members of one collection and the symbols they stand for, one symbol type
// per object, singly and in bulk. A value class over the collection's identity; every call opens its
// own context and symbol table.
#include "ORXSimArray.h"
#include "ORXSimCMemberID.h"
#include "ORXSimCSet.h"
#include "ORXSimCollectionID.h"

class ORXSrvSymbolCollection
{
public:
    ORXSrvSymbolCollection(ORXSimCollectionID const& collection, int typeIndex);

    // The member index of the record with that symbol.
    int GetCMember(int symbol) const;
    // The symbol of the record at that member index; -1 if the record has none.
    int GetSymbol(int member) const;
    // The member indices of the symbols, in the order of the list.
    ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>>
    GetCMembers(ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> const& symbols) const;
    // The symbols of the set's members in the set's stored order, -1 where a record has none.
    ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> GetSymbols(ORXSimCSet cset) const;
    ORXSimCMemberID GetCMemberID(int symbol) const;
    // A volatile set of the members of the symbols, in the order of the list.
    ORXSimCSet CreateOCSet(ORXSimArray<int, ORXSimArrayBuiltinPolicy<int>> const& symbols) const;

private:
    ORXSimCollectionID m_collection;
    int m_typeIndex;
};
