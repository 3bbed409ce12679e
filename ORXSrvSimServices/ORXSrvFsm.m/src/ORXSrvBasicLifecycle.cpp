#include "ORXSrvBasicLifecycle.h"

#include "ORXBasInvalidParameterHandler.h"
#include "ORXBasModuleEntries.h"
#include "ORXBasUseCounter.h"
#include "ORXSimModuleEntries.h"
#include "ORXSrvFsmModule.h"
#include "ORXSrvKwdModule.h"
#include "ORXSrvSsmModule.h"

#include <cstdint>
#include <cstdlib>

namespace
{
constinit ORXBasUseCounter g_libraryUse;
constinit ORXBasUseCounter g_specificUse;
// The start tally that DllMain hands down the chain at load and at unload.
int g_loadTally = 0;

enum LoadReason : unsigned long
{
    ProcessDetach = 0,
    ProcessAttach = 1
};
} // namespace

void ORXSrvBasic_initialize(int& tally)
{
    if (!g_libraryUse.Start(tally))
        return;
    ORXObjSimObjectsMod_initialize(tally);
    ORXSglSimXmlFndLib_initialize(tally);
    ORXSimInterface_initialize(tally);
    ORXSimContainers_initialize(tally);
    ORXBasShared_initialize(tally);
    ORXBasNexia_initialize(tally);
    ORXBasCoreUtils_initialize(tally);
    ORXBasGenericsLib_initialize(tally);
    ORXBasAlloc_initialize(tally);
    ORXSrvSsm_initialize(tally);
    ORXSrvFsm_initialize(tally);
    ORXSrvKwd_initialize(tally);
    ORXSrvBasic_specific_initialize(tally);
}

void ORXSrvBasic_finalize(int& tally)
{
    if (!g_libraryUse.Stop(tally))
        return;
    ORXSrvBasic_specific_finalize(tally);
    ORXSrvKwd_finalize(tally);
    ORXSrvFsm_finalize(tally);
    ORXSrvSsm_finalize(tally);
    ORXBasAlloc_finalize(tally);
    ORXBasGenericsLib_finalize(tally);
    ORXBasCoreUtils_finalize(tally);
    ORXBasNexia_finalize(tally);
    ORXBasShared_finalize(tally);
    ORXSimContainers_finalize(tally);
    ORXSimInterface_finalize(tally);
    ORXSglSimXmlFndLib_finalize(tally);
    ORXObjSimObjectsMod_finalize(tally);
}

void ORXSrvBasic_specific_initialize(int& tally)
{
    g_specificUse.Start(tally);
}
void ORXSrvBasic_specific_finalize(int& tally)
{
    g_specificUse.Stop(tally);
}

int DllMain(void* /*module*/, unsigned long reason, void* /*reserved*/)
{
    if (reason == ProcessAttach)
        ORXSrvBasic_initialize(g_loadTally);
    else if (reason == ProcessDetach)
        ORXSrvBasic_finalize(g_loadTally);
    return 1;
}

int ORX_FRAMEWORK_INTERNAL_ORXSrvBasic()
{
    return 1;
}

// What the loader does with the library. The start below is an ordinary load-time initialiser of
// this file, and the build links this file last into the library, so it runs after every other
// static initialiser of the library, the filling of the variable table included. The stop is
// registered at that moment with atexit: it then runs at unload or process end before the static
// objects of the library and of the libraries it depends on are destroyed, the mirror of the start.
namespace
{
void IgnoreInvalidParameter(wchar_t const*, wchar_t const*, wchar_t const*, unsigned int, std::uintptr_t) {}

void DetachAtUnload()
{
    DllMain(nullptr, ProcessDetach, nullptr);
}

__attribute__((constructor)) void AttachAtLoad()
{
    _set_invalid_parameter_handler(IgnoreInvalidParameter);
    DllMain(nullptr, ProcessAttach, nullptr);
    std::atexit(DetachAtUnload);
}
} // namespace
