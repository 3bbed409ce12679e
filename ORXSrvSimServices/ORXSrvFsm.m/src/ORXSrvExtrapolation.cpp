// Built with floating-point contraction off: a product and the sum it enters are rounded apart.
#include "ORXSrvExtrapolation.h"

namespace
{
// Lanes of T that the kernels work on together: a 16-byte vector, an 8-byte vector of two floats, or
// one scalar. Each lane is rounded exactly as a scalar of T would be.
template <class T, int Lanes> struct LanesOf;
template <> struct LanesOf<double, 2>
{
    typedef double Type __attribute__((vector_size(16)));
};
template <> struct LanesOf<float, 4>
{
    typedef float Type __attribute__((vector_size(16)));
};
template <> struct LanesOf<float, 2>
{
    typedef float Type __attribute__((vector_size(8)));
};
template <class T> struct LanesOf<T, 1>
{
    using Type = T;
};

// The widest chunk of lanes that fits into count components.
template <class T> constexpr int ChunkLanes(int count)
{
    int const full = 16 / static_cast<int>(sizeof(T));
    if (count >= full)
        return full;
    return count >= 2 && full > 2 ? 2 : 1;
}

// The nComp accumulators of one output point, held in registers as a chain of chunks.
template <class T, int NComp> struct PointSums
{
    static constexpr int kLanes = ChunkLanes<T>(NComp);
    using Chunk = typename LanesOf<T, kLanes>::Type;

    Chunk head{};
    PointSums<T, NComp - kLanes> tail;

    // sums = weight * point + sums, lane by lane, for the nComp components at point.
    void AddWeighted(T weight, T const* point)
    {
        Chunk values;
        __builtin_memcpy(&values, point, sizeof values);
        head = weight * values + head;
        tail.AddWeighted(weight, point + kLanes);
    }

    void Store(T* target) const
    {
        __builtin_memcpy(target, &head, sizeof head);
        tail.Store(target + kLanes);
    }
};

template <class T> struct PointSums<T, 0>
{
    void AddWeighted(T, T const*) {}
    void Store(T*) const {}
};

// Sums Points consecutive output points of one block at once, each over the input points in
// ascending order; the points' sums are independent, so their additions overlap in the pipeline.
template <class T, int NComp, int Points>
void SumPoints(unsigned nIn, T const* input, float const* rows, T* target)
{
    PointSums<T, NComp> sums[Points];
    for (unsigned j = 0; j < nIn; ++j)
#pragma GCC unroll 8
        for (int p = 0; p < Points; ++p)
            sums[p].AddWeighted(static_cast<T>(rows[p * nIn + j]), input + j * NComp);
#pragma GCC unroll 8
    for (int p = 0; p < Points; ++p)
        sums[p].Store(target + p * NComp);
}

// Blocks with a component count fixed at compile time: each output point's components are summed
// side by side in registers, several output points at a time.
template <class T, int NComp>
void ExtrapolateFixed(unsigned nIn, unsigned nOut, int nBlocks, T const* input, T* output,
                      float const* matrix)
{
    // As many points at a time as keep all sums, the input point and the weight in 16 registers.
    constexpr int kPoints = NComp * sizeof(T) <= 48 ? 4 : 2;
    for (int block = 0; block < nBlocks; ++block)
    {
        unsigned i = 0;
        for (; i + kPoints <= nOut; i += kPoints)
            SumPoints<T, NComp, kPoints>(nIn, input, matrix + i * nIn, output + i * NComp);
        for (; i < nOut; ++i)
            SumPoints<T, NComp, 1>(nIn, input, matrix + i * nIn, output + i * NComp);
        input += nIn * NComp;
        output += nOut * NComp;
    }
}

// Blocks with any component count: 16-byte chunks of components, then single components.
template <class T>
void ExtrapolateAny(unsigned nIn, unsigned nOut, unsigned nComp, int nBlocks, T const* input, T* output,
                    float const* matrix)
{
    constexpr unsigned kLanes = 16 / sizeof(T);
    using Chunk = typename LanesOf<T, kLanes>::Type;
    for (int block = 0; block < nBlocks; ++block)
    {
        float const* row = matrix;
        for (unsigned i = 0; i < nOut; ++i, row += nIn)
        {
            T* target = output + i * nComp;
            unsigned k = 0;
            for (; k + kLanes <= nComp; k += kLanes)
            {
                Chunk sums{};
                for (unsigned j = 0; j < nIn; ++j)
                {
                    Chunk values;
                    __builtin_memcpy(&values, input + j * nComp + k, sizeof values);
                    sums = static_cast<T>(row[j]) * values + sums;
                }
                __builtin_memcpy(target + k, &sums, sizeof sums);
            }
            for (; k < nComp; ++k)
            {
                T sum = 0;
                for (unsigned j = 0; j < nIn; ++j)
                    sum = static_cast<T>(row[j]) * input[j * nComp + k] + sum;
                target[k] = sum;
            }
        }
        input += nIn * nComp;
        output += nOut * nComp;
    }
}

template <class T>
void Extrapolate(int nIn, int nOut, int nComp, int nBlocks, T const* input, T* output, float const* matrix)
{
    if (nBlocks <= 0 || nComp <= 0 || nOut == 0)
        return;
    // Point counts are unsigned by contract; component and block counts are not.
    unsigned const in = static_cast<unsigned>(nIn);
    unsigned const out = static_cast<unsigned>(nOut);
    switch (nComp)
    {
    case 1:
        return ExtrapolateFixed<T, 1>(in, out, nBlocks, input, output, matrix);
    case 2:
        return ExtrapolateFixed<T, 2>(in, out, nBlocks, input, output, matrix);
    case 3:
        return ExtrapolateFixed<T, 3>(in, out, nBlocks, input, output, matrix);
    case 4:
        return ExtrapolateFixed<T, 4>(in, out, nBlocks, input, output, matrix);
    case 6:
        return ExtrapolateFixed<T, 6>(in, out, nBlocks, input, output, matrix);
    case 9:
        return ExtrapolateFixed<T, 9>(in, out, nBlocks, input, output, matrix);
    default:
        return ExtrapolateAny<T>(in, out, static_cast<unsigned>(nComp), nBlocks, input, output, matrix);
    }
}
} // namespace

void ORXSrvExtrapolation::ExtrapolateSinglePrecision(int nIn, int nOut, int nComp, int nBlocks,
                                                     const float* input, float* output, const float* matrix)
{
    Extrapolate(nIn, nOut, nComp, nBlocks, input, output, matrix);
}

void ORXSrvExtrapolation::ExtrapolateDoublePrecision(int nIn, int nOut, int nComp, int nBlocks,
                                                     const double* input, double* output, const float* matrix)
{
    Extrapolate(nIn, nOut, nComp, nBlocks, input, output, matrix);
}
