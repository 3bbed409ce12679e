// A material table of three dependents of widths 6, 3 and 1, temperature and two field variables:
//   material_table_vs_copy              Save of 10^5 rows, 10 Appends of 10^4 rows, FillPointer of
//                                       all 2 x 10^5, against copying the same doubles from the
//                                       rows into plain block arrays and back into one plain array
//   material_table_memory_vs_doubles    heap the stored table takes, against the bytes of its doubles
#include "BenchRatio.h"

#include <ORXSrvBasic.h>

#include <malloc.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

namespace
{
int const kSavedRows = 100000;
int const kAppends = 10;
int const kAppendRows = 10000;
int const kRows = kSavedRows + kAppends * kAppendRows;
int const kBlockWidths[] = {6, 3, 1, 1, 2}; // the dependents, the temperature, the field variables
int const kColumns = 13;
int const kFieldVariables = 2;

int const kTypes[] = {vds_CoreFragmentTypeIndex(42, 30), vds_CoreFragmentTypeIndex(42, 31),
                      vds_CoreFragmentTypeIndex(42, 32), -1};
int const kMembers[] = {1, 2, 3};
int const kLengths[] = {6, 3, 1};

// The caller's rows, each its own array of kColumns doubles.
std::vector<double const*> const& SourceRows()
{
    static std::vector<std::vector<double>> const values = []
    {
        std::vector<std::vector<double>> rows(kRows, std::vector<double>(kColumns));
        for (int i = 0; i < kRows; ++i)
            for (int c = 0; c < kColumns; ++c)
                rows[i][c] = i * 100.0 + c + 0.25;
        return rows;
    }();
    static std::vector<double const*> const pointers = []
    {
        std::vector<double const*> rows;
        for (std::vector<double> const& row : values)
            rows.push_back(row.data());
        return rows;
    }();
    return pointers;
}

// A document with a material record and the collections of its rows, columns and field variables.
struct Material
{
    Material()
        : table(kTypes, kMembers, kLengths, true, vds_CoreFragmentTypeIndex(42, 33), 7,
                vds_CoreFragmentTypeIndex(42, 34), 8)
    {
    }
    ~Material() { document.Close(); }

    // Save of the first rows, then the Appends of the others.
    void Write()
    {
        double const** values = const_cast<double const**>(SourceRows().data());
        table.Save(transaction, record, rows, columns, fieldVariables, values, kSavedRows, true,
                   kFieldVariables, true);
        for (int a = 0; a < kAppends; ++a)
            table.Append(transaction, record, rows, columns, fieldVariables,
                         values + kSavedRows + a * kAppendRows, kAppendRows, true, kFieldVariables);
    }

    ORXObjDocument document = ORXObjDocument::New();
    ORXSimTransaction transaction{document.ContextID()};
    ORXSimPosition record = document.CreateDataRecord(vds_CoreFragmentTypeIndex(42, 1)).Pos();
    ORXSimCollectionID rows = document.Focus().CreateTypedCollection(0, vds_CoreFragmentTypeIndex(42, 40));
    ORXSimCollectionID columns = document.Focus().CreateTypedCollection(0, vds_CoreFragmentTypeIndex(42, 41));
    ORXSimCollectionID fieldVariables =
        document.Focus().CreateTypedCollection(0, vds_CoreFragmentTypeIndex(42, 42));
    ORXSrvFsmMaterialTable table;
};

// Writes the table and reads it back; with compare, gives whether the rows handed out equal the
// source rows.
bool WriteAndRead(bool compare)
{
    Material material;
    material.Write();
    double** rows = nullptr;
    int numRows = 0, numCols = 0, numFieldVariables = 0;
    bool temperature = false;
    material.table.FillPointer(material.record, rows, numRows, numCols, temperature, numFieldVariables);
    benchmark::DoNotOptimize(rows);
    bool same =
        numRows == kRows && numCols == kColumns && temperature && numFieldVariables == kFieldVariables;
    for (int i = 0; i < numRows; ++i)
    {
        same = same && (!compare || std::memcmp(rows[i], SourceRows()[i], kColumns * sizeof(double)) == 0);
        mem_Free(rows[i]);
    }
    mem_Free(rows);
    return same;
}

void BM_MaterialTable(benchmark::State& state)
{
    if (!WriteAndRead(true))
        state.SkipWithError("FillPointer gave other values");
    for (auto _ : state)
        WriteAndRead(false);
}

// The same doubles: gathered from the rows into one plain array per block as the writes come, then
// copied back into one plain array of the whole table. Block widths are constants, so that every
// row is a few plain moves.
template <int W> void GatherPlain(double const* const* rows, int begin, int count, int offset, double* block)
{
    for (int i = begin; i < begin + count; ++i)
        for (int c = 0; c < W; ++c)
            block[static_cast<std::size_t>(i) * W + c] = rows[i][offset + c];
}

template <int W> void ScatterPlain(double const* block, int offset, double* table)
{
    for (int i = 0; i < kRows; ++i)
        for (int c = 0; c < W; ++c)
            table[static_cast<std::size_t>(i) * kColumns + offset + c] =
                block[static_cast<std::size_t>(i) * W + c];
}

void BM_PlainArrayCopy(benchmark::State& state)
{
    double const* const* source = SourceRows().data();
    for (auto _ : state)
    {
        double* blocks[5];
        for (int b = 0; b < 5; ++b)
            blocks[b] = static_cast<double*>(std::malloc(sizeof(double) * kRows * kBlockWidths[b]));
        for (int call = 0; call <= kAppends; ++call)
        {
            int const begin = call == 0 ? 0 : kSavedRows + (call - 1) * kAppendRows;
            int const count = call == 0 ? kSavedRows : kAppendRows;
            GatherPlain<6>(source, begin, count, 0, blocks[0]);
            GatherPlain<3>(source, begin, count, 6, blocks[1]);
            GatherPlain<1>(source, begin, count, 9, blocks[2]);
            GatherPlain<1>(source, begin, count, 10, blocks[3]);
            GatherPlain<2>(source, begin, count, 11, blocks[4]);
        }
        double* table = static_cast<double*>(std::malloc(sizeof(double) * kRows * kColumns));
        ScatterPlain<6>(blocks[0], 0, table);
        ScatterPlain<3>(blocks[1], 6, table);
        ScatterPlain<1>(blocks[2], 9, table);
        ScatterPlain<1>(blocks[3], 10, table);
        ScatterPlain<2>(blocks[4], 11, table);
        benchmark::DoNotOptimize(table);
        std::free(table);
        for (double* block : blocks)
            std::free(block);
    }
}

// Heap in use, arena and mapped blocks together.
double HeapBytes()
{
    struct mallinfo2 const info = mallinfo2();
    return static_cast<double>(info.uordblks + info.hblkhd);
}

void BM_MaterialTableMemory(benchmark::State& state)
{
    double ratio = 0.0;
    for (auto _ : state)
    {
        SourceRows();
        Material material;
        // Freed work blocks kept by the memory entries would count as in use, so they go back first.
        mem_ReleaseCachedBlocks();
        double const before = HeapBytes();
        material.Write();
        mem_ReleaseCachedBlocks();
        double const stored = HeapBytes() - before;
        double const doubles = static_cast<double>(kRows) * kColumns * sizeof(double);
        ratio = stored / doubles;
        std::printf("stored table: %.0f bytes of heap for %.0f bytes of doubles\n", stored, doubles);
    }
    OrxBenchPrintRatio("material_table_memory_vs_doubles", ratio);
}
} // namespace

BENCHMARK(BM_MaterialTable)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_PlainArrayCopy)->Unit(benchmark::kMillisecond);
BENCHMARK(BM_MaterialTableMemory)->Iterations(1)->Unit(benchmark::kMillisecond);

ORXSRV_RATIO(material_table_vs_copy, "BM_MaterialTable", "BM_PlainArrayCopy");
