// The container instances that this library exports to its hosts, compiled here once. Instances over
// database types are listed with those types' owners.
#include "ORXBasComparitor.h"
#include "ORXBasMap.h"
#include "ORXBasPair.h"
#include "ORXBasRefCounter.h"
#include "ORXBasReplicator.h"
#include "ORXBasSwap.h"
#include "ORXBasTreeIterator.h"
#include "ORXBasVector.h"
#include "ORXString.h"

template class ORXBasVector<int>;
template class ORXBasVector<double>;
template class ORXBasVector<ORXString>;

#define ORXSRV_EXPORT_MAP(Key, Value)                                                                        \
    template class ORXBasMap<Key, Value>;                                                                    \
    template struct ORXBasPair<Key const, Value>;                                                            \
    template class ORXBasTreeIterator<ORXBasPair<Key const, Value>, ORXBasPair<Key const, Value>&,           \
                                      ORXBasPair<Key const, Value>*>;                                        \
    template class ORXBasTreeIterator<ORXBasPair<Key const, Value>, ORXBasPair<Key const, Value> const&,     \
                                      ORXBasPair<Key const, Value> const*>;                                  \
    template struct ORXBasPair<ORXBasMap<Key, Value>::iterator, bool>;                                       \
    template struct ORXBasReplicator<ORXBasPair<Key const, Value>>;                                          \
    template void ORXBasStandardCopy<ORXBasPair<Key const, Value>>(void const*, void*, std::size_t);         \
    template void ORXBasStandardDestroy<ORXBasPair<Key const, Value>>(void*, std::size_t);                   \
    template ORXBasReplicatorGeneric ORXBasGetReplicator<ORXBasPair<Key const, Value>>();

typedef ORXBasMap<int, int> ORXSrvIntIntMap;
typedef ORXBasMap<int, double> ORXSrvIntDoubleMap;
ORXSRV_EXPORT_MAP(int, int)
ORXSRV_EXPORT_MAP(int, double)
ORXSRV_EXPORT_MAP(int, ORXSrvIntIntMap)
ORXSRV_EXPORT_MAP(int, ORXSrvIntDoubleMap)

template struct ORXBasReplicator<ORXString>;
template void ORXBasStandardCopy<ORXString>(void const*, void*, std::size_t);
template void ORXBasStandardDestroy<ORXString>(void*, std::size_t);
template ORXBasReplicatorGeneric ORXBasGetReplicator<ORXString>();
template ORXBasReplicatorGeneric ORXBasGetReplicator<ORXSrvIntIntMap>();
template ORXBasReplicatorGeneric ORXBasGetReplicator<ORXSrvIntDoubleMap>();

template struct ORXBasPODReplicator<int>;
template struct ORXBasPODReplicator<double>;
template void ORXBasPODCopy<int>(void const*, void*, std::size_t);
template void ORXBasPODCopy<double>(void const*, void*, std::size_t);
template ORXBasReplicatorGeneric ORXBasGetReplicator<int>();
template ORXBasReplicatorGeneric ORXBasGetReplicator<double>();

template struct ORXBasComparitor<int>;
template bool ORXBasStandardComparitor<int>(void const*, void const*, void const*);

template void ORXBasSwap<ORXBasRefCounter>(ORXBasRefCounter*&, ORXBasRefCounter*&);
