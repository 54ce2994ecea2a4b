#pragma once

#include "ide/component.h"
#include "indexer/index_options.h"
#include "indexer/message.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace corvelle::indexer {

/// What the labels of the analysis read, named after them.
struct AnalysisCaptions {
    std::string lblProj, LblForms, lblMsFrm, lblActive, LblProp, LblDOB, LblDsr, lblMDI, lblControls,
        lblPrjStat;

    /// In the order of the report's head.
    std::array<const std::string*, 10> inReportOrder() const {
        return {&lblProj, &lblPrjStat, &lblMDI,   &LblForms, &lblActive,
                &LblProp, &LblDOB,     &lblMsFrm, &LblDsr,   &lblControls};
    }
};

class Report;

/// What the analysis and the generation tell their owner, and where they let it serve other work. Does
/// nothing unless overridden.
class IndexerObserver {
  public:
    virtual ~IndexerObserver() = default;

    /// Yields to the window system.
    virtual void doEvents() {}
    /// Whether the work is to end; asked after each yield.
    virtual bool isStopped() { return false; }
    /// A caption of the analysis has changed.
    virtual void captionsChanged(const AnalysisCaptions&) {}
    /// Status texts of the generation.
    virtual void setLblProc(std::string_view) {}
    virtual void setLblProcModule(std::string_view) {}
    /// Lines have been appended to the report.
    virtual void reportChanged(const Report&) {}
    /// The busy indicator.
    virtual void StartNow() {}
    virtual void stopNow() {}
    /// A designer or, where a control is named, one of its controls is left out of the index: what it is
    /// called is no name.
    virtual void leftOut(std::string_view /*designer*/, std::string_view /*control*/) {}
    /// A message box with an OK button only.
    virtual void msgBox(const Message&) {}
};

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
