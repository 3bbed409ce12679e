#pragma once
// Reads a keyword deck, and the decks it includes, into a DeckModel with the library's keyword
// parser: each keyword the tool knows has a callback that reads its parameters and data lines;
// every other keyword is listed once. Throws InputError for what cannot be read.
#include "DeckModel.h"

#include <functional>
#include <string>

namespace orxsrv
{
// Called now and then while reading with the bytes read of the main deck and its size.
using ProgressCallback = std::function<void(long long read, long long size)>;

DeckModel ReadDeck(std::string const& path, ProgressCallback const& progress);
} // namespace orxsrv
