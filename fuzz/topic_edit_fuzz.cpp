// One topic of a text pop-up file of any kind is changed: readers then see its new text, or none, and of
// every other topic what they saw before; each byte outside of the topic is kept.
//
// Input: a byte that picks the topic; its text, up to a form feed; then the file.

#include "base/text.h"
#include "indexer/help_index.h"
#include "indexer/text_file.h"
#include "require.h"
#include "vocabulary.h"

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace base = corvelle::base;
namespace indexer = corvelle::indexer;

namespace {

// A line with its end; `topic` is the number of the topic that it belongs to, 0 before the first one.
struct Line {
    std::string bytes, name;
    bool isHead = false;
    int topic = 0;
};

std::vector<Line> linesOf(const std::string& file) {
    std::vector<Line> lines;
    for (std::size_t at = 0; at < file.size();) {
        auto end = file.find_first_of("\r\n", at);
        auto next = end == std::string::npos ? file.size() : end + 1;
        if (end == std::string::npos) end = file.size();
        if (next < file.size() && file[end] == '\r' && file[next] == '\n') ++next;
        Line line = lines.empty() ? Line() : lines.back();
        line.bytes = file.substr(at, next - at);
        const std::string trimmed(base::trimSpaces(file.substr(at, end - at)));
        line.isHead = base::upper(trimmed.substr(0, 6)) == ".TOPIC";
        if (line.isHead) {
            ++line.topic;
            const auto space = trimmed.rfind(' ');
            line.name = space == std::string::npos ? "" : trimmed.substr(space + 1);
        }
        lines.push_back(line);
        at = next;
    }
    return lines;
}

using Texts = std::vector<std::pair<std::string, std::string>>;

Texts textsOf(const std::string& file, const std::vector<std::string>& names) {
    indexer::HelpIndex index;
    for (const auto& name : names) index.entries.push_back({1, name, "c", "C", "none"});
    indexer::readTextEntries(file, index, indexer::LastDefault::Read);
    Texts texts;
    for (const auto& entry : index.entries) texts.emplace_back(entry.IDHName, entry.HelpText);
    return texts;
}

std::string withoutSpacesBehind(std::string text) {
    return text.erase(text.find_last_not_of(' ') + 1);
}

std::string textSeenOf(const std::string& text, const std::string& name) {
    const std::string file = ".topic  " + name + "\r\n" + text + "\r\n";
    return withoutSpacesBehind(textsOf(file, {name}).back().second);
}

void checkSet(const std::string& file, const std::string& name, const std::string& text,
              const std::vector<std::string>& names) {
    const auto result = indexer::withTopicText(file, name, text);
    std::string before, after;
    const auto lines = linesOf(file);
    int edited = -1;
    for (const auto& line : lines) {
        if (line.isHead && line.name == name) edited = line.topic;
    }
    for (const auto& line : lines) {
        const bool isBefore = edited < 0 || line.topic < edited || (line.topic == edited && line.isHead);
        if (isBefore)
            before += line.bytes;
        else if (line.topic > edited)
            after += line.bytes;
    }
    require(result.size() >= before.size() + after.size(), "nothing but the topic has gone");
    require(result.compare(0, before.size(), before) == 0, "what stands before the text is kept");
    require(result.compare(result.size() - after.size(), after.size(), after) == 0, "so is what follows");

    auto wanted = textsOf(file, names);
    const auto seen = textsOf(result, names);
    for (std::size_t i = 1; i < seen.size(); ++i) {
        if (seen[i].first == name)
            require(withoutSpacesBehind(seen[i].second) == textSeenOf(text, name), "the text is the new one");
        else if (!(file.empty() && seen[i].first == indexer::defaultIDH))
            require(seen[i].second == wanted[i].second, "the other texts are as before");
    }
    // A lone carriage return may meet a line feed and make one line end with it.
    if ((file + text).find('\r') == std::string::npos)
        require(indexer::withTopicText(result, name, text) == result, "the same again changes nothing");
}

void checkRemoved(const std::string& file, const std::string& name) {
    std::string wanted;
    int removed = 0;
    for (const auto& line : linesOf(file)) {
        if (line.isHead && line.name == name) removed = line.topic;
        if (line.topic == 0 || line.topic != removed) wanted += line.bytes;
    }
    require(indexer::withoutTopic(file, name) == wanted,
            "the topics of that name have gone, and no other line");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    if (size == 0) return 0;
    const std::string input(data + 1, data + size);
    const auto feed = input.find('\f');
    const auto text = feed == std::string::npos ? std::string("new") : input.substr(0, feed);
    const auto file = feed == std::string::npos ? input : input.substr(feed + 1);
    std::vector<std::string> names{"IDH_AAAB", "IDH_AAAC", "IDH_ZZZZ"};
    for (const auto& line : linesOf(file)) {
        const bool isKnown = std::find(names.begin(), names.end(), line.name) != names.end();
        // The default entry has its own topic.
        if (line.isHead && !line.name.empty() && !isKnown && line.name != indexer::defaultIDH)
            names.push_back(line.name);
    }
    const auto& name = names[data[0] % names.size()];
    if (!indexer::holdsTopicLine(text)) checkSet(file, name, text, names);
    checkRemoved(file, name);
    return 0;
}

extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t maxSize,
                                               unsigned seed) {
    static const Phrases edits{"\f", "a\f", "\f.topic  IDH_AAAB", "a\r", "\r\r", ".topic  IDH_ZZZZ\r"};
    static const auto phrases = vocabulary::together({edits, vocabulary::index});
    return mutateLines(data, size, maxSize, seed, phrases);
}
