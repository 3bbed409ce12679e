#include "ORXSrvFsmModule.h"

#include "ORXBasUseCounter.h"
#include "ORXSrvBulkShellLayers.h"

namespace
{
constinit ORXBasUseCounter g_fsmUse;
}

void ORXSrvFsm_initialize(int& tally)
{
    g_fsmUse.Start(tally);
}

void ORXSrvFsm_finalize(int& tally)
{
    if (g_fsmUse.Stop(tally))
        omi_SingletonBase<ORXSrvBulkShellLayers>::Finalize();
}
