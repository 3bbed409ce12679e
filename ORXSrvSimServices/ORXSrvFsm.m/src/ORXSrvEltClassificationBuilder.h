#pragma once
// Elaborates the element specification assignment of a document's mesh into an element
// classification: a list of element classes and a membership DSet of the elements of each class.
#include "ORXSimPosition.h"

enum ORXSrvEltClassificationType
{
    ORXSrvEltClassificationShape = 0
};

class ORXSrvEltClassificationBuilder
{
public:
    explicit ORXSrvEltClassificationBuilder(ORXSimPosition focus);
    ~ORXSrvEltClassificationBuilder();
    // Only the shape classification is implemented; another type fails its check.
    ORXSimPosition BuildEltClassification(ORXSrvEltClassificationType type);

private:
    ORXSimPosition m_focus;
};
