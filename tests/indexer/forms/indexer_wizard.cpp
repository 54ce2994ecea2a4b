#include "indexer/forms/indexer_wizard.h"

#include <algorithm>

namespace corvelle::indexer::test {

const base::RunTimeError IndexerWizard::disaster(-2147467259, "Method '~' of object '~' failed");

const char* const exampleHeader = "#define IDH_AAAA  1000\r\n"
                                  "#define IDH_AAAB  1001\r\n"
                                  "#define IDH_AAAC  1002\r\n"
                                  "#define IDH_AAAD  1003\r\n"
                                  "#define IDH_AAAE  1004\r\n"
                                  "#define IDH_AAAF  1005\r\n";
const char* const exampleConfiguration = "<P>frmMain</P>\r\n"
                                         "<C>cmdOK CommandButton IDH_AAAB</C>\r\n"
                                         "<C>txtName TextBox IDH_AAAC</C>\r\n"
                                         "<P>frmOrder</P>\r\n"
                                         "<C>txtDate TextBox IDH_AAAD</C>\r\n"
                                         "<C>lblDate Label IDH_AAAE</C>\r\n"
                                         "<C>cmdOK CommandButton IDH_AAAF</C>\r\n";

void FakeManager::Hide() {
    if (wizard) ++hides;
    disconnect();
}

void FakeManager::disconnect() {
    if (const auto shown = std::exchange(wizard, nullptr)) shown->unload();
}

IndexerWizard::IndexerWizard() {
    desktop.onUnexpected = [](const std::string& what) { ADD_FAILURE() << what; };
    ide->project->name = "Stockroom";
    ide->project->fileName = "C:\\Projects\\Stock\\Stockroom.vbp";
    desktop.map().values[listSetting] = folder.write("exclude.lst", "\r\n").string();
}

IndexerWizard::~IndexerWizard() {
    EXPECT_TRUE(desktop.scriptIsDone());
}

std::shared_ptr<corvelle::test::FakeComponent>
IndexerWizard::add(const std::string& name, ide::ComponentType type, const Controls& controls) {
    auto component = ide->project->add(name, type);
    component->hasDesigner = !controls.empty();
    for (const auto& [control, className] : controls) component->add(className).with("Name", control);
    return component;
}

void IndexerWizard::addExample() {
    add("modMain", ide::ComponentType::StdModule);
    add("frmMain", ide::ComponentType::VBForm, {{"cmdOK", "CommandButton"}, {"txtName", "TextBox"}});
    add("frmOrder", ide::ComponentType::VBForm,
        {{"txtDate", "TextBox"}, {"lblDate", "Label"}, {"cmdOK", "CommandButton"}});
}

FrmIndexer& IndexerWizard::show() {
    manager->wizard = std::make_shared<FrmIndexer>(desktop);
    manager->wizard->ThisMgr = manager;
    manager->wizard->ShowIndexer(ide);
    return *manager->wizard;
}

FrmIndexer& IndexerWizard::showStageTwo() {
    FrmIndexer& form = show();
    EXPECT_TRUE(click(form.CmdProc));
    EXPECT_TRUE(click(form.CmdNext));
    EXPECT_TRUE(desktop.type(form.Text1(0), pathOf("a.h")));
    EXPECT_TRUE(desktop.type(form.Text1(1), pathOf("a.hcnf")));
    return form;
}

void IndexerWizard::wantModule(FrmIndexer& form) const {
    form.ChkIDMap.setValue(1);
    form.ChkAutoLoad.setValue(1);
    form.txtModule.setText("modHelp");
    form.Text1(3).setText(pathOf("modHelp.bas"));
}

std::vector<std::string> IndexerWizard::reportLines(FrmIndexer& form) {
    std::vector<std::string> lines;
    std::string text = form.TxtRV.text();
    for (std::size_t end; (end = text.find("\r\n")) != std::string::npos; text.erase(0, end + 2))
        lines.push_back(text.substr(0, end));
    lines.push_back(text);
    return lines;
}

bool IndexerWizard::indicatorRuns(FrmIndexer& form) {
    const auto& pixels = form.IndicSurface.canvas().pixels();
    return std::any_of(pixels.begin(), pixels.end(), [&](forms::Colour pixel) { return pixel != pixels[0]; });
}

std::string IndexerWizard::lastBox() const {
    if (desktop.boxes().empty()) return {};
    const auto& box = desktop.boxes().back();
    std::string text = box.text;
    std::replace(text.begin(), text.end(), '\r', '/');
    return box.title + "|" + std::to_string(box.flags) + "|" + text;
}

} // namespace corvelle::indexer::test
