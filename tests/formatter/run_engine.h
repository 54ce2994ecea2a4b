#pragma once

#include "formatter/engine.h"
#include "formatter/pass_observer.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::formatter::test {

using Lines = std::vector<std::string>;

/// Writes down everything that a pass tells its owner, in order, one entry a call: "start", "stop", "clear",
/// "events", "error: ...", "info: ...", "proc: ...".
class RecordingObserver : public PassObserver {
  public:
    Lines told;
    /// Called each time the pass yields, with the number of yields so far (1 for the first).
    std::function<void(int)> onEvents;

    void startIndicator() override { told.emplace_back("start"); }
    void stopIndicator() override { told.emplace_back("stop"); }
    void clearErrors() override { told.emplace_back("clear"); }
    void addError(const StructuralError& error) override { told.push_back("error: " + error.text()); }
    void setInfo(std::string_view text) override { told.push_back("info: " + std::string(text)); }
    void SetProcInfo(std::string_view text) override { told.push_back("proc: " + std::string(text)); }
    void doEvents() override {
        told.emplace_back("events");
        ++yields_;
        if (onEvents) onEvents(yields_);
    }

  private:
    int yields_ = 0;
};

/// What a run leaves behind.
struct Outcome {
    Lines lines;             ///< the buffer, spaces included
    Lines errors;            ///< the error list
    std::int32_t result = 0; ///< what VB_Format returned
    std::int16_t level = 0;  ///< the level after the last line
};

/// One whole run over the raw lines of a module. Run-time errors pass through.
Outcome run(const Lines& raw, FormatOptions options = {});

/// The lines as a run with two spaces per level writes them.
Lines formatted(const Lines& raw);

/// The levels at which a run writes the lines.
std::vector<int> levels(const Lines& raw);

/// The cleaning pass alone.
Lines cleaned(const Lines& raw, FormatOptions options);

} // namespace corvelle::formatter::test
