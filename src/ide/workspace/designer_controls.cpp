#include "ide/workspace/designer_controls.h"

#include "base/line_reader.h"
#include "base/text.h"
#include "ide/workspace/designer_lines.h"
#include "ide/workspace/designer_section.h"

namespace corvelle::workspace {

namespace {

// Whether the line is of the property; then the value is what stands behind the equals sign.
bool takeValue(std::string_view line, std::string_view property, std::string_view& value) {
    if (!takeWord(line, property, value) || value.empty() || value[0] != '=') return false;
    value = base::withoutLeadingBlanks(value.substr(1));
    return true;
}

class SectionReader {
  public:
    explicit SectionReader(DesignerControls& section) : section_(section) {}

    // False behind the section's last line. Only a line that begins with one of a few letters says anything.
    bool readLine(std::string_view line, std::uint32_t number) {
        line = base::withoutLeadingBlanks(line);
        if (line.size() < 3) return true;
        const char first = base::lower(line[0]);
        switch (first) {
        case 'b':
            readBegin(line, number);
            break;
        case 'e':
            return readEnd(line);
        case 'c':
        case 'h':
        case 'i':
        case 'w':
            if (!open_.empty() && depthOfProperties_ == 0) readProperty(first, line);
            break;
        default:
            break;
        }
        return true;
    }

  private:
    // A block without a name is no control, but has an end.
    static constexpr std::size_t ofDesigner = DesignerControl::noContainer, ofNothing = ofDesigner - 1;

    void readBegin(std::string_view line, std::uint32_t number) {
        std::string_view rest;
        if (takeWord(line, "BeginProperty", rest)) {
            if (!open_.empty() && (rest.empty() || rest[0] != '=')) ++depthOfProperties_;
        } else if (isBeginLine(line, rest)) {
            beginBlock(rest, number);
        }
    }

    void beginBlock(std::string_view rest, std::uint32_t number) {
        DesignerControl control;
        control.className = nextWord(rest);
        control.name = nextWord(rest);
        control.line = number;
        const auto point = control.className.find('.');
        if (point != std::string_view::npos) {
            control.library = control.className.substr(0, point);
            control.className.remove_prefix(point + 1);
        }
        if (open_.empty()) {
            section_.designer = control;
            open_.push_back(ofDesigner);
        } else if (control.name.empty()) {
            open_.push_back(ofNothing);
        } else {
            if (open_.back() != ofNothing) control.container = open_.back();
            open_.push_back(section_.controls.size());
            section_.controls.push_back(control);
        }
    }

    bool readEnd(std::string_view line) {
        std::string_view rest;
        if (takeWord(line, "EndProperty", rest)) {
            if (depthOfProperties_ > 0 && rest.empty()) --depthOfProperties_;
        } else if (isEndLine(line) && !open_.empty()) {
            open_.pop_back();
            depthOfProperties_ = 0; // a block's end ends whatever was begun inside it
            return !open_.empty();
        }
        return true;
    }

    // Each name is looked for only where its first letter stands.
    void readProperty(char first, std::string_view line) {
        if (open_.back() == ofNothing) return;
        auto& control = open_.back() == ofDesigner ? section_.designer : section_.controls[open_.back()];
        std::string_view value;
        if (first == 'c') {
            if (takeValue(line, "Caption", value)) control.caption = value;
        } else if (first == 'h') {
            if (takeValue(line, "HelpContextID", value)) control.helpContextID = numberOf(value).value_or(0);
        } else if (first == 'i') {
            if (takeValue(line, "Index", value)) takeIndex(value, control);
        } else if (takeValue(line, "Width", value)) {
            control.hasWidth = true;
        } else if (takeValue(line, "WhatsThisHelpID", value)) {
            control.whatsThisHelpID = numberOf(value).value_or(0);
        }
    }

    static void takeIndex(std::string_view value, DesignerControl& control) {
        const auto index = numberOf(value);
        if (index && *index >= 0) control.index = index;
    }

    DesignerControls& section_;
    std::vector<std::size_t> open_; // the blocks around, outermost first
    std::size_t depthOfProperties_ = 0;
};

} // namespace

DesignerControls readDesignerControls(std::string_view header) {
    DesignerControls section;
    SectionReader reader(section);
    for (auto lines = base::linesOf(header); lines.next();) {
        if (!reader.readLine(lines.line(), lines.number())) break;
    }
    return section;
}

} // namespace corvelle::workspace
