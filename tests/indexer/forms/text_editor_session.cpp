#include "indexer/forms/text_editor_session.h"

#include <algorithm>
#include <utility>

namespace corvelle::indexer::test {

const char* const editedMappings =
    "<P>frmMain</P>\r\n<C>cmdOK CommandButton IDH_AAAB</C>\r\n"
    "<C>txtName TextBox IDH_AAAC</C>\r\n<C>lbl Label IDH_AAAA</C>\r\n"
    "<P>frmNone</P>\r\n<P>frmPart</P>\r\n<C>cmdOK CommandButton IDH_AAAD</C>\r\n";
const char* const editedTexts =
    ".topic  IDH_AAAA\r\nNothing is known.\r\n.topic  IDH_AAAB\r\nCloses the window.\r\n"
    ".topic  IDH_AAAC\r\nThe name.\r\n.topic  IDH_AAAD\r\nSaves.\r\n";
const char* const savedTexts =
    ".topic  IDH_AAAA\r\n Nothing is known.\r\n.topic  IDH_AAAB\r\n Closes the window.\r\n"
    ".topic  IDH_AAAC\r\n The name.\r\n.topic  IDH_AAAD\r\n Saves.\r\n";

void EditorManager::Hide() {
    ++hides;
    if (const auto shown = std::exchange(editor, nullptr)) shown->unload();
}

TextEditorSession::TextEditorSession() {
    desktop.onUnexpected = [](const std::string& what) { ADD_FAILURE() << what; };
    folder.write("a.h", "header");
    folder.write("a.hcnf", editedMappings);
    folder.write("a.txt", editedTexts);
    writeProject("p.icp", pathOf("a.hcnf"), pathOf("a.txt"));
}

TextEditorSession::~TextEditorSession() {
    EXPECT_TRUE(desktop.scriptIsDone());
    desktop.quit(); // so that nothing is asked
    if (const auto shown = std::exchange(manager->editor, nullptr)) shown->unload();
}

void TextEditorSession::writeProject(const std::string& name, const std::string& configuration,
                                     const std::string& text) const {
    folder.write(name, "Indexer project file :11/21/2026 2:43:10 AM\r\nVB Project Name= Proj\r\n"
                       "Project File= C:\\Proj\\Proj.vbp\r\nHeader file= " +
                           pathOf("a.h") + "\r\nConfiguration File= " + configuration + "\r\nText File= " +
                           text + "\r\nModule Name= modHelp\r\nModule File= C:\\Proj\\modHelp.bas\r\n");
}

FrmTxt& TextEditorSession::show() {
    manager->editor = std::make_shared<FrmTxt>(desktop);
    manager->editor->ShowTextEdit(ide, manager);
    return form();
}

void TextEditorSession::openProject(const std::string& name) {
    desktop.chooseNextFile(pathOf(name));
    EXPECT_TRUE(click(form().Command2));
}

FrmTxt& TextEditorSession::showOpened() {
    show();
    openProject();
    return form();
}

void TextEditorSession::choose(int designer, int control) {
    EXPECT_TRUE(desktop.choose(form().cboDsr, designer));
    EXPECT_TRUE(desktop.choose(form().CboCtl, control));
}

void TextEditorSession::save() {
    answer(forms::answer::ok);
    EXPECT_TRUE(click(form().CmdProc));
    EXPECT_EQ(lastBox(), "Corvelle|64|File was saved successfully.");
}

std::string TextEditorSession::display() const {
    std::string text = form().txtHelp.enabled() ? "" : "disabled: ";
    text += form().txtHelp.text();
    if (form().CmdDel.enabled()) text += "|Delete";
    if (form().CmdDef.enabled()) text += "|Default";
    return text;
}

bool TextEditorSession::isAnimated(FrmTxt& form) {
    const auto& pixels = form.IndicSurface.canvas().pixels();
    return std::any_of(pixels.begin(), pixels.end(), [&](forms::Colour pixel) { return pixel != pixels[0]; });
}

std::string TextEditorSession::lastBox() const {
    if (desktop.boxes().empty()) return {};
    const auto& box = desktop.boxes().back();
    std::string text = box.text;
    std::replace(text.begin(), text.end(), '\r', '/');
    return box.title + "|" + std::to_string(box.flags) + "|" + text;
}

} // namespace corvelle::indexer::test
