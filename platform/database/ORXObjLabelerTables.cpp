#include "internal/ORXObjLabelerTables.h"

#include <algorithm>

namespace
{
bool ByFirst(std::pair<int, int> const& a, std::pair<int, int> const& b)
{
    return a.first < b.first;
}
} // namespace

void ORXObjLabelerTables::Define(ORXString const& instance, int const* ordinals, int const* labels, int count)
{
    std::string key(instance.CStr(), instance.GetLengthInByte());
    auto [place, isNew] = m_indexByName.emplace(key, static_cast<int>(m_instances.size()));
    if (isNew)
        m_instances.push_back(Instance{instance, {}, {}});
    auto& pairs = m_instances[place->second].byOrdinal;
    pairs.reserve(pairs.size() + std::max(count, 0));
    for (int i = 0; i < count; ++i)
        pairs.emplace_back(ordinals[i], labels[i]);
    m_final = false;
}

void ORXObjLabelerTables::Finalize()
{
    if (m_final)
        return;
    m_ownerByOrdinal.clear();
    for (int place = 0; place < static_cast<int>(m_instances.size()); ++place)
    {
        auto& instance = m_instances[place];
        auto& pairs = instance.byOrdinal;
        // Keep the last label given for an ordinal: a stable sort keeps definition order among
        // equal ordinals, and the reverse scan below takes the latest of each run.
        std::stable_sort(pairs.begin(), pairs.end(), ByFirst);
        std::vector<std::pair<int, int>> unique;
        unique.reserve(pairs.size());
        for (std::size_t i = 0; i < pairs.size(); ++i)
            if (i + 1 == pairs.size() || pairs[i + 1].first != pairs[i].first)
                unique.push_back(pairs[i]);
        pairs.swap(unique);

        instance.byLabel.clear();
        instance.byLabel.reserve(pairs.size());
        for (auto const& [ordinal, label] : pairs)
        {
            instance.byLabel.emplace_back(label, ordinal);
            m_ownerByOrdinal.emplace_back(ordinal, place);
        }
        std::sort(instance.byLabel.begin(), instance.byLabel.end());
    }
    // Instances were appended in definition order, so the first of equal ordinals is the earliest.
    std::stable_sort(m_ownerByOrdinal.begin(), m_ownerByOrdinal.end(), ByFirst);
    m_final = true;
}

ORXObjLabelerTables::Instance const* ORXObjLabelerTables::Find(ORXString const& name) const
{
    auto found = m_indexByName.find(std::string(name.CStr(), name.GetLengthInByte()));
    return found == m_indexByName.end() ? nullptr : &m_instances[found->second];
}

ORXObjLabelerTables::Instance const* ORXObjLabelerTables::OwnerOf(int ordinal) const
{
    auto found = std::lower_bound(m_ownerByOrdinal.begin(), m_ownerByOrdinal.end(),
                                  std::make_pair(ordinal, 0), ByFirst);
    if (found == m_ownerByOrdinal.end() || found->first != ordinal)
        return nullptr;
    return &m_instances[found->second];
}

namespace
{
struct DocumentLabels
{
    std::shared_ptr<ORXObjLabelerTables> tables[2];
};

std::map<std::uint64_t, DocumentLabels>& Store()
{
    static std::map<std::uint64_t, DocumentLabels> store;
    return store;
}

int Slot(int type)
{
    return type == 0 ? 0 : 1;
}
} // namespace

void ORXObjLabelerStore::Define(std::uint64_t context, int type, ORXString const& instance,
                                int const* ordinals, int const* labels, int count)
{
    auto& tables = Store()[context].tables[Slot(type)];
    if (!tables)
        tables = std::make_shared<ORXObjLabelerTables>();
    else if (tables.use_count() > 1)
        tables = std::make_shared<ORXObjLabelerTables>(*tables); // a labeler still reads the old ones
    tables->Define(instance, ordinals, labels, count);
}

std::shared_ptr<ORXObjLabelerTables const> ORXObjLabelerStore::Tables(std::uint64_t context, int type)
{
    auto document = Store().find(context);
    if (document == Store().end() || !document->second.tables[Slot(type)])
    {
        static auto const empty = std::make_shared<ORXObjLabelerTables const>();
        return empty;
    }
    auto& tables = document->second.tables[Slot(type)];
    tables->Finalize(); // unshared whenever it has definitions to fold in (see Define)
    return tables;
}

void ORXObjLabelerStore::Forget(std::uint64_t context)
{
    Store().erase(context);
}
