#include "ORXSimCMemberMap.h"

#include "ORXSimCollection.h"

#include <algorithm>
#include <unordered_map>
#include <vector>

namespace
{
// Whether the set holds every member from its lowest to its highest, ascending.
bool IsRun(ORXSimCSet const& set)
{
    ORXSimIntRange const bounds = set.Bounds();
    return set.Size() > 0 && set.IsAscending() && bounds.second - bounds.first + 1 == set.Size();
}

// The map by position: member of the second set to the member at the same position in the first.
// Two runs map by an offset (and a run inside them to a run, without a walk); other pairs through a
// table, dense over the second set's bounds where that is not much larger than the set.
class ORXSimCMemberMapByPosition : public ORXSimCMemberMap
{
public:
    ORXSimCMemberMapByPosition(ORXSimCSet const& first, ORXSimCSet const& second) : m_first(first)
    {
        int const n = std::min(first.Size(), second.Size());
        ORXSimIntRange const bounds = second.Bounds();
        m_low = bounds.first;
        if (n > 0 && IsRun(first) && IsRun(second))
        {
            m_offset = first.Bounds().first - bounds.first;
            m_high = bounds.first + n - 1;
            m_runs = true;
            return;
        }
        m_high = bounds.second;
        long long const span = static_cast<long long>(bounds.second) - bounds.first + 1;
        if (n > 0 && span <= 4LL * n + 1024)
        {
            m_dense.assign(static_cast<std::size_t>(span), -1);
            for (int k = 0; k < n; ++k)
                if (m_dense[second[k] - m_low] < 0)
                    m_dense[second[k] - m_low] = first[k];
            return;
        }
        m_sparse.reserve(n);
        for (int k = 0; k < n; ++k)
            m_sparse.emplace(second[k], first[k]);
    }

    ORXSimCSet MapCSet(ORXSimCSet const& set) const override
    {
        ORXSimCollection const collection(m_first.CollectionID());
        if (m_runs && IsRun(set) && set.Bounds().first >= m_low && set.Bounds().second <= m_high)
            return collection.CreateVolatileCSetStrided(set.Bounds().first + m_offset, set.Size());
        std::vector<int> mapped;
        mapped.reserve(set.Size());
        for (int k = 0; k < set.Size(); ++k)
        {
            int const found = Find(set[k]);
            if (found >= 0)
                mapped.push_back(found);
        }
        return collection.CreateVolatileOrderedCSet(mapped.data(), static_cast<int>(mapped.size()));
    }

private:
    // The first set's member for a member of the second; -1 for none.
    int Find(int member) const
    {
        if (m_runs)
            return member >= m_low && member <= m_high ? member + m_offset : -1;
        if (!m_sparse.empty() || m_dense.empty())
        {
            auto found = m_sparse.find(member);
            return found == m_sparse.end() ? -1 : found->second;
        }
        return member >= m_low && member <= m_high ? m_dense[member - m_low] : -1;
    }

    ORXSimCSet m_first;
    bool m_runs = false;
    int m_offset = 0;
    int m_low = 0;
    int m_high = -1;
    std::vector<int> m_dense;
    std::unordered_map<int, int> m_sparse;
};
} // namespace

ORXBasSharedPtr<ORXSimCMemberMap> ORXSimCMemberMap::Create(ORXSimCSet const& first, ORXSimCSet const& second)
{
    return ORXBasSharedPtr<ORXSimCMemberMap>(new ORXSimCMemberMapByPosition(first, second));
}
