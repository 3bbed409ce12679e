// The main job: a host that loads the library, watches its start and stop, and runs a sample job.
#include <ORXSrvBasic.h>

#include <cmath>
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

// Extrapolates two components from the two integration points of two line elements to their end
// nodes. The integration points sit at -1/sqrt(3) and +1/sqrt(3) of the element's -1..1 range, so
// the linear extrapolation to the nodes at -1 and +1 has the weights (1 +- sqrt(3)) / 2.
void RunSampleExtrapolation()
{
    int const nIn = 2, nOut = 2, nComp = 2, nBlocks = 2;
    float const far = static_cast<float>((1.0 - std::sqrt(3.0)) / 2.0);
    float const near = static_cast<float>((1.0 + std::sqrt(3.0)) / 2.0);
    float const matrix[nOut * nIn] = {near, far, far, near};
    // Per element and integration point: a stress and a strain component.
    double const atPoints[nBlocks * nIn * nComp] = {10.0, 0.001, 20.0, 0.002, 5.0, -0.5, 5.0, 0.5};
    double atNodes[nBlocks * nOut * nComp] = {};
    ORXSrvExtrapolation::ExtrapolateDoublePrecision(nIn, nOut, nComp, nBlocks, atPoints, atNodes, matrix);
    for (int block = 0; block < nBlocks; ++block)
        for (int node = 0; node < nOut; ++node)
        {
            double const* values = atNodes + (block * nOut + node) * nComp;
            std::printf("element %d node %d: %.9g %.9g\n", block + 1, node + 1, values[0], values[1]);
        }
}
} // namespace

int main()
{
    ReportLifecycle();
    RunSampleExtrapolation();
    return 0;
}
