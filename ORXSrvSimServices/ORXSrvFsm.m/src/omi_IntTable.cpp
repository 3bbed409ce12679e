// The signed table instance that this library exports, so that its hosts share one copy of it.
#include "omi_IntTable.h"
#include "ORXBasOmiDefaultAllocator.h"

template class omi_IntTable<int, ORXBasOmiDefaultAllocator>;
