#include <ORXSrvBasic.h>

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <vector>

namespace
{
// Both forms behind one name, for typed tests.
void Extrapolate(int nIn, int nOut, int nComp, int nBlocks, float const* input, float* output,
                 float const* matrix)
{
    ORXSrvExtrapolation::ExtrapolateSinglePrecision(nIn, nOut, nComp, nBlocks, input, output, matrix);
}

void Extrapolate(int nIn, int nOut, int nComp, int nBlocks, double const* input, double* output,
                 float const* matrix)
{
    ORXSrvExtrapolation::ExtrapolateDoublePrecision(nIn, nOut, nComp, nBlocks, input, output, matrix);
}

// The plain loop nest: block, component, output point, input point. The volatile stores round every
// product and every sum to T whatever contraction this file is compiled with.
template <class T>
void ReferenceExtrapolate(int nIn, int nOut, int nComp, int nBlocks, T const* input, T* output,
                          float const* matrix)
{
    for (int b = 0; b < nBlocks; ++b)
        for (int k = 0; k < nComp; ++k)
            for (int i = 0; i < nOut; ++i)
            {
                T& target = output[(b * nOut + i) * nComp + k];
                target = 0;
                for (int j = 0; j < nIn; ++j)
                {
                    volatile T product =
                        static_cast<T>(matrix[i * nIn + j]) * input[(b * nIn + j) * nComp + k];
                    volatile T sum = product + target;
                    target = sum;
                }
            }
}

template <class T> auto Bits(T value)
{
    using Word = std::conditional_t<sizeof(T) == 8, std::uint64_t, std::uint32_t>;
    return std::bit_cast<Word>(value);
}

// Values of mixed sign and magnitude, so that the order of rounding shows in the last bits.
template <class T> std::vector<T> RandomValues(std::mt19937& random, std::size_t count)
{
    std::uniform_real_distribution<T> mantissa(-1, 1);
    std::uniform_int_distribution<int> exponent(-8, 8);
    std::vector<T> values(count);
    for (T& value : values)
        value = std::ldexp(mantissa(random), exponent(random));
    return values;
}

// Output with guard cells behind it, all holding a value the extrapolation never produces.
template <class T> struct GuardedOutput
{
    static constexpr int kGuard = 8;
    explicit GuardedOutput(std::size_t count) : cells(count + kGuard, std::numeric_limits<T>::quiet_NaN()) {}
    T* data() { return cells.data(); }
    std::size_t size() const { return cells.size() - kGuard; }
    bool Untouched(std::size_t from) const
    {
        for (std::size_t n = from; n < cells.size(); ++n)
            if (!std::isnan(cells[n]))
                return false;
        return true;
    }
    std::vector<T> cells;
};

template <class T> class ExtrapolationTest : public ::testing::Test
{
};
using ElementTypes = ::testing::Types<float, double>;
TYPED_TEST_SUITE(ExtrapolationTest, ElementTypes);
} // namespace

TYPED_TEST(ExtrapolationTest, MatchesThePlainLoopBitForBit)
{
    using T = TypeParam;
    std::mt19937 random(20240611);
    struct Shape
    {
        int nIn, nOut;
    };
    Shape const shapes[] = {{8, 8}, {1, 3}, {4, 27}, {27, 8}, {3, 1}};
    for (int nComp : {1, 2, 3, 4, 5, 6, 7, 8, 9, 13})
        for (Shape shape : shapes)
            for (int nBlocks : {1, 3, 7})
            {
                SCOPED_TRACE(::testing::Message() << "nComp " << nComp << " nIn " << shape.nIn << " nOut "
                                                  << shape.nOut << " nBlocks " << nBlocks);
                std::vector<T> input = RandomValues<T>(random, std::size_t(nBlocks) * shape.nIn * nComp);
                std::vector<float> matrix = RandomValues<float>(random, std::size_t(shape.nOut) * shape.nIn);
                std::size_t const outCount = std::size_t(nBlocks) * shape.nOut * nComp;
                GuardedOutput<T> output(outCount);
                std::vector<T> expected(outCount);
                Extrapolate(shape.nIn, shape.nOut, nComp, nBlocks, input.data(), output.data(),
                            matrix.data());
                ReferenceExtrapolate(shape.nIn, shape.nOut, nComp, nBlocks, input.data(), expected.data(),
                                     matrix.data());
                for (std::size_t n = 0; n < outCount; ++n)
                    ASSERT_EQ(Bits(output.cells[n]), Bits(expected[n])) << "element " << n;
                EXPECT_TRUE(output.Untouched(outCount));
            }
}

// A product whose rounding a fused multiply-add would skip: the exact sum is a tiny non-zero value,
// the rounded product cancels the first term to exactly 0.
TYPED_TEST(ExtrapolationTest, RoundsEveryProductBeforeTheSum)
{
    using T = TypeParam;
    bool const single = sizeof(T) == sizeof(float);
    float const first = single ? -(1.0f + 0x1p-11f) : -1.0f;
    float const second = single ? 1.0f + 0x1p-12f : 1.0f + 0x1p-23f;
    T const secondInput = single ? T(1.0f + 0x1p-12f) : T(1.0 + 0x1p-30);
    T const firstInput = single ? T(1) : T(1.0 + 0x1p-23 + 0x1p-30);
    std::vector<float> matrix{first, second};
    std::vector<T> input{firstInput, secondInput};
    T output = -1;
    Extrapolate(2, 1, 1, 1, input.data(), &output, matrix.data());
    T expected = -1;
    ReferenceExtrapolate(2, 1, 1, 1, input.data(), &expected, matrix.data());
    EXPECT_EQ(expected, T(0));
    EXPECT_EQ(Bits(output), Bits(expected));
}

TYPED_TEST(ExtrapolationTest, DegenerateCountsWriteOnlyWhatTheyMustAndSumsStartAtPositiveZero)
{
    using T = TypeParam;
    std::vector<float> matrix(4, 2.0f);
    std::vector<T> input(12, T(3));
    GuardedOutput<T> output(12);

    Extrapolate(2, 2, 3, 0, input.data(), output.data(), matrix.data());
    Extrapolate(2, 2, 3, -1, input.data(), output.data(), matrix.data());
    Extrapolate(2, 2, 0, 2, input.data(), output.data(), matrix.data());
    Extrapolate(2, 2, -2, 2, input.data(), output.data(), matrix.data());
    Extrapolate(2, 0, 3, 2, input.data(), output.data(), matrix.data());
    Extrapolate(2, 0, 3, 2, static_cast<T const*>(nullptr), static_cast<T*>(nullptr), nullptr);
    EXPECT_TRUE(output.Untouched(0));

    // No input points give sums of nothing: positive zero, as do sums of negative zeros.
    Extrapolate(0, 2, 3, 2, static_cast<T const*>(nullptr), output.data(), nullptr);
    for (std::size_t n = 0; n < output.size(); ++n)
        EXPECT_EQ(Bits(output.cells[n]), Bits(T(0))) << n;
    EXPECT_TRUE(output.Untouched(output.size()));
    std::vector<T> negativeZeros(3, T(-0.0)), sums(3, T(1));
    Extrapolate(1, 1, 3, 1, negativeZeros.data(), sums.data(), matrix.data());
    for (T sum : sums)
        EXPECT_EQ(Bits(sum), Bits(T(0)));
}
