#pragma once
// The result of ORXSimPosition::Associate: the holder, member, key and the record associated.
#include "ORXSimPosition.h"

class ORXSimAssociation
{
public:
    ORXSimAssociation() = default;
    ORXSimAssociation(ORXSimPosition const& holder, int member, int key, ORXSimPosition const& target)
        : m_holder(holder), m_target(target), m_member(member), m_key(key)
    {
    }
    ORXSimPosition Holder() const { return m_holder; }
    ORXSimPosition Target() const { return m_target; }
    int Member() const { return m_member; }
    int Key() const { return m_key; }

private:
    ORXSimPosition m_holder;
    ORXSimPosition m_target;
    int m_member = -1;
    int m_key = 0;
};
