#include "ORXObjMeshedField.h"

#include "ORXSimDataRecord.h"
#include "ORXSimSet.h"
#include "vds_CoreFragmentTypeIndex.h"

namespace
{
int MeshedField_contents()
{
    return vds_CoreFragmentTypeIndex(13, 71);
}
int FieldContent_drawers()
{
    return vds_CoreFragmentTypeIndex(13, 79);
}
// Data-record field of a meshed field that holds its grid type (field 0 holds its distribution type).
int const gridTypeField = 1;
} // namespace

ORXSimDistributionID ORXObjMeshedField::GetDistribution() const
{
    ORXSimDistributionID own = ORXSimPosition::GetDistribution();
    if (!own.IsNull())
        return own;
    for (ORXSimSetiterator content = GetSet(MeshedField_contents()).Begin(); content.NotDone(); ++content)
        for (ORXSimSetiterator drawer = (*content).GetSet(FieldContent_drawers()).Begin(); drawer.NotDone();
             ++drawer)
        {
            ORXSimDrawerID id = (*drawer).GetDrawer();
            if (!id.IsNull())
                return id.DistributionID();
        }
    return ORXSimDistributionID();
}

int ORXObjMeshedField::GetGridType() const
{
    int gridType = -1;
    GetDataRecord().GetInt(gridTypeField, gridType);
    return gridType;
}

void ORXObjMeshedField::SetGridType(int gridType) const
{
    GetDataRecord().SetInt(gridTypeField, gridType);
}
