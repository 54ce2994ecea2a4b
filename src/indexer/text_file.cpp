#include "indexer/text_file.h"

#include "base/file.h"
#include "base/paths.h"
#include "base/run_time_error.h"
#include "base/text.h"
#include "indexer/help_index.h"
#include "indexer/index_files.h"
#include "indexer/text_lines.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace corvelle::indexer {

namespace {

constexpr std::size_t none = static_cast<std::size_t>(-1);

// Finds entries by their names. Of several with one name the first one has it.
class EntryNames {
  public:
    explicit EntryNames(const HelpIndex& index) {
        named_.reserve(index.entries.size());
        for (std::size_t i = 0; i <= index.count(); ++i) {
            const std::string& name = index.entries[i].IDHName;
            if (!name.empty()) named_.push_back({name, i});
        }
        // The generator's names ascend.
        if (!std::is_sorted(named_.begin(), named_.end(), byName))
            std::stable_sort(named_.begin(), named_.end(), byName);
    }

    std::size_t find(std::string_view name) {
        // A file mostly has its topics in the order of the names.
        const bool isNext = next_ < named_.size() && named_[next_].name == name &&
                            (next_ == 0 || named_[next_ - 1].name != name);
        if (!isNext) {
            const auto found = std::lower_bound(named_.begin(), named_.end(), Named{name, 0}, byName);
            next_ = static_cast<std::size_t>(found - named_.begin());
            if (found == named_.end() || found->name != name) return none;
        }
        return named_[next_++].entry;
    }

  private:
    struct Named {
        std::string_view name;
        std::size_t entry;
    };
    static bool byName(const Named& a, const Named& b) { return a.name < b.name; }

    std::vector<Named> named_; // by name, then by entry
    std::size_t next_ = 0;
};

// Collects the lines of one topic after the other and stores them into the topics' entries.
class TopicReader {
  public:
    TopicReader(HelpIndex& index, LastDefault lastDefault)
        : index_(index), names_(index), lastDefault_(lastDefault) {}

    void readLine(std::string_view line) {
        if (const auto topic = topicOf(line))
            beginTopic(*topic);
        else if (entry_ != none)
            text_.append(1, ' ').append(line);
    }
    void end() {
        if (entry_ != 0 || lastDefault_ == LastDefault::Read) store();
    }

  private:
    void beginTopic(std::string_view name) {
        store();
        entry_ = names_.find(name);
        text_.clear();
    }
    void store() {
        if (entry_ != none) index_.entries[entry_].HelpText = withSpacePairsJoined(text_);
    }

    HelpIndex& index_;
    EntryNames names_;
    LastDefault lastDefault_;
    std::size_t entry_ = none; // whose text is being collected
    std::string text_;
};

// Where nobody can tell it is not.
bool isMissing(std::string_view path) {
    bool missing = false;
    base::ignoringErrors([&] { missing = !base::stampIfThere(base::pathOf(path)); });
    return missing;
}

template <class File>
void writeTopics(File& file, const HelpIndex& index) {
    const auto& defaultName = index.entries.front().IDHName;
    for (std::size_t i = 0; i <= index.count(); ++i) {
        const auto& entry = index.entries[i];
        if (entry.IDHName.empty() || (i > 0 && entry.IDHName == defaultName)) continue;
        file.write(".topic  ");
        file.write(entry.IDHName);
        file.write("\r\n");
        file.write(entry.HelpText);
        file.write("\r\n");
    }
}

} // namespace

void LoadTextEntries(std::string_view path, HelpIndex& index, LastDefault lastDefault) {
    auto& unread = index.unreadTextFiles;
    unread.emplace_back(path); // before anything of it is taken
    bool isText = false;
    const bool read = base::ignoringErrors([&] {
        const auto bytes = base::readFile(base::pathOf(path));
        isText = base::whatInsteadOfText(bytes).empty();
        readTextEntries(bytes, index, lastDefault);
    });
    if ((read && isText) || isMissing(path))
        unread.erase(std::remove(unread.begin(), unread.end(), path), unread.end());
}

bool isUnread(std::string_view path, const HelpIndex& index) {
    const auto& unread = index.unreadTextFiles;
    return index.isUnread || std::any_of(unread.begin(), unread.end(), [&](const std::string& other) {
               return base::isSamePath(base::pathOf(path), base::pathOf(other));
           });
}

std::optional<std::string_view> topicOf(std::string_view line) {
    line = base::trimSpaces(line);
    if (!base::startsWithIgnoringCase(line, ".TOPIC")) return std::nullopt;
    const auto space = line.rfind(' ');
    return space == std::string_view::npos ? std::string_view() : line.substr(space + 1);
}

std::string_view firstTopic(std::string_view bytes) {
    for (TextLines lines(bytes); lines.next();) {
        if (const auto topic = topicOf(lines.line())) return *topic;
    }
    return {};
}

bool holdsTopicLine(std::string_view text) {
    for (TextLines lines(text); lines.next();) {
        if (topicOf(lines.line())) return true;
    }
    return false;
}

void readTextEntries(std::string_view bytes, HelpIndex& index, LastDefault lastDefault) {
    TopicReader topics(index, lastDefault);
    for (TextLines lines(bytes); lines.next();) topics.readLine(base::trimSpaces(lines.line()));
    topics.end();
}

std::string textFileOf(const HelpIndex& index) {
    LinesInMemory file;
    writeTopics(file, index);
    return std::move(file.bytes);
}

bool SaveTextFile(std::string_view path, const HelpIndex& index,
                  const std::function<void()>& beforeReplacing) {
    bool saved = false;
    base::ignoringErrors([&] {
        if (isUnread(path, index)) return;
        base::replaceFile(base::pathOf(path),
                          [&](base::FileWriter& file) {
                              writeTopics(file, index);
                              file.flush();
                              if (beforeReplacing) beforeReplacing();
                          },
                          {.breakLinks = true});
        saved = true;
    });
    return saved;
}

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
