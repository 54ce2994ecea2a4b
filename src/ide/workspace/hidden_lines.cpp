#include "ide/workspace/hidden_lines.h"

#include "base/line_reader.h"
#include "ide/workspace/declarations.h"

#include <algorithm>
#include <utility>

namespace corvelle::workspace {

namespace {

// The index of the value among ascending ones; their count if it is not there.
std::size_t indexOf(const std::vector<std::uint32_t>& values, std::uint32_t value) {
    const auto found = std::lower_bound(values.begin(), values.end(), value);
    const bool isThere = found != values.end() && *found == value;
    return static_cast<std::size_t>((isThere ? found : values.end()) - values.begin());
}

} // namespace

HiddenLines::HiddenLines(const ModuleFile& file, const Declarations& edited,
                         std::vector<std::uint32_t> newPlaces, std::uint32_t editedCount)
    : file_(file), edited_(edited), newPlaces_(std::move(newPlaces)), editedCount_(editedCount) {
    std::uint32_t last = none;
    for (std::uint32_t i = 0; i < file_.codeLineCount(); ++i) {
        original_.read(file_.codeLine(i));
        if (newPlaces_[i] != none) last = newPlaces_[i];
        lastKept_.push_back(last);
    }
}

std::vector<HiddenLines::Placed> HiddenLines::place() const {
    std::vector<Placed> placed;
    for (const auto& run : file_.hiddenRuns()) {
        const auto bytes = file_.hidden(run);
        for (base::LineReader lines(bytes); lines.next();) {
            Placed line{none, bytes.substr(lines.begin(), lines.position() - lines.begin())};
            if (findPlace(readAttributeLine(lines.line()).member, run.codeLinesBefore, line.after))
                placed.push_back(line);
        }
    }
    // `none` plus one is 0: before line 0 plus one.
    std::stable_sort(placed.begin(), placed.end(),
                     [](const Placed& a, const Placed& b) { return a.after + 1 < b.after + 1; });
    return placed;
}

bool HiddenLines::findPlace(std::string_view member, std::uint32_t linesBefore, std::uint32_t& after) const {
    const auto& oldEnds = original_.endsOf(member);
    const auto& newEnds = edited_.endsOf(member);
    if (oldEnds.empty() && newEnds.empty()) {
        after = placeByPosition(linesBefore);
        return true;
    }
    if (newEnds.empty()) return false;

    // The line that it stood behind is the best guide where it is still there and still the member's.
    const auto before = linesBefore > 0 ? linesBefore - 1 : none;
    const auto kept = before != none ? newPlaces_[before] : none;
    const auto ordinal = indexOf(oldEnds, before);
    const bool stoodBehindDeclaration = ordinal < oldEnds.size();
    const bool keepsPlace =
        kept != none && (!stoodBehindDeclaration || indexOf(newEnds, kept) < newEnds.size());
    if (keepsPlace)
        after = kept;
    else if (stoodBehindDeclaration && oldEnds.size() == newEnds.size())
        after = newEnds[ordinal];
    else
        after = newEnds.front();
    return true;
}

std::uint32_t HiddenLines::placeByPosition(std::uint32_t linesBefore) const {
    if (linesBefore > 0 && lastKept_[linesBefore - 1] != none) return lastKept_[linesBefore - 1];
    // None of the lines before it is left: the line of the same number is as near as any.
    return std::min(linesBefore, editedCount_) - 1;
}

} // namespace corvelle::workspace
