// The structured layout on any lines and with any options: nothing but blanks and what an option names
// changes, the safety check finds nothing, a second run changes nothing.
//
// Input: a line whose bytes choose the options, then the module.

#include "formatter/structured/structured.h"
#include "formatter/token_check.h"
#include "require.h"
#include "structured_phrases.h"
#include "texts.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

using namespace corvelle::formatter;
using namespace corvelle::formatter::structured;

namespace {

class Choices {
  public:
    explicit Choices(std::string_view bytes) : bytes_(bytes) {}
    // The next choice, 0 to `most`.
    std::uint32_t next(std::uint32_t most) {
        if (bytes_.empty()) return 0;
        const auto byte = static_cast<unsigned char>(bytes_.front());
        bytes_.remove_prefix(1);
        return byte % (most + 1);
    }
    std::optional<Body> body() {
        const auto choice = next(2);
        return choice == 0 ? std::nullopt : std::optional(choice == 1 ? Body::Indent : Body::Flush);
    }

  private:
    std::string_view bytes_;
};

StructuredOptions optionsOf(std::string_view bytes) {
    Choices choices(bytes);
    StructuredOptions options;
    options.trim = choices.next(1) == 1;
    if (const auto most = choices.next(3); most > 0) options.maxEmptyLines = most - 1;
    options.removeEmptyLines = choices.next(1) == 1;
    options.removeCommentLines = choices.next(1) == 1;
    options.removeTrailingComments = choices.next(1) == 1;
    options.force = choices.next(1) == 1;
    StyleOptions& style = options.style;
    if (const auto tabs = choices.next(2); tabs > 0) style.tabs = tabs == 2;
    if (const auto unit = choices.next(9); unit > 0) style.unit = unit;
    if (const auto width = choices.next(9); width > 0) style.tabWidth = width;
    style.procedure = choices.body();
    style.declarations = choices.body();
    style.onError = choices.body();
    style.type = choices.body();
    style.caseBody = choices.body();
    style.withBody = choices.body();
    style.directiveBody = choices.body();
    if (const auto place = choices.next(2); place > 0)
        style.directive = place == 1 ? Place::Margin : Place::Code;
    if (choices.next(1) == 1) style.marginComments = MarginComments::Follow;
    return options;
}

std::vector<std::string> written(const Texts& lines, const StructuredResult& result) {
    require(result.lines.size() == lines.size(), "a line's fate for each line");
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (result.lines[i].dropped()) continue;
        result.lines[i].appendTo(texts.emplace_back(), lines[i], result.style);
    }
    return texts;
}

void checkSafe(const Texts& lines, const StructuredResult& result, const StructuredOptions& options) {
    TokenCheck check({.commentsMayGo = options.removeCommentLines || options.removeTrailingComments});
    for (std::size_t i = 0; i < lines.size(); ++i) {
        const NewLine& line = result.lines[i];
        std::optional<std::string> loss;
        if (line.dropped()) {
            loss = check.dropped(lines[i]);
        } else {
            require(line.begin <= line.end && line.end <= lines[i].size(), "a slice of the line");
            std::string text;
            line.appendTo(text, lines[i], result.style);
            const std::string_view blanks(text.data(), line.size(result.style) - (line.end - line.begin));
            loss = check.kept(lines[i], std::string_view(text).substr(blanks.size()),
                              static_cast<std::int32_t>(blanks.size()));
        }
        require(!loss, loss ? *loss : "");
    }
}

void checkFaults(const Texts& lines, const StructuredResult& result) {
    std::uint32_t last = 0;
    for (const Fault& fault : result.faults) {
        require(fault.line < lines.size() && fault.line >= last, "faults come in the order of their lines");
        require(fault.other == Fault::noLine || fault.other < lines.size(), "the other place is a line");
        require(fault.text(1).find('\n') == std::string::npos, "a fault is one line");
        last = fault.line;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    Texts lines = linesOf({reinterpret_cast<const char*>(data), size});
    const StructuredOptions options = optionsOf(lines.front());
    lines.erase(lines.begin());
    const StructuredResult result = formatStructured(lines, options);
    checkSafe(lines, result, options);
    checkFaults(lines, result);
    const std::vector<std::string> once = written(lines, result);
    const Texts again(once.begin(), once.end());
    require(written(again, formatStructured(again, options)) == once, "a second run changes nothing");
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    static const Phrases phrases = vocabulary::structured();
    return mutateLines(data, size, maxSize, seed, phrases);
}
