#include "faults/road.h"
#include "formatter/forms/frm_formatter.h"
#include "formatter/forms/frm_main.h"
#include "host/code_formatter.h"

#include <vector>

namespace corvelle::host::test {
namespace {

using formatter::FrmFormatter;
using formatter::frmMain;
using Lines = std::vector<std::string>;

const Lines untidy{"Option Explicit", "", "Sub Main()", "If n > 0 Then", "\tn = 1", "End If", "End Sub"};
const Lines tidy{"Option Explicit", "Sub Main()", "  If n > 0 Then", "    n = 1", "  End If", "End Sub"};
const char* const backup =
    "Option Explicit\r\n\r\nSub Main()\r\nIf n > 0 Then\r\n\tn = 1\r\nEnd If\r\nEnd Sub\r\n";

// Menu command, page, dialog, format, backup, format again, add, back, cancel.
class FormatterRoad : public Road {
  public:
    FormatterRoad() {
        addIn = std::make_shared<CodeFormatter>(desktop);
        module_ = ide->project->add("Account", ide::ComponentType::StdModule, untidy);
        ide->activate(module_);
        folder.write("Account_bak.bas", "an older one");
        names = {"Account_bak.bas"};
        desktop.chosenFile = [this](const std::string&) { return pathOf("Account_bak.bas"); };
        desktop.inModal = [this](forms::Form& form) {
            if (auto* const dialog = dynamic_cast<FrmFormatter*>(&form)) useDialog(*dialog);
            for (int i = 0; i < 3 && form.isLoaded(); ++i) enter([&form] { form.unload(); });
        };
    }

    void expectUnharmed(bool failed) override {
        const auto& code = module_->code->lines;
        EXPECT_TRUE(code == untidy || code == tidy) << testing::PrintToString(code);
        const auto saved = folder.read("Account_bak.bas");
        EXPECT_TRUE(saved == "an older one" || saved == backup) << saved;
        EXPECT_FALSE(code == tidy && !mayAdd_);
        if (failed) return;
        EXPECT_EQ(code, tidy);
        EXPECT_EQ(saved, backup);
    }

  protected:
    void useWindows() override {
        on<frmMain>([this](frmMain& page) {
            press(page.cmdRef);
            press(page.CmdNext);
            press(page.cmdCancel);
        });
    }

  private:
    void useDialog(FrmFormatter& dialog) {
        press(dialog.CmdFmt);
        press(dialog.CmdFile);
        press(dialog.CmdFmt);
        mayAdd_ = press(dialog.CmdAdd);
        press(dialog.CmdBack);
    }

    std::shared_ptr<corvelle::test::FakeComponent> module_;
    bool mayAdd_ = false;
};

TEST(FormatterRoad, IsUnharmedWhateverCallFails) {
    failEachStep([] { return std::make_shared<FormatterRoad>(); }, 50, 2, 10);
}

} // namespace
} // namespace corvelle::host::test
