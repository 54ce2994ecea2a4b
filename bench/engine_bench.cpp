// How fast lines are cleaned, classified and indented, in bytes of module text a second. The text is made
// here: some 5 MB of varied code, one line in ten with a trailing comment, 38 bytes a line on average.

#include "formatter/engine.h"
#include "formatter/format_code.h"
#include "formatter/scanner.h"

#include <array>
#include <benchmark/benchmark.h>
#include <cstdint>
#include <initializer_list>
#include <random>
#include <string>
#include <string_view>
#include <vector>

using corvelle::formatter::Engine;
using corvelle::formatter::FormatOptions;
using corvelle::formatter::PassObserver;
using corvelle::formatter::Scanner;

namespace {

constexpr std::size_t moduleBytes = 5'000'000;

// Takes every call of a pass and shows nothing, as a run without windows does.
class Silent : public PassObserver {
  public:
    void lineKept(std::int32_t) override {}
    void lineFormatted(std::int32_t, std::int32_t) override {}
};

// Writes procedures of statements and nested blocks, with the old indentation in tabs or spaces.
class ModuleText {
  public:
    explicit ModuleText(std::size_t bytes) {
        line(0, {"Option Explicit"});
        line(0, {});
        for (int i = 0; i < 20; ++i) line(0, {"Private m", name(), " As ", type()});
        while (bytes_ < bytes) procedure();
    }

    const std::vector<std::string>& lines() const { return lines_; }
    std::size_t bytes() const { return bytes_; }

  private:
    using Parts = std::initializer_list<std::string>;

    template <std::size_t n>
    std::string one(const std::array<const char*, n>& choices) {
        return choices[random_() % n];
    }

    std::string name() {
        return one(std::array{"Count",      "CustomerName", "rsOrders",    "i",
                              "lngResult",  "strTemp",      "Item",        "cmdOk",
                              "picPreview", "Grid1",        "TotalAmount", "x",
                              "DoUpdate",   "Selected",     "NextRecord",  "Endpoint",
                              "CaseNumber", "WithDiscount", "PrivateKey",  "SubTotal"});
    }
    std::string type() {
        return one(std::array{"Long", "String", "Integer", "Boolean", "Object", "Variant"});
    }
    std::string number() { return std::to_string(random_() % 1000); }
    std::string literal() {
        return one(std::array{"\"\"", "\"Customer not found.\"", "\"SELECT * FROM Orders WHERE ID = \"",
                              "\"It's not possible to save the file\"", "\"yyyy-mm-dd\"", "\"%\"",
                              "\"Please enter a name for the new item.\""});
    }

    void line(unsigned level, Parts parts) {
        std::string text(tabs_ ? level : level * 4, tabs_ ? '\t' : ' ');
        for (const std::string& part : parts) text += part;
        if (random_() % 10 == 0 && parts.size() > 0) {
            text +=
                one(std::array{" ' see above", "   ' the user's own choice", " ' TODO: check", "' fixed"});
        }
        bytes_ += text.size() + 2;
        lines_.push_back(text);
    }

    void procedure() {
        tabs_ = random_() % 4 == 0;
        const std::string kind = random_() % 3 == 0 ? "Function" : "Sub";
        line(0, {one(std::array{"Private ", "Public ", "", "Friend "}), kind, " ", name(), "_Click(ByVal ",
                 name(), " As ", type(), ")"});
        for (unsigned i = random_() % 4; i > 0; --i) line(1, {"Dim ", name(), " As ", type()});
        statements(1);
        if (random_() % 3 == 0) {
            line(1, {"Exit ", kind});
            line(0, {"ErrHandler:"});
            line(1, {"MsgBox Err.Description, vbCritical, ", literal()});
        }
        line(0, {"End ", kind});
        line(0, {});
    }

    void statements(unsigned level) {
        for (unsigned i = 2 + random_() % 5; i > 0; --i) {
            const unsigned kind = random_() % 40;
            if (level < 5 && kind < 5) {
                block(level, kind);
            } else {
                statement(level, kind);
            }
        }
    }

    void block(unsigned level, unsigned kind) {
        switch (kind) {
        case 0:
            line(level, {"For ", name(), " = 0 To ", name(), ".Count - 1"});
            statements(level + 1);
            line(level, {"Next ", name()});
            break;
        case 1:
            line(level, {"Select Case ", name()});
            for (unsigned i = 1 + random_() % 3; i > 0; --i) {
                line(level + 1, {"Case ", number()});
                statements(level + 2);
            }
            line(level, {"End Select"});
            break;
        case 2:
            line(level, {"With ", name()});
            statements(level + 1);
            line(level, {"End With"});
            break;
        default:
            line(level, {"If ", name(), " > ", number(), " And Not ", name(), " Then"});
            statements(level + 1);
            if (random_() % 2 == 0) {
                line(level, {"Else"});
                statements(level + 1);
            }
            line(level, {"End If"});
            break;
        }
    }

    void statement(unsigned level, unsigned kind) {
        switch (kind % 15) {
        case 5:
            return line(level, {"If ", name(), " = ", literal(), " Then Exit Sub"});
        case 6:
            return line(level,
                        {"' ", one(std::array{"Update the display now", "the rest isn't needed here",
                                              "Call Refresh(True) ' old way", "-------------------"})});
        case 7:
            return line(0, {});
        case 8:
            return line(level, {"MsgBox ", literal(), " & ", name(), " & ", literal(), ", vbInformation"});
        case 9:
            return line(level, {"Set ", name(), " = CreateObject(", literal(), ")"});
        case 10:
            return line(level, {"Call ", name(), "(", name(), ", ", number(), ", ", name(), ")"});
        case 11:
            return line(level, {".", name(), ".", name(), " = ", name()});
        case 12:
            return line(level, {name(), ".Caption = ", literal(), " & _"});
        case 13:
            return line(level, {"On Error GoTo ErrHandler"});
        default:
            return line(level, {name(), " = ", name(), " + ", number(), " * (", name(), " - 1)"});
        }
    }

    std::mt19937 random_{1};
    bool tabs_ = false;
    std::size_t bytes_ = 0;
    std::vector<std::string> lines_;
};

const ModuleText& module() {
    static const ModuleText text(moduleBytes);
    return text;
}

void report(benchmark::State& state) {
    state.SetBytesProcessed(static_cast<std::int64_t>(state.iterations() * module().bytes()));
    state.counters["lines"] = static_cast<double>(module().lines().size());
}

void clean(Engine& engine) {
    engine.ResetAll();
    engine.beginCleaning(module().lines().size());
    for (const std::string& line : module().lines()) engine.cleanLine(line);
}

FormatOptions allRemovals() {
    FormatOptions options;
    options.bNoEmpty = options.bNoCmntLn = options.bNoAllCmnt = 1;
    return options;
}

// All of it: both passes, the origins and the safety check.
void formatCode(benchmark::State& state) {
    const auto& lines = module().lines();
    const corvelle::formatter::ModuleCode code{.lines = {lines.begin(), lines.end()}};
    const FormatOptions options = state.range(0) != 0 ? allRemovals() : FormatOptions();
    while (state.KeepRunning()) benchmark::DoNotOptimize(corvelle::formatter::formatCode(code, options));
    report(state);
}
BENCHMARK(formatCode)->ArgName("removals")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

// The whole engine: cleaning, then indentation. The goal is 300 MB/s on one core.
void cleanAndIndent(benchmark::State& state) {
    Silent observer;
    Engine engine(observer);
    if (state.range(0) != 0) engine.options = allRemovals();
    while (state.KeepRunning()) {
        clean(engine);
        benchmark::DoNotOptimize(engine.VB_Format(engine.lineBuffer().maxIndx()));
    }
    report(state);
}
BENCHMARK(cleanAndIndent)->ArgName("removals")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void cleaningPass(benchmark::State& state) {
    Silent observer;
    Engine engine(observer);
    if (state.range(0) != 0) engine.options = allRemovals();
    while (state.KeepRunning()) {
        clean(engine);
        benchmark::DoNotOptimize(engine.lineBuffer().maxIndx());
    }
    report(state);
}
BENCHMARK(cleaningPass)->ArgName("removals")->Arg(0)->Arg(1)->Unit(benchmark::kMillisecond);

void indentationPass(benchmark::State& state) {
    Silent observer;
    Engine engine(observer);
    clean(engine);
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(engine.VB_Format(engine.lineBuffer().maxIndx()));
    }
    report(state);
}
BENCHMARK(indentationPass)->Unit(benchmark::kMillisecond);

// CheckKey alone, over lines that are trimmed already.
void classification(benchmark::State& state) {
    Silent observer;
    Engine engine(observer);
    clean(engine);
    Scanner scanner;
    while (state.KeepRunning()) {
        for (std::int32_t i = 0; i <= engine.lineBuffer().maxIndx(); ++i) {
            benchmark::DoNotOptimize(scanner.CheckKey(engine.lineBuffer().text(i)));
        }
    }
    report(state);
}
BENCHMARK(classification)->Unit(benchmark::kMillisecond);

} // namespace
