#pragma once

#include "base/line_reader.h"
#include "base/text_lines.h"
#include "ide/component_type.h"
#include "ide/workspace/module_header.h"

#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::workspace {

/// A designer section was begun and the file ends before its End.
class HeaderNeverEnds : public std::runtime_error {
  public:
    explicit HeaderNeverEnds(std::uint32_t line);
    /// 1-based line of the Begin that is never closed.
    std::uint32_t line() const { return line_; }

  private:
    std::uint32_t line_;
};

/// A module's file taken apart into what the IDE shows (the code lines) and what it hides: a byte order
/// mark, the VERSION line, Object lines, the designer section, the Attribute lines at the head, and the
/// Attribute lines of members inside the code. Every byte of the file belongs to exactly one of the two.
///
/// A line ends at LF; one CR before it belongs to the line end; a CR elsewhere is an ordinary character.
class ModuleFile {
  public:
    /// Hidden lines inside the code that follow one another.
    struct HiddenRun {
        std::uint32_t codeLinesBefore;    ///< how many code lines stand before the run
        std::uint32_t lines;              ///< how many lines it has
        std::uint32_t begin, end;         ///< its bytes, line ends included
        std::uint32_t hiddenLinesThrough; ///< lines of this run and all runs before it
    };

    /// Takes the bytes of a module file apart. The type says what kind of header may be expected; a form
    /// whose outermost block is an MDI form becomes VBMDIForm. Throws HeaderNeverEnds, and std::length_error
    /// for more than 4 GiB - 1 bytes.
    ModuleFile(std::string bytes, ide::ComponentType type);

    const std::string& bytes() const { return bytes_; }
    ide::ComponentType type() const { return type_; }
    /// The `VB_Name` attribute, else the outermost designer block's name, else empty.
    const std::string& name() const { return name_; }
    /// Whether the name is the attribute's.
    bool hasNameAttribute() const { return hasNameAttribute_; }

    /// Whether there is a designer section, and its controls: the blocks inside the outermost one, in the
    /// order of the file.
    bool hasDesigner() const { return hasDesigner_; }
    std::uint32_t controlCount() const { return static_cast<std::uint32_t>(controls_.size()); }
    /// Control 0 to controlCount() - 1: its class without the library, and its name.
    std::string_view controlClass(std::uint32_t index) const;
    std::string_view controlName(std::uint32_t index) const;

    std::uint32_t codeLineCount() const { return static_cast<std::uint32_t>(lines_.size()); }
    /// The code lines, without their line ends. They refer to the file where it is now.
    base::TextLines codeLines() const { return {bytes_.data(), lines_}; }
    /// Code line 0 to codeLineCount() - 1, without its line end.
    std::string_view codeLine(std::uint32_t index) const {
        const auto& line = lines_[index];
        return {bytes_.data() + line.begin, line.end - line.begin};
    }
    /// The line end of that code line as it is in the file: CR LF, LF, or empty (last line only).
    std::string_view codeLineEnd(std::uint32_t index) const {
        const auto end = lines_[index].end;
        if (end == bytes_.size()) return {};
        return bytes_[end] == '\n' ? "\n" : "\r\n";
    }
    /// The 1-based number in the file of that code line.
    std::uint32_t fileLine(std::uint32_t index) const;

    /// Everything before the first line after the head's attributes, the byte order mark included.
    std::string_view header() const { return std::string_view(bytes_).substr(0, headerEnd_); }
    std::uint32_t headerLines() const { return headerLines_; }
    const std::vector<HiddenRun>& hiddenRuns() const { return hidden_; }
    /// The bytes of a hidden run.
    std::string_view hidden(const HiddenRun& run) const;

    /// The line end that code lines are written with: LF if every line of the file ends in LF alone, else CR
    /// LF.
    std::string_view newLine() const { return newLine_; }

  private:
    void readCode(base::LineReader lines);

    std::string bytes_;
    ide::ComponentType type_;
    std::string name_;
    bool hasNameAttribute_ = false;
    bool hasDesigner_ = false;
    std::vector<ControlBlock> controls_;
    std::uint32_t headerEnd_ = 0;
    std::uint32_t headerLines_ = 0;
    std::vector<base::TextLines::Place> lines_; // without their ends
    std::vector<HiddenRun> hidden_;
    std::string_view newLine_ = "\r\n";
};

} // namespace corvelle::workspace
