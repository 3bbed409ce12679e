#include "ORXSrvSsmModule.h"

#include "ORXBasUseCounter.h"

namespace
{
constinit ORXBasUseCounter g_ssmUse;
}

void ORXSrvSsm_initialize(int& tally)
{
    g_ssmUse.Start(tally);
}
void ORXSrvSsm_finalize(int& tally)
{
    g_ssmUse.Stop(tally);
}
