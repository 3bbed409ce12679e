#include "ORXSrvGetPointSetFromElementSpec.h"

#include "ORXObjDocument.h"
#include "ORXSimCollection.h"
#include "vds_CoreFragmentTypeIndex.h"

namespace
{
int const ElementSpec_points = vds_CoreFragmentTypeIndex(23, 32);
int const ElementSpec_shape = vds_CoreFragmentTypeIndex(23, 31);

// Points by the shape's place in the symbol list, 0 to 48; places not listed have none.
int const kPointsByShape[49] = {
    1,  0,  2,  0,  0,  0,  2, 3,  3,  6,  // 0-9
    9,  4,  5,  4,  8,  9,  3, 6,  0,  0,  // 10-19
    0,  0,  0,  0,  0,  0,  0, 0,  12, 18, // 20-29
    24, 9,  12, 18, 12, 20, 0, 27, 8,  13, // 30-39
    5,  10, 10, 4,  12, 15, 0, 6,  9,      // 40-48
};
} // namespace

ORXSimCSet ORXSrvGetPointSetFromElementSpec(ORXSimPosition const& elementSpec)
{
    ORXSimPosition const stored = elementSpec.GetPosition(ElementSpec_points);
    if (!stored.IsNull())
        return ORXSimCSet(stored.GetCSet());
    ORXObjDocument const document(elementSpec.Doc());
    ORXSimCollection const points(document.GetPointCollection().GetCollection());
    ORXSimPosition const shape = elementSpec.GetPosition(ElementSpec_shape);
    if (shape.IsNull())
        return ORXSimCSet(points.EmptyCSetID());
    int const place = shape.GetSymbolPosition();
    int count = place >= 0 && place <= 48 ? kPointsByShape[place] : 0;
    ORXString const name = elementSpec.Name(-1);
    if (name.SubString(1, 3) == "AXA")
    {
        int layers = 0;
        if (name.SubString(name.GetLengthInChar() - 1, 1).ConvertToNum(&layers, "%d") != 0)
            count *= layers + 1;
    }
    return points.CreateVolatileCSetStrided(0, count, 1, 1);
}
