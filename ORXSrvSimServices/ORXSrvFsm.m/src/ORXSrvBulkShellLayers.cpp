#include "ORXSrvBulkShellLayers.h"

template class omi_SingletonBase<ORXSrvBulkShellLayers>;
template class omi_Singleton<ORXSrvBulkShellLayers>;

ORXSrvBulkShellLayers::ORXSrvBulkShellLayers() = default;
