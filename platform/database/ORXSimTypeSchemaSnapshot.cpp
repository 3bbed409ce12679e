#include "ORXSimTypeSchemaSnapshot.h"

#include <cstdio>

ORXString ORXSimTypeSchemaSnapshot::TypeName(int type) const
{
    // Schema numbers are group * 4096 + member (see vds_CoreFragmentTypeIndex).
    char text[48];
    if (type < 0)
        std::snprintf(text, sizeof text, "untyped(%d)", type);
    else
        std::snprintf(text, sizeof text, "type%d.%d", type / 4096, type % 4096);
    return ORXString(text);
}
