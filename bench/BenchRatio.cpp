#include "BenchRatio.h"

#include <unistd.h>

#include <cstdio>
#include <map>
#include <vector>

namespace
{
struct Ratio
{
    std::string name;
    std::string project;
    std::string reference;
};

std::vector<Ratio>& Ratios()
{
    static std::vector<Ratio> ratios;
    return ratios;
}

// Console output as usual, plus the real time per iteration of every run, by benchmark name.
class RecordingReporter : public benchmark::ConsoleReporter
{
public:
    // Colours only on a terminal: piped output stays plain, so that every RATIO line starts its line.
    RecordingReporter() : ConsoleReporter(isatty(fileno(stdout)) ? OO_ColorTabular : OO_Tabular) {}

    void ReportRuns(std::vector<Run> const& runs) override
    {
        for (Run const& run : runs)
            if (run.run_type == Run::RT_Iteration && run.iterations > 0)
                m_seconds[run.benchmark_name()] =
                    run.real_accumulated_time / static_cast<double>(run.iterations);
        ConsoleReporter::ReportRuns(runs);
    }

    double Seconds(std::string const& name) const
    {
        for (auto const& [key, seconds] : m_seconds)
            if (key == name || key.rfind(name + "/", 0) == 0)
                return seconds;
        return -1.0;
    }

private:
    std::map<std::string, double> m_seconds;
};
} // namespace

bool OrxBenchRegisterRatio(std::string const& name, std::string const& project, std::string const& reference)
{
    Ratios().push_back({name, project, reference});
    return true;
}

void OrxBenchPrintRatio(std::string const& name, double value)
{
    std::printf("RATIO %s %.3f\n", name.c_str(), value);
    std::fflush(stdout);
}

int main(int argc, char** argv)
{
    std::printf("build type: %s\n", ORXSRV_BUILD_TYPE[0] ? ORXSRV_BUILD_TYPE : "none");
    std::fflush(stdout);
    benchmark::Initialize(&argc, argv);
    RecordingReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    for (Ratio const& ratio : Ratios())
    {
        double project = reporter.Seconds(ratio.project);
        double reference = reporter.Seconds(ratio.reference);
        if (project < 0 || reference <= 0)
            continue;
        std::printf("%s: %s %.6f s, %s %.6f s\n", ratio.name.c_str(), ratio.project.c_str(), project,
                    ratio.reference.c_str(), reference);
        OrxBenchPrintRatio(ratio.name, project / reference);
    }
    benchmark::Shutdown();
    return 0;
}
