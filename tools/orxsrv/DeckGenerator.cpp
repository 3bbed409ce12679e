#include "DeckGenerator.h"

#include "DeckModel.h"

#include <cstdio>
#include <memory>

namespace orxsrv
{
void GenerateHexDeck(std::string const& path, int n, bool shells)
{
    std::unique_ptr<FILE, int (*)(FILE*)> file(std::fopen(path.c_str(), "w"), &std::fclose);
    if (!file)
        throw InputError{path + ": cannot write the deck"};
    FILE* out = file.get();
    long long const side = n + 1;
    auto node = [side](long long i, long long j, long long k) { return 1 + i + side * (j + side * k); };
    std::fprintf(out, "*HEADING\nStructured block of %d x %d x %d bricks\n** written by orxsrv gen\n*NODE\n",
                 n, n, n);
    for (long long k = 0; k <= n; ++k)
        for (long long j = 0; j <= n; ++j)
            for (long long i = 0; i <= n; ++i)
                std::fprintf(out, "%lld, %g, %g, %g\n", node(i, j, k), static_cast<double>(i),
                             static_cast<double>(j), static_cast<double>(k));
    std::fprintf(out, "*ELEMENT, TYPE=C3D8, ELSET=BLOCK\n");
    long long element = 1;
    for (long long k = 0; k < n; ++k)
        for (long long j = 0; j < n; ++j)
            for (long long i = 0; i < n; ++i)
                std::fprintf(out, "%lld, %lld, %lld, %lld, %lld, %lld, %lld, %lld, %lld\n", element++,
                             node(i, j, k), node(i + 1, j, k), node(i + 1, j + 1, k), node(i, j + 1, k),
                             node(i, j, k + 1), node(i + 1, j, k + 1), node(i + 1, j + 1, k + 1),
                             node(i, j + 1, k + 1));
    long long const bricks = element - 1;
    if (shells)
    {
        // The bottom and top faces as a skin of shells.
        std::fprintf(out, "*ELEMENT, TYPE=S4R, ELSET=SKIN\n");
        for (long long k : {0LL, static_cast<long long>(n)})
            for (long long j = 0; j < n; ++j)
                for (long long i = 0; i < n; ++i)
                    std::fprintf(out, "%lld, %lld, %lld, %lld, %lld\n", element++, node(i, j, k),
                                 node(i + 1, j, k), node(i + 1, j + 1, k), node(i, j + 1, k));
    }
    std::fprintf(out, "*NSET, NSET=ALL, GENERATE\n1, %lld, 1\n", side * side * side);
    std::fprintf(out, "*NSET, NSET=BOTTOM, GENERATE\n1, %lld, 1\n", side * side);
    std::fprintf(out, "*ELSET, ELSET=ALL, GENERATE\n1, %lld, 1\n", bricks);
    std::fprintf(out, "*SOLID SECTION, ELSET=BLOCK, MATERIAL=STEEL\n,\n");
    if (shells)
        std::fprintf(out, "*SHELL SECTION, ELSET=SKIN, COMPOSITE\n0.5, 3, STEEL\n0.25, 3, STEEL\n");
    std::fprintf(out, "*MATERIAL, NAME=STEEL\n*ELASTIC\n210000., 0.3, 20.\n190000., 0.3, 400.\n"
                      "*DENSITY\n7.85e-9\n*EXPANSION\n1.2e-5, 20.\n1.4e-5, 400.\n");
    std::fprintf(out, "*BOUNDARY\nBOTTOM, 1, 3\n");
    std::fprintf(out, "*STEP, NAME=Load\n*STATIC\n1., 1.\n*CLOAD\nALL, 3, -1.\n*END STEP\n");
    std::fprintf(out, "*STEP, NAME=Heat\n*STATIC\n1., 1.\n*TEMPERATURE\nALL, 400.\n*END STEP\n");
    if (std::ferror(out))
        throw InputError{path + ": cannot write the deck"};
}
} // namespace orxsrv
