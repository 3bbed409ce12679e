#include "ORXSrvSectionServices.h"

#include "ORXObjDocument.h"
#include "ORXSimCSet.h"
#include "ORXSimSet.h"
#include "ORXSimVector.h"
#include "ORXSrvChecks.h"
#include "vds_CoreFragmentTypeIndex.h"

namespace
{
int const Model_sectionAssignments = vds_CoreFragmentTypeIndex(25, 26);
int const SectionAssignment_region = vds_CoreFragmentTypeIndex(50, 49);
int const Region_discreteRegion = vds_CoreFragmentTypeIndex(47, 29);
int const DiscreteRegion_elset = vds_CoreFragmentTypeIndex(47, 1);

// The assignments of the model of the position's document, in model order.
ORXSimVector Assignments(ORXSimPosition const& position)
{
    ORXObjDocument const document(position.Focus());
    return document.GetModel().GetVector(Model_sectionAssignments);
}

// The element set of an assignment, through its region and the region's first discrete region.
ORXSimPosition ElementSetOf(ORXSimPosition const& assignment)
{
    ORXSimPosition const region = assignment.GetPosition(SectionAssignment_region);
    ORXSrvFatalCheck(!region.IsNull());
    ORXSimPosition const discreteRegion = *region.GetSet(Region_discreteRegion).Begin();
    ORXSrvFatalCheck(!discreteRegion.IsNull());
    ORXSimPosition const elsetPos = discreteRegion.GetPosition(DiscreteRegion_elset);
    ORXSrvFatalCheck(!elsetPos.IsNull());
    return elsetPos;
}
} // namespace

ORXSimPosition ORXSrvSectionServices::GetSectionAssignment(ORXSimPosition position)
{
    if (position.IsNull())
        return ORXSimPosition();
    ORXSimVector const assignments = Assignments(position);
    for (int i = 0; i < assignments.Size(); ++i)
    {
        ORXSimPosition const assignment = assignments.At(i);
        ORXSimPosition const elsetPos = ElementSetOf(assignment);
        if (ORXSimDynamicID::Equal(elsetPos, position))
            return assignment;
        ORXSimCSet const positionCSet = position.CSet();
        ORXSimCSet const elsetCSet = elsetPos.CSet();
        if (elsetCSet.Intersection(positionCSet).Size() == positionCSet.Size())
            return assignment;
    }
    return ORXSimPosition();
}

ORXBasMap<ORXSimPosition, ORXSimPosition>
ORXSrvSectionServices::GetSectionAssignments(ORXSimPosition position)
{
    ORXBasMap<ORXSimPosition, ORXSimPosition> covered;
    if (position.IsNull())
        return covered;
    ORXSimCSet rest = position.CSet();
    ORXSimVector const assignments = Assignments(position);
    for (int i = 0; i < assignments.Size(); ++i)
    {
        ORXSimPosition const assignment = assignments.At(i);
        ORXSimCSet intersection = ElementSetOf(assignment).CSet().Intersection(rest);
        if (intersection.Size() > 0)
        {
            intersection.RegisterWithTempCollection();
            covered.insert(ORXBasPair<ORXSimPosition const, ORXSimPosition>(intersection.Pos(), assignment));
            rest = rest - intersection;
            rest.RegisterWithTempCollection();
            if (rest.IsEmpty())
                break;
        }
    }
    if (!rest.IsEmpty())
        covered.insert(ORXBasPair<ORXSimPosition const, ORXSimPosition>(rest.Pos(), ORXSimPosition()));
    return covered;
}
