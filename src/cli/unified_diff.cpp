#include "cli/unified_diff.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace corvelle::cli {

namespace {

std::string range(std::size_t begin, std::size_t count) {
    // A side without lines is named by the line before it.
    std::string text = std::to_string(count == 0 ? begin : begin + 1);
    if (count != 1) text.append(1, ',').append(std::to_string(count));
    return text;
}

// A path as the head of a diff takes it: a tab ends one with blanks, quotes hold one with stranger
// characters.
std::string headPath(std::string_view path) {
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < 32 || c == 127; };
    const auto isStrange = [&](char c) { return isControl(c) || c == '"' || c == '\\'; };
    if (std::none_of(path.begin(), path.end(), isStrange)) {
        return std::string(path) + (path.find(' ') == std::string_view::npos ? "" : "\t");
    }
    std::string quoted = "\"";
    for (const char c : path) {
        if (isControl(c)) {
            const unsigned code = static_cast<unsigned char>(c);
            quoted += {'\\', static_cast<char>('0' + code / 64), static_cast<char>('0' + code / 8 % 8),
                       static_cast<char>('0' + code % 8)};
        } else {
            if (isStrange(c)) quoted += '\\';
            quoted += c;
        }
    }
    return quoted += '"';
}

} // namespace

void UnifiedDiff::put(std::string& to, char mark, std::string_view line) {
    to += mark;
    to += line;
    if (line.empty() || line.back() != '\n') to += "\n\\ No newline at end of file\n";
}

void UnifiedDiff::openHunk() {
    trailing_ = 0;
    if (isOpen_ && !passed_.empty()) {
        // The lines between two differences stand near enough to both to join their hunks.
        for (const std::string_view line : passed_) put(hunk_, ' ', line);
        oldCount_ += passed_.size();
        newCount_ += passed_.size();
        passed_.clear();
    }
    if (isOpen_) return;
    isOpen_ = true;
    hunkOld_ = oldLine_ - passed_.size();
    hunkNew_ = newLine_ - passed_.size();
    oldCount_ = newCount_ = passed_.size();
    for (const std::string_view line : passed_) put(hunk_, ' ', line);
    passed_.clear();
}

void UnifiedDiff::endRun() {
    hunk_ += added_;
    added_.clear();
}

void UnifiedDiff::closeHunk() {
    endRun();
    if (!isOpen_) return;
    isOpen_ = false;
    if (!headWritten_) {
        const std::string path = headPath(path_);
        sink_("--- " + path + "\n+++ " + path + "\n");
        headWritten_ = true;
    }
    sink_("@@ -" + range(hunkOld_, oldCount_) + " +" + range(hunkNew_, newCount_) + " @@\n");
    sink_(hunk_);
    hunk_.clear();
}

void UnifiedDiff::same(std::string_view line) {
    if (isOpen_ && trailing_ < context) {
        endRun();
        put(hunk_, ' ', line);
        ++oldCount_;
        ++newCount_;
        ++trailing_;
    } else {
        // Up to three equal lines more could still be the context of the next difference.
        passed_.push_back(line);
        if (passed_.size() > context) {
            closeHunk();
            passed_.pop_front();
        }
    }
    ++oldLine_;
    ++newLine_;
}

void UnifiedDiff::replaced(std::string_view oldLine, std::string_view newLine) {
    removed(oldLine);
    added(newLine);
}

void UnifiedDiff::added(std::string_view newLine) {
    openHunk();
    put(added_, '+', newLine);
    ++newLine_;
    ++newCount_;
}

void UnifiedDiff::removed(std::string_view oldLine) {
    openHunk();
    put(hunk_, '-', oldLine);
    ++oldLine_;
    ++oldCount_;
}

void UnifiedDiff::finish() {
    closeHunk();
}

namespace {

// The lines of a text, with their ends.
std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto end = std::min(text.find('\n'), text.size() - 1) + 1;
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end);
    }
    return lines;
}

} // namespace

void writeDiff(const std::string& path, std::string_view before, std::string_view after,
               const UnifiedDiff::Sink& sink) {
    UnifiedDiff diff(path, sink);
    const auto old = linesOf(before), fresh = linesOf(after);
    auto o = old.begin();
    auto f = fresh.begin();
    const auto isNear = [](auto from, auto end, std::string_view line) {
        constexpr std::ptrdiff_t ahead = 16;
        const auto last = from + std::min<std::ptrdiff_t>(ahead, end - from);
        return std::find(from, last, line) != last;
    };
    while (o != old.end() || f != fresh.end()) {
        if (o != old.end() && f != fresh.end() && *o == *f) {
            diff.same(*o++);
            ++f;
        } else if (o == old.end() || (f != fresh.end() && isNear(f, fresh.end(), *o))) {
            diff.added(*f++);
        } else if (f == fresh.end() || isNear(o, old.end(), *f)) {
            diff.removed(*o++);
        } else {
            diff.replaced(*o++, *f++);
        }
    }
    diff.finish();
}

} // namespace corvelle::cli
