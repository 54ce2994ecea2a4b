#pragma once

#include "indexer/message.h"

#include <string>

// The generator of help names. Its four letters are one state for the whole process.
namespace corvelle::indexer {

/// Sets all four letters to "A".
void ResetIDGen();

/// The next name: "IDH_AAAA", "IDH_AAAB", ... "IDH_ZZZZ". Empty from then on until ResetIDGen; the caller
/// then shows `idGenExhausted`.
std::string getNewIDH();

Message idGenExhausted();

} // namespace corvelle::indexer
