#include "ide/workspace/edited_module.h"

#include "ide/workspace/declarations.h"
#include "ide/workspace/hidden_lines.h"

#include <utility>

namespace corvelle::workspace {

namespace {

// Puts the pieces of a file one behind the other, each on a line of its own.
class FileText {
  public:
    FileText(std::string_view header, bool headerHasLines, std::string_view newLine)
        : text_(header), newLine_(newLine), hasLines_(headerHasLines) {}

    void add(std::string_view line, std::string_view lineEnd) {
        if (hasLines_ && text_.back() != '\n') text_ += newLine_;
        text_ += line;
        text_ += lineEnd;
        hasLines_ = true;
    }
    std::string take() { return std::move(text_); }

  private:
    std::string text_;
    std::string_view newLine_;
    bool hasLines_; // a byte order mark alone is no line
};

} // namespace

void EditedModule::deleteLines(std::uint32_t start, std::uint32_t count) {
    if (count == 0) return;
    beginEditing();
    lines_.erase(start, count);
}

void EditedModule::insertLine(std::uint32_t index, std::string_view text) {
    beginEditing();
    lines_.insert(index, Line{std::string(text), inserted});
}

void EditedModule::beginEditing() {
    if (edited_) return;
    for (std::uint32_t i = 0; i < file_.codeLineCount(); ++i)
        lines_.insert(i, Line{std::string(file_.codeLine(i)), i});
    edited_ = true;
}

std::string EditedModule::bytes() const {
    if (!edited_) return file_.bytes();
    Declarations declarations;
    std::vector<std::uint32_t> newPlaces(file_.codeLineCount(), HiddenLines::none);
    for (std::uint32_t i = 0; i < lineCount(); ++i) {
        declarations.read(lines_[i].text);
        if (lines_[i].origin != inserted) newPlaces[lines_[i].origin] = i;
    }
    const auto hidden = HiddenLines(file_, declarations, std::move(newPlaces), lineCount()).place();

    FileText text(file_.header(), file_.headerLines() > 0, file_.newLine());
    auto next = hidden.begin();
    const auto addHiddenBehind = [&](std::uint32_t line) {
        for (; next != hidden.end() && next->after == line; ++next) text.add(next->bytes, {});
    };
    addHiddenBehind(HiddenLines::none);
    for (std::uint32_t i = 0; i < lineCount(); ++i) {
        const auto& line = lines_[i];
        text.add(line.text, line.origin == inserted ? file_.newLine() : file_.codeLineEnd(line.origin));
        addHiddenBehind(i);
    }
    return text.take();
}

} // namespace corvelle::workspace
