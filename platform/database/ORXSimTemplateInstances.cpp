// The instances over the database's own types that the library exports, compiled once here: the
// ordered map of identities, the shared pointers of the member maps and of the representations
// behind the handles, and the pointer swaps of those representations. The containers over public
// database types (positions, CSets) are exported with the services' container instances.
#include "ORXBasSharedPtr.h"
#include "ORXBasSwap.h"
#include "ORXSimBtree.h"
#include "ORXSimCMemberMap.h"
#include "ORXSimDSetReprBase.h"
#include "ORXSimDatabaseReprBase.h"
#include "ORXSimSelectionList.h"
#include "ORXSimSelectionMap.h"
#include "ORXSimSelectionSet.h"

template class ORXSimBtree<ORXSimDynamicID, int>;

template class ORXBasSharedPtr<ORXSimCMemberMap>;
template class ORXBasSharedPtr<ORXSimDSetReprBase>;
template class ORXBasSharedPtr<ORXSimDatabaseReprBase>;
template class ORXBasSharedPtr<ORXSimSelectionList>;
template class ORXBasSharedPtr<ORXSimSelectionMap>;
template class ORXBasSharedPtr<ORXSimSelectionSet>;

template void ORXBasSwap<ORXSimDSetReprBase>(ORXSimDSetReprBase*&, ORXSimDSetReprBase*&);
template void ORXBasSwap<ORXSimDatabaseReprBase>(ORXSimDatabaseReprBase*&, ORXSimDatabaseReprBase*&);
