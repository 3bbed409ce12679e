#pragma once
// Comparisons of the project's code with a reference measured in the same run.
//
// A benchmark file registers Google Benchmark functions as usual and declares which two of them form
// a comparison:
//     ORXSRV_RATIO(extrapolate_double_vs_copy, "BM_ExtrapolateDouble", "BM_CopyDouble");
// After all benchmarks ran, the shared main prints "RATIO <name> <project time / reference time>"
// using real time per iteration. Figures that are not times (memory, say) are printed directly
// with OrxBenchPrintRatio.
#include <benchmark/benchmark.h>

#include <string>

bool OrxBenchRegisterRatio(std::string const& name, std::string const& project, std::string const& reference);
void OrxBenchPrintRatio(std::string const& name, double value);

#define ORXSRV_RATIO(name, project, reference)                                                              \
    static bool const orxsrv_ratio_##name = OrxBenchRegisterRatio(#name, project, reference)
