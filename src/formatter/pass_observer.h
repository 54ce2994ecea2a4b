#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace corvelle::formatter {

/// A structural error that the indentation pass found.
struct StructuralError {
    enum class Kind { Tab, Error };
    Kind kind;
    std::int32_t position; ///< 0-based position in the line buffer

    /// The entry of the error list: "Tab On Line: 5" or "Error On Line: 5".
    std::string text() const;
    /// A code and words that say what is wrong.
    std::string_view explanation() const;
};

/// What a pass tells its owner, and where it lets the owner serve other work. Does nothing unless overridden,
/// but for the two calls a line, which become process texts.
class PassObserver {
  public:
    virtual ~PassObserver() = default;

    virtual void startIndicator() {}
    virtual void stopIndicator() {}
    /// Empties the error list, at the start of every indentation pass.
    virtual void clearErrors() {}
    virtual void addError(const StructuralError&) {}
    /// Status text.
    virtual void setInfo(std::string_view) {}
    /// Process text.
    virtual void SetProcInfo(std::string_view) {}
    /// Yields to the window system.
    virtual void doEvents() {}

    /// A line was kept by the cleaning pass; `count` lines are kept so far.
    virtual void lineKept(std::int32_t count);
    /// The indentation pass is done with line `i` of 0 to `maxIndx`.
    virtual void lineFormatted(std::int32_t i, std::int32_t maxIndx);
};

/// An indentation pass as its owner sees it: gives `formatLine` each of the lines 0 to maxIndx, yields before
/// each and tells of it behind it. False when `stopped` was found true, which ends the pass at that line.
template <class FormatLine>
bool passOverLines(PassObserver& observer, std::int32_t maxIndx, const bool& stopped,
                   const FormatLine& formatLine) {
    observer.startIndicator();
    observer.clearErrors();
    observer.setInfo("Formating...");
    for (std::int32_t i = 0; i <= maxIndx; ++i) {
        observer.doEvents();
        if (stopped) {
            observer.stopIndicator();
            observer.SetProcInfo("Cleaning Memory..");
            observer.SetProcInfo("No Process..");
            return false;
        }
        formatLine(i);
        observer.lineFormatted(i, maxIndx);
    }
    observer.setInfo("Formating Done...");
    observer.stopIndicator();
    return true;
}

} // namespace corvelle::formatter
