#pragma once
// Shared state of ORXSimDSet handles: a stored DSet, read through the store, or a value of its own.
#include "ORXSimDSetID.h"
#include "ORXSimStore.h"
#include "ORXSimStoreDSet.h"

class ORXSimDSetReprBase
{
public:
    ORXSimDSetID id;
    ORXSimStoreDSet own;
    int refCount = 0;

    ORXSimStoreDSet const& Body() const { return id.IsNull() ? own : ORXSimStore::Get(id).DSet(id); }
};
