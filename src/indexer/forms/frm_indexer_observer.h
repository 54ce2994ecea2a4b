#pragma once

#include "forms/desktop.h"
#include "indexer/analysis.h"
#include "indexer/forms/frm_indexer.h"

#include <memory>

namespace corvelle::indexer {

/// A command of the wizard that yields. It is stopped when the window has gone, or the program quits.
class FrmIndexer::Observer : public IndexerObserver {
  public:
    explicit Observer(FrmIndexer& form)
        : form_(form), alive_(form.shared_from_this()), session_(form.session_) {}

    void doEvents() override {
        if (!isStopped()) form_.desktop().doEvents();
    }
    bool isStopped() override { return !hasWindow() || form_.desktop().isQuitting(); }

    /// Whether the window is still the one that the command was given in. Otherwise no control may be used:
    /// that would load another window.
    bool hasWindow() const { return form_.session_ == session_; }

  protected:
    FrmIndexer& form_;
    Session& session() const { return *session_; }

  private:
    std::shared_ptr<Form> alive_;
    std::shared_ptr<Session> session_;
};

} // namespace corvelle::indexer
