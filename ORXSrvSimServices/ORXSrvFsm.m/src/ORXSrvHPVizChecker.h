#pragma once
// Read-only audit of a finished document: walks the model and checks that the links, sets and
// distributions of the mesh, regions, plies, steps, history output, focus results and section
// assignments are present and consistent. Every defect found is one text appended to the list of
// messages, and the run goes on; the checker repairs nothing and writes nothing to the document.
#include "ORXBasVector.h"
#include "ORXObjDocument.h"
#include "ORXSimArray.h"
#include "ORXSimPosition.h"
#include "ORXString.h"

class ORXSrvHPVizChecker
{
public:
    explicit ORXSrvHPVizChecker(ORXObjDocument const& document);
    // Runs every check in order; a second run appends its findings to those of the first.
    void Check_HPViz();
    // The findings in the order found.
    ORXBasVector<ORXString> const& GetMessages() const;

private:
    void Check_Mesh();
    void Check_Regions();
    void Check_Ply();
    void Check_Steps();
    void Check_History();
    void Check_FocusResults();
    void Check_sectionAssignments();
    void Check_Field(ORXSimPosition field, ORXString prefix, ORXString number);
    void Check_Component(ORXString prefix, int algebraicType, ORXSimArray<int> const& components,
                         ORXSimPosition fieldType);
    bool Check_Component_Impl(ORXSimArray<int> const& components, int* allowed, int numAllowed);
    bool HasNodeOrElementDim(ORXSimPosition field);

    // Appends one finding.
    void Report(ORXString const& message);
    // The class loop of the mesh check, for the classes of the classification.
    void CheckElementClasses(ORXSimPosition const& classification, ORXSimPosition const& assignment);
    // Whether every member of the set stands in the first dimension of some drawer of the data.
    bool Covers(ORXSimPosition const& data, ORXSimCSet const& members) const;

    ORXObjDocument m_document;
    ORXSimPosition m_model;
    ORXBasVector<ORXString> m_messages;
};
