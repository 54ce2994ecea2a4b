// Modules that are grown as trees of blocks, so that it is known where each line must stand whatever the
// layout reads: written with any blanks they come out at their tree's columns, without a fault.
//
// Input: bytes that choose what grows.

#include "formatter/structured/structured.h"
#include "require.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

using namespace corvelle::formatter::structured;

namespace {

constexpr std::size_t mostLines = 400;

class Tree {
  public:
    Tree(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {
        while (at_ < size_ && lines_.size() < mostLines) declaration();
    }

    // The lines where they belong, and with blanks that say nothing.
    std::string right() const {
        return text([](const Line& line) { return line.level * 4; });
    }
    std::string wrong() const {
        return text([](const Line& line) { return line.wrong; });
    }

  private:
    struct Line {
        std::string text;
        std::size_t level, wrong;
    };

    unsigned next(unsigned count) { return at_ < size_ ? data_[at_++] % count : 0; }

    void add(std::size_t level, std::string text) {
        static constexpr std::array<std::string_view, 6> behind{
            "", "", "", " 'If a Then", ": x = \"'\": y = [Then]", " ' Do"};
        // Only a statement can have one behind it, which a one-line block would take in.
        const bool plain = text.front() == 'z';
        if (const unsigned choice = next(6); choice < 4 || plain) text += behind[choice];
        lines_.push_back({std::move(text), level, next(13)});
    }

    void declaration() {
        switch (next(5)) {
        case 0:
            lines_.push_back({"Private Declare Sub z Lib \"z\" ()", 0, next(13)});
            break;
        case 1:
            add(0, "Private Type T");
            for (unsigned i = next(4); i > 0; --i) {
                static constexpr std::array<std::string_view, 5> members{
                    "If As Long", "End As Long", "Sub As Long", "Select(3) As Long", "Type As Long"};
                add(1, std::string(members[next(5)]));
            }
            add(0, "End Type");
            break;
        default: {
            static constexpr std::array<std::string_view, 4> headers{
                "Sub S()", "Public Static Function F() As Long", "Friend Property Get P()", "Global Sub G()"};
            static constexpr std::array<std::string_view, 4> ends{"End Sub", "End Function", "End Property",
                                                                  "End Sub"};
            const unsigned kind = next(4);
            add(0, std::string(headers[kind]));
            statements(1);
            add(0, std::string(ends[kind]));
        }
        }
    }

    void statements(std::size_t level) {
        for (unsigned i = next(4); i > 0 && lines_.size() < mostLines; --i) statement(level);
    }

    void block(std::size_t level, const char* opener, const char* closer) {
        add(level, opener);
        statements(level + 1);
        add(level, closer);
    }

    void statement(std::size_t level) {
        if (level > 40) return;
        switch (next(14)) {
        case 0:
            return block(level, "For i = 1 To 3", "Next");
        case 1:
            return block(level, "Do While a", "Loop");
        case 2:
            return block(level, "While a.Then", "Wend");
        case 3:
            return block(level, "With a!Next", "End With");
        case 4:
            add(level, "If a.Then = 1 Then");
            statements(level + 1);
            for (unsigned i = next(3); i > 0; --i) {
                add(level, next(2) == 0 ? "ElseIf [If] Then" : "ElseIf b! Then z");
                statements(level + 1);
            }
            if (next(2) == 0) {
                add(level, "Else");
                statements(level + 1);
            }
            return add(level, "End If");
        case 5:
            add(level, "Select Case a");
            for (unsigned i = next(3); i > 0; --i) {
                add(level + 1, i == 1 ? "Case Else" : "Case \"Case\", 2");
                statements(level + 2);
            }
            return add(level, "End Select");
        case 6:
            return add(level, "If a Then b Else If c Then Do: d: Loop");
        case 7:
            add(level, "For i = 1 To 3: For j = 1 To 3");
            statements(level + 1);
            return add(level, next(2) == 0 ? "Next j, i" : "Next: Next");
        case 8:
            lines_.push_back({"Here: " + std::string(next(2) == 0 ? "z" : ""), 0, next(13)});
            return;
        case 9: {
            lines_.push_back({"#If a Then", 0, next(13)});
            statements(level);
            if (next(2) == 0) lines_.push_back({"#Else", 0, next(13)});
            statements(level);
            lines_.push_back({"#End If", 0, next(13)});
            return;
        }
        case 10: {
            lines_.push_back({"#If a Then", 0, next(13)});
            add(level, "With a");
            lines_.push_back({"#Else", 0, next(13)});
            add(level, "Do");
            lines_.push_back({"#End If", 0, next(13)});
            statements(level + 1);
            lines_.push_back({"#If a Then", 0, next(13)});
            add(level, "End With");
            lines_.push_back({"#Else", 0, next(13)});
            add(level, "Loop");
            lines_.push_back({"#End If", 0, next(13)});
            return;
        }
        case 11:
            return add(level, "Print #1, a: Close #1");
        case 12:
            return add(level, "z = #1/2/2000 3:04:05 PM#");
        default:
            return add(level, "z 1");
        }
    }

    template <class Columns>
    std::string text(Columns columns) const {
        std::string result;
        for (const Line& line : lines_) result.append(columns(line), ' ').append(line.text) += '\n';
        return result;
    }

    const std::uint8_t* data_;
    std::size_t size_, at_ = 0;
    std::vector<Line> lines_;
};

std::vector<std::string_view> linesOf(std::string_view text) {
    std::vector<std::string_view> lines;
    while (!text.empty()) {
        const auto end = text.find('\n');
        lines.push_back(text.substr(0, end));
        text.remove_prefix(end + 1);
    }
    return lines;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Tree tree(data, size);
    const std::string right = tree.right(), wrong = tree.wrong();
    StructuredOptions options;
    StyleOptions& style = options.style;
    style.tabs = false;
    style.unit = 4;
    style.procedure = style.declarations = style.onError = style.type = style.caseBody = style.withBody =
        Body::Indent;
    style.directiveBody = Body::Flush;
    style.directive = Place::Margin;
    const auto lines = linesOf(wrong);
    const auto result = formatStructured(lines, options);
    std::string made;
    for (std::size_t i = 0; i < lines.size(); ++i) {
        result.lines[i].appendTo(made, lines[i], result.style);
        made += '\n';
    }
    if (made != right)
        std::fprintf(stderr, "from\n%sto\n%sand not\n%s", wrong.c_str(), made.c_str(), right.c_str());
    require(result.faults.empty(), "no fault in balanced code");
    require(made == right, "each line in its tree's column");
    return 0;
}
