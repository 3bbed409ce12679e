// Extrapolation of 10^6 blocks of 8 input to 8 output points with 6 components, against copying the
// same bytes: the input array and the output array, each into a scratch array of its own size.
#include "BenchRatio.h"

#include <ORXSrvBasic.h>

#include <cstring>
#include <vector>

namespace
{
constexpr int kBlocks = 1000000;
constexpr int kIn = 8;
constexpr int kOut = 8;
constexpr int kComp = 6;
constexpr std::size_t kInCount = std::size_t(kBlocks) * kIn * kComp;
constexpr std::size_t kOutCount = std::size_t(kBlocks) * kOut * kComp;

// Arrays of one run, every page written before timing starts.
template <class T> struct Arrays
{
    Arrays() : input(kInCount), output(kOutCount, T(1)), matrix(kOut * kIn)
    {
        for (std::size_t n = 0; n < input.size(); ++n)
            input[n] = T(n % 1013) * T(0.001) - T(0.5);
        for (std::size_t n = 0; n < matrix.size(); ++n)
            matrix[n] = float(n % 7) * 0.25f - 0.75f;
    }
    std::vector<T> input;
    std::vector<T> output;
    std::vector<float> matrix;
};

void Extrapolate(Arrays<float>& arrays)
{
    ORXSrvExtrapolation::ExtrapolateSinglePrecision(kIn, kOut, kComp, kBlocks, arrays.input.data(),
                                                    arrays.output.data(), arrays.matrix.data());
}

void Extrapolate(Arrays<double>& arrays)
{
    ORXSrvExtrapolation::ExtrapolateDoublePrecision(kIn, kOut, kComp, kBlocks, arrays.input.data(),
                                                    arrays.output.data(), arrays.matrix.data());
}

template <class T> void BM_Extrapolate(benchmark::State& state)
{
    Arrays<T> arrays;
    for (auto _ : state)
    {
        Extrapolate(arrays);
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(kInCount + kOutCount) * int64_t(sizeof(T)));
}

template <class T> void BM_Copy(benchmark::State& state)
{
    Arrays<T> arrays;
    std::vector<T> inputCopy(kInCount, T(2));
    std::vector<T> outputCopy(kOutCount, T(2));
    for (auto _ : state)
    {
        std::memcpy(inputCopy.data(), arrays.input.data(), kInCount * sizeof(T));
        std::memcpy(outputCopy.data(), arrays.output.data(), kOutCount * sizeof(T));
        benchmark::ClobberMemory();
    }
    state.SetBytesProcessed(int64_t(state.iterations()) * int64_t(kInCount + kOutCount) * int64_t(sizeof(T)));
}
} // namespace

BENCHMARK(BM_Extrapolate<double>)->Name("BM_ExtrapolateDouble")->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_Copy<double>)->Name("BM_CopyDouble")->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_Extrapolate<float>)->Name("BM_ExtrapolateSingle")->Unit(benchmark::kMillisecond)->MinTime(1.0);
BENCHMARK(BM_Copy<float>)->Name("BM_CopySingle")->Unit(benchmark::kMillisecond)->MinTime(1.0);

ORXSRV_RATIO(extrapolate_double_vs_copy, "BM_ExtrapolateDouble", "BM_CopyDouble");
ORXSRV_RATIO(extrapolate_single_vs_copy, "BM_ExtrapolateSingle", "BM_CopySingle");
