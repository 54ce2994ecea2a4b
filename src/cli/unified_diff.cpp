#include "cli/unified_diff.h"

#include <algorithm>

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
    if (!hunk_.empty()) return;
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
    if (hunk_.empty()) return;
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
    if (!hunk_.empty() && trailing_ < context) {
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
    put(added_, '+', newLine);
    ++newLine_;
    ++newCount_;
}

void UnifiedDiff::removed(std::string_view oldLine) {
    if (!hunk_.empty() && !passed_.empty()) {
        // The lines between two differences stand near enough to both to join their hunks.
        for (const std::string_view line : passed_) put(hunk_, ' ', line);
        oldCount_ += passed_.size();
        newCount_ += passed_.size();
        passed_.clear();
    }
    openHunk();
    put(hunk_, '-', oldLine);
    ++oldLine_;
    ++oldCount_;
}

void UnifiedDiff::finish() {
    closeHunk();
}

} // namespace corvelle::cli
