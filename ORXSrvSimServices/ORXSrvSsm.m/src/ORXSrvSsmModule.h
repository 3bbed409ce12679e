#pragma once
// Start and stop of the set, scoped-name and distribution services module: counting only.

void ORXSrvSsm_initialize(int& tally);
void ORXSrvSsm_finalize(int& tally);
