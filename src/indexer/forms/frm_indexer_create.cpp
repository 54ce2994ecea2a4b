#include "base/run_time_error.h"
#include "ide/required.h"
#include "indexer/create_index.h"
#include "indexer/forms/frm_indexer_observer.h"
#include "indexer/mapping_module.h"
#include "indexer/replaceable.h"

#include <array>
#include <string>
#include <vector>

// Stage 2: the files, the mapping module's name, and the creation of the index.
namespace corvelle::indexer {

using base::ignoringErrors;
using ide::required;

void FrmIndexer::Command2_Click(std::size_t index) {
    const std::array<const char*, 4> filters{"Header file(*.h)|*.h", "Config file(*.hcnf)|*.hcnf",
                                             "Text file(*.txt)|*.txt", "VB Module(*.bas)|*.bas"};
    const auto path = chooseFile(filters.at(index));
    if (path.empty()) return;
    Text1(index).setText(path);
    if (session_->stage != Stage::TxtPopup || Text1(2).text().empty()) return;
    const bool loaded = ignoringErrors([this] { loadChosenTextFile(); });
    if (!loaded) Text1(2).setText(""); // nothing may be saved over texts that were not taken
}

void FrmIndexer::Text1_Change() {
    const auto filled = [this](std::size_t index) { return !Text1(index).text().empty(); };
    switch (session_->stage) {
    case Stage::Index: {
        const bool module = ChkIDMap.value() == 1;
        CmdProc.setEnabled(filled(0) && filled(1) && (!module || (filled(3) && !txtModule.text().empty())));
        break;
    }
    case Stage::TxtPopup:
        CmdProc.setEnabled(filled(2));
        break;
    default:
        break;
    }
}

void FrmIndexer::txtModule_LostFocus() {
    const auto session = session_;
    auto name = txtModule.text();
    validModule(name);
    if (session == session_) txtModule.setText(name);
}

bool FrmIndexer::validModule(std::string& mName) {
    const bool valid = indexer::validModule(mName, required(activeProject()));
    if (!valid) msgBox(invalidModuleName(mName));
    return valid;
}

/// Shows how far the creation is.
class FrmIndexer::Creating : public Observer {
  public:
    explicit Creating(FrmIndexer& form) : Observer(form) { session().creating = true; }
    ~Creating() override { session().creating = false; }
    Creating(const Creating&) = delete;
    Creating& operator=(const Creating&) = delete;

    void setLblProc(std::string_view text) override { setCaption(form_.LblProc, text); }
    void setLblProcModule(std::string_view text) override { setCaption(form_.LblProcModule, text); }
    void reportChanged(const Report&) override {
        if (hasWindow()) form_.showReport();
    }
    void StartNow() override {
        if (hasWindow()) form_.Indic.StartNow();
    }
    void stopNow() override {
        if (hasWindow()) form_.Indic.stopNow();
    }
    void msgBox(const Message& message) override {
        if (!isStopped()) form_.msgBox(message); // else nobody is there to answer
    }

  private:
    void setCaption(forms::Label& label, std::string_view text) {
        if (hasWindow()) label.setCaption(std::string(text));
    }
};

void FrmIndexer::createIndex() {
    const auto session = session_;
    if (session->creating) return;
    IndexJob job;
    ignoringErrors([&] { job.project = activeProject(); }); // not every index needs it
    job.SelectedDesigners = session->analysis->SelectedDesigners();
    job.excludeList = session->excludeList;
    job.options = options();
    job.headerPath = Text1(0).text();
    job.configurationPath = Text1(1).text();
    job.modulePath = Text1(3).text();
    job.txtModule = txtModule.text();
    std::vector<std::string> typed{job.headerPath, job.configurationPath};
    if (job.options.ChkIDMap == 1) typed.push_back(job.modulePath); // else it is not saved
    if (const auto refusal = whatForbidsPaths(job.project, typed)) {
        msgBox(*refusal);
        return;
    }
    Creating observer(*this);
    if (indexer::createIndex(job, session->report, observer) != IndexOutcome::Created) return;
    session->indexCreated = true;
    if (observer.hasWindow()) enableNext();
}

} // namespace corvelle::indexer
