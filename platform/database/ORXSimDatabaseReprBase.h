#pragma once
// Shared state of the ORXSimDatabase handles of one document: its context and whether it is
// closed. Lives as long as a handle or the open document holds it.
#include "ORXSimContextID.h"

class ORXSimDatabaseReprBase
{
public:
    ORXSimContextID context;
    bool closed = false;
    int refCount = 0;

    void AddRef() { ++refCount; }
    void Release()
    {
        if (--refCount == 0)
            delete this;
    }
};
