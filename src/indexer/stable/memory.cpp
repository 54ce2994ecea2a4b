#include "indexer/stable/memory.h"

#include "indexer/text_lines.h"
#include "indexer/valid_name.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <tuple>

namespace corvelle::indexer::stable {

namespace {

constexpr std::string_view mark = "// @", version = "1", none = "-";
constexpr std::string_view onDefault = "default", deleted = "deleted", leftOut = "out", adopted = "adopted",
                           from = "from=";

template <class Number>
bool readNumber(std::string_view text, Number lowest, Number& number) {
    const char* const end = text.data() + text.size();
    const auto [rest, error] = std::from_chars(text.data(), end, number);
    return error == std::errc() && rest == end && number >= lowest;
}

void appendName(std::string& lines, std::string_view control, const std::optional<std::int32_t>& index) {
    lines += control.empty() ? none : control;
    if (index) lines.append("(").append(std::to_string(*index)).append(")");
}

void appendControl(std::string& lines, const RememberedControl& control) {
    lines.append(mark).append("control ");
    appendName(lines, control.place.control, control.place.index);
    lines.append(" ").append(control.className);
    lines.append(" ").append(control.container.empty() ? none : control.container);
    lines.append(" ").append(control.idhName).append(" ").append(std::to_string(control.number));
    if (control.isAdopted) lines.append(" ").append(adopted);
    if (control.standing == Standing::OnDefault) lines.append(" ").append(onDefault);
    if (control.standing == Standing::Deleted) lines.append(" ").append(deleted);
    if (control.isLeftOut) lines.append(" ").append(leftOut);
    if (!control.perhapsFrom.empty()) lines.append(" ").append(from).append(control.perhapsFrom);
    lines += "\r\n";
}

// Reads a memory's lines, one after the other. Each function gives what is wrong with its line, empty if
// nothing is.
class MemoryReader {
  public:
    std::string readLine(std::string_view line) {
        ++lines_;
        if (isEnded_) return "the memory has ended already";
        rest_ = line;
        const auto word = next();
        if (!isBegun_) {
            if (word != "memory") return "the memory has no beginning";
            isBegun_ = true;
            return next() == version && isDone() ? "" : "this memory is of another version";
        }
        if (word == "designer") return readDesigner();
        if (word == "control") return readControl();
        if (word == "retired") return readRetired();
        if (word == "wrote") return readWritten();
        if (word == "end") return readEnd();
        return noLine;
    }
    bool isEnded() const { return isEnded_; }
    Memory memory;

  private:
    static constexpr const char* noLine = "this is no line of the memory";

    std::string_view next() {
        const auto size = std::min(rest_.find(' '), rest_.size());
        const auto word = rest_.substr(0, size);
        isAtEnd_ = size == rest_.size();
        rest_.remove_prefix(isAtEnd_ ? size : size + 1);
        return word;
    }
    bool isDone() const { return isAtEnd_; }

    std::string readDesigner() {
        designer_ = next();
        return isMadeOfNameCharacters(designer_) && isDone() ? "" : noLine;
    }

    static bool readName(std::string_view text, std::string& name, std::optional<std::int32_t>& index) {
        if (text == none) return true;
        const auto bracket = std::min(text.find('('), text.size());
        name = text.substr(0, bracket);
        if (!isMadeOfNameCharacters(name)) return false;
        if (bracket == text.size()) return true;
        return text.back() == ')' &&
               readNumber(text.substr(bracket + 1, text.size() - bracket - 2), 0, index.emplace());
    }

    bool readNameAndNumber(std::string& idhName, std::int32_t& number) {
        idhName = next();
        return isMadeOfNameCharacters(idhName) && readNumber(next(), 1, number);
    }

    std::string readControl() {
        auto& control = memory.controls.emplace_back();
        control.place.designer = designer_;
        if (designer_.empty() || !readName(next(), control.place.control, control.place.index)) return noLine;
        control.className = next();
        if (!isMadeOfNameCharacters(control.className)) return noLine;
        const auto container = next();
        ControlPlace inside;
        if (!readName(container, inside.control, inside.index)) return noLine;
        if (container != none) control.container = container;
        if (!readNameAndNumber(control.idhName, control.number)) return noLine;
        while (!isDone()) {
            if (!readRemark(next(), control)) return noLine;
        }
        return {};
    }

    static bool readRemark(std::string_view word, RememberedControl& control) {
        const auto stand = [&](Standing standing) {
            const bool isFirst = control.standing == Standing::Indexed;
            control.standing = standing;
            return isFirst;
        };
        if (word == adopted) return control.isAdopted = true;
        if (word == onDefault) return stand(Standing::OnDefault);
        if (word == deleted) return stand(Standing::Deleted);
        if (word == leftOut) return control.isLeftOut = true;
        if (word.substr(0, from.size()) != from) return false;
        control.perhapsFrom = word.substr(from.size());
        return isMadeOfNameCharacters(control.perhapsFrom);
    }

    std::string readRetired() {
        auto& retired = memory.retired.emplace_back();
        if (!readNameAndNumber(retired.idhName, retired.number)) return noLine;
        retired.isAdopted = !isDone();
        return isDone() || (next() == adopted && isDone()) ? "" : noLine;
    }

    std::string readWritten() {
        auto& written = memory.written.emplace_back();
        written.place.designer = next();
        if (!isMadeOfNameCharacters(written.place.designer) ||
            !readName(next(), written.place.control, written.place.index))
            return noLine;
        written.property = next();
        constexpr auto lowest = std::numeric_limits<std::int32_t>::min();
        return isMadeOfNameCharacters(written.property) && readNumber(next(), lowest, written.value) &&
                       isDone()
                   ? ""
                   : noLine;
    }

    std::string readEnd() {
        std::uint32_t count = 0;
        isEnded_ = true;
        return readNumber(next(), 0U, count) && isDone() && count == lines_ - 1
                   ? ""
                   : "the memory is not whole: lines of it are missing or doubled";
    }

    std::string_view rest_;
    std::string designer_;
    std::uint32_t lines_ = 0;
    bool isAtEnd_ = false, isBegun_ = false, isEnded_ = false;
};

} // namespace

bool operator==(const ControlPlace& a, const ControlPlace& b) {
    return std::tie(a.designer, a.control, a.index) == std::tie(b.designer, b.control, b.index);
}

bool operator==(const RememberedControl& a, const RememberedControl& b) {
    const auto all = [](const RememberedControl& control) {
        return std::tie(control.place, control.className, control.container, control.idhName, control.number,
                        control.standing, control.isLeftOut, control.isAdopted, control.perhapsFrom);
    };
    return all(a) == all(b);
}

bool operator==(const RetiredNumber& a, const RetiredNumber& b) {
    return std::tie(a.idhName, a.number, a.isAdopted) == std::tie(b.idhName, b.number, b.isAdopted);
}

bool operator==(const WrittenProperty& a, const WrittenProperty& b) {
    return std::tie(a.place, a.property, a.value) == std::tie(b.place, b.property, b.value);
}

bool operator==(const Memory& a, const Memory& b) {
    return std::tie(a.controls, a.retired, a.written) == std::tie(b.controls, b.retired, b.written);
}

std::string nameInMemory(const ControlPlace& place) {
    std::string result;
    appendName(result, place.control, place.index);
    return result;
}

void appendLines(std::string& lines, const Memory& memory) {
    constexpr std::size_t usualLine = 64;
    lines.reserve(lines.size() + (memory.controls.size() + memory.written.size()) * usualLine);
    std::size_t count = 0;
    const auto begin = [&](std::string_view word) -> std::string& {
        ++count;
        return lines.append(mark).append(word).append(" ");
    };
    begin("memory").append(version).append("\r\n");
    const std::string* designer = nullptr;
    for (const auto& control : memory.controls) {
        if (!designer || *designer != control.place.designer)
            begin("designer").append(control.place.designer).append("\r\n");
        designer = &control.place.designer;
        appendControl(lines, control);
        ++count;
    }
    for (const auto& retired : memory.retired) {
        begin("retired").append(retired.idhName).append(" ").append(std::to_string(retired.number));
        if (retired.isAdopted) lines.append(" ").append(adopted);
        lines += "\r\n";
    }
    for (const auto& written : memory.written) {
        begin("wrote").append(written.place.designer).append(" ");
        appendName(lines, written.place.control, written.place.index);
        lines.append(" ").append(written.property).append(" ").append(std::to_string(written.value));
        lines += "\r\n";
    }
    const auto before = count;
    begin("end").append(std::to_string(before)).append("\r\n");
}

bool isMemoryLine(std::string_view line) {
    return line.substr(0, mark.size()) == mark;
}

ReadMemory readMemory(std::string_view header) {
    MemoryReader reader;
    bool isFound = false;
    TextLines lines(header);
    constexpr std::size_t usualLine = 64;
    reader.memory.controls.reserve(header.size() / usualLine); // there are lines of their names too
    while (lines.next()) {
        if (!isMemoryLine(lines.line())) continue;
        isFound = true;
        auto wrong = reader.readLine(lines.line().substr(mark.size()));
        if (!wrong.empty()) return {{}, HeaderFault{lines.number(), std::move(wrong)}};
    }
    if (!isFound) return {};
    if (!reader.isEnded()) return {{}, HeaderFault{lines.number(), "the memory has no end"}};
    return {std::move(reader.memory), {}};
}

} // namespace corvelle::indexer::stable
