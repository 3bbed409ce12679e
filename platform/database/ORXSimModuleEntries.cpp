#include "ORXSimModuleEntries.h"

#include "ORXBasUseCounter.h"

namespace
{
constinit ORXBasUseCounter g_simObjectsMod;
constinit ORXBasUseCounter g_simXmlFndLib;
constinit ORXBasUseCounter g_simInterface;
constinit ORXBasUseCounter g_simContainers;
} // namespace

// The embedded database and its document layer need no work at start or stop beyond their counting.
void ORXObjSimObjectsMod_initialize(int& tally)
{
    g_simObjectsMod.Start(tally);
}
void ORXObjSimObjectsMod_finalize(int& tally)
{
    g_simObjectsMod.Stop(tally);
}
void ORXSglSimXmlFndLib_initialize(int& tally)
{
    g_simXmlFndLib.Start(tally);
}
void ORXSglSimXmlFndLib_finalize(int& tally)
{
    g_simXmlFndLib.Stop(tally);
}
void ORXSimInterface_initialize(int& tally)
{
    g_simInterface.Start(tally);
}
void ORXSimInterface_finalize(int& tally)
{
    g_simInterface.Stop(tally);
}
void ORXSimContainers_initialize(int& tally)
{
    g_simContainers.Start(tally);
}
void ORXSimContainers_finalize(int& tally)
{
    g_simContainers.Stop(tally);
}
