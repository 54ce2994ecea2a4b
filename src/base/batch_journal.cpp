#include "base/batch_journal.h"

#include "base/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string>

namespace corvelle::base {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view journalHead = "corvelle: files that are replaced together\n";
constexpr std::string_view pointerHead = "corvelle: files that are replaced together are told of in\n";
constexpr std::string_view end = "end ";
constexpr std::string_view none = "-";
constexpr const char* journalEnding = ".set";
constexpr const char* takenBackEnding = ".back";

bool isOurName(const fs::path& name, const char* ending) {
    constexpr std::string_view beginning = ".corvelle";
    const auto bytes = name.u8string();
    return name == name.filename() && bytes.size() > beginning.size() &&
           std::equal(beginning.begin(), beginning.end(), bytes.begin(),
                      [](char a, auto b) { return a == static_cast<char>(b); }) &&
           name.extension() == ending;
}

bool isTemporaryName(const fs::path& name) {
    return isOurName(name, ".tmp");
}

// A word: no blank, no line end and no other byte that a terminal would not show.
std::string wordOf(const fs::path& path) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    std::string word;
    for (const auto unit : path.generic_u8string()) {
        const auto byte = static_cast<unsigned char>(unit);
        if (byte > ' ' && byte != '%' && byte != 127)
            word += static_cast<char>(byte);
        else
            word.append(1, '%').append(1, digits[byte / 16]).append(1, digits[byte % 16]);
    }
    return word;
}

template <class Number>
std::optional<Number> numberOf(std::string_view word, int base) {
    Number number = 0;
    const char* const last = word.data() + word.size();
    const auto [rest, error] = std::from_chars(word.data(), last, number, base);
    return error == std::errc() && rest == last ? std::optional(number) : std::nullopt;
}

std::optional<fs::path> pathOfWord(std::string_view word) {
    std::u8string bytes;
    for (std::size_t i = 0; i < word.size(); ++i) {
        auto byte = static_cast<unsigned char>(word[i]);
        if (byte == '%') {
            const auto code = numberOf<unsigned char>(word.substr(i + 1, 2), 16);
            if (!code || *code == 0) return std::nullopt;
            byte = *code;
            i += 2;
        }
        bytes += static_cast<char8_t>(byte);
    }
    if (bytes.empty() || bytes.find(u8'\0') != std::u8string::npos) return std::nullopt;
    return fs::path(bytes);
}

// From the folder where that can be told, so that a folder may be moved with all that is in it.
fs::path seenFrom(const fs::path& folder, const fs::path& path) {
    auto relative = path.lexically_relative(folder);
    return relative.empty() ? path : relative;
}

std::string takeWord(std::string_view& line) {
    const auto space = std::min(line.find(' '), line.size());
    std::string word(line.substr(0, space));
    line.remove_prefix(std::min(space + 1, line.size()));
    return word;
}

std::string textOf(const FileSum& sum) {
    std::array<char, 17> hash{};
    const auto [last, ignored] = std::to_chars(hash.data(), hash.data() + hash.size(), sum.hash, 16);
    return std::to_string(sum.size) + ' ' + std::string(hash.data(), last);
}

std::optional<FileSum> takeSum(std::string_view& line) {
    const auto size = numberOf<std::uint64_t>(takeWord(line), 10);
    const auto hash = numberOf<std::uint64_t>(takeWord(line), 16);
    return size && hash ? std::optional(FileSum{*size, *hash}) : std::nullopt;
}

std::optional<fs::path> takePath(std::string_view& line, const fs::path& folder) {
    const auto path = pathOfWord(takeWord(line));
    return path ? std::optional((folder / *path).lexically_normal()) : std::nullopt;
}

std::optional<BatchFile> fileOfLine(std::string_view line, const fs::path& folder) {
    BatchFile file;
    const auto target = takePath(line, folder);
    const auto fresh = takePath(line, folder);
    const auto freshSum = takeSum(line);
    if (!target || !fresh || !freshSum) return std::nullopt;
    file.target = *target;
    file.fresh = *fresh;
    file.freshSum = *freshSum;
    if (line != none) {
        const auto old = takePath(line, folder);
        file.oldSum = takeSum(line);
        if (!old || !file.oldSum || !line.empty()) return std::nullopt;
        file.old = *old;
    }
    return file;
}

bool isOfABatch(const BatchFile& file) {
    const auto home = file.target.parent_path();
    const auto name = file.target.filename();
    const bool isFile = !name.empty() && name != "." && name != "..";
    return isFile && !isTemporaryName(name) && !isJournalName(name) && file.fresh.parent_path() == home &&
           isTemporaryName(file.fresh.filename()) &&
           (!file.oldSum || (file.old.parent_path() == home && isTemporaryName(file.old.filename())));
}

} // namespace

FileSum sumOf(std::string_view bytes) {
    std::uint64_t hash = 14695981039346656037U;
    for (const char byte : bytes) hash = (hash ^ static_cast<unsigned char>(byte)) * 1099511628211U;
    return {bytes.size(), hash};
}

std::string BatchJournal::textIn(const fs::path& folder) const {
    std::string text(journalHead);
    for (const auto& file : files) {
        text += wordOf(seenFrom(folder, file.target)) + ' ' + wordOf(seenFrom(folder, file.fresh)) + ' ' +
                textOf(file.freshSum) + ' ';
        if (file.oldSum)
            text += wordOf(seenFrom(folder, file.old)) + ' ' + textOf(*file.oldSum);
        else
            text += none;
        text += '\n';
    }
    return text + std::string(end) + textOf(sumOf(text)) + '\n';
}

std::optional<BatchJournal> BatchJournal::read(std::string_view text, const fs::path& folder) {
    if (text.substr(0, journalHead.size()) != journalHead) return std::nullopt;
    BatchJournal journal;
    std::size_t begin = journalHead.size();
    while (true) {
        const auto lineEnd = text.find('\n', begin);
        if (lineEnd == std::string_view::npos) return std::nullopt;
        auto line = text.substr(begin, lineEnd - begin);
        if (line.substr(0, end.size()) == end) {
            line.remove_prefix(end.size());
            const bool isWhole = takeSum(line) == sumOf(text.substr(0, begin)) && line.empty() &&
                                 lineEnd + 1 == text.size() && !journal.files.empty();
            return isWhole ? std::optional(std::move(journal)) : std::nullopt;
        }
        auto file = fileOfLine(line, folder);
        if (!file || !isOfABatch(*file)) return std::nullopt;
        journal.files.push_back(std::move(*file));
        begin = lineEnd + 1;
    }
}

std::string pointerText(const fs::path& journal, const fs::path& folder) {
    return std::string(pointerHead) + wordOf(seenFrom(folder, journal)) + '\n';
}

std::optional<fs::path> readPointer(std::string_view text, const fs::path& folder) {
    if (text.substr(0, pointerHead.size()) != pointerHead || text.back() != '\n') return std::nullopt;
    auto line = text.substr(pointerHead.size(), text.size() - pointerHead.size() - 1);
    const auto path = takePath(line, folder);
    const bool isOne = path && line.empty() && isOurName(path->filename(), journalEnding);
    return isOne ? path : std::nullopt;
}

fs::path journalBeside(const fs::path& temporary) {
    return fs::path(temporary).replace_extension(journalEnding);
}

fs::path whenTakenBack(const fs::path& journal) {
    return fs::path(journal).replace_extension(takenBackEnding);
}

bool isJournalName(const fs::path& name) {
    return isOurName(name, journalEnding) || isOurName(name, takenBackEnding);
}

} // namespace corvelle::base
