// Any bytes can be read as a text pop-up file; the entries get the texts that a plain second reading gives
// them.
//
// Input: a byte that picks the names of the entries; then the file.

#include "base/text.h"
#include "indexer/text_file.h"
#include "line_feeds.h"
#include "vocabulary.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

namespace base = corvelle::base;
namespace indexer = corvelle::indexer;

namespace {

indexer::HelpIndex indexOf(unsigned choice) {
    static const char* const names[] = {"IDH_AAAB", "IDH_AAAC", "IDH_AAAA", "", "IDH_AAAB", "x"};
    indexer::HelpIndex index;
    for (int i = 0; i < 4; ++i, choice /= 6) index.entries.push_back({1, names[choice % 6], "c", "C", "old"});
    return index;
}

void readPlainly(const std::string& bytes, indexer::HelpIndex& index) {
    long found = -1;
    std::string text;
    const auto store = [&] {
        if (found < 0) return;
        std::string joined;
        for (std::size_t i = 0; i < text.size(); ++i) {
            joined += text[i];
            if (text[i] == ' ' && i + 1 < text.size() && text[i + 1] == ' ') ++i;
        }
        index.entries[static_cast<std::size_t>(found)].HelpText = joined;
    };
    for (std::size_t begin = 0; begin < bytes.size();) {
        auto end = bytes.find('\n', begin);
        if (end == std::string::npos) end = bytes.size();
        std::string line = bytes.substr(begin, end - begin);
        begin = end + 1;
        line = base::trimSpaces(line);
        if (base::upper(line.substr(0, 6)) != ".TOPIC") {
            if (found >= 0) text += " " + line;
            continue;
        }
        store();
        text.clear();
        found = -1;
        const auto space = line.rfind(' ');
        if (space == std::string::npos) continue;
        for (std::size_t i = 0; i < index.entries.size() && found < 0; ++i) {
            if (index.entries[i].IDHName == line.substr(space + 1)) found = static_cast<long>(i);
        }
    }
    if (found != 0) store();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string bytes(data + 1, data + size);
    auto read = indexOf(data[0] * 5U), wanted = read;
    indexer::readTextEntries(bytes, read);
    readPlainly(withLineFeeds(bytes), wanted);
    for (std::size_t i = 0; i < read.entries.size(); ++i) {
        if (read.entries[i].HelpText == wanted.entries[i].HelpText) continue;
        std::fprintf(stderr, "entry %zu: \"%s\", not \"%s\"\n", i, read.entries[i].HelpText.c_str(),
                     wanted.entries[i].HelpText.c_str());
        std::abort();
    }
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    return mutateLines(data, size, maxSize, seed, vocabulary::index);
}
