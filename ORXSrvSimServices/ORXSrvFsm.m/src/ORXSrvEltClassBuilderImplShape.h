#pragma once
// The shape classification: one element class per element shape in use. The elements of every
// specification that points to a shape fall in that shape's class.
#include "ORXSrvEltClassBuilderImpl.h"

class ORXSrvEltClassBuilderImplShape : public ORXSrvEltClassBuilderImpl
{
public:
    // Null when the mesh has no element specification assignment; nothing is written then.
    ORXSimPosition BuildEltClassification(ORXSimPosition focus) override;
};
