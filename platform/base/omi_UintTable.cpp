// The table instance that the base library exports.
#include "omi_UintTable.h"

#include "ORXBasOmiDefaultAllocator.h"

template class omi_BlockedArray<int>;
template class omi_UintTableBlock<int, ORXBasOmiDefaultAllocator>;
template class omi_UintTable<int, ORXBasOmiDefaultAllocator>;
