#pragma once
// Shared state of ORXSimMap handles: the name-keyed map held in a record's member.
#include "ORXSimStore.h"

class ORXSimSelectionMap
{
public:
    ORXSimSelectionMap() = default;
    ORXSimSelectionMap(ORXSimDynamicID const& owner, int member, std::shared_ptr<ORXSimStoreMap> map)
        : m_owner(owner), m_member(member), m_map(std::move(map))
    {
    }
    std::map<ORXString, ORXSimDynamicID> const& Items() const;
    void Insert(ORXString const& key, ORXSimDynamicID const& record);

    int refCount = 0;

private:
    ORXSimDynamicID m_owner;
    int m_member = -1;
    std::shared_ptr<ORXSimStoreMap> m_map;
};
