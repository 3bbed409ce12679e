#include "ORXObjMesh.h"

#include "vds_CoreFragmentTypeIndex.h"

namespace
{
int Mesh_nodes()
{
    return vds_CoreFragmentTypeIndex(23, 79);
}
int Mesh_elements()
{
    return vds_CoreFragmentTypeIndex(23, 65);
}
int Mesh_connectivity()
{
    return vds_CoreFragmentTypeIndex(23, 59);
}
int Mesh_coordinates()
{
    return vds_CoreFragmentTypeIndex(23, 121);
}
int Mesh_elementClassification()
{
    return vds_CoreFragmentTypeIndex(23, 122);
}
int Mesh_elementSpecAssignment()
{
    return vds_CoreFragmentTypeIndex(23, 123);
}
int Mesh_shapeFormulationLogicalSectionClassification()
{
    return vds_CoreFragmentTypeIndex(23, 124);
}
int Mesh_userNodes()
{
    return vds_CoreFragmentTypeIndex(23, 125);
}
int Mesh_elementClasses()
{
    return vds_CoreFragmentTypeIndex(23, 126);
}
} // namespace

ORXSimPosition ORXObjMesh::GetNodeCollection() const
{
    return GetPosition(Mesh_nodes());
}
ORXSimPosition ORXObjMesh::GetElementCollection() const
{
    return GetPosition(Mesh_elements());
}
ORXSimPosition ORXObjMesh::GetConnectivity() const
{
    return GetPosition(Mesh_connectivity());
}
ORXSimPosition ORXObjMesh::GetCoordinates() const
{
    return GetPosition(Mesh_coordinates());
}
ORXSimPosition ORXObjMesh::GetElementClassification() const
{
    return GetPosition(Mesh_elementClassification());
}
ORXSimPosition ORXObjMesh::GetElementSpecAssignment() const
{
    return GetPosition(Mesh_elementSpecAssignment());
}
ORXSimPosition ORXObjMesh::GetShapeFormulationLogicalSectionClassification() const
{
    return GetPosition(Mesh_shapeFormulationLogicalSectionClassification());
}
ORXSimPosition ORXObjMesh::GetUserNodes() const
{
    return GetPosition(Mesh_userNodes());
}
ORXSimPosition ORXObjMesh::GetElementClassCollection() const
{
    return GetPosition(Mesh_elementClasses());
}

void ORXObjMesh::SetNodeCollection(ORXSimPosition const& position)
{
    SetPosition(Mesh_nodes(), position);
}
void ORXObjMesh::SetElementCollection(ORXSimPosition const& position)
{
    SetPosition(Mesh_elements(), position);
}
void ORXObjMesh::SetConnectivity(ORXSimPosition const& position)
{
    SetPosition(Mesh_connectivity(), position);
}
void ORXObjMesh::SetCoordinates(ORXSimPosition const& position)
{
    SetPosition(Mesh_coordinates(), position);
}
void ORXObjMesh::SetElementClassification(ORXSimPosition const& position)
{
    SetPosition(Mesh_elementClassification(), position);
}
void ORXObjMesh::SetElementSpecAssignment(ORXSimPosition const& position)
{
    SetPosition(Mesh_elementSpecAssignment(), position);
}
void ORXObjMesh::SetShapeFormulationLogicalSectionClassification(ORXSimPosition const& position)
{
    SetPosition(Mesh_shapeFormulationLogicalSectionClassification(), position);
}
void ORXObjMesh::SetUserNodes(ORXSimPosition const& position)
{
    SetPosition(Mesh_userNodes(), position);
}
void ORXObjMesh::SetElementClassCollection(ORXSimPosition const& position)
{
    SetPosition(Mesh_elementClasses(), position);
}
