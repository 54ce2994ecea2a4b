#pragma once

#include "formatter/format_code.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::formatter {

/// Takes a module through the structured layout in the steps in which Engine takes it through the classic
/// one, for the same owner. One run is ResetAll, the reading, run; the observer may call DisableProc from any
/// of its calls, but must not start another run inside one.
class StructuredPass {
  public:
    using LayOut =
        std::function<FormattedCode(const ModuleCode& code, const structured::StructuredOptions& options)>;

    /// The observer must outlive the pass.
    StructuredPass(PassObserver& observer, LayOut layOut) : observer_(observer), layOut_(std::move(layOut)) {}

    /// Forgets the last run and empties the buffer to one empty line.
    void ResetAll();

    /// Starts the reading of a module of that many lines.
    void beginReading(std::size_t lines);
    void readLine(std::string_view raw);
    /// Lays out what was read; the index of the last line that is left, -1 if none is. The buffer still holds
    /// the lines as they were read.
    std::int32_t endReading(const structured::StructuredOptions& options);

    /// Tells the owner of each line and of what is wrong with it. Returns how many errors there are and puts
    /// the new lines into the buffer; or -1 when DisableProc stopped it, which changes no line.
    std::int32_t run();

    /// Stops a running pass at the next line.
    void DisableProc() { cancelRequested_ = true; }

    const base::LineBuffer& lineBuffer() const { return buffer_; }
    /// What is to be said of single lines in words, each with the line's position before it: what the safety
    /// check found, each an error of its own, and lines that stay where they are, which is none.
    const std::vector<std::string>& remarks() const { return remarks_; }

  private:
    struct Entry {
        std::int32_t position; // of the new lines
        std::string remark;    // empty for a fault of the structure
        bool error;
    };
    std::vector<Entry> everythingToTell() const;

    PassObserver& observer_;
    LayOut layOut_;
    base::LineBuffer buffer_;
    FormattedCode formatted_;
    std::vector<std::string> remarks_;
    bool cancelRequested_ = false;
};

} // namespace corvelle::formatter
