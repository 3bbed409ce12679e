#include "ORXSrvSetMapperFactory.h"

#include "ORXObjDocument.h"
#include "ORXSimCSet.h"
#include "ORXSimDataRecord.h"
#include "ORXSrvChecks.h"
#include "vds_CoreFragmentTypeIndex.h"

namespace
{
int const Document_model = vds_CoreFragmentTypeIndex(25, 1);
int const Model_mesh = vds_CoreFragmentTypeIndex(20, 0);
int const Mesh_activeNodes = vds_CoreFragmentTypeIndex(23, 82);
int const Mesh_activeElements = vds_CoreFragmentTypeIndex(23, 68);
int const Model_dofMapper = vds_CoreFragmentTypeIndex(25, 9);
int const Model_nodeMapper = vds_CoreFragmentTypeIndex(25, 18);
int const Model_elementMapper = vds_CoreFragmentTypeIndex(25, 10);
int const MapperRecord = vds_CoreFragmentTypeIndex(16, 0);
int const MapperRecord_second = vds_CoreFragmentTypeIndex(16, 1);
int const MapperRecord_first = vds_CoreFragmentTypeIndex(16, 2);
int const NodeCollectionType = vds_CoreFragmentTypeIndex(23, 91);
int const ElementCollectionType = vds_CoreFragmentTypeIndex(23, 14);
int const DofCollectionType = vds_CoreFragmentTypeIndex(23, 2);

ORXSimCSetID ActiveOrdinals(ORXSimPosition const& position, int member)
{
    return position.Focus().GetPosition(Document_model).GetPosition(Model_mesh).GetPosition(member).GetCSet();
}

// The mapper record under that member of the model of the position's document.
ORXSimPosition MapperOf(ORXSimPosition const& position, int member)
{
    return ORXObjDocument(position.Focus().Doc()).GetModel().GetPosition(member);
}

ORXBasSharedPtr<ORXSimCMemberMap> MemberMap(ORXSimPosition const& position, int member)
{
    ORXSimPosition const record = MapperOf(position, member);
    ORXSimCSet const first(record.GetPosition(MapperRecord_first).GetCSet());
    ORXSimCSet const second(record.GetPosition(MapperRecord_second).GetCSet());
    return ORXSimCMemberMap::Create(first, second);
}
} // namespace

ORXSimCSetID ORXSrvSetMapperFactory::GetActiveNodalOrdinals(ORXSimPosition position)
{
    return ActiveOrdinals(position, Mesh_activeNodes);
}

ORXSimCSetID ORXSrvSetMapperFactory::GetActiveElementOrdinals(ORXSimPosition position)
{
    return ActiveOrdinals(position, Mesh_activeElements);
}

ORXBasSharedPtr<ORXSimCMemberMap> ORXSrvSetMapperFactory::DofMapper(ORXSimPosition position)
{
    return MemberMap(position, Model_dofMapper);
}

ORXBasSharedPtr<ORXSimCMemberMap> ORXSrvSetMapperFactory::NodeMapper(ORXSimPosition position)
{
    return MemberMap(position, Model_nodeMapper);
}

ORXBasSharedPtr<ORXSimCMemberMap> ORXSrvSetMapperFactory::ElementMapper(ORXSimPosition position)
{
    return MemberMap(position, Model_elementMapper);
}

ORXSimCSetID ORXSrvSetMapperFactory::GetPermutationNodes(ORXSimPosition position)
{
    return MapperOf(position, Model_nodeMapper).GetPosition(MapperRecord_first).GetCSet();
}

ORXSimCSetID ORXSrvSetMapperFactory::GetPermutationElements(ORXSimPosition position)
{
    return MapperOf(position, Model_elementMapper).GetPosition(MapperRecord_first).GetCSet();
}

void ORXSrvSetMapperFactory::PersistMapper(ORXSimPosition const& first, ORXSimPosition const& second)
{
    ORXSimPosition const record = second.CreateDataRecord(MapperRecord).Pos();
    ORXSimPosition const secondCollection(second.GetCSet().CollectionID());
    record.SetPosition(MapperRecord_second, ORXSimPosition(second.ID()));
    record.SetPosition(MapperRecord_first, ORXSimPosition(first.ID()));
    int const type = secondCollection.TypePosition();
    int member = 0;
    if (type == NodeCollectionType)
        member = Model_nodeMapper;
    else if (type == ElementCollectionType)
        member = Model_elementMapper;
    else if (type == DofCollectionType)
        member = Model_dofMapper;
    else
        ORXSrvAssert(0);
    ORXObjDocument(second.Doc()).GetModel().SetPosition(member, record);
}
