#include "indexer/stable/topics.h"

#include "base/text.h"
#include "indexer/entry_edits.h"
#include "indexer/help_index.h"
#include "indexer/stable/sorted_names.h"
#include "indexer/text_file.h"
#include "indexer/text_lines.h"

#include <algorithm>
#include <unordered_set>

namespace corvelle::indexer::stable {

namespace {

struct Topic {
    std::string_view name;
    std::string_view bytes; // from its own line to the next topic's
    std::string_view text;  // the lines below its own
};

// What stands before the first topic is of nobody.
std::vector<Topic> topicsIn(std::string_view file) {
    std::vector<Topic> topics;
    constexpr std::size_t usualTopic = 40;
    topics.reserve(file.size() / usualTopic);
    std::size_t begin = 0, text = 0; // of the topic met last
    const auto end = [&](std::size_t behind) {
        if (topics.empty()) return;
        topics.back().bytes = file.substr(begin, behind - begin);
        topics.back().text = file.substr(text, behind - text);
    };
    for (TextLines lines(file); lines.next();) {
        const auto name = topicOf(lines.line());
        if (!name) continue;
        end(lines.begin());
        topics.push_back({*name, {}, {}});
        begin = lines.begin();
        text = lines.end();
    }
    end(file.size());
    return topics;
}

std::string_view beforeTopics(std::string_view file, const std::vector<Topic>& topics) {
    if (topics.empty()) return file;
    return file.substr(0, static_cast<std::size_t>(topics[0].bytes.data() - file.data()));
}

std::string joined(std::string_view text) {
    std::string result;
    std::size_t end = 0; // behind the last line that is not empty
    for (TextLines lines(text); lines.next();) {
        if (lines.number() > 1) result += '\n';
        result += lines.line();
        if (!base::trimSpaces(lines.line()).empty()) end = result.size();
    }
    result.resize(end);
    return result;
}

std::string_view lineEndOf(std::string_view text) {
    std::string_view result = "\r\n";
    for (TextLines lines(text); lines.next();) {
        if (!lines.lineEnd().empty()) return lines.lineEnd();
    }
    return result;
}

void endLine(std::string& text, std::string_view lineEnd) {
    if (!text.empty() && text.back() != '\n' && text.back() != '\r') text += lineEnd;
}

} // namespace

TopicsOf compareTopics(std::string_view text, const std::vector<std::string>& names,
                       const std::vector<std::string>& waiting) {
    TopicsOf result;
    SortedNames known;
    known.reserve(names.size() + waiting.size());
    for (std::size_t i = 0; i < names.size(); ++i) known.add(names[i], i);
    for (std::size_t i = 0; i < waiting.size(); ++i) known.add(waiting[i], names.size() + i);
    struct Met {
        unsigned times = 0;
        bool hasText = false; // the last one, which readers take
    };
    std::vector<Met> met(names.size() + waiting.size());
    std::unordered_map<std::string_view, unsigned> others;
    for (const auto& topic : topicsIn(text)) {
        const auto name = known.find(topic.name);
        const auto times = name == SortedNames::nothing ? ++others[topic.name] : ++met[name].times;
        if (times == 2) result.twice.emplace_back(topic.name);
        if (name != SortedNames::nothing)
            met[name].hasText = topic.text.find_first_not_of(" \r\n") != std::string_view::npos;
        else if (times == 1 && topic.name != defaultIDH)
            result.leftOver.emplace_back(topic.name);
    }
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (!met[i].hasText) result.missing.push_back(names[i]);
    }
    result.allAreMissing = result.missing.size() == names.size();
    return result;
}

std::vector<std::string> ownNames(const Numbering& numbering) {
    std::vector<std::string> names;
    for (const auto& designer : numbering) {
        for (const auto& control : designer.controls) {
            if (control.idhName != defaultIDH) names.push_back(control.idhName);
        }
    }
    return names;
}

std::string withTopics(std::string_view text, const std::vector<std::string>& names,
                       const std::optional<std::string>& defaultText) {
    std::string result;
    const auto lineEnd = lineEndOf(text);
    const auto begin = [&](std::string_view name) { result.append(".topic  ").append(name).append(lineEnd); };
    if (firstTopic(text) != defaultIDH) {
        begin(defaultIDH);
        result.append(defaultText ? *defaultText : std::string(initialDefaultText)).append(lineEnd);
        result += text;
    } else {
        result = defaultText ? withTexts(text, {{std::string(defaultIDH), *defaultText}}) : std::string(text);
    }
    SortedNames known;
    known.reserve(names.size() + 1);
    for (const auto& topic : topicsIn(text)) known.add(topic.name, 0);
    for (const auto& name : names) {
        if (known.find(name) != SortedNames::nothing) continue;
        endLine(result, lineEnd);
        begin(name);
        result += lineEnd;
    }
    return result;
}

std::unordered_map<std::string, std::string> textsOf(std::string_view text) {
    std::unordered_map<std::string, std::string> result;
    for (const auto& topic : topicsIn(text)) result[std::string(topic.name)] = joined(topic.text);
    return result;
}

std::string withTexts(std::string_view text, const std::map<std::string, std::string>& texts) {
    const auto topics = topicsIn(text);
    std::unordered_map<std::string_view, std::size_t> last; // of a name
    for (std::size_t i = 0; i < topics.size(); ++i) last[topics[i].name] = i;
    std::string result(beforeTopics(text, topics));
    for (std::size_t i = 0; i < topics.size(); ++i) {
        const auto changed = texts.find(std::string(topics[i].name));
        if (changed != texts.end() && last[topics[i].name] == i)
            result += withTopicText(topics[i].bytes, topics[i].name, changed->second);
        else
            result += topics[i].bytes;
    }
    for (const auto& [name, own] : texts) {
        if (last.count(name) == 0) result = withTopicText(result, name, own);
    }
    return result;
}

std::string withoutTopics(std::string_view text, const std::vector<std::string>& names) {
    const std::unordered_set<std::string_view> unwanted(names.begin(), names.end());
    const auto topics = topicsIn(text);
    std::string result(beforeTopics(text, topics));
    for (const auto& topic : topics) {
        if (unwanted.count(topic.name) == 0) result += topic.bytes;
    }
    return result;
}

} // namespace corvelle::indexer::stable
