#pragma once

#include "ide/component.h"
#include "indexer/analysis.h"
#include "indexer/index_options.h"
#include "indexer/report.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::indexer {

/// A file that the lines of an index go into. Both functions throw base::FileError.
class IndexOutput {
  public:
    virtual ~IndexOutput() = default;

    virtual void write(std::string_view bytes) = 0;
    virtual void close() = 0;
};

/// Opens the file of that path to be written anew; throws base::FileError.
using OpenIndexOutput = std::function<std::unique_ptr<IndexOutput>(const std::string& path)>;

/// Opens it in its place: line by line stands there what has been written so far.
std::unique_ptr<IndexOutput> openInPlace(const std::string& path);

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
