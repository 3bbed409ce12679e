#include "ORXObjMesh.h"

#include "vds_CoreFragmentTypeIndex.h"

// Each getter reads one member of the mesh record, group 23; its setter writes the same member.
#define ORXOBJ_MESH_MEMBER(Getter, Setter, member)                                                           \
    ORXSimPosition ORXObjMesh::Getter() const                                                                \
    {                                                                                                        \
        return GetPosition(vds_CoreFragmentTypeIndex(23, member));                                           \
    }                                                                                                        \
    void ORXObjMesh::Setter(ORXSimPosition const& position)                                                  \
    {                                                                                                        \
        SetPosition(vds_CoreFragmentTypeIndex(23, member), position);                                        \
    }

ORXOBJ_MESH_MEMBER(GetNodeCollection, SetNodeCollection, 79)
ORXOBJ_MESH_MEMBER(GetElementCollection, SetElementCollection, 65)
ORXOBJ_MESH_MEMBER(GetConnectivity, SetConnectivity, 59)
ORXOBJ_MESH_MEMBER(GetCoordinates, SetCoordinates, 121)
ORXOBJ_MESH_MEMBER(GetElementClassification, SetElementClassification, 122)
ORXOBJ_MESH_MEMBER(GetElementSpecAssignment, SetElementSpecAssignment, 123)
ORXOBJ_MESH_MEMBER(GetShapeFormulationLogicalSectionClassification,
                   SetShapeFormulationLogicalSectionClassification, 124)
ORXOBJ_MESH_MEMBER(GetUserNodes, SetUserNodes, 125)
ORXOBJ_MESH_MEMBER(GetElementClassCollection, SetElementClassCollection, 126)

#undef ORXOBJ_MESH_MEMBER
