#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

using Phrases = std::vector<std::string_view>;

/// A mutation of a text that is made of lines: lines come from the phrases, go, double, change their places
/// and their ends, words are exchanged. A `$` in a phrase becomes one of a few names, a `#` a small number.
/// What LLVMFuzzerCustomMutator takes and gives; one mutation of four is left to the fuzzer's own kinds.
std::size_t mutateLines(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned seed,
                        const Phrases& phrases);
