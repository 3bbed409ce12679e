#include "ORXBasModuleEntries.h"

#include "ORXBasUseCounter.h"
#include "mem_Entries.h"

namespace
{
constinit ORXBasUseCounter g_shared;
constinit ORXBasUseCounter g_nexia;
constinit ORXBasUseCounter g_coreUtils;
constinit ORXBasUseCounter g_genericsLib;
constinit ORXBasUseCounter g_alloc;
} // namespace

// The base libraries need no work at start or stop beyond their counting, but for the last stop
// of the memory entries.
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
// The last stop gives the freed blocks that the memory entries keep back to the C library.
void ORXBasAlloc_finalize(int& tally)
{
    if (g_alloc.Stop(tally))
        mem_ReleaseCachedBlocks();
}
