#pragma once

#include "ide/workspace/block_list.h"
#include "ide/workspace/module_file.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace corvelle::workspace {

/// A module's file whose code lines can be deleted and inserted.
class EditedModule {
  public:
    explicit EditedModule(ModuleFile file) : file_(std::move(file)) {}

    const ModuleFile& file() const { return file_; }
    bool isEdited() const { return edited_; }

    std::uint32_t lineCount() const {
        return edited_ ? static_cast<std::uint32_t>(lines_.size()) : file_.codeLineCount();
    }
    /// Lines are counted from 0 and must be there.
    std::string_view line(std::uint32_t index) const {
        return edited_ ? std::string_view(lines_[index].text) : file_.codeLine(index);
    }
    void deleteLines(std::uint32_t start, std::uint32_t count);
    /// Inserts one line, which holds no LF, before the given one.
    void insertLine(std::uint32_t index, std::string_view text);

    /// The whole file with the lines as they are now. Untouched lines keep every byte; new ones end as the
    /// file's lines do. A hidden line that belongs to a member stands behind the member's declaration, or is
    /// gone with it; any other one stays behind the line it stood behind, as long as there is one.
    std::string bytes() const;

  private:
    static constexpr std::uint32_t inserted = 0xFFFFFFFF;

    struct Line {
        std::string text;
        std::uint32_t origin; // the file's code line that it is, or `inserted`
    };

    void beginEditing();

    ModuleFile file_;
    bool edited_ = false;
    BlockList<Line> lines_; // empty before the first edit
};

} // namespace corvelle::workspace
