// The search-tree instances that this library exports, so that its hosts share one copy of them.
#include "ORXSimBtree.h"
#include "ORXSimDynamicID.h"
#include "ORXString.h"
#include "omi_BlkBitVect.h"
#include "omi_Btree.h"

template class ORXSimBtreeNodeCore<ORXSimBtreeNode<ORXString, int>, ORXString, int>;
template class ORXSimBtreeNode<ORXString, int>;
template class ORXSimBtreeNodeLink<ORXString, int>;
template class ORXSimBtreeWalk<ORXSimBtree<ORXString, int>, ORXSimBtreeNode<ORXString, int>,
                               ORXSimBtreeNodeLink<ORXString, int>>;
template class ORXSimBtreeIterator<ORXString, int>;
template class ORXSimBtree<ORXString, int>;

template struct omi_BtreeValue<ORXSimDynamicID>;
template class ORXSimBtreeNodeCore<omi_BtreeNode<omi_BlkBitVect, ORXSimDynamicID>, omi_BlkBitVect,
                                   ORXSimDynamicID>;
template class omi_BtreeNode<omi_BlkBitVect, ORXSimDynamicID>;
template class omi_BtreeNodeLink<omi_BlkBitVect, ORXSimDynamicID>;
template class ORXSimBtreeWalk<omi_Btree<omi_BlkBitVect, ORXSimDynamicID>,
                               omi_BtreeNode<omi_BlkBitVect, ORXSimDynamicID>,
                               omi_BtreeNodeLink<omi_BlkBitVect, ORXSimDynamicID>>;
template class omi_BtreeIterator<omi_BlkBitVect, ORXSimDynamicID>;
template class omi_Btree<omi_BlkBitVect, ORXSimDynamicID>;
