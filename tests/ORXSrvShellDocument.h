#pragma once
// A small document with shell section assignments, built the way a host does: a model with a mesh
// of elements, a collection of shell sections, and for each assignment a region whose first
// discrete region names an element set. Used by the section and shell-layer tests.
#include <ORXSrvBasic.h>

#include <vector>

inline int ShellSchema(int group, int member)
{
    return vds_CoreFragmentTypeIndex(group, member);
}

struct ORXSrvShellDocument
{
    explicit ORXSrvShellDocument(int elementCount, int sectionCount = 4)
    {
        model = doc.CreateDataRecord(ShellSchema(25, 1)).Pos();
        doc.SetModel(model);
        ORXSimPosition const mesh = doc.CreateDataRecord(ShellSchema(20, 0)).Pos();
        ORXObjModel(model).SetMesh(mesh);
        elements = doc.Focus().CreateTypedCollection(elementCount, ShellSchema(23, 65));
        ORXObjMesh(mesh).SetElementCollection(ORXSimPosition(elements));
        sections = doc.Focus().CreateTypedCollection(sectionCount, ShellSchema(50, 79));
        materials = ORXSimPosition(doc.Focus().CreateTypedCollection(5, ShellSchema(42, 1)));
        doc.SetMaterialCollection(materials);
        orientations = ORXSimPosition(doc.Focus().CreateTypedCollection(5, ShellSchema(26, 8)));
        model.SetPosition(ShellSchema(26, 7), orientations);
    }
    ~ORXSrvShellDocument() { doc.Close(); }

    ORXSimPosition ElementSet(std::vector<int> const& members) const
    {
        return ORXSimPosition(
            ORXSimCollection(elements).CreateCSet(members.data(), static_cast<int>(members.size()), false));
    }
    ORXSimPosition Section(int index, int layers) const
    {
        ORXSimPosition const section = doc.GetRecord(sections, index);
        section.DataRecord().SetInt(0, layers);
        return section;
    }
    // A new assignment of the section over the element set, appended to the model's assignments.
    ORXSimPosition Assign(ORXSimPosition const& section, ORXSimPosition const& elementSet) const
    {
        ORXSimPosition const assignment = doc.CreateDataRecord(ShellSchema(50, 48)).Pos();
        ORXSimPosition const region = doc.CreateDataRecord(ShellSchema(47, 28)).Pos();
        ORXSimPosition const discrete = doc.CreateDataRecord(ShellSchema(47, 30)).Pos();
        discrete.SetPosition(ShellSchema(47, 1), elementSet);
        region.GetSet(ShellSchema(47, 29)).Insert(discrete);
        assignment.SetPosition(ShellSchema(50, 49), region);
        assignment.SetPosition(ShellSchema(50, 50), section);
        model.GetVector(ShellSchema(25, 26)).PushBack(assignment);
        return assignment;
    }

    ORXObjDocument doc = ORXObjDocument::New();
    ORXSimPosition model;
    ORXSimCollectionID elements;
    ORXSimCollectionID sections;
    ORXSimPosition materials;
    ORXSimPosition orientations;
};
