#pragma once
// Start and stop of the model services module. The last stop also ends the ORXSrvBulkShellLayers
// singleton.

void ORXSrvFsm_initialize(int& tally);
void ORXSrvFsm_finalize(int& tally);
