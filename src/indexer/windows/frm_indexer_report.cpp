#include "ide/required.h"
#include "indexer/general_date.h"
#include "indexer/save_results.h"
#include "indexer/windows/frm_indexer.h"

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

} // namespace corvelle::indexer
