#include "indexer/stable/help_properties.h"

#include "base/text.h"

#include <algorithm>
#include <array>

namespace corvelle::indexer::stable {

namespace {

struct Row {
    std::string_view library, className;
    HelpProperties has;
};

constexpr HelpProperties both{true, true, true}, contextOnly{true, false, true},
    whatsThisOnly{false, true, true}, neither{false, false, true};
// As the language's own manuals or files of its kind let one expect it: nobody has looked.
constexpr HelpProperties bothUnverified{true, true, false}, whatsThisUnverified{false, true, false},
    neitherUnverified{false, false, false};

constexpr std::array rows{
    Row{"VB", "CheckBox", both},
    Row{"VB", "ComboBox", both},
    Row{"VB", "CommandButton", both},
    Row{"VB", "Data", whatsThisUnverified},
    Row{"VB", "DirListBox", both},
    Row{"VB", "DriveListBox", both},
    Row{"VB", "FileListBox", both},
    Row{"VB", "Form", contextOnly},
    Row{"VB", "Frame", both},
    Row{"VB", "HScrollBar", both},
    Row{"VB", "Image", whatsThisOnly},
    Row{"VB", "Label", whatsThisOnly},
    Row{"VB", "Line", neither},
    Row{"VB", "ListBox", both},
    Row{"VB", "MDIForm", contextOnly},
    Row{"VB", "Menu", contextOnly},
    Row{"VB", "OLE", bothUnverified},
    Row{"VB", "OptionButton", both},
    Row{"VB", "PictureBox", both},
    Row{"VB", "PropertyPage", neitherUnverified},
    Row{"VB", "Shape", neither},
    Row{"VB", "TextBox", both},
    Row{"VB", "Timer", neither},
    Row{"VB", "UserControl", neitherUnverified},
    Row{"VB", "UserDocument", neitherUnverified},
    Row{"VB", "VScrollBar", both},
    // Controls of other makers that are not seen at run time: their containers have no place for help.
    Row{"InetCtlsObjects", "Inet", neitherUnverified},
    Row{"MSCommLib", "MSComm", neitherUnverified},
    Row{"MSComCtl2", "ImageList", neitherUnverified},
    Row{"MSComDlg", "CommonDialog", neitherUnverified},
    Row{"MSComctlLib", "ImageList", neitherUnverified},
    Row{"ComctlLib", "ImageList", neitherUnverified},
    Row{"MSMAPI", "MAPIMessages", neitherUnverified},
    Row{"MSMAPI", "MAPISession", neitherUnverified},
    Row{"MSScriptControlCtl", "ScriptControl", neitherUnverified},
    Row{"MSWinsockLib", "Winsock", neitherUnverified},
    Row{"PicClip", "PictureClip", neitherUnverified},
    Row{"SysInfoLib", "SysInfo", neitherUnverified},
};

} // namespace

HelpProperties helpPropertiesOf(std::string_view library, std::string_view className) {
    const auto found = std::find_if(rows.begin(), rows.end(), [&](const Row& row) {
        return base::equalIgnoringCase(row.className, className) &&
               base::equalIgnoringCase(row.library, library);
    });
    return found == rows.end() ? bothUnverified : found->has;
}

} // namespace corvelle::indexer::stable
