#include "base/run_time_error.h"
#include "ide/required.h"
#include "indexer/forms/frm_indexer_observer.h"

// Stage 1: the options, and the analysis of the project.
namespace corvelle::indexer {

using base::ignoringErrors;

/// Shows what the analysis finds out, unless a later one has taken its place.
class FrmIndexer::Analysing : public Observer {
  public:
    Analysing(FrmIndexer& form, const std::shared_ptr<Analysis>& analysis)
        : Observer(form), analysis_(analysis) {}

    bool isStopped() override { return Observer::isStopped() || session().analysis != analysis_; }
    void captionsChanged(const AnalysisCaptions& captions) override {
        if (!isStopped()) form_.setCaptions(captions);
    }

  private:
    std::shared_ptr<Analysis> analysis_;
};

void FrmIndexer::analyseProject() {
    const auto analysis = std::make_shared<Analysis>();
    session_->analysis = analysis;
    Analysing observer(*this, analysis);
    std::shared_ptr<ide::VBProject> project;
    ignoringErrors([&] { project = activeProject(); });
    if (!analysis->analyseProject(project, options(), observer)) return;
    session_->analysed = true;
    enableNext();
    AddInfo_Rpt();
}

namespace {

// The captions, and the labels of the same names.
template <class Action>
void forEachCaption(FrmIndexer& form, AnalysisCaptions& captions, const Action& action) {
    action(captions.lblProj, form.lblProj);
    action(captions.LblForms, form.LblForms);
    action(captions.lblMsFrm, form.lblMsFrm);
    action(captions.lblActive, form.lblActive);
    action(captions.LblProp, form.LblProp);
    action(captions.LblDOB, form.LblDOB);
    action(captions.LblDsr, form.LblDsr);
    action(captions.lblMDI, form.lblMDI);
    action(captions.lblControls, form.lblControls);
    action(captions.lblPrjStat, form.lblPrjStat);
}

// The options, and the check boxes of the same names.
template <class Action>
void forEachOption(FrmIndexer& form, IndexOptions& options, const Action& action) {
    action(options.ChkFrm, form.ChkFrm);
    action(options.ChkMDI, form.ChkMDI);
    action(options.ChkDsr, form.ChkDsr);
    action(options.ChkDOB, form.ChkDOB);
    action(options.ChkPG, form.ChkPG);
    action(options.ChkActiveXCtl, form.ChkActiveXCtl);
    action(options.ChkExclLbl, form.ChkExclLbl);
    action(options.ChKExcFrame, form.ChKExcFrame);
    action(options.ChkExcShape, form.ChkExcShape);
    action(options.ChkExcMenu, form.ChkExcMenu);
    action(options.ChkExcLine, form.ChkExcLine);
    action(options.ChkExcToolbar, form.ChkExcToolbar);
    action(options.ChkIDMap, form.ChkIDMap);
    action(options.ChkAutoLoad, form.ChkAutoLoad);
}

} // namespace

void FrmIndexer::setCaptions(AnalysisCaptions captions) {
    forEachCaption(*this, captions, [](const std::string& caption, forms::Label& label) {
        if (!caption.empty()) label.setCaption(caption); // one that was not found out stays
    });
}

AnalysisCaptions FrmIndexer::captions() {
    AnalysisCaptions result;
    forEachCaption(*this, result,
                   [](std::string& caption, const forms::Label& label) { caption = label.caption(); });
    return result;
}

IndexOptions FrmIndexer::options() {
    IndexOptions result;
    forEachOption(*this, result, [](CheckValue& value, const forms::CheckBox& box) { value = box.value(); });
    return result;
}

void FrmIndexer::presetOptions() {
    const auto session = session_;
    auto preset = options();
    ignoringErrors([&] { SetDefOption(ide::required(activeProject()), preset); });
    if (session != session_) return;
    forEachOption(*this, preset, [](CheckValue value, forms::CheckBox& box) { box.setValue(value); });
}

} // namespace corvelle::indexer
