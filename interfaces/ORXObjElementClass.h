#pragma once
// An element class of a mesh: a member of the mesh's element class collection, linked to the element
// spec record it was registered with and to the CSet of its elements.
#include "ORXObjMesh.h"
#include "ORXSimPosition.h"

class ORXObjElementClass : public ORXSimPosition
{
public:
    ORXObjElementClass() = default;
    ORXObjElementClass(ORXSimPosition const& elementClass) : ORXSimPosition(elementClass) {}

    // Takes the first free member of the mesh's element class collection (making the collection,
    // or growing it, when there is none), links it to `spec` under ElementClass_elementSpec (23, 9)
    // and makes this wrapper stand on it. A member is free while it has no element spec record.
    void Register(ORXObjMesh& mesh, ORXSimPosition const& spec);

    // The element spec record the class was registered with (23, 9).
    ORXSimPosition GetElementSpec() const;
    // The identity of the CSet of the class's elements (23, 128); a null identity if unset.
    ORXSimDynamicID GetElementCSet() const;
    void SetElementCSet(ORXSimDynamicID const& cset);
};
