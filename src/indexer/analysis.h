#pragma once

#include "ide/vb_project.h"
#include "indexer/analysis_captions.h"
#include "indexer/index_options.h"
#include "indexer/indexer_observer.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace corvelle::indexer {

/// The analysis of a project: its counts, and the components that an index is to be made for.
class Analysis {
  public:
    /// Counts the project's designers and controls and selects the designers by the options. Errors are
    /// ignored: what fails counts nothing, and a caption that needs it stays as it was. False if the observer
    /// stopped it, which leaves the number of controls unsaid.
    bool analyseProject(const std::shared_ptr<ide::VBProject>& project, const IndexOptions& options,
                        IndexerObserver& observer);

    const AnalysisCaptions& captions() const { return captions_; }
    /// In the order of the project.
    const std::vector<std::shared_ptr<ide::VBComponent>>& SelectedDesigners() const { return selected_; }
    /// Controls of all selected designers.
    std::int32_t TotalControls() const { return totalControls_; }
    /// Whether no error was ignored on the way.
    bool isComplete() const { return complete_; }

  private:
    /// Ignores errors, and notes that there was one.
    template <class Statement>
    void attempt(const Statement& statement);
    void ResetCounts();
    void takeComponent(const std::shared_ptr<ide::VBComponent>& component, const IndexOptions& options);
    void countControls(ide::VBComponent& component, IndexerObserver& observer);
    void setCountCaptions();

    // As wide as the counters are meant to be: a component too many is an overflow, which is ignored.
    std::int16_t forms_ = 0, userControls_ = 0, propertyPages_ = 0, documents_ = 0, designers_ = 0;
    std::uint8_t mdiForms_ = 0;
    std::int32_t totalControls_ = 0;
    bool complete_ = false;
    std::vector<std::shared_ptr<ide::VBComponent>> selected_;
    AnalysisCaptions captions_;
};

} // namespace corvelle::indexer
