#pragma once

#include "base/line_buffer.h"
#include "formatter/pass_observer.h"
#include "formatter/scanner.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace corvelle::formatter {

/// The formatting options; each flag holds 0 (off) or 1 (on).
struct FormatOptions {
    std::uint8_t bNoEmpty = 0;   ///< drop empty lines
    std::uint8_t bNoCmntLn = 0;  ///< drop comment-only lines
    std::uint8_t bNoAllCmnt = 0; ///< drop trailing comments
    std::uint8_t mTab = 2;       ///< spaces per level

    bool removesComments() const { return bNoCmntLn == 1 || bNoAllCmnt == 1; }
};

/// Turns the lines of one code module into formatted lines: the cleaning pass strips each line and drops what
/// the options name, the indentation pass writes each line at its block's level. There is no parser and no
/// look-ahead. One run is ResetAll, the cleaning pass, VB_Format; the observer may call DisableProc from any
/// of its calls, but must not start another run inside one.
class Engine {
  public:
    /// The observer must outlive the engine.
    explicit Engine(PassObserver& observer) : observer_(observer) {}

    FormatOptions options;

    /// Clears the state of a run, empties the buffer to one empty line and shows "No Process".
    void ResetAll();

    /// Starts the cleaning pass over a module of that many lines.
    void beginCleaning(std::size_t lines);
    /// The cleaning pass for the module's next line; whether the line was kept. The buffer refers to a line
    /// that outlives it and copies one that does not.
    bool cleanLine(std::string_view raw, bool outlivesBuffer = false);

    /// The indentation pass over lines 0 to maxIndx of the buffer. Returns the number of structural errors,
    /// or -1 when DisableProc stopped it; the lines from there on stay without indentation. Raises "Overflow"
    /// when a 16-bit counter or a level times mTab leaves its range, "Invalid procedure call or argument" for
    /// a negative number of spaces, and "Subscript out of range" for a line that the buffer does not hold
    /// (the owner may have reset it while the pass yielded); position() then tells the line.
    std::int32_t VB_Format(std::int32_t maxIndx);

    /// Stops a running VB_Format at the next line.
    void DisableProc() { cancelRequested_ = true; }

    const base::LineBuffer& lineBuffer() const { return buffer_; }
    /// Hands the buffer over; the engine is left with an unusable one until the next ResetAll.
    base::LineBuffer takeLineBuffer() { return std::move(buffer_); }
    /// Index of the line that VB_Format worked on last.
    std::int32_t position() const { return position_; }
    /// What VB_Format found wrong, in the order in which it told it.
    const std::vector<StructuralError>& errors() const { return errors_; }
    /// The block level after the last line.
    std::int16_t indentLevel() const { return indentLevel_; }

  private:
    void formatLine(std::int32_t i);
    void openBlock(std::int32_t i, std::string_view line);
    void closeBlock(std::int32_t i, std::string_view line);
    void writeAtLevel(std::int32_t i);
    void report(StructuralError::Kind kind, std::int32_t i);

    PassObserver& observer_;
    Scanner scanner_;
    base::LineBuffer buffer_;
    std::string tabless_; // room for a line whose inner tabs had to go
    bool bCode_ = false;
    std::int16_t indentLevel_ = 0;
    std::int16_t beginDepth_ = 0;
    std::int16_t selectDepth_ = 0;
    bool caseSeen_ = false;
    bool cancelRequested_ = false;
    std::vector<StructuralError> errors_;
    std::int32_t position_ = 0;
};

} // namespace corvelle::formatter
