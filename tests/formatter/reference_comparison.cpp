#include "formatter/reference_comparison.h"

#include "base/run_time_error.h"
#include "formatter/reference_engine.h"
#include "formatter/run_engine.h"

namespace corvelle::reference {

namespace {

std::string quoted(const std::string& line) {
    return ": \"" + line + '"';
}

// How a pass ended.
struct End {
    long result = 0;
    int error = 0;
};

End runReference(Engine& engine, const std::vector<std::string>& raw) {
    for (const std::string& line : raw) engine.clean(line);
    try {
        return {engine.VB_Format(static_cast<long>(engine.LineBuffer.size()) - 1), 0};
    } catch (const RunTimeError& error) {
        return {0, error.number};
    }
}

End runEngine(formatter::Engine& engine, const std::vector<std::string>& raw) {
    engine.beginCleaning(raw.size());
    for (const std::string& line : raw) engine.cleanLine(line);
    try {
        return {engine.VB_Format(engine.lineBuffer().maxIndx()), 0};
    } catch (const base::RunTimeError& error) {
        return {0, error.number()};
    }
}

} // namespace

std::string differenceOfLine(const std::string& line) {
    using formatter::Scanner;
    std::string room;
    if (Scanner::myTrim(line, room) != myTrim(line)) return "myTrim" + quoted(line);
    if (Scanner::isOnlySpace(line) != isOnlySpace(line)) return "isOnlySpace" + quoted(line);
    if (Scanner::isCommentLine(line) != isCommentLine(line)) return "isCommentLine" + quoted(line);
    if (Scanner::SafeUncomment(line) != SafeUncomment(line)) return "SafeUncomment" + quoted(line);
    if (Scanner::Check_IF_THEN_(line) != Check_IF_THEN_(line)) return "Check_IF_THEN_" + quoted(line);
    if (Scanner::codeStarted(line) != codeStarted(line)) return "codeStarted" + quoted(line);
    if (Scanner::Check_Enum_Type(line, "Enum") != Check_Enum_Type(line, "Enum")) {
        return "Check_Enum_Type" + quoted(line);
    }
    return {};
}

std::string differenceOfKeys(const std::vector<std::string>& lines) {
    formatter::Scanner scanner;
    Scanner expected;
    for (const std::string& line : lines) {
        if (scanner.CheckKey(line) != expected.CheckKey(line)) return "CheckKey" + quoted(line);
        if (scanner.startKeyIndex != expected.startKeyIndex) return "startKeyIndex" + quoted(line);
        if (scanner.endKeyIndex != expected.endKeyIndex) return "endKeyIndex" + quoted(line);
    }
    return {};
}

std::string differenceOfRun(const std::vector<std::string>& raw, formatter::FormatOptions options,
                            long stopAfterLines) {
    Engine expected;
    expected.bNoEmpty = options.bNoEmpty;
    expected.bNoCmntLn = options.bNoCmntLn;
    expected.bNoAllCmnt = options.bNoAllCmnt;
    expected.mTab = options.mTab;
    expected.stopAfterLines = stopAfterLines;
    const End expectedEnd = runReference(expected, raw);
    const auto kept = static_cast<std::int32_t>(expected.LineBuffer.size());

    formatter::test::RecordingObserver observer;
    formatter::Engine engine(observer);
    engine.options = options;
    observer.onEvents = [&](int yields) { // one after each kept line, then one before each line's formatting
        if (stopAfterLines >= 0 && yields == kept + stopAfterLines + 1) engine.DisableProc();
    };
    const End end = runEngine(engine, raw);

    if (engine.lineBuffer().maxIndx() + 1 != kept) return "number of lines kept";
    for (std::int32_t i = 0; i < kept; ++i) {
        const std::string& line = expected.LineBuffer[static_cast<std::size_t>(i)];
        if (engine.lineBuffer().line(i) != line) {
            return "line " + std::to_string(i) + quoted(engine.lineBuffer().line(i)) + " and not" +
                   quoted(line);
        }
    }
    if (end.error != expectedEnd.error) return "run-time error " + std::to_string(end.error);
    if (end.result != expectedEnd.result) return "result " + std::to_string(end.result);
    if (engine.indentLevel() != expected.indentLevel) return "level " + std::to_string(engine.indentLevel());
    if (engine.position() != expected.position) return "position " + std::to_string(engine.position());
    if (observer.told != expected.told) return "what the owner is told";
    return {};
}

} // namespace corvelle::reference
