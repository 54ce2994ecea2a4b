#include "indexer/id_gen.h"

#include <array>

namespace corvelle::indexer {

namespace {

constexpr char behindLast = 'Z' + 1;

std::array<char, 4> letters{'A', 'A', 'A', 'A'};

} // namespace

void ResetIDGen() {
    letters.fill('A');
}

std::string getNewIDH() {
    if (letters[0] >= behindLast) return {};
    std::string name = "IDH_";
    name.append(letters.data(), letters.size());
    // The first letter is never wrapped: behind the last one it says that there are no more names.
    ++letters[3];
    for (std::size_t i = 3; i > 0 && letters[i] == behindLast; --i) {
        letters[i] = 'A';
        ++letters[i - 1];
    }
    return name;
}

Message idGenExhausted() {
    return {"You need to reset the IDGen", forms::box::exclamation};
}

} // namespace corvelle::indexer
