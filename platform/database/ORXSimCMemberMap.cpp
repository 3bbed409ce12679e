#include "ORXSimCMemberMap.h"

#include "ORXSimCollection.h"
#include "ORXSimIndexSet.h"

#include <unordered_map>
#include <vector>

namespace
{
// The map by position: member of the second set to the member at the same position in the first.
class ORXSimCMemberMapByPosition : public ORXSimCMemberMap
{
public:
    ORXSimCMemberMapByPosition(ORXSimCSet const& first, ORXSimCSet const& second) : m_first(first)
    {
        int const n = std::min(first.Size(), second.Size());
        m_toFirst.reserve(n);
        for (int k = 0; k < n; ++k)
            m_toFirst.emplace(second[k], first[k]);
    }
    ORXSimCSet MapCSet(ORXSimCSet const& set) const override
    {
        std::vector<int> mapped;
        mapped.reserve(set.Size());
        for (int k = 0; k < set.Size(); ++k)
        {
            auto found = m_toFirst.find(set[k]);
            if (found != m_toFirst.end())
                mapped.push_back(found->second);
        }
        return ORXSimCollection(m_first.CollectionID())
            .CreateVolatileOrderedCSet(mapped.data(), static_cast<int>(mapped.size()));
    }

private:
    ORXSimCSet m_first;
    std::unordered_map<int, int> m_toFirst;
};
} // namespace

ORXBasSharedPtr<ORXSimCMemberMap> ORXSimCMemberMap::Create(ORXSimCSet const& first, ORXSimCSet const& second)
{
    return ORXBasSharedPtr<ORXSimCMemberMap>(new ORXSimCMemberMapByPosition(first, second));
}
