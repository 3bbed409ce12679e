#pragma once
// Start and stop entries of the base libraries. Each pair keeps its own use counter and moves the
// caller's start tally by one on its first start and on its last stop.

void ORXBasShared_initialize(int& tally);
void ORXBasShared_finalize(int& tally);
void ORXBasNexia_initialize(int& tally);
void ORXBasNexia_finalize(int& tally);
void ORXBasCoreUtils_initialize(int& tally);
void ORXBasCoreUtils_finalize(int& tally);
void ORXBasGenericsLib_initialize(int& tally);
void ORXBasGenericsLib_finalize(int& tally);
void ORXBasAlloc_initialize(int& tally);
void ORXBasAlloc_finalize(int& tally);
