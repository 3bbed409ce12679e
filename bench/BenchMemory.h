#pragma once
// Bytes of the process's allocator in use, counted by wrapping the malloc family. A benchmark that
// links orxsrv_bench_memory gets the counting; the others run on the plain allocator.

long long OrxBenchBytesInUse();
// The most bytes in use since the last reset.
long long OrxBenchPeakBytes();
// Starts a new peak from the bytes in use now.
void OrxBenchResetPeak();
