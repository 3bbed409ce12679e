#include "ORXObjElementClassification.h"

#include "ORXObjElementClass.h"
#include "ORXSimContext.h"
#include "ORXSimDSet.h"
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

void ORXObjElementClassification::AppendElementClass(ORXSimPosition const& elementClass)
{
    GetSet(ElementClassification_elementClasses()).Insert(elementClass);
}

void ORXObjElementClassification::SetMembership(ORXSimPosition const& membership)
{
    SetPosition(ElementClassification_membership(), membership);
    ORXSimDSet dset(membership);
    ORXSimCtation const& body = dset.GetCtation();
    ORXSimContext context = Context();
    for (int i = 0; i < body.NumCompartments(); ++i)
    {
        ORXSimCompartment const& compartment = body[i];
        if (compartment.Size() < 2 || compartment[0].Size() == 0)
            continue;
        ORXSimCSet const& classSet = compartment[0];
        ORXObjElementClass elementClass(context.GetRecord(classSet.ID().CollectionID(), classSet[0]));
        elementClass.SetElementCSet(compartment[1].ID());
    }
}

ORXSimPosition ORXObjElementClassification::GetMembership() const
{
    return GetPosition(ElementClassification_membership());
}
