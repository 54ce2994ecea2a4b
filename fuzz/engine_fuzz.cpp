// The scanner and the engine over any module: they agree with the plain reference in every line, index,
// message and error, and without a removal option each formatted line is its input without tabs and without
// spaces at both ends, behind leading spaces.
//
// Input: a byte of options (bits 0 to 2: the removal options; bit 3: stop), a byte for the tab width, a byte
// for the line at which to stop; then the module's lines, which end at LF.

#include "formatter/format_code.h"
#include "formatter/reference_comparison.h"
#include "vocabulary.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

namespace formatter = corvelle::formatter;
namespace reference = corvelle::reference;
using Lines = std::vector<std::string>;

namespace {

void requireNone(const std::string& difference) {
    if (difference.empty()) return;
    std::fprintf(stderr, "%s\n", difference.c_str());
    std::abort();
}

struct Settings {
    formatter::FormatOptions options;
    long stopAfterLines = -1;
};

Settings settingsOf(const std::uint8_t* data) {
    Settings settings;
    settings.options.bNoEmpty = data[0] & 1;
    settings.options.bNoCmntLn = data[0] >> 1 & 1;
    settings.options.bNoAllCmnt = data[0] >> 2 & 1;
    if ((data[0] >> 3 & 1) != 0) settings.stopAfterLines = data[2];
    settings.options.mTab = data[1] % 11;
    return settings;
}

Lines split(std::string_view text) {
    Lines lines(1);
    for (const char c : text) {
        if (c == '\n') {
            lines.emplace_back();
        } else {
            lines.back() += c;
        }
    }
    return lines;
}

// Without removal options nothing but tabs, and spaces at both ends, may change.
void checkUnharmed(const Lines& raw, formatter::FormatOptions options) {
    // A run-time error leaves the lines from there on without spaces.
    const auto code = formatter::formatCode({.lines = {raw.begin(), raw.end()}}, options);
    const corvelle::base::LineBuffer& buffer = code.lines;
    if (buffer.maxIndx() + 1 != static_cast<std::int32_t>(raw.size())) requireNone("a line is lost");
    for (std::size_t i = 0; i < raw.size(); ++i) {
        std::string wanted = raw[i];
        wanted.erase(std::remove(wanted.begin(), wanted.end(), '\t'), wanted.end());
        while (!wanted.empty() && wanted.back() == ' ') wanted.pop_back();
        const auto begin = std::min(wanted.find_first_not_of(' '), wanted.size());
        const std::string line = buffer.line(static_cast<std::int32_t>(i));
        const auto spaces = std::min(line.find_first_not_of(' '), line.size());
        if (line.substr(spaces) != wanted.substr(begin)) requireNone("text changed: " + raw[i]);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size < 3) return 0;
    const Settings settings = settingsOf(data);
    const Lines raw = split({reinterpret_cast<const char*>(data) + 3, size - 3});
    for (const std::string& line : raw) requireNone(reference::differenceOfLine(line));
    requireNone(reference::differenceOfKeys(raw));
    requireNone(reference::differenceOfRun(raw, settings.options, settings.stopAfterLines));
    const auto& options = settings.options;
    if (options.bNoEmpty + options.bNoCmntLn + options.bNoAllCmnt == 0) checkUnharmed(raw, options);
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    return mutateLines(data, size, maxSize, seed, vocabulary::code);
}
