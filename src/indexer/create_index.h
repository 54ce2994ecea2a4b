#pragma once

#include "ide/vb_project.h"
#include "indexer/exclude_list.h"
#include "indexer/index_options.h"
#include "indexer/index_output.h"
#include "indexer/indexer_observer.h"
#include "indexer/report.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace corvelle::indexer {

/// What an index is made from and where it goes.
struct IndexJob {
    std::shared_ptr<ide::VBProject> project;
    std::vector<std::shared_ptr<ide::VBComponent>> SelectedDesigners;
    ExcludeList excludeList;
    IndexOptions options;
    std::string headerPath;
    std::string configurationPath;
    std::string modulePath;
    std::string txtModule; ///< the mapping module's name as it was typed
    OpenIndexOutput openOutput = openInPlace;
    /// Whether designers and controls are left out whose names are no names of the language, which would
    /// break the lines of an index and of code apart. An IDE has none, files may have any.
    bool leavesOutWhatIsNoName = false;
};

/// How the Create command ended.
enum class IndexOutcome {
    Created,
    ModuleRefused, ///< no file was opened: the module's name is not valid, or the IDE did not take it
    Stopped,       ///< by the observer; the designers before that are whole
    Failed,        ///< lines already written stay in the files; an added module stays in the project
};

/// How many lines the mapping module of the job will hold, if it is new and empty and nothing is left out.
std::int64_t mappingModuleLines(const IndexJob& job);

/// The Create command: gives the controls of the selected designers names and numbers, and writes the header
/// file, the configuration file and, where the options ask for it, the mapping module. What it did is
/// appended to the report; what went wrong is shown.
IndexOutcome createIndex(const IndexJob& job, Report& report, IndexerObserver& observer);

} // namespace corvelle::indexer
