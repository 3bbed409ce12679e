#pragma once
// Shared state of ORXSimSet handles: a live set held in a record's member, or a computed list of
// records (such as the referrers of a record, which may name one holder more than once).
#include "ORXSimStore.h"

class ORXSimSelectionSet
{
public:
    // A live set of owner's member; adding to it records the holding.
    ORXSimSelectionSet(ORXSimDynamicID const& owner, int member, std::shared_ptr<ORXSimStoreSet> set)
        : m_owner(owner), m_member(member), m_live(std::move(set))
    {
    }
    // A computed list.
    explicit ORXSimSelectionSet(std::vector<ORXSimDynamicID> items) : m_items(std::move(items)) {}

    std::vector<ORXSimDynamicID> const& Items() const;
    bool Insert(ORXSimDynamicID const& record);

    int refCount = 0;

private:
    ORXSimDynamicID m_owner;
    int m_member = -1;
    std::shared_ptr<ORXSimStoreSet> m_live;
    std::vector<ORXSimDynamicID> m_items;
};
