#pragma once
// Handle on a distribution: values over the cross product of the collections of its grid, stored
// in drawers. Copies share the context and copy the grid and member arrays.
#include "ORXSimArray.h"
#include "ORXSimContext.h"
#include "ORXSimDMember.h"
#include "ORXSimDistributionID.h"
#include "ORXSimDrawerID.h"
#include "ORXSimGrid.h"
#include "ORXSimPersistentDrawerDesc.h"
#include "ORXSimRangeType.h"

class ORXSimDistribution
{
public:
    ORXSimDistribution(ORXSimDistributionID const& id);
    ORXSimDistributionID ID() const { return m_id; }
    ORXSimGrid Grid() const { return m_grid; }
    int NumDimensions() const { return m_grid.NumDimensions(); }
    ORXSimRangeType RangeType() const;

    // One description per drawer. With no drawer the size is 0 and element 0 stays a
    // default-made description, readable.
    void QueryDrawers(ORXSimArray<ORXSimPersistentDrawerDesc,
                                  ORXSimArrayClassPolicy<ORXSimPersistentDrawerDesc>>& descriptions) const;
    void DrawerIDArray(ORXSimArray<ORXSimDrawerID, ORXSimArrayCopyClassPolicy<ORXSimDrawerID>>& ids) const;
    ORXSimPersistentDrawerDesc DrawerDescription(ORXSimDrawerID const& id) const;

private:
    ORXSimContext m_context;
    ORXSimDMember m_members;
    ORXSimGrid m_grid;
    ORXSimDistributionID m_id;
};
