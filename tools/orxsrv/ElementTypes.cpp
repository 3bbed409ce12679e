#include "ElementTypes.h"

#include <cstring>

namespace orxsrv
{
namespace
{
struct Entry
{
    char const* prefix; // a type name starting with this, then only letters, is of this entry
    ElementType type;
};

// Longest prefixes first, so that "C3D20" is not taken for "C3D2".
Entry const kTable[] = {
    {"C3D20", {"HEX20", 35, 25, 20}}, {"C3D10", {"TET10", 41, 24, 10}}, {"C3D15", {"WEDGE15", 45, 26, 15}},
    {"C3D8", {"HEX8", 14, 12, 8}},    {"SC8", {"HEX8", 14, 12, 8}},     {"C3D6", {"WEDGE6", 9, 13, 6}},
    {"SC6", {"WEDGE6", 9, 13, 6}},    {"C3D4", {"TET4", 13, 10, 4}},    {"S8", {"QUAD8", 38, 23, 8}},
    {"S4", {"QUAD4", 11, 9, 4}},      {"M3D4", {"QUAD4", 11, 9, 4}},    {"CPS4", {"QUAD4", 11, 9, 4}},
    {"CPE4", {"QUAD4", 11, 9, 4}},    {"CAX4", {"QUAD4", 11, 9, 4}},    {"S6", {"TRI6", 17, 22, 6}},
    {"S3", {"TRI3", 7, 5, 3}},        {"M3D3", {"TRI3", 7, 5, 3}},      {"CPS3", {"TRI3", 7, 5, 3}},
    {"CPE3", {"TRI3", 7, 5, 3}},      {"B31", {"LINE2", 2, 3, 2}},      {"T3D2", {"LINE2", 2, 3, 2}},
    {"T2D2", {"LINE2", 2, 3, 2}},     {"B21", {"LINE2", 2, 3, 2}},
};

ElementType const kUnknown = {"UNKNOWN", 46, 0, 0};

bool OnlyLetters(char const* text)
{
    for (; *text; ++text)
        if (*text < 'A' || *text > 'Z')
            return false;
    return true;
}
} // namespace

ElementType const* FindElementType(std::string const& name)
{
    for (Entry const& entry : kTable)
    {
        std::size_t const length = std::strlen(entry.prefix);
        if (name.compare(0, length, entry.prefix) == 0 && OnlyLetters(name.c_str() + length))
            return &entry.type;
    }
    return nullptr;
}

ElementType const& UnknownElementType()
{
    return kUnknown;
}
} // namespace orxsrv
