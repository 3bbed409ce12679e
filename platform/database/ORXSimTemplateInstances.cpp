// The instances of the generic containers and trees over the database's types that the library
// exports, compiled once here.
#include "ORXBasComparitor.h"
#include "ORXBasMap.h"
#include "ORXBasPair.h"
#include "ORXBasSharedPtr.h"
#include "ORXBasVector.h"
#include "ORXSimBtree.h"
#include "ORXSimCMemberMap.h"
#include "ORXSimCSet.h"
#include "ORXSimPosition.h"

typedef ORXBasPair<ORXSimPosition, ORXSimPosition> ORXSimPositionPair;

template class ORXBasVector<ORXSimPosition>;
template class ORXBasVector<ORXSimCSet>;
template class ORXBasVector<ORXSimPositionPair>;
template class ORXBasMap<ORXSimPosition, ORXSimPosition>;
template class ORXBasMap<ORXSimPosition, ORXBasMap<int, int>>;
template class ORXBasMap<int, ORXBasVector<ORXSimPositionPair>>;
template class ORXBasSharedPtr<ORXSimCMemberMap>;
template class ORXSimBtree<ORXSimDynamicID, int>;
