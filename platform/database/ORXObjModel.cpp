#include "ORXObjModel.h"

#include "ORXSimMap.h"
#include "vds_CoreFragmentTypeIndex.h"

namespace
{
int Model_mesh()
{
    return vds_CoreFragmentTypeIndex(20, 0);
}
int Model_steps()
{
    return vds_CoreFragmentTypeIndex(57, 25);
}
} // namespace

ORXSimPosition ORXObjModel::GetMesh() const
{
    return GetPosition(Model_mesh());
}

void ORXObjModel::SetMesh(ORXSimPosition const& mesh) const
{
    SetPosition(Model_mesh(), mesh);
}

ORXSimPosition ORXObjModel::GetStep(ORXString const& name) const
{
    return GetMap(Model_steps()).Find(name);
}
