#include "indexer/help_text_file.h"

#include <algorithm>
#include <set>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace corvelle::test {

namespace {

void require(bool holds, const std::string& what) {
    if (!holds) throw std::runtime_error(what);
}

std::vector<std::string> linesOf(std::string_view bytes) {
    std::vector<std::string> lines;
    while (!bytes.empty()) {
        const auto end = bytes.find("\r\n");
        require(end != std::string_view::npos, "a line does not end in CR LF");
        lines.emplace_back(bytes.substr(0, end));
        require(lines.back().find_first_of("\r\n") == std::string::npos, "a line break is not CR LF");
        bytes.remove_prefix(end + 2);
    }
    return lines;
}

std::vector<std::string> wordsOf(const std::string& line) {
    std::istringstream stream(line);
    std::vector<std::string> words;
    for (std::string word; stream >> word;) words.push_back(word);
    return words;
}

// A name that the help compiler's maps may define.
bool isSymbol(const std::string& name) {
    const auto isLetter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; };
    return !name.empty() && isLetter(name[0]) && std::all_of(name.begin(), name.end(), [&](char c) {
        return isLetter(c) || (c >= '0' && c <= '9');
    });
}

} // namespace

std::map<std::string, std::string> readHelpTexts(std::string_view bytes) {
    std::map<std::string, std::string> texts;
    std::string* text = nullptr;
    for (const auto& line : linesOf(bytes)) {
        if (!line.empty() && line[0] == '.') {
            const auto words = wordsOf(line);
            require(words.size() == 2 && words[0] == ".topic" && isSymbol(words[1]),
                    "no topic line: " + line);
            const auto [place, isNew] = texts.try_emplace(words[1]);
            require(isNew, "a topic stands twice: " + words[1]);
            text = &place->second;
        } else {
            require(text != nullptr, "text before the first topic: " + line);
            *text += line + "\n";
        }
    }
    return texts;
}

std::map<std::string, std::string> shownHelpTexts(std::string_view bytes) {
    auto texts = readHelpTexts(bytes);
    for (auto& [name, text] : texts) {
        const auto begin = std::min(text.find_first_not_of(" \n"), text.size());
        text = text.substr(begin, text.find_last_not_of(" \n") + 1 - begin);
    }
    std::erase_if(texts, [](const auto& entry) { return entry.second.empty(); });
    return texts;
}

std::map<std::string, int> readHelpMap(std::string_view bytes) {
    std::map<std::string, int> map;
    std::set<int> numbers;
    for (const auto& line : linesOf(bytes)) {
        const auto words = wordsOf(line);
        require(words.size() == 3 && words[0] == "#define" && isSymbol(words[1]), "no define: " + line);
        std::size_t read = 0;
        const int number = std::stoi(words[2], &read);
        require(read == words[2].size() && number > 0, "no number: " + line);
        require(map.emplace(words[1], number).second, "a name stands twice: " + words[1]);
        require(numbers.insert(number).second, "a number stands twice: " + words[2]);
    }
    return map;
}

} // namespace corvelle::test
