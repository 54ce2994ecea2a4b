#pragma once

#include "indexer/analysis_captions.h"
#include "indexer/message.h"

#include <string_view>

namespace corvelle::indexer {

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

} // namespace corvelle::indexer
