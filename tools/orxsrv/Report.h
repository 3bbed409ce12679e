#pragma once
// The facts of one check: printed as a short report or as one JSON object.
#include "DeckModel.h"
#include "ModelDocument.h"

#include <ostream>
#include <string>
#include <vector>

namespace orxsrv
{
struct Timings
{
    double parse = 0, build = 0, check = 0, total = 0;
};

struct CheckResult
{
    DeckModel const& deck;
    ModelDocument const& model;
    std::vector<std::string> const& findings;
    Timings timings;
    long long peakMemoryBytes = 0;
    int cellsWritten = -1; // -1 when no mesh file was written
    int cellsLeftOut = 0;
};

void WriteJson(std::ostream& out, CheckResult const& result);
void WriteText(std::ostream& out, CheckResult const& result);
} // namespace orxsrv
