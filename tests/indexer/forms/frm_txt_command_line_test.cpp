// Runs the program, which is found in CORVELLE_BINARY.
#include "base/text.h"
#include "cli/run_corvelle.h"
#include "indexer/forms/text_editor_session.h"
#include "indexer/index_files.h"
#include "indexer/text_file.h"
#include "places.h"

#include <gmock/gmock.h>
#include <map>

namespace corvelle::indexer::test {
namespace {

using forms::answer::yes;

class TextEntryWindowAndCommandLine : public testing::Test {
  protected:
    using Files = std::map<std::string, std::string>;

    static Files filesOf(const TextEditorSession& session) {
        Files files;
        for (const auto& name : session.folder.names()) {
            if (name != "p.icp") files[name] = session.folder.read(name); // it holds the folder's path
        }
        auto index = readMappings(files.at("a.hcnf")).index;
        readTextEntries(files.at("a.txt"), index, LastDefault::Read);
        auto& texts = files["a.txt"];
        texts.clear();
        for (const auto& entry : index.entries)
            texts.append(entry.IDHName).append("=").append(base::trimSpaces(entry.HelpText)).append("\n");
        return files;
    }
    static Files afterWindow(const std::function<void(TextEditorSession&)>& edit) {
        TextEditorSession session;
        session.showOpened();
        edit(session);
        session.save();
        return filesOf(session);
    }
    static Files afterProgram(const std::vector<std::string>& command) {
        const TextEditorSession session;
        std::vector<std::string> arguments{"text", session.pathOf("p.icp")};
        arguments.insert(arguments.end(), command.begin(), command.end());
        const auto result = corvelle::test::runCorvelle(arguments);
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.out, "File was saved successfully.\n");
        return filesOf(session);
    }
};

// The window writes each text anew, the program only the one that changes: what readers see is the same.

TEST_F(TextEntryWindowAndCommandLine, ShowTheSameIndexAfterTheSameChange) {
    const auto set = [](TextEditorSession& session) {
        session.choose(2, 0);
        session.type("One line.\r\n  Another.");
        session.desktop.choose(session.form().cboDsr, 0);
    };
    EXPECT_EQ(afterWindow(set), afterProgram({"set", "frmPart", "cmdOK", "One line.\n  Another."}));
    const auto press = [](forms::CommandButton FrmTxt::*button) {
        return [button](TextEditorSession& session) {
            session.choose(0, 1);
            session.answer(yes);
            session.click(session.form().*button);
        };
    };
    EXPECT_EQ(afterWindow(press(&FrmTxt::CmdDef)), afterProgram({"default", "frmMain", "txtName"}));
    EXPECT_EQ(afterWindow(press(&FrmTxt::CmdDel)), afterProgram({"delete", "frmMain", "txtName"}));
    EXPECT_NE(afterProgram({"delete", "frmMain", "txtName"}), afterProgram({"delete", "frmMain", "cmdOK"}));
}

} // namespace
} // namespace corvelle::indexer::test
