#pragma once
// Start and stop entries of the document layer, the document store and the simulation database
// interface. Each pair keeps its own use counter and moves the caller's start tally by one on its
// first start and on its last stop.

void ORXObjSimObjectsMod_initialize(int& tally);
void ORXObjSimObjectsMod_finalize(int& tally);
void ORXSglSimXmlFndLib_initialize(int& tally);
void ORXSglSimXmlFndLib_finalize(int& tally);
void ORXSimInterface_initialize(int& tally);
void ORXSimInterface_finalize(int& tally);
void ORXSimContainers_initialize(int& tally);
void ORXSimContainers_finalize(int& tally);
