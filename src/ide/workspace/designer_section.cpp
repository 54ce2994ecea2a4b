#include "ide/workspace/designer_section.h"

#include "base/text.h"
#include "ide/workspace/designer_lines.h"

#include <algorithm>
#include <charconv>

namespace corvelle::workspace {

namespace {

class Reader {
  public:
    explicit Reader(const ModuleFile& file) : bytes_(file.header()), lines_(base::linesOf(bytes_)) {}

    std::vector<DesignerBlock> read() {
        std::string_view rest;
        do {
            if (!lines_.next()) throw StrangeDesigner(0);
        } while (!isBeginLine(lines_.line(), rest));
        begin(rest);
        while (!open_.empty()) {
            if (!lines_.next()) throw StrangeDesigner(0);
            readLine();
        }
        return std::move(blocks_);
    }

  private:
    void readLine() {
        const auto line = lines_.line();
        std::string_view rest;
        if (isBeginLine(line, rest)) {
            begin(rest);
        } else if (isEndLine(line)) {
            open_.pop_back();
        } else if (isGroupLine(line, "BeginProperty", rest)) {
            const DesignerProperty group{nextWord(rest), {}, indentation(),  true,
                                         lines_.begin(), 0,  lines_.number()};
            if (group.name.empty()) throw StrangeDesigner(lines_.number());
            passGroup();
            add(group);
        } else if (!base::withoutBlanks(line).empty()) {
            readProperty(line);
        }
    }

    std::string_view indentation() const {
        const auto line = lines_.line();
        return line.substr(0, line.size() - base::withoutLeadingBlanks(line).size());
    }

    void begin(std::string_view rest) {
        DesignerBlock block;
        block.className = nextWord(rest);
        block.name = nextWord(rest);
        block.container = open_.empty() ? 0 : open_.back();
        block.line = lines_.number();
        block.indentation = indentation();
        block.lineEnd = bytes_.substr(lines_.end(), lines_.position() - lines_.end());
        block.bodyBegin = lines_.position();
        if (!open_.empty()) hasInner_[open_.back()] = true;
        open_.push_back(blocks_.size());
        blocks_.push_back(std::move(block));
        hasInner_.push_back(false);
    }

    // Groups nest, and may hold what would be a block's line outside of them.
    void passGroup() {
        for (std::size_t depth = 1; depth > 0;) {
            std::string_view rest;
            if (!lines_.next() || isBeginLine(lines_.line(), rest) || isEndLine(lines_.line()))
                throw StrangeDesigner(lines_.number());
            if (isGroupLine(lines_.line(), "BeginProperty", rest))
                ++depth;
            else if (isGroupLine(lines_.line(), "EndProperty", rest))
                --depth;
        }
    }

    static bool isGroupLine(std::string_view line, std::string_view word, std::string_view& rest) {
        return takeWord(line, word, rest) && (rest.empty() || rest[0] != '=');
    }

    void readProperty(std::string_view line) {
        const auto equals = line.find('=');
        if (equals == std::string_view::npos) throw StrangeDesigner(lines_.number());
        const DesignerProperty property{base::withoutBlanks(line.substr(0, equals)),
                                        base::withoutBlanks(line.substr(equals + 1)),
                                        indentation(),
                                        false,
                                        lines_.begin(),
                                        0,
                                        lines_.number()};
        if (property.name.empty()) throw StrangeDesigner(lines_.number());
        add(property);
        auto& block = blocks_[open_.back()];
        if (!block.index && base::equalIgnoringCase(property.name, "Index"))
            block.index = numberOf(property.value);
    }

    void add(DesignerProperty property) {
        property.end = lines_.position();
        auto& block = blocks_[open_.back()];
        block.properties.push_back(property);
        if (!hasInner_[open_.back()]) block.headProperties = block.properties.size();
    }

    std::string_view bytes_;
    base::LineReader lines_;
    std::vector<DesignerBlock> blocks_;
    std::vector<std::size_t> open_; // those that have not ended, the outermost first
    std::vector<bool> hasInner_;    // of each block
};

} // namespace

StrangeDesigner::StrangeDesigner(std::uint32_t line)
    : std::runtime_error(line == 0 ? "there is no designer section"
                                   : "no line of a designer section looks like this"),
      line_(line) {}

std::size_t DesignerBlock::count(std::string_view property) const {
    return static_cast<std::size_t>(
        std::count_if(properties.begin(), properties.end(), [&](const DesignerProperty& one) {
            return base::equalIgnoringCase(one.name, property);
        }));
}

const DesignerProperty* DesignerBlock::find(std::string_view property) const {
    const auto found = std::find_if(properties.begin(), properties.end(), [&](const DesignerProperty& one) {
        return base::equalIgnoringCase(one.name, property);
    });
    return found == properties.end() ? nullptr : &*found;
}

std::vector<DesignerBlock> readDesignerSection(const ModuleFile& file) {
    return Reader(file).read();
}

std::optional<std::int32_t> numberOf(std::string_view value) {
    value = value.substr(0, std::min(value.find_first_of(" \t'"), value.size()));
    int base = 10;
    if (base::startsWithIgnoringCase(value, "&H")) {
        base = 16;
        value.remove_prefix(2);
        if (!value.empty() && value.back() == '&') value.remove_suffix(1);
        if (!value.empty() && value.front() == '-') return std::nullopt;
    }
    const auto read = [&](auto& number) {
        const char* const end = value.data() + value.size();
        const auto [rest, error] = std::from_chars(value.data(), end, number, base);
        return error == std::errc() && rest == end;
    };
    if (base == 16) {
        std::uint32_t bits = 0;
        if (!read(bits)) return std::nullopt;
        return static_cast<std::int32_t>(bits);
    }
    std::int32_t number = 0;
    if (!read(number)) return std::nullopt;
    return number;
}

std::size_t containersProperties(const DesignerBlock& block) {
    if (isBuiltIn(block.className)) return 0;
    std::string last;
    bool hasHeight = false;
    for (std::size_t i = 0; i < block.headProperties; ++i) {
        auto name = base::upper(block.properties[i].name);
        if (name.front() == '_' || name < last) return 0;
        hasHeight = hasHeight || name == "HEIGHT";
        if (name == "WIDTH") return hasHeight ? i + 1 : 0;
        last = std::move(name);
    }
    return 0;
}

bool isBuiltIn(std::string_view className) {
    return base::startsWithIgnoringCase(className, "VB.");
}

} // namespace corvelle::workspace
