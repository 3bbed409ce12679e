#pragma once
// The elaboration of one kind of element classification of a mesh; each kind derives from it.
#include "ORXSimPosition.h"

class ORXSrvEltClassBuilderImpl
{
public:
    ORXSrvEltClassBuilderImpl();
    virtual ~ORXSrvEltClassBuilderImpl();
    // Writes the classification of the mesh of the document whose focus is given and returns it.
    virtual ORXSimPosition BuildEltClassification(ORXSimPosition focus) = 0;
};
