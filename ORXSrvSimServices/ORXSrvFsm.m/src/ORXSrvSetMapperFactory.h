#pragma once
// Stored permutations of a model: a relation between two sets of degrees of freedom, of nodes or of
// elements, kept as a mapper record under the model and rebuilt as a member map; and the mesh's
// sets of active nodes and active elements.
#include "ORXBasSharedPtr.h"
#include "ORXSimCMemberMap.h"
#include "ORXSimCSetID.h"
#include "ORXSimPosition.h"

class ORXSrvSetMapperFactory
{
public:
    static ORXSimCSetID GetActiveNodalOrdinals(ORXSimPosition position);
    static ORXSimCSetID GetActiveElementOrdinals(ORXSimPosition position);
    // The member map of the stored mapper of that kind: its first set, then its second.
    static ORXBasSharedPtr<ORXSimCMemberMap> DofMapper(ORXSimPosition position);
    static ORXBasSharedPtr<ORXSimCMemberMap> NodeMapper(ORXSimPosition position);
    static ORXBasSharedPtr<ORXSimCMemberMap> ElementMapper(ORXSimPosition position);
    // The first set, the permutation, of the stored node or element mapper.
    static ORXSimCSetID GetPermutationNodes(ORXSimPosition position);
    static ORXSimCSetID GetPermutationElements(ORXSimPosition position);
    // Stores a mapper of the two sets in the model of second's document, under the member of the
    // kind of second's collection (nodes, elements or degrees of freedom); another kind fails.
    static void PersistMapper(ORXSimPosition const& first, ORXSimPosition const& second);
};
