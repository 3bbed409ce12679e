#include "ORXSrvEltClassBuilderImpl.h"

ORXSrvEltClassBuilderImpl::ORXSrvEltClassBuilderImpl() = default;

ORXSrvEltClassBuilderImpl::~ORXSrvEltClassBuilderImpl() = default;
