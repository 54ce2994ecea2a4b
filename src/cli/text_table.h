#pragma once

#include "cli/edited_file.h"
#include "cli/text_settings.h"
#include "indexer/project_info.h"
#include "indexer/stable/memory.h"

#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace corvelle::cli {

/// The work of `corvelle text` on all texts of an index at once.
class TextTable {
  public:
    /// The files have been read; what is to be written of them the caller has locked.
    TextTable(const TextSettings& settings, const indexer::ProjectInfo& info, EditedFile& configuration,
              EditedFile& texts)
        : settings_(settings), info_(info), configuration_(configuration), texts_(texts) {}

    /// Throws Refusal.
    ExitStatus run();

  private:
    using Control = indexer::stable::RememberedControl;
    struct Row;

    void readIndex();
    Row rowOf(const Control& control) const;
    std::vector<std::string> leftOver() const;

    void listMissing() const;
    void listLeftOver() const;
    void prune();
    void exportTable();
    ExitStatus importTable();
    std::string place(const std::map<std::string, std::string>& cells,
                      std::map<std::string, std::string>& texts) const;
    void saveTexts();

    const TextSettings& settings_;
    const indexer::ProjectInfo& info_;
    EditedFile &configuration_, &texts_;
    indexer::stable::Memory memory_;
    std::unordered_map<std::string, std::string> textOf_;                 // by topic
    std::unordered_map<std::string, std::vector<const Control*>> ofName_; // by designer and name
    std::vector<std::string> captions_;                                   // of the memory's controls
};

} // namespace corvelle::cli
