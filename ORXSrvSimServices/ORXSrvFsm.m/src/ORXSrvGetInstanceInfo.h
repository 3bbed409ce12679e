#pragma once
// Names of what the database knows by ordinal or identity: the occurrence and user label of a
// flat-mesh ordinal, the key under which a record stands in a map, and the names of node sets,
// element sets and surfaces. An empty result or false says that no name exists.
#include "ORXSimCSetID.h"
#include "ORXSimPosition.h"
#include "ORXString.h"

// Nodes or elements: zero means nodes, anything else elements.
typedef int ORXSrvLabelerType;

// The occurrence holding the ordinal and the ordinal's user label there; false, and both left
// alone, for an ordinal that no occurrence holds.
bool ORXSrvGetInstanceInfo(ORXSimPosition const& position, ORXSrvLabelerType type, int ordinal,
                           ORXString& instance, int& label);
// The key of the record in map member of its one holder; false with none or several holdings.
bool ORXSrvGetReferenceKey(ORXSimPosition const& position, int member, ORXString& key);
// The key of the set among the model's node sets, or its second map of node sets; "" if none.
ORXString ORXSrvGetNodeSetNameFromCSetID(ORXSimPosition const& position, ORXSimCSetID const& cset);
// The same among the element sets.
ORXString ORXSrvGetElementSetNameFromCSetID(ORXSimPosition const& position, ORXSimCSetID const& cset);
// The surface's own name.
ORXString ORXSrvGetSurfaceNameFromID(ORXSimPosition const& position, ORXSimDynamicID const& id);
