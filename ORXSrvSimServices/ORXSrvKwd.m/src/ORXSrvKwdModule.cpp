#include "ORXSrvKwdModule.h"

#include "ORXBasUseCounter.h"

namespace
{
constinit ORXBasUseCounter g_kwdUse;
}

void ORXSrvKwd_initialize(int& tally)
{
    g_kwdUse.Start(tally);
}
void ORXSrvKwd_finalize(int& tally)
{
    g_kwdUse.Stop(tally);
}
