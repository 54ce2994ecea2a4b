#include "ide/workspace/key_value.h"

#include "ide/workspace/line_reader.h"
#include "ide/workspace/line_text.h"

namespace corvelle::workspace {

void readKeyValues(std::string_view bytes,
                   const std::function<void(std::string_view key, std::string_view value)>& take) {
    LineReader lines = linesOf(bytes);
    while (lines.next()) {
        const auto line = withoutBlanks(lines.line());
        if (!line.empty() && line[0] == '[') return;
        const auto equals = line.find('=');
        if (equals == std::string_view::npos) continue;
        take(withoutBlanks(line.substr(0, equals)), withoutBlanks(line.substr(equals + 1)));
    }
}

std::string_view withoutQuotes(std::string_view value) {
    if (value.size() < 2 || value.front() != '"' || value.back() != '"') return value;
    return value.substr(1, value.size() - 2);
}

} // namespace corvelle::workspace
