#pragma once
// Writes the mesh of a checked model as a VTK XML unstructured grid with raw appended data: points,
// the cells of every type the type table can draw, node labels as point data, and per cell the
// element label, type index, section index, material index and whether a finding names it.
#include "ModelDocument.h"

#include <string>
#include <vector>

namespace orxsrv
{
struct VtuCounts
{
    int written = 0;
    int leftOut = 0;
};

// Throws InputError when the file cannot be written.
VtuCounts WriteVtu(std::string const& path, ModelDocument const& model,
                   std::vector<std::string> const& findings);
} // namespace orxsrv
