#pragma once
// The values of one node by schema member: a vector of (member, value) pairs in ascending member
// order. A node holds few members of each kind, so a search through a short contiguous vector is
// cheaper than a hash table, and an empty map holds no memory.
#include <algorithm>
#include <utility>
#include <vector>

template <class V> class ORXSimStoreMemberMap
{
public:
    // The value of member; null if it has none.
    V* Find(int member)
    {
        auto const at = LowerBound(member);
        return at != m_entries.end() && at->first == member ? &at->second : nullptr;
    }
    V const* Find(int member) const { return const_cast<ORXSimStoreMemberMap*>(this)->Find(member); }
    // The value of member, made value-initialised if it has none. The reference lasts until the
    // next insertion into this map.
    V& operator[](int member)
    {
        auto at = LowerBound(member);
        if (at == m_entries.end() || at->first != member)
            at = m_entries.insert(at, std::pair<int, V>(member, V()));
        return at->second;
    }
    // Removes member's value; false if it had none.
    bool Erase(int member)
    {
        auto const at = LowerBound(member);
        if (at == m_entries.end() || at->first != member)
            return false;
        m_entries.erase(at);
        return true;
    }

private:
    typename std::vector<std::pair<int, V>>::iterator LowerBound(int member)
    {
        return std::lower_bound(m_entries.begin(), m_entries.end(), member,
                                [](std::pair<int, V> const& entry, int m) { return entry.first < m; });
    }

    std::vector<std::pair<int, V>> m_entries;
};
