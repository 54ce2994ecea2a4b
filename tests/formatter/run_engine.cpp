#include "formatter/run_engine.h"

#include "formatter/format_code.h"

namespace corvelle::formatter::test {

namespace {

class ErrorList : public PassObserver {
  public:
    Lines errors;
    void clearErrors() override { errors.clear(); }
    void addError(const StructuralError& error) override { errors.push_back(error.text()); }
};

Lines linesOf(const base::LineBuffer& buffer) {
    Lines lines;
    for (std::int32_t i = 0; i <= buffer.maxIndx(); ++i) lines.push_back(buffer.line(i));
    return lines;
}

FormattedCode format(const Lines& raw, FormatOptions options, PassObserver* observer = nullptr) {
    FormattedCode code = formatCode({.lines = {raw.begin(), raw.end()}}, options, observer);
    if (code.error) throw base::RunTimeError(*code.error);
    return code;
}

} // namespace

Outcome run(const Lines& raw, FormatOptions options) {
    ErrorList observer;
    const FormattedCode code = format(raw, options, &observer);
    return {linesOf(code.lines), observer.errors, static_cast<std::int32_t>(code.faults.size()), code.level};
}

Lines formatted(const Lines& raw) {
    return run(raw).lines;
}

std::vector<int> levels(const Lines& raw) {
    FormatOptions options;
    options.mTab = 1;
    const FormattedCode code = format(raw, options);
    std::vector<int> result;
    for (std::int32_t i = 0; i <= code.lines.maxIndx(); ++i) result.push_back(code.lines.spaces(i));
    return result;
}

Lines cleaned(const Lines& raw, FormatOptions options) {
    PassObserver observer;
    Engine engine(observer);
    engine.options = options;
    engine.beginCleaning(raw.size());
    for (const std::string& line : raw) engine.cleanLine(line);
    return linesOf(engine.lineBuffer());
}

} // namespace corvelle::formatter::test
