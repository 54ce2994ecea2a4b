#pragma once

#include "base/line_buffer.h"
#include "base/run_time_error.h"
#include "base/text_lines.h"
#include "formatter/engine.h"
#include "formatter/structured/structured.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The way of a module's code through a layout, from its lines to its formatted lines and what is to be told
// of them. Nothing here knows files or windows.
namespace corvelle::formatter {

/// The code of a module: what the IDE shows of it, line by line.
struct ModuleCode {
    base::TextLines lines;
    std::string_view lineEnd = "\r\n"; ///< what each line is to be ended with; empty: with its own end
};

/// Something to be told of a line of the code.
struct Finding {
    static constexpr std::uint32_t noLine = 0xFFFFFFFF;

    std::uint32_t line; ///< 0-based, of the code before it was formatted
    std::string text;
    std::uint32_t other = noLine; ///< a second line that belongs to it
    std::string explanation = {}; ///< a code and words, where the text is one that says too little
};

/// What a layout makes of a module's code.
struct FormattedCode {
    base::LineBuffer lines;                  ///< the lines that are kept, as they are to be written
    std::vector<bool> kept;                  ///< of each line of the code, whether `lines` holds it
    std::vector<Finding> faults;             ///< of the code's structure, in the order in which they were met
    std::vector<Finding> notices;            ///< what could not be done, which harms nothing
    std::vector<Finding> unsafe;             ///< where the formatted code does not say what the code said
    std::int16_t level = 0;                  ///< of blocks after the last line; 0 when all were closed
    std::uint32_t position = 0;              ///< the line of the code that was worked on last
    std::optional<base::RunTimeError> error; ///< ended the run: the lines are good for nothing
    structured::Style style;                 ///< that the structured layout wrote the lines in

    /// Whether any line is left; where none is, nothing was looked for.
    bool holdsLines() const { return lines.maxIndx() >= 0; }
};

/// Formats the code by the tables' rules, with the safety check behind it. The formatted lines refer to the
/// code's, which must outlive them. An observer that is given is told what a pass tells.
FormattedCode formatCode(const ModuleCode& code, FormatOptions options, PassObserver* observer = nullptr);

/// Formats the code by the language's blocks, in the module's own style, with the same check behind it. The
/// formatted lines refer to the code's here too.
FormattedCode formatCode(const ModuleCode& code, const structured::StructuredOptions& options);

/// The lines of the code that the formatted one would harm. The check that each layout's result has to pass.
std::vector<Finding> findUnsafeLines(const ModuleCode& code, const FormattedCode& formatted,
                                     bool commentsMayGo);

/// A code and words that explain the error that ended a run; empty for one that no layout raises.
std::string_view explanationOf(const base::RunTimeError& error);

/// A code and words that explain what an unsafe line means.
inline constexpr std::string_view unsafeExplanation =
    "CV105 formatted, the code would not say what it says now";

/// What is lost where the text's last character would become a part of the line end behind it.
inline std::optional<std::string> lossAtLineEnd(std::string_view text, std::string_view lineEnd) {
    if (text.empty() || text.back() != '\r' || lineEnd != "\n") return std::nullopt;
    return "the carriage return in front of the line's end";
}

} // namespace corvelle::formatter
