#pragma once
// Start and stop of the keyword input module: counting only.

void ORXSrvKwd_initialize(int& tally);
void ORXSrvKwd_finalize(int& tally);
