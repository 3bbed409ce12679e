#include "ORXSrvEltClassBuilderImplShape.h"

#include "ORXObjElementClass.h"
#include "ORXObjElementClassification.h"
#include "ORXObjMesh.h"
#include "ORXObjModel.h"
#include "ORXSimCollection.h"
#include "ORXSimCompartment.h"
#include "ORXSimContext.h"
#include "ORXSimCtation.h"
#include "ORXSimDSet.h"
#include "ORXSimDataRecord.h"
#include "ORXSimTransaction.h"
#include "ORXSrvChecks.h"
#include "vds_CoreFragmentTypeIndex.h"

namespace
{
int const Document_model = vds_CoreFragmentTypeIndex(25, 1);
int const Focus_library = vds_CoreFragmentTypeIndex(15, 9);
int const Library_elementSpecCollection = vds_CoreFragmentTypeIndex(23, 47);
int const ElementClassification = vds_CoreFragmentTypeIndex(23, 11);
int const ElementClass = vds_CoreFragmentTypeIndex(23, 7);
int const ElementClassification_membership = vds_CoreFragmentTypeIndex(23, 8);
int const ElementSpec_shape = vds_CoreFragmentTypeIndex(23, 31);

using CompartmentArray = ORXSimArray<ORXSimCompartment, ORXSimArrayClassPolicy<ORXSimCompartment>>;

// The member indices of one record in its collection.
ORXSimArray<int> Membership(ORXSimContext const& context, ORXSimDynamicID const& record)
{
    ORXSimArray<ORXSimDynamicID> records(1, 0);
    records.Get(0) = record;
    ORXSimCollectionID collection;
    ORXSimArray<int> indices;
    context.GetCMembership(records, collection, indices);
    return indices;
}

ORXSimCompartment Pair(ORXSimCSet const& classSet, ORXSimCSet const& elements)
{
    ORXSimArray<ORXSimCSet, ORXSimArrayClassPolicy<ORXSimCSet>> pair(2, 0);
    pair.Get(0) = classSet;
    pair.Get(1) = elements;
    return ORXSimCompartment(pair);
}
} // namespace

ORXSimPosition ORXSrvEltClassBuilderImplShape::BuildEltClassification(ORXSimPosition focus)
{
    ORXSimPosition const model = focus.GetPosition(Document_model);
    ORXObjMesh mesh(ORXObjModel(model).GetMesh());
    ORXSimCollectionID const elementCollection = mesh.GetElementCollection().GetCollection();
    ORXSimCollectionID const specCollection =
        focus.GetPosition(Focus_library).GetPosition(Library_elementSpecCollection).GetCollection();
    ORXSimPosition const assignment = mesh.GetElementSpecAssignment();
    if (assignment.IsNull())
        return ORXSimPosition();
    ORXSimCtation const compartments = ORXSimDSet(assignment).GetCtation();
    int const count = compartments.NumCompartments();

    ORXSimContext const context = focus.Context();
    ORXSimTransaction transaction(context.ContextID());
    ORXSimPosition const classification(focus.CreateDataRecord(ElementClassification).ID());
    ORXObjElementClassification elementClassification(classification);
    mesh.SetElementClassification(classification);
    ORXSimCollectionID const classCollection = focus.CreateTypedCollection(count, ElementClass);
    mesh.SetElementClassCollection(ORXSimPosition(classCollection));

    CompartmentArray classes;
    int numClasses = 0;
    for (int c = 0; c < count; ++c)
    {
        ORXSimCompartment const& eltSpecCompartement = compartments[c];
        int const eltSpecColIndex = eltSpecCompartement.Position(specCollection);
        int const eltColIndex = eltSpecCompartement.Position(elementCollection);
        // The specification's set stands at index 0 and the elements at index 1.
        ORXSrvAssert(eltColIndex != -1 && eltSpecColIndex != 1);
        ORXSrvAssert(eltSpecCompartement.Size() == 2);
        // A compartment without the specification collection passes the check above; it has no
        // specification set then, and the next check refuses it.
        ORXSimCSet const specCSet =
            eltSpecColIndex >= 0 ? eltSpecCompartement[eltSpecColIndex] : ORXSimCSet();
        ORXSrvAssert(specCSet.Size() == 1);
        ORXSimPosition const spec = context.GetRecord(specCollection, specCSet[0]);
        ORXSimPosition const shape = spec.GetPosition(ElementSpec_shape);
        int const shapeIndex = Membership(context, shape)[0];

        ORXSimCompartment const existing =
            shapeIndex < classes.Size() ? classes[shapeIndex] : ORXSimCompartment();
        ORXSimCompartment pair;
        if (existing.Size() == 0)
        {
            ORXObjElementClass elementClass;
            elementClass.Register(mesh, spec);
            elementClassification.AppendElementClass(elementClass);
            ORXSimArray<int> const CMembers = Membership(context, elementClass.ID());
            ORXSrvAssert(CMembers.Size() == 1);
            int const member = CMembers[0];
            pair = Pair(ORXSimCSet(ORXSimCollection(classCollection).CreateCSet(&member, 1, false)),
                        eltSpecCompartement[eltColIndex]);
            ++numClasses;
        }
        else
        {
            // The union of a class stays volatile while it grows; only the final one is registered.
            pair =
                Pair(existing[existing.Position(classCollection)],
                     existing[existing.Position(elementCollection)].Union(eltSpecCompartement[eltColIndex]));
        }
        if (shapeIndex >= classes.Size())
            classes.SetSize(shapeIndex + 1);
        classes[shapeIndex] = pair;
    }

    CompartmentArray inUse(numClasses, 0);
    int next = 0;
    for (int shape = 0; shape < classes.Size(); ++shape)
    {
        if (classes[shape].Size() == 0)
            continue;
        ORXSimCSet elements = classes[shape][1];
        if (elements.ID().IsNull())
            elements.RegisterWithCollection();
        inUse[next++] = Pair(classes[shape][0], elements);
    }
    ORXSimPosition const membership(
        focus.CreateTypedDSet(ORXSimCtation(inUse), ElementClassification_membership));
    elementClassification.SetMembership(membership);
    transaction.Commit();
    return classification;
}
