#include "ORXObjElementClass.h"

#include "ORXSimCollection.h"
#include "ORXSimContext.h"
#include "vds_CoreFragmentTypeIndex.h"

namespace
{
int ElementClass()
{
    return vds_CoreFragmentTypeIndex(23, 7);
}
int ElementClass_elementSpec()
{
    return vds_CoreFragmentTypeIndex(23, 9);
}
int ElementClass_elementCSet()
{
    return vds_CoreFragmentTypeIndex(23, 128);
}
} // namespace

void ORXObjElementClass::Register(ORXObjMesh& mesh, ORXSimPosition const& spec)
{
    ORXSimPosition classes = mesh.GetElementClassCollection();
    if (classes.IsNull())
    {
        classes = ORXSimPosition(mesh.Focus().CreateTypedCollection(1, ElementClass()));
        mesh.SetElementClassCollection(classes);
    }
    ORXSimCollection collection(classes.GetCollection());
    ORXSimContext context = mesh.Context();
    int space = collection.Space();
    int member = 0;
    while (member < space && !ORXSimPosition(context.GetRecord(collection.ID(), member))
                                  .GetPosition(ElementClass_elementSpec())
                                  .IsNull())
        ++member;
    if (member == space)
        collection.ExtendSpace(space + 1);
    ORXSimPosition::operator=(ORXSimPosition(context.GetRecord(collection.ID(), member)));
    SetPosition(ElementClass_elementSpec(), spec);
}

ORXSimPosition ORXObjElementClass::GetElementSpec() const
{
    return GetPosition(ElementClass_elementSpec());
}

ORXSimDynamicID ORXObjElementClass::GetElementCSet() const
{
    return GetPosition(ElementClass_elementCSet()).ID();
}

void ORXObjElementClass::SetElementCSet(ORXSimDynamicID const& cset)
{
    SetPosition(ElementClass_elementCSet(), ORXSimPosition(cset));
}
