// The container instances that this library exports to its hosts, compiled here once: the vectors and
// maps the services use, with their pairs, iterators, replicators and orderings. The database exports
// the instances over its own private types (shared pointers and swaps of its representations).
#include "ORXBasComparitor.h"
#include "ORXBasMap.h"
#include "ORXBasPair.h"
#include "ORXBasRefCounter.h"
#include "ORXBasReplicator.h"
#include "ORXBasSwap.h"
#include "ORXBasTreeIterator.h"
#include "ORXBasVector.h"
#include "ORXSimCSet.h"
#include "ORXSimPosition.h"
#include "ORXString.h"

template class ORXBasVector<int>;
template class ORXBasVector<double>;
template class ORXBasVector<ORXString>;
template class ORXBasVector<ORXSimPosition>;
template class ORXBasVector<ORXSimCSet>;

#define ORXSRV_EXPORT_REPLICATOR(...)                                                                        \
    template struct ORXBasReplicator<__VA_ARGS__>;                                                           \
    template void ORXBasStandardCopy<__VA_ARGS__>(void const*, void*, std::size_t);                          \
    template void ORXBasStandardDestroy<__VA_ARGS__>(void*, std::size_t);                                    \
    template ORXBasReplicatorGeneric ORXBasGetReplicator<__VA_ARGS__>();

typedef ORXBasPair<ORXSimPosition, ORXSimPosition> ORXSrvPositionPair;
typedef ORXBasVector<ORXSrvPositionPair> ORXSrvPositionPairVector;
template struct ORXBasPair<ORXSimPosition, ORXSimPosition>;
template class ORXBasVector<ORXSrvPositionPair>;

#define ORXSRV_EXPORT_MAP(Key, Value)                                                                        \
    template class ORXBasMap<Key, Value>;                                                                    \
    template struct ORXBasPair<Key const, Value>;                                                            \
    template class ORXBasTreeIterator<ORXBasPair<Key const, Value>, ORXBasPair<Key const, Value>&,           \
                                      ORXBasPair<Key const, Value>*>;                                        \
    template class ORXBasTreeIterator<ORXBasPair<Key const, Value>, ORXBasPair<Key const, Value> const&,     \
                                      ORXBasPair<Key const, Value> const*>;                                  \
    template struct ORXBasPair<ORXBasMap<Key, Value>::iterator, bool>;                                       \
    ORXSRV_EXPORT_REPLICATOR(ORXBasPair<Key const, Value>)

typedef ORXBasMap<int, int> ORXSrvIntIntMap;
typedef ORXBasMap<int, double> ORXSrvIntDoubleMap;
ORXSRV_EXPORT_MAP(int, int)
ORXSRV_EXPORT_MAP(int, double)
ORXSRV_EXPORT_MAP(int, ORXSrvIntIntMap)
ORXSRV_EXPORT_MAP(int, ORXSrvIntDoubleMap)
ORXSRV_EXPORT_MAP(ORXSimPosition, ORXSimPosition)
ORXSRV_EXPORT_MAP(ORXSimPosition, ORXSrvIntIntMap)
ORXSRV_EXPORT_MAP(int, ORXSrvPositionPairVector)

ORXSRV_EXPORT_REPLICATOR(ORXString)
ORXSRV_EXPORT_REPLICATOR(ORXSimPosition)
ORXSRV_EXPORT_REPLICATOR(ORXSimCSet)
ORXSRV_EXPORT_REPLICATOR(ORXSrvPositionPair)
ORXSRV_EXPORT_REPLICATOR(ORXSrvPositionPairVector)
ORXSRV_EXPORT_REPLICATOR(ORXSrvIntIntMap)
ORXSRV_EXPORT_REPLICATOR(ORXSrvIntDoubleMap)

template struct ORXBasPODReplicator<int>;
template struct ORXBasPODReplicator<double>;
template void ORXBasPODCopy<int>(void const*, void*, std::size_t);
template void ORXBasPODCopy<double>(void const*, void*, std::size_t);
template ORXBasReplicatorGeneric ORXBasGetReplicator<int>();
template ORXBasReplicatorGeneric ORXBasGetReplicator<double>();

template struct ORXBasComparitor<int>;
template bool ORXBasStandardComparitor<int>(void const*, void const*, void const*);
template struct ORXBasComparitor<ORXSimPosition>;
template bool ORXBasStandardComparitor<ORXSimPosition>(void const*, void const*, void const*);

template void ORXBasSwap<ORXBasRefCounter>(ORXBasRefCounter*&, ORXBasRefCounter*&);
