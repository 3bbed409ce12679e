#pragma once
// A field defined on the mesh (a MeshedField record, or a distribution viewed as one): the
// distribution that holds its values and its grid type.
#include "ORXSimPosition.h"

class ORXObjMeshedField : public ORXSimPosition
{
public:
    ORXObjMeshedField() = default;
    ORXObjMeshedField(ORXSimPosition const& field) : ORXSimPosition(field) {}

    // The distribution of the field: the position itself if it is a distribution, otherwise the
    // distribution of the first drawer filed under its contents; a null identity if it has none.
    ORXSimDistributionID GetDistribution() const;
    // The grid type stored by SetGridType, a schema number; -1 if the field was never given one.
    int GetGridType() const;
    void SetGridType(int gridType) const;
};
