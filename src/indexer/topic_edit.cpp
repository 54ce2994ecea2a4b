#include "indexer/topic_edit.h"

#include "base/text.h"
#include "indexer/help_index.h"
#include "indexer/text_file.h"
#include "indexer/text_lines.h"

#include <cstddef>
#include <vector>

namespace corvelle::indexer {

namespace {

constexpr std::string_view usualLineEnd = "\r\n";

// Where a topic stands in the file.
struct Topic {
    std::size_t begin = 0;    // its own line's begin
    std::size_t textFrom = 0; // behind its own line
    std::size_t end = 0;      // where the next one begins
    std::string_view lineEnd; // its own line's; empty at the end of the file
};

std::vector<Topic> topicsNamed(std::string_view name, std::string_view bytes) {
    std::vector<Topic> found;
    bool isInside = false;
    for (TextLines lines(bytes); lines.next();) {
        if (const auto topic = topicOf(lines.line())) {
            isInside = *topic == name;
            if (isInside) found.push_back({lines.begin(), lines.end(), 0, lines.lineEnd()});
        }
        if (isInside) found.back().end = lines.end();
    }
    return found;
}

bool isBlank(std::string_view line) {
    return base::trimSpaces(line).empty();
}

// The lines of a text that a file is to hold; the text may end in line ends of its own.
std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> result;
    bool isEnded = true;
    for (TextLines lines(text); lines.next();) {
        result.push_back(lines.line());
        isEnded = !lines.lineEnd().empty();
    }
    if (isEnded) result.push_back({});
    return result;
}

std::string joined(const std::vector<std::string_view>& lines, std::string_view lineEnd) {
    std::string result;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        if (i > 0) result += lineEnd;
        result += lines[i];
    }
    return result;
}

// A topic's old text. There is a line of it even where it is empty, unless the topic has no line at all;
// empty lines that follow only keep the topics apart.
struct OldText {
    std::size_t end = 0;
    std::string_view lineEnd; // its last line's
};

OldText oldTextIn(std::string_view lines) {
    OldText result;
    for (TextLines each(lines); each.next();) {
        if (each.number() == 1 || !isBlank(each.line())) result = {each.end(), each.lineEnd()};
    }
    return result;
}

// Where the text ends in empty lines itself, they take the place of as many of those that follow: the same
// text given again and again must not let the file grow.
std::size_t placeOf(std::size_t emptyLines, std::string_view following) {
    TextLines lines(following);
    std::size_t size = 0;
    for (; emptyLines > 0 && lines.next(); --emptyLines) size = lines.end();
    return size;
}

std::size_t emptyLinesAtEnd(const std::vector<std::string_view>& lines) {
    std::size_t count = 0;
    while (count + 1 < lines.size() && isBlank(lines[lines.size() - 1 - count])) ++count;
    return count;
}

std::string withTextReplaced(std::string_view bytes, const Topic& topic, std::string_view text) {
    const auto lineEnd = topic.lineEnd.empty() ? usualLineEnd : topic.lineEnd;
    const auto old = oldTextIn(bytes.substr(topic.textFrom, topic.end - topic.textFrom));
    const auto lines = linesOf(text);
    std::string result(bytes.substr(0, topic.textFrom));
    if (topic.lineEnd.empty()) result += lineEnd;
    result += joined(lines, lineEnd);
    // At the end of the file an empty line is one by its line end alone.
    const bool needsLineEnd = old.end == 0 || (old.lineEnd.empty() && isBlank(lines.back()));
    result += needsLineEnd ? lineEnd : old.lineEnd;
    auto rest = topic.textFrom + old.end;
    rest += placeOf(emptyLinesAtEnd(lines), bytes.substr(rest, topic.end - rest));
    return result.append(bytes.substr(rest));
}

std::string_view lastLineEnd(std::string_view bytes) {
    auto result = usualLineEnd;
    for (TextLines lines(bytes); lines.next();) {
        if (!lines.lineEnd().empty()) result = lines.lineEnd();
    }
    return result;
}

bool endsInLineEnd(std::string_view bytes) {
    return !bytes.empty() && (bytes.back() == '\r' || bytes.back() == '\n');
}

void appendTopic(std::string& bytes, std::string_view name, std::string_view text, std::string_view lineEnd) {
    bytes.append(".topic  ").append(name).append(lineEnd);
    bytes.append(joined(linesOf(text), lineEnd)).append(lineEnd);
}

} // namespace

std::string withTopicText(std::string_view bytes, std::string_view topic, std::string_view text) {
    const auto found = topicsNamed(topic, bytes);
    if (!found.empty()) return withTextReplaced(bytes, found.back(), text);
    const auto lineEnd = lastLineEnd(bytes);
    std::string result(bytes);
    if (bytes.empty() && topic != defaultIDH) appendTopic(result, defaultIDH, "", lineEnd);
    if (!bytes.empty() && !endsInLineEnd(bytes)) result += lineEnd;
    appendTopic(result, topic, text, lineEnd);
    return result;
}

std::string withoutTopic(std::string_view bytes, std::string_view topic) {
    std::string result;
    std::size_t from = 0;
    for (const auto& found : topicsNamed(topic, bytes)) {
        result += bytes.substr(from, found.begin - from);
        from = found.end;
    }
    return result.append(bytes.substr(from));
}

} // namespace corvelle::indexer
