#include "workbench/add_in_manager.h"

#include "workbench/resource.h"
#include "workbench/window_procedure.h"

namespace corvelle::workbench {

namespace {

/// The dialog's state: what the user wants, a row an add-in.
class Manager {
  public:
    explicit Manager(AddIns& addIns) : addIns_(addIns) {
        for (const auto& addIn : addIns.list())
            rows_.push_back({addIn, addIn->isLoaded(), addIn->listed().onStartup});
    }

    void fill(HWND dialog) {
        dialog_ = dialog;
        constexpr int loadColumn = 144; // dialog units
        SendMessageA(list(), LB_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&loadColumn));
        for (const auto& row : rows_) addLine(row);
        SendMessageA(list(), LB_SETCURSEL, 0, 0);
        showSelected();
    }

    void showSelected() {
        const Row* const row = selected();
        SetDlgItemTextA(dialog_, IDC_DESCRIPTION, row ? row->addIn->listed().description.c_str() : "");
        CheckDlgButton(dialog_, IDC_LOADED, row && row->loaded ? BST_CHECKED : BST_UNCHECKED);
        CheckDlgButton(dialog_, IDC_STARTUP, row && row->onStartup ? BST_CHECKED : BST_UNCHECKED);
        for (const int box : {IDC_LOADED, IDC_STARTUP})
            EnableWindow(GetDlgItem(dialog_, box), row != nullptr);
    }

    void takeChecks() {
        Row* const row = selected();
        if (!row) return;
        row->loaded = IsDlgButtonChecked(dialog_, IDC_LOADED) == BST_CHECKED;
        row->onStartup = IsDlgButtonChecked(dialog_, IDC_STARTUP) == BST_CHECKED;
        const auto index = SendMessageA(list(), LB_GETCURSEL, 0, 0);
        SendMessageA(list(), LB_DELETESTRING, static_cast<WPARAM>(index), 0);
        SendMessageA(list(), LB_INSERTSTRING, static_cast<WPARAM>(index),
                     reinterpret_cast<LPARAM>(lineOf(*row).c_str()));
        SendMessageA(list(), LB_SETCURSEL, static_cast<WPARAM>(index), 0);
    }

    void toggleLoaded() {
        CheckDlgButton(dialog_, IDC_LOADED,
                       IsDlgButtonChecked(dialog_, IDC_LOADED) == BST_CHECKED ? BST_UNCHECKED : BST_CHECKED);
        takeChecks();
    }

    void apply() const {
        for (const auto& row : rows_) {
            if (row.onStartup != row.addIn->listed().onStartup)
                setOnStartup(row.addIn->listed().progId, row.onStartup);
        }
        addIns_.refresh();
        for (const auto& row : rows_) addIns_.connect(*row.addIn, row.loaded);
    }

  private:
    struct Row {
        com::Ptr<AddIn> addIn;
        bool loaded;
        bool onStartup;
    };

    HWND list() const { return GetDlgItem(dialog_, IDC_ADD_INS); }

    Row* selected() {
        const auto index = SendMessageA(list(), LB_GETCURSEL, 0, 0);
        return index < 0 ? nullptr : &rows_[static_cast<std::size_t>(index)];
    }

    static std::string lineOf(const Row& row) {
        std::string line = row.addIn->listed().name + "\t";
        if (row.onStartup) line += row.loaded ? "Startup / " : "Startup";
        if (row.loaded) line += "Loaded";
        return line;
    }

    void addLine(const Row& row) const {
        SendMessageA(list(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(lineOf(row).c_str()));
    }

    AddIns& addIns_;
    std::vector<Row> rows_;
    HWND dialog_ = nullptr;
};

INT_PTR command(HWND dialog, Manager& manager, WPARAM wParam) {
    switch (LOWORD(wParam)) {
    case IDOK:
    case IDCANCEL:
        EndDialog(dialog, LOWORD(wParam));
        return TRUE;
    case IDC_ADD_INS:
        if (HIWORD(wParam) == LBN_SELCHANGE) manager.showSelected();
        if (HIWORD(wParam) == LBN_DBLCLK) manager.toggleLoaded();
        return TRUE;
    case IDC_LOADED:
    case IDC_STARTUP:
        manager.takeChecks();
        return TRUE;
    default:
        return FALSE;
    }
}

INT_PTR CALLBACK dialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        setOwner(dialog, reinterpret_cast<Manager*>(lParam));
        reinterpret_cast<Manager*>(lParam)->fill(dialog);
        return TRUE;
    }
    auto* const manager = ownerOf<Manager>(dialog);
    if (message != WM_COMMAND || !manager) return FALSE;
    return guarded(dialog, [&] { return command(dialog, *manager, wParam); });
}

} // namespace

void manageAddIns(HWND owner, AddIns& addIns) {
    addIns.refresh();
    Manager manager(addIns);
    const INT_PTR answer = DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_ADD_INS), owner,
                                           dialogProcedure, reinterpret_cast<LPARAM>(&manager));
    if (answer == IDOK) manager.apply();
}

} // namespace corvelle::workbench
