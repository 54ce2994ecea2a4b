#include "ide/workspace/formatted_file.h"

#include "base/byte_search.h"

namespace corvelle::workspace {

bool FormattedFile::same(std::uint32_t codeLine, std::int32_t bufferIndex) const {
    const std::string_view old = file_.codeLine(codeLine);
    const std::string_view text = buffer_.text(bufferIndex);
    const auto spaces = static_cast<std::size_t>(buffer_.spaces(bufferIndex));
    if (old.size() != spaces + text.size()) return false;
    // A line that differs by its blanks at most is most often a part of the file's own bytes.
    if (old.data() + spaces != text.data() && old.substr(spaces) != text) return false;
    const std::string_view blanks = old.substr(0, spaces);
    if (base::skipKind<base::AnyOf<' '>>(blanks, 0) != spaces) return false;
    return ends_ == LineEnds::OfLine || file_.codeLineEnd(codeLine) == endOf(codeLine);
}

bool FormattedFile::changed() const {
    if (!missingLineEnd().empty()) return true;
    std::int32_t bufferIndex = 0;
    for (std::uint32_t line = 0; line < file_.codeLineCount(); ++line) {
        if (!kept_[line] || !same(line, bufferIndex++)) return true;
    }
    return false;
}

std::string_view FormattedFile::missingLineEnd() const {
    if (ends_ == LineEnds::OfLine) return {};
    // A code line is always written with its end; only a hidden last line can lack one.
    const std::string& bytes = file_.bytes();
    const auto& runs = file_.hiddenRuns();
    const bool lastIsHidden = runs.empty() ? file_.codeLineCount() == 0 : runs.back().end == bytes.size();
    return lastIsHidden && !bytes.empty() && bytes.back() != '\n' ? file_.newLine() : std::string_view();
}

} // namespace corvelle::workspace
