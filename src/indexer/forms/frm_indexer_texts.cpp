#include "base/run_time_error.h"
#include "ide/required.h"
#include "indexer/entry_edits.h"
#include "indexer/forms/frm_indexer.h"
#include "indexer/replaceable.h"
#include "indexer/report.h"

// Stage 4: the report and the indexer project.
namespace corvelle::indexer {

void FrmIndexer::AddInfo_Rpt() {
    session_->report.AddInfo_Rpt(systemDateAndTime(), captions());
    showReport();
}

void FrmIndexer::appendToReport(std::string_view line) {
    session_->report.append(line);
    showReport();
}

void FrmIndexer::showReport() {
    TxtRV.setText(session_->report.text());
}

void FrmIndexer::cmdRpt_Click() {
    const auto path = chooseFile("Log files(*.log)|*.log");
    if (path.empty()) return;
    if (const auto result = saveReport(path, session_->report); result.message) msgBox(*result.message);
}

void FrmIndexer::saveProject() {
    const auto path = chooseFile("Indexer Project(*.icp)|*.icp");
    if (path.empty()) return;
    const auto project = activeProject();
    ProjectInfo info;
    info[slot::projectName] = ide::required(project).Name();
    info[slot::projectFile] = project->FileName();
    info[slot::header] = Text1(0).text();
    info[slot::configuration] = Text1(1).text();
    info[slot::text] = Text1(2).text();
    info[slot::moduleName] = txtModule.text();
    info[slot::moduleFile] = Text1(3).text();
    if (const auto result = indexer::saveProject(path, systemDateAndTime(), info); result.message)
        msgBox(*result.message);
}

// Stage 3: the text entries of the index that was just created.

void FrmIndexer::prepareTextEntries() {
    const auto session = session_;
    setMousePointer(forms::MousePointer::Hourglass);
    PreparedEntries prepared;
    const bool ended = run([&] {
        prepared = indexer::prepareTextEntries(Text1(0).text(), Text1(1).text(), Text1(2).text());
        if (prepared.mappings) {
            texts_.clear();
            texts_.takeMappings(std::move(*prepared.mappings));
            texts_.chooseFirst();
        }
        if (!prepared.mappings) setMousePointer(forms::MousePointer::Default);
        if (prepared.message) msgBox(*prepared.message);
    });
    if (session != session_) return; // the window has gone behind the box
    setMousePointer(forms::MousePointer::Default);
    if (!ended || !prepared.mappings) StageIndex(); // half an index must not be saved
}

void FrmIndexer::loadChosenTextFile() {
    texts_.loadTexts(Text1(2).text());
}

void FrmIndexer::saveTextFile() {
    std::shared_ptr<ide::VBProject> project;
    base::ignoringErrors([&] { project = activeProject(); });
    if (const auto refusal = whatForbidsPaths(project, {Text1(2).text()})) {
        msgBox(*refusal);
        return;
    }
    const auto saved = saveTextEntries(Text1(2).text(), txtDefault.text(), texts_.index());
    if (saved.saved) appendToReport(saved.reportLine);
    msgBox(saved.message);
}

std::vector<std::string_view> FrmIndexer::filesToUpdate() {
    return {Text1(0).text(), Text1(1).text(), Text1(3).text(), Text1(2).text()};
}

void FrmIndexer::cboDsr_Click() {
    texts_.cboDsr_Click();
}

void FrmIndexer::CboCtl_Click() {
    texts_.CboCtl_Click();
}

void FrmIndexer::cboDsr_KeyDown(std::int16_t KeyCode) {
    TextEntryEditor::KeyDown(KeyCode);
}

void FrmIndexer::CboCtl_KeyDown(std::int16_t KeyCode) {
    TextEntryEditor::KeyDown(KeyCode);
}

void FrmIndexer::CmdDef_Click() {
    texts_.CmdDef_Click();
}

void FrmIndexer::CmdDel_Click() {
    texts_.CmdDel_Click();
}

} // namespace corvelle::indexer
