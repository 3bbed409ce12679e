#pragma once
// The model record of a document: a position with named steps to its mesh and its steps.
#include "ORXSimPosition.h"
#include "ORXString.h"

class ORXObjModel : public ORXSimPosition
{
public:
    ORXObjModel() = default;
    ORXObjModel(ORXSimPosition const& model) : ORXSimPosition(model) {}

    // The model's mesh, through Model_mesh (20, 0).
    ORXSimPosition GetMesh() const;
    void SetMesh(ORXSimPosition const& mesh) const;
    // The step of that name in Model_steps (57, 25); null if there is none.
    ORXSimPosition GetStep(ORXString const& name) const;
};
