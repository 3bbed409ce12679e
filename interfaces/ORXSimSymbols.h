#pragma once
// The symbols of collection members (set with ORXSimPosition::SetSymbol): symbol to member and back.
#include "ORXSimCollectionID.h"
#include "ORXSimContextID.h"
#include "ORXSimTypeID.h"
#include "ORXString.h"

class ORXSimSymbols
{
public:
    explicit ORXSimSymbols(ORXSimContextID const& context) : m_context(context) {}
    // The member with that symbol in the collection; a null identity if none has it.
    ORXSimDynamicID Get(ORXSimTypeID const& type, int symbol, ORXSimCollectionID const& collection) const;
    // The same, with the type given by its schema number.
    ORXSimDynamicID Get(int type, int symbol, ORXSimCollectionID const& collection) const
    {
        return Get(ORXSimTypeID(type), symbol, collection);
    }
    // The member whose symbol text is `name`; a null identity if none has it.
    ORXSimDynamicID GetByName(ORXSimTypeID const& type, ORXString const& name,
                              ORXSimCollectionID const& collection) const;
    // The symbol of a record; -1 if it has none.
    int Get(ORXSimDynamicID const& record) const;
    bool IsMember(ORXSimDynamicID const& record) const;

private:
    ORXSimContextID m_context;
};
