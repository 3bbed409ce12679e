// The main job: a host that loads the library, watches its start and stop, and runs a sample job.
#include <ORXSrvBasic.h>

#include <cstdio>

namespace
{
// Shows the lifecycle as a host sees it: the load already started the library, so a host's own
// start and stop only move the use counter and leave its tally alone.
void ReportLifecycle()
{
    std::printf("library marker: %d\n", ORX_FRAMEWORK_INTERNAL_ORXSrvBasic());
    int tally = 0;
    ORXSrvBasic_initialize(tally);
    std::printf("host start: tally %d (%s)\n", tally, tally == 0 ? "already started at load" : "started now");
    ORXSrvBasic_finalize(tally);
    std::printf("host stop: tally %d (%s)\n", tally, tally == 0 ? "still running until unload" : "stopped");
}
} // namespace

int main()
{
    ReportLifecycle();
    return 0;
}
