#include "ORXObjLabeler.h"

#include "internal/ORXObjLabelerTables.h"

#include <algorithm>
#include <climits>

ORXObjLabeler::ORXObjLabeler(ORXObjDocument const& document, ORXObjLabelerType type)
    : m_document(document), m_type(type)
{
}

ORXObjLabeler::ORXObjLabeler(ORXSimPosition const& position, ORXObjLabelerType type)
    : m_document(position), m_type(type)
{
}

ORXObjLabeler::~ORXObjLabeler() = default;

void ORXObjLabeler::DefineInstance(ORXObjDocument const& document, ORXObjLabelerType type,
                                   ORXString const& instance, int const* ordinals, int const* labels,
                                   int count)
{
    ORXObjLabelerStore::Define(document.ContextID().Value(), type, instance, ordinals, labels, count);
}

void ORXObjLabeler::Read()
{
    m_tables = ORXObjLabelerStore::Tables(m_document.ContextID().Value(), m_type);
}

ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> ORXObjLabeler::Occurrences() const
{
    auto const& instances = m_tables->Instances();
    ORXSimArray<ORXString, ORXSimArrayClassPolicy<ORXString>> names(static_cast<int>(instances.size()), 0);
    for (int i = 0; i < names.Size(); ++i)
        names.Get(i) = instances[i].name;
    return names;
}

bool ORXObjLabeler::IsInstanceValid(ORXString const& instance) const
{
    return m_tables->Find(instance) != nullptr;
}

int ORXObjLabeler::GetInstanceLabel(ORXString const& instance, int ordinal) const
{
    auto const* found = m_tables->Find(instance);
    if (!found)
        return -1;
    auto const& pairs = found->byOrdinal;
    auto entry = std::lower_bound(pairs.begin(), pairs.end(), std::make_pair(ordinal, INT_MIN));
    return entry != pairs.end() && entry->first == ordinal ? entry->second : -1;
}

void ORXObjLabeler::GetInstanceLabelsAndOrdinals(ORXString const& instance, ORXBasVector<int>& labels,
                                                 ORXBasVector<int>& ordinals) const
{
    auto const* found = m_tables->Find(instance);
    int count = found ? static_cast<int>(found->byLabel.size()) : 0;
    labels.resize(count);
    ordinals.resize(count);
    for (int i = 0; i < count; ++i)
    {
        labels[i] = found->byLabel[i].first;
        ordinals[i] = found->byLabel[i].second;
    }
}

bool ORXObjLabeler::GetOccurrenceForFlatMeshOrdinal(int ordinal, ORXString& instance) const
{
    auto const* owner = m_tables->OwnerOf(ordinal);
    if (!owner)
        return false;
    instance = owner->name;
    return true;
}
