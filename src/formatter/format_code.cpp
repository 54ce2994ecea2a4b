#include "formatter/format_code.h"

#include "formatter/token_check.h"

#include <utility>

namespace corvelle::formatter {

namespace {

// Without anybody to tell, a pass need not say which line it is at.
class Silent : public PassObserver {
  public:
    void lineKept(std::int32_t) override {}
    void lineFormatted(std::int32_t, std::int32_t) override {}
};

// Finds the lines of the code that the kept lines come from. Ask in ascending order.
class Origins {
  public:
    explicit Origins(const std::vector<bool>& kept) : kept_(kept) {}

    std::uint32_t lineOf(std::int32_t keptIndex) {
        while (!kept_[line_] || index_ < keptIndex) index_ += kept_[line_++] ? 1 : 0;
        return line_;
    }

  private:
    const std::vector<bool>& kept_;
    std::uint32_t line_ = 0;
    std::int32_t index_ = 0; // of the next kept line
};

void clean(Engine& engine, const ModuleCode& code, std::vector<bool>& kept) {
    engine.beginCleaning(code.lines.size());
    kept.reserve(code.lines.size());
    for (std::size_t i = 0; i < code.lines.size(); ++i) kept.push_back(engine.cleanLine(code.lines[i], true));
}

void indent(Engine& engine, FormattedCode& result) {
    try {
        engine.VB_Format(engine.lineBuffer().maxIndx());
    } catch (const base::RunTimeError& error) {
        result.error = error;
    }
    Origins origins(result.kept);
    for (const auto& error : engine.errors()) {
        result.faults.push_back({origins.lineOf(error.position), error.text(), Finding::noLine,
                                 std::string(error.explanation())});
    }
    result.position = Origins(result.kept).lineOf(engine.position());
    result.level = engine.indentLevel();
}

// The most spaces that the buffer makes before a line.
constexpr std::uint32_t mostSpaces = 32767;

std::vector<Finding> findingsOf(const std::vector<structured::Fault>& faults) {
    std::vector<Finding> findings;
    findings.reserve(faults.size());
    for (const auto& fault : faults) {
        findings.push_back({fault.line, std::string(fault.code) + " " + fault.words, fault.other, {}});
    }
    return findings;
}

} // namespace

FormattedCode formatCode(const ModuleCode& code, FormatOptions options, PassObserver* observer) {
    Silent silent;
    Engine engine(observer ? *observer : silent);
    engine.options = options;
    engine.ResetAll();
    FormattedCode result;
    clean(engine, code, result.kept);
    const bool anyKept = engine.lineBuffer().maxIndx() >= 0;
    if (anyKept) indent(engine, result);
    result.lines = engine.takeLineBuffer();
    if (anyKept && !result.error) {
        result.unsafe = findUnsafeLines(code, result, options.removesComments());
    }
    return result;
}

FormattedCode formatCode(const ModuleCode& code, const structured::StructuredOptions& options) {
    auto laidOut = structured::formatStructured(code.lines, options);
    FormattedCode result;
    result.lines.beginLoading(code.lines.size());
    result.kept.reserve(code.lines.size());
    std::string text;
    for (std::size_t i = 0; i < code.lines.size(); ++i) {
        const auto& line = laidOut.lines[i];
        result.kept.push_back(!line.dropped());
        if (line.dropped()) continue;
        const structured::Indentation blanks = laidOut.style.indentationTo(line.column);
        if (blanks.tabs == 0 && blanks.spaces <= mostSpaces) {
            result.lines.refer(code.lines[i].substr(line.begin, line.end - line.begin),
                               static_cast<std::int16_t>(blanks.spaces));
        } else {
            text.clear();
            line.appendTo(text, code.lines[i], laidOut.style);
            result.lines.append(text);
        }
    }
    result.faults = findingsOf(laidOut.faults);
    result.notices = findingsOf(laidOut.notices);
    result.style = std::move(laidOut.style);
    if (result.holdsLines()) {
        const bool commentsMayGo = options.removeCommentLines || options.removeTrailingComments;
        result.unsafe = findUnsafeLines(code, result, commentsMayGo);
    }
    return result;
}

std::vector<Finding> findUnsafeLines(const ModuleCode& code, const FormattedCode& formatted,
                                     bool commentsMayGo) {
    std::vector<Finding> found;
    TokenCheck check({.commentsMayGo = commentsMayGo});
    const auto& lines = formatted.lines;
    std::int32_t index = 0;
    for (std::uint32_t line = 0; line < code.lines.size(); ++line) {
        const auto report = [&](std::string&& loss) {
            found.push_back({line, std::move(loss), Finding::noLine, {}});
        };
        if (!formatted.kept[line]) {
            if (auto loss = check.dropped(code.lines[line])) report(std::move(*loss));
            continue;
        }
        const std::string_view text = lines.text(index);
        if (auto loss = check.kept(code.lines[line], text, lines.spaces(index))) report(std::move(*loss));
        if (auto loss = lossAtLineEnd(text, code.lineEnd)) report(std::move(*loss));
        ++index;
    }
    return found;
}

std::string_view explanationOf(const base::RunTimeError& error) {
    switch (static_cast<base::ErrorNumber>(error.number())) {
    case base::ErrorNumber::Overflow:
        return "CV103 the blocks that are open here need more than 32767 blanks";
    case base::ErrorNumber::InvalidProcedureCall:
        return "CV104 more blocks were closed than were open before this Case";
    default:
        return {};
    }
}

} // namespace corvelle::formatter
