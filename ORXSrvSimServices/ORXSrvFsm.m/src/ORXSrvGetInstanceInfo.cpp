#include "ORXSrvGetInstanceInfo.h"

#include "ORXObjLabeler.h"
#include "ORXSimSet.h"
#include "vds_CoreFragmentTypeIndex.h"

namespace
{
int const Model_nodeSets = vds_CoreFragmentTypeIndex(47, 7);
int const Model_nodeSetsAlt = vds_CoreFragmentTypeIndex(47, 8);
int const Model_elementSets = vds_CoreFragmentTypeIndex(47, 5);
int const Model_elementSetsAlt = vds_CoreFragmentTypeIndex(47, 6);

ORXString SetName(ORXSimCSetID const& cset, int firstMap, int secondMap)
{
    ORXString name;
    ORXSimPosition const set(cset);
    if (!ORXSrvGetReferenceKey(set, firstMap, name))
        ORXSrvGetReferenceKey(set, secondMap, name);
    return name;
}
} // namespace

bool ORXSrvGetInstanceInfo(ORXSimPosition const& position, ORXSrvLabelerType type, int ordinal,
                           ORXString& instance, int& label)
{
    ORXObjLabeler labeler(position, type != 0 ? 1 : 0);
    labeler.Read();
    if (!labeler.GetOccurrenceForFlatMeshOrdinal(ordinal, instance))
        return false;
    label = labeler.GetInstanceLabel(instance, ordinal);
    return true;
}

bool ORXSrvGetReferenceKey(ORXSimPosition const& position, int member, ORXString& key)
{
    if (position.ReferrersSet(member).Size() != 1)
        return false;
    key = position.GetReferenceKey(member);
    return true;
}

ORXString ORXSrvGetNodeSetNameFromCSetID(ORXSimPosition const&, ORXSimCSetID const& cset)
{
    return SetName(cset, Model_nodeSets, Model_nodeSetsAlt);
}

ORXString ORXSrvGetElementSetNameFromCSetID(ORXSimPosition const&, ORXSimCSetID const& cset)
{
    return SetName(cset, Model_elementSets, Model_elementSetsAlt);
}

ORXString ORXSrvGetSurfaceNameFromID(ORXSimPosition const&, ORXSimDynamicID const& id)
{
    return ORXSimPosition(id).Name(-1);
}
