#pragma once
// Start and stop of the whole library. ORXSrvBasic_initialize starts the sibling libraries and the
// three modules in a fixed order, ORXSrvBasic_finalize stops them in the reverse order; both work
// only on the first start and the last stop of the library's use counter, and move the caller's start
// tally by one for every layer that really starts or stops. Loading the shared library runs
// DllMain(module, 1, reserved), unloading DllMain(module, 0, reserved).

void ORXSrvBasic_initialize(int& tally);
void ORXSrvBasic_finalize(int& tally);
// The library's own last start step, counted apart from the library use counter.
void ORXSrvBasic_specific_initialize(int& tally);
void ORXSrvBasic_specific_finalize(int& tally);

// Load entry. Reason 1 (process attach) starts the library, reason 0 (process detach) stops it with
// the same start tally; other reasons do nothing. Always returns 1.
int DllMain(void* module, unsigned long reason, void* reserved);

// Marker of the library's framework: returns 1.
int ORX_FRAMEWORK_INTERNAL_ORXSrvBasic();
