#pragma once
// Writes a structured block of n x n x n 8-node bricks as a keyword deck, optionally with a skin of
// 4-node layered shells, with sets, sections, a material with a temperature-dependent table and
// two steps: for benchmarks and demonstrations.
#include <string>

namespace orxsrv
{
// Throws InputError when the file cannot be written.
void GenerateHexDeck(std::string const& path, int n, bool shells);
} // namespace orxsrv
