#pragma once

#include "base/line_buffer.h"
#include "ide/workspace/module_file.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace corvelle::workspace {

/// A module's file with its code lines formatted: the hidden bytes in their places, the kept code lines with
/// their spaces and the file's line end. Nothing is composed before it is asked for.
class FormattedFile {
  public:
    /// How the code lines end: all in the file's line end, the last one too, or each as it did.
    enum class LineEnds { OfFile, OfLine };

    /// `kept` tells for each code line whether the buffer holds it. Refers to its arguments.
    FormattedFile(const ModuleFile& file, const base::LineBuffer& buffer, const std::vector<bool>& kept,
                  LineEnds ends = LineEnds::OfFile)
        : file_(file), buffer_(buffer), kept_(kept), ends_(ends) {}

    /// Visits the file from its first byte to its last: visitor.hidden(bytes) for hidden lines,
    /// visitor.kept(codeLine, bufferIndex) and visitor.dropped(codeLine) for code lines.
    template <class Visitor>
    void visit(Visitor&& visitor) const;

    /// Whether the composed file differs from the file as it is.
    bool changed() const;

    /// Whether that code line, kept as that line of the buffer, is the same bytes as before.
    bool same(std::uint32_t codeLine, std::int32_t bufferIndex) const;

    /// Writes the composed file; `out` has write(std::string_view).
    template <class Out>
    void write(Out& out) const;

    /// Writes a code line as that line of the buffer, with its spaces and its line end.
    template <class Out>
    void writeLine(Out& out, std::uint32_t codeLine, std::int32_t bufferIndex) const;

    /// The line end that the file's last line lacks when it is a hidden one; else empty.
    std::string_view missingLineEnd() const;

    const ModuleFile& file() const { return file_; }

  private:
    const ModuleFile& file_;
    const base::LineBuffer& buffer_;
    std::string_view endOf(std::uint32_t codeLine) const {
        return ends_ == LineEnds::OfFile ? file_.newLine() : file_.codeLineEnd(codeLine);
    }

    const std::vector<bool>& kept_;
    LineEnds ends_;
};

template <class Visitor>
void FormattedFile::visit(Visitor&& visitor) const {
    if (!file_.header().empty()) visitor.hidden(file_.header());
    auto run = file_.hiddenRuns().begin();
    std::int32_t bufferIndex = 0;
    for (std::uint32_t line = 0;; ++line) {
        for (; run != file_.hiddenRuns().end() && run->codeLinesBefore == line; ++run) {
            visitor.hidden(file_.hidden(*run));
        }
        if (line == file_.codeLineCount()) break;
        if (kept_[line]) {
            visitor.kept(line, bufferIndex++);
        } else {
            visitor.dropped(line);
        }
    }
}

template <class Out>
void FormattedFile::writeLine(Out& out, std::uint32_t codeLine, std::int32_t bufferIndex) const {
    static constexpr std::string_view blanks =
        "                                                                ";
    auto spaces = static_cast<std::size_t>(buffer_.spaces(bufferIndex));
    for (; spaces > blanks.size(); spaces -= blanks.size()) out.write(blanks);
    out.write(blanks.substr(0, spaces));
    out.write(buffer_.text(bufferIndex));
    out.write(endOf(codeLine));
}

template <class Out>
void FormattedFile::write(Out& out) const {
    struct Writer {
        const FormattedFile& formatted;
        Out& out;
        void hidden(std::string_view bytes) { out.write(bytes); }
        void kept(std::uint32_t codeLine, std::int32_t bufferIndex) {
            formatted.writeLine(out, codeLine, bufferIndex);
        }
        void dropped(std::uint32_t) {}
    };
    visit(Writer{*this, out});
    out.write(missingLineEnd());
}

} // namespace corvelle::workspace
