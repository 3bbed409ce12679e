#pragma once
// A set spread over several collections, held as a Ctation (a list of compartments) and, for a
// relation, backed by a distribution. Handles on a stored DSet read its current body; Select
// gives a DSet value of its own.
#include "ORXSimCSet.h"
#include "ORXSimCtation.h"
#include "ORXSimDSetID.h"
#include "ORXSimDistributionID.h"
#include "ORXSimPosition.h"

class ORXSimDSetReprBase;

class ORXSimDSet
{
public:
    // A null DSet.
    ORXSimDSet();
    explicit ORXSimDSet(ORXSimDSetID const& id);
    explicit ORXSimDSet(ORXSimPosition const& position);
    ORXSimDSet(ORXSimDSet const& other);
    ORXSimDSet& operator=(ORXSimDSet const& other);
    ~ORXSimDSet();

    ORXSimDSetID ID() const;
    bool IsNull() const;
    // True when no compartment holds a place (each has an empty set in some dimension).
    bool IsEmpty() const;
    // All members the DSet holds in that collection, ascending.
    ORXSimCSet Collect(ORXSimCollectionID const& collection) const;
    // The part over that set: each compartment cut to it in the set's collection; a null DSet if
    // no compartment shares a member with the set.
    ORXSimDSet Select(ORXSimCSet const& set) const;
    ORXSimDistributionID GetRelationalDistributionID() const;
    ORXSimCtation const& GetCtation() const;

private:
    ORXSimDSetReprBase* m_repr;
};
