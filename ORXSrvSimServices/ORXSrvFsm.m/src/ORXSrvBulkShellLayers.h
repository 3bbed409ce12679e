#pragma once
// Process-wide accumulator of shell-layer data that is written as bulk distributions of the model.
// One object, made by omi_Singleton<ORXSrvBulkShellLayers>::Instance() and ended by
// omi_SingletonBase<ORXSrvBulkShellLayers>::Finalize(), which the last ORXSrvFsm_finalize calls.
#include "omi_Singleton.h"

class ORXSrvBulkShellLayers : public omi_Singleton<ORXSrvBulkShellLayers>
{
    friend class omi_Singleton<ORXSrvBulkShellLayers>;

private:
    ORXSrvBulkShellLayers();
};

extern template class omi_SingletonBase<ORXSrvBulkShellLayers>;
extern template class omi_Singleton<ORXSrvBulkShellLayers>;
