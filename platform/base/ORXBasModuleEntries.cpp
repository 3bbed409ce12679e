#include "ORXBasModuleEntries.h"

#include "ORXBasUseCounter.h"

namespace
{
constinit ORXBasUseCounter g_shared;
constinit ORXBasUseCounter g_nexia;
constinit ORXBasUseCounter g_coreUtils;
constinit ORXBasUseCounter g_genericsLib;
constinit ORXBasUseCounter g_alloc;
} // namespace

// The base libraries need no work at start or stop beyond their counting.
void ORXBasShared_initialize(int& tally)
{
    g_shared.Start(tally);
}
void ORXBasShared_finalize(int& tally)
{
    g_shared.Stop(tally);
}
void ORXBasNexia_initialize(int& tally)
{
    g_nexia.Start(tally);
}
void ORXBasNexia_finalize(int& tally)
{
    g_nexia.Stop(tally);
}
void ORXBasCoreUtils_initialize(int& tally)
{
    g_coreUtils.Start(tally);
}
void ORXBasCoreUtils_finalize(int& tally)
{
    g_coreUtils.Stop(tally);
}
void ORXBasGenericsLib_initialize(int& tally)
{
    g_genericsLib.Start(tally);
}
void ORXBasGenericsLib_finalize(int& tally)
{
    g_genericsLib.Stop(tally);
}
void ORXBasAlloc_initialize(int& tally)
{
    g_alloc.Start(tally);
}
void ORXBasAlloc_finalize(int& tally)
{
    g_alloc.Stop(tally);
}
