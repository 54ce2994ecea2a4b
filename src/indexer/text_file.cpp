#include "indexer/text_file.h"

#include "base/binary_check.h"
#include "base/file.h"
#include "base/ignoring_errors.h"
#include "base/path_text.h"
#include "base/same_path.h"
#include "base/text.h"
#include "indexer/index_lines.h"
#include "indexer/space_pairs.h"
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

} // namespace corvelle::indexer
