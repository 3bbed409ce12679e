#include "ORXObjElementClassification.h"

#include "ORXSimSet.h"
#include "vds_CoreFragmentTypeIndex.h"

namespace
{
int ElementClassification_elementClasses()
{
    return vds_CoreFragmentTypeIndex(23, 12);
}
int ElementClassification_membership()
{
    return vds_CoreFragmentTypeIndex(23, 127);
}
} // namespace

void ORXObjElementClassification::AppendElementClass(ORXSimPosition const& elementClass) const
{
    GetSet(ElementClassification_elementClasses()).Insert(elementClass);
}

ORXSimPosition ORXObjElementClassification::GetMembership() const
{
    return GetPosition(ElementClassification_membership());
}
