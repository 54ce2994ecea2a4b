#include "line_mutator.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <random>
#include <string>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace {

constexpr std::array<std::string_view, 14> names{"a",         "A",   "frmMain", "modMap",   "Name",
                                                 "[End Sub]", "x_1", "cmdOK",   "IDH_AAAB", "IDH_AAAA",
                                                 "\xE4gg",    "Rem", "Value",   "f.frm"};
constexpr std::array<std::string_view, 5> ends{"\r\n", "\n", "\r", "", "\r\r\n"};
constexpr std::array<std::string_view, 12> pieces{" ", "\t", " _", ": ", "'", "\"",
                                                  "(", ")",  ",",  "=",  ".", ";"};

bool isWordCharacter(char c) {
    return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
           static_cast<unsigned char>(c) > 127;
}

class Mutation {
  public:
    Mutation(std::string_view text, unsigned seed, const Phrases& phrases)
        : random_(seed), phrases_(phrases) {
        while (!text.empty()) {
            const auto size = std::min(text.find('\n'), text.size() - 1) + 1;
            lines_.emplace_back(text.substr(0, size));
            text.remove_prefix(size);
        }
    }

    bool leftToTheFuzzer() { return pick(4) == 0; }

    std::string run() {
        for (auto count = pick(3) + 1; count > 0; --count) change();
        std::string text;
        for (const auto& line : lines_) text += line;
        return text;
    }

  private:
    std::size_t pick(std::size_t limit) { return random_() % limit; }
    template <class List>
    const auto& oneOf(const List& list) {
        return list[pick(list.size())];
    }
    auto place(std::size_t index) { return std::next(lines_.begin(), static_cast<std::ptrdiff_t>(index)); }

    std::string phrase() {
        std::string text;
        for (const char c : oneOf(phrases_)) {
            if (c == '$')
                text += oneOf(names);
            else if (c == '#')
                text += std::to_string(pick(10));
            else
                text += c;
        }
        return text.append(pick(8) == 0 ? oneOf(ends) : ends[0]);
    }

    void change() {
        if (lines_.empty()) return lines_.push_back(phrase());
        const auto index = pick(lines_.size());
        auto& line = lines_[index];
        switch (pick(10)) {
        case 0:
        case 1:
        case 2:
            lines_.insert(place(pick(lines_.size() + 1)), phrase());
            break;
        case 3:
            line = phrase();
            break;
        case 4:
            lines_.erase(place(index), place(std::min(index + 1 + pick(4), lines_.size())));
            break;
        case 5: {
            const std::vector<std::string> block(place(index),
                                                 place(std::min(index + 1 + pick(4), lines_.size())));
            lines_.insert(place(pick(lines_.size() + 1)), block.begin(), block.end());
            break;
        }
        case 6:
            std::swap(line, lines_[pick(lines_.size())]);
            break;
        case 7:
            while (!line.empty() && (line.back() == '\n' || line.back() == '\r')) line.pop_back();
            line += oneOf(ends);
            break;
        case 8:
            line.insert(pick(line.size() + 1), oneOf(pieces));
            break;
        default:
            exchangeWord(line);
        }
    }

    void exchangeWord(std::string& line) {
        auto begin = pick(line.size() + 1);
        while (begin > 0 && isWordCharacter(line[begin - 1])) --begin;
        auto end = begin;
        while (end < line.size() && isWordCharacter(line[end])) ++end;
        line.replace(begin, end - begin, oneOf(names));
    }

    std::minstd_rand random_;
    const Phrases& phrases_;
    std::vector<std::string> lines_; // with their ends
};

} // namespace

std::size_t mutateLines(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned seed,
                        const Phrases& phrases) {
    Mutation mutation({reinterpret_cast<const char*>(data), size}, seed, phrases);
    if (mutation.leftToTheFuzzer()) return LLVMFuzzerMutate(data, size, maxSize);
    const auto text = mutation.run();
    size = std::min(text.size(), maxSize);
    if (size > 0) std::memcpy(data, text.data(), size);
    return size;
}
