#pragma once
// Applies one small dense matrix to many blocks of point data: for every block and component, the
// values at the block's nIn input points become values at its nOut output points,
//     output[b][i][k] = sum over j ascending of matrix[i][j] * input[b][j][k],
// with the sum started at 0 and every product and partial sum rounded to the element type (no wider
// accumulator, no fused multiply-add), so results are reproducible bit for bit.
// Layouts: input (b * nIn + j) * nComp + k, output (b * nOut + i) * nComp + k, matrix i * nIn + j.
// input and output must not overlap. Nothing is validated, allocated or kept.
class ORXSrvExtrapolation
{
public:
    static void ExtrapolateSinglePrecision(int nIn, int nOut, int nComp, int nBlocks, const float* input,
                                           float* output, const float* matrix);
    // The single-precision matrix entries are widened to double before use.
    static void ExtrapolateDoublePrecision(int nIn, int nOut, int nComp, int nBlocks, const double* input,
                                           double* output, const float* matrix);
};
