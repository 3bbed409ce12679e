#pragma once
// The common element type names: the shape each one has (its place in the shape symbol list) and
// the VTK cell type that draws it. Types not in the table are kept but not drawn.
#include <string>

namespace orxsrv
{
struct ElementType
{
    char const* shape; // symbol name of the shape
    int shapePlace;    // its place in the shape symbol list
    int vtkCell;       // VTK cell type; 0 for none
    int nodes;         // nodes the VTK cell takes
};

// The table's entry for a type name (upper case); null for a type it does not know.
ElementType const* FindElementType(std::string const& name);
// The shape given to types the table does not know.
ElementType const& UnknownElementType();
} // namespace orxsrv
