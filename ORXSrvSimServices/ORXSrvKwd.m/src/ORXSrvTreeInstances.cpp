// The search-tree instances that this library exports, so that its hosts share one copy of them.
#include "ORXSimBtree.h"
#include "ORXString.h"

template class ORXSimBtreeNodeCore<ORXSimBtreeNode<ORXString, int>>;
template class ORXSimBtreeNode<ORXString, int>;
template class ORXSimBtreeNodeLink<ORXString, int>;
template class ORXSimBtreeWalk<ORXSimBtree<ORXString, int>, ORXSimBtreeNode<ORXString, int>,
                               ORXSimBtreeNodeLink<ORXString, int>>;
template class ORXSimBtreeIterator<ORXString, int>;
template class ORXSimBtree<ORXString, int>;
