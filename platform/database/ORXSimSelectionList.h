#pragma once
// Shared state of ORXSimVector handles: the list held in a record's member.
#include "ORXSimStore.h"

class ORXSimSelectionList
{
public:
    ORXSimSelectionList() = default;
    ORXSimSelectionList(ORXSimDynamicID const& owner, int member, std::shared_ptr<ORXSimStoreList> list)
        : m_owner(owner), m_member(member), m_list(std::move(list))
    {
    }
    std::vector<ORXSimDynamicID> const& Items() const;
    void PushBack(ORXSimDynamicID const& record);

    int refCount = 0;

private:
    ORXSimDynamicID m_owner;
    int m_member = -1;
    std::shared_ptr<ORXSimStoreList> m_list;
};
