#include "ORXSrvEltClassificationBuilder.h"

#include "ORXSrvChecks.h"
#include "ORXSrvEltClassBuilderImplShape.h"

ORXSrvEltClassificationBuilder::ORXSrvEltClassificationBuilder(ORXSimPosition focus) : m_focus(focus) {}

ORXSrvEltClassificationBuilder::~ORXSrvEltClassificationBuilder() {}

ORXSimPosition ORXSrvEltClassificationBuilder::BuildEltClassification(ORXSrvEltClassificationType type)
{
    if (type != ORXSrvEltClassificationShape)
        ORXSrvAssert(!"Element Classification elaboration not yet implemented.");
    ORXSrvEltClassBuilderImplShape shape;
    return shape.BuildEltClassification(m_focus);
}
