#include "ORXSrvGlobalLabelMap.h"

#include "ORXSimCSetIterator.h"
#include "ORXSimDistribution.h"
#include "ORXSimTransfer.h"
#include "ORXSrvChecks.h"
#include "mem_Entries.h"

ORXSrvGlobalLabelMap::ORXSrvGlobalLabelMap(ORXSimPosition focus, ORXSrvLabelerType labelerType)
    : m_focus(focus), m_labelerType(labelerType), m_labels(nullptr)
{
}

ORXSrvGlobalLabelMap::~ORXSrvGlobalLabelMap()
{
    delete m_labels;
}

void ORXSrvGlobalLabelMap::Initialize(ORXSimPosition labels)
{
    m_labels = new omi_IntTable<int, ORXBasOmiDefaultAllocator>();
    LoadGlobalLabels(labels, *m_labels);
}

void ORXSrvGlobalLabelMap::Initialize(omi_IntTable<int, ORXBasOmiDefaultAllocator> const& table)
{
    m_labels = const_cast<omi_IntTable<int, ORXBasOmiDefaultAllocator>*>(&table);
}

void ORXSrvGlobalLabelMap::LoadGlobalLabels(ORXSimPosition position,
                                            omi_IntTable<int, ORXBasOmiDefaultAllocator>& table)
{
    ORXSimDistribution const distribution(position.GetDistribution());
    ORXSimArray<ORXSimPersistentDrawerDesc, ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>> drawers(1, 0);
    distribution.QueryDrawers(drawers);
    if (drawers.Size() == 0)
        return;
    ORXSimCSet const members = drawers[0].Domain().CSet(0);
    std::size_t const bytes = static_cast<std::size_t>(members.Size()) * sizeof(int);
    int* buffer = static_cast<int*>(mem_Malloc(bytes));
    ORXSimTransfer read(distribution);
    read.SetRead().SetBufferPadding(false).SetDim(0, members).CheckView();
    read.SetBuffer(0, buffer, bytes);
    read.ExecRead();
    ORXSimCSetIterator member(members);
    for (member.First(); !member.IsDone(); member.Next())
        table.Insert(buffer[member.CurrentLocation()], member.CurrentValue());
    mem_Free(buffer);
}

bool ORXSrvGlobalLabelMap::GetInstanceLabel(int globalLabel, ORXString& instance, int& localLabel) const
{
    ORXSrvFatalCheck(m_focus.IsNull() == false);
    if (!m_labels->IsMember(globalLabel))
        return false;
    int const ordinal = m_labels->ConstGet(globalLabel);
    return ORXSrvGetInstanceInfo(m_focus, m_labelerType, ordinal, instance, localLabel);
}

ORXSimPosition ORXSrvGlobalLabelMap::Focus() const
{
    return m_focus;
}
