#pragma once

#include "cli/index_outputs.h"
#include "cli/index_settings.h"
#include "ide/workspace/project.h"
#include "indexer/create_index.h"
#include "indexer/stable/module_code.h"
#include "indexer/stable/numbering.h"
#include "indexer/stable/sections.h"

#include <memory>
#include <string>
#include <vector>

namespace corvelle::cli {

/// An index of numbers that stay: it takes up what earlier files say, and puts the new ones among the others
/// of a run.
class StableIndex {
  public:
    /// The job has the chosen designers, the options and the exclusion list.
    StableIndex(const IndexSettings& settings, const indexer::IndexJob& job,
                const workspace::Project& project, IndexFiles& files, indexer::IndexerObserver& observer)
        : settings_(settings), job_(job), project_(project), files_(files), observer_(observer) {}

    /// Numbers the project's controls. Why it cannot; empty if it could.
    std::string number();
    /// A word for the user where earlier files are not taken up; empty otherwise.
    const std::string& note() const { return note_; }

    /// The names and numbers, and what the header is to remember. Whoever changes a designer's file notes it
    /// in the memory before the files are put.
    const indexer::stable::Numbering& numbering() const { return numbered_.numbering; }
    indexer::stable::Memory& memory() { return numbered_.memory; }

    void putHeaderAndConfiguration();
    void putTexts();
    /// The mapping module's code; none of the options wants it if they are not set.
    indexer::stable::ModuleCode moduleCode() const;

    /// What the run has found, in sections.
    const std::vector<indexer::stable::Section>& sections() const { return sections_; }
    void add(std::vector<indexer::stable::Section> sections);
    /// Whether a control was offered as a renamed one.
    bool offersRenames() const { return !numbered_.changes.offered.empty(); }

  private:
    indexer::stable::FoundProject findControls() const;
    indexer::stable::FoundDesigner findControls(workspace::Component& component, bool isChosen) const;
    bool isChosen(std::string_view className) const;

    const IndexSettings& settings_;
    const indexer::IndexJob& job_;
    const workspace::Project& project_;
    IndexFiles& files_;
    indexer::IndexerObserver& observer_;
    indexer::stable::NumberedProject numbered_;
    std::vector<indexer::stable::Section> sections_;
    std::string note_;
};

} // namespace corvelle::cli
