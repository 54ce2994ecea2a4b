#include "formatter/run_engine.h"

namespace corvelle::formatter::test {

namespace {

class ErrorList : public PassObserver {
  public:
    Lines errors;
    void clearErrors() override { errors.clear(); }
    void addError(const StructuralError& error) override { errors.push_back(error.text()); }
};

void load(Engine& engine, const Lines& raw, FormatOptions options) {
    engine.options = options;
    engine.ResetAll();
    engine.beginCleaning(raw.size());
    for (const std::string& line : raw) engine.cleanLine(line);
}

Lines bufferOf(const Engine& engine) {
    Lines lines;
    for (std::int32_t i = 0; i <= engine.lineBuffer().maxIndx(); ++i) {
        lines.push_back(engine.lineBuffer().line(i));
    }
    return lines;
}

} // namespace

Outcome run(const Lines& raw, FormatOptions options) {
    ErrorList observer;
    Engine engine(observer);
    load(engine, raw, options);
    Outcome result;
    result.result = engine.VB_Format(engine.lineBuffer().maxIndx());
    result.lines = bufferOf(engine);
    result.errors = observer.errors;
    result.level = engine.indentLevel();
    return result;
}

Lines formatted(const Lines& raw) {
    return run(raw).lines;
}

std::vector<int> levels(const Lines& raw) {
    PassObserver observer;
    Engine engine(observer);
    FormatOptions options;
    options.mTab = 1;
    load(engine, raw, options);
    engine.VB_Format(engine.lineBuffer().maxIndx());
    std::vector<int> result;
    for (std::int32_t i = 0; i <= engine.lineBuffer().maxIndx(); ++i) {
        result.push_back(engine.lineBuffer().spaces(i));
    }
    return result;
}

Lines cleaned(const Lines& raw, FormatOptions options) {
    PassObserver observer;
    Engine engine(observer);
    load(engine, raw, options);
    return bufferOf(engine);
}

} // namespace corvelle::formatter::test
