#include "workbench/project_tree.h"

#include "base/paths.h"

#include <algorithm>
#include <commctrl.h>
#include <iterator>

namespace corvelle::workbench {

namespace {

using ide::ComponentType;

struct Group {
    const char* title;
    std::vector<ComponentType> types;
};

const std::vector<Group>& groups() {
    static const std::vector<Group> all{
        {"Forms", {ComponentType::VBForm, ComponentType::VBMDIForm, ComponentType::MSForm}},
        {"Modules", {ComponentType::StdModule}},
        {"Class Modules", {ComponentType::ClassModule}},
        {"User Controls", {ComponentType::UserControl}},
        {"Property Pages", {ComponentType::PropPage}},
        {"User Documents", {ComponentType::DocObject}},
        {"Designers", {ComponentType::ActiveXDesigner}},
    };
    return all;
}

std::string withFile(const std::string& name, const std::filesystem::path& path) {
    return path.empty() ? name : name + " (" + base::textOf(path.filename()) + ")";
}

} // namespace

void ProjectTree::create(HWND parent) {
    tree_ = CreateWindowExA(WS_EX_CLIENTEDGE, WC_TREEVIEWA, "Project",
                            WS_CHILD | WS_VISIBLE | WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES |
                                TVS_LINESATROOT | TVS_SHOWSELALWAYS,
                            0, 0, 0, 0, parent, nullptr, GetModuleHandleA(nullptr), nullptr);
}

std::vector<ProjectTree::Row> ProjectTree::rowsOf(const workspace::Workspace& ide) {
    std::vector<Row> rows;
    for (const auto& project : ide.projects()) {
        rows.push_back({0, withFile(project->Name(), project->path()), nullptr});
        for (const auto& group : groups()) {
            std::vector<Row> members;
            for (const auto& component : project->components()) {
                const auto& types = group.types;
                if (std::find(types.begin(), types.end(), component->Type()) == types.end()) continue;
                members.push_back({2, withFile(component->Name(), component->path()), component.get()});
            }
            if (members.empty()) continue;
            std::sort(members.begin(), members.end(),
                      [](const Row& a, const Row& b) { return a.text < b.text; });
            rows.push_back({1, group.title, nullptr});
            std::move(members.begin(), members.end(), std::back_inserter(rows));
        }
    }
    return rows;
}

void ProjectTree::update(const workspace::Workspace* ide) {
    auto rows = ide ? rowsOf(*ide) : std::vector<Row>();
    if (rows == rows_) return;
    rows_ = std::move(rows);
    fill();
}

void ProjectTree::fill() {
    constexpr int levels = 3;
    const auto* const before = selected();
    SendMessageA(tree_, WM_SETREDRAW, FALSE, 0);
    SendMessageA(tree_, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
    HTREEITEM above[levels + 1] = {TVI_ROOT};
    HTREEITEM first = nullptr;
    HTREEITEM again = nullptr;
    for (auto& row : rows_) {
        TVINSERTSTRUCTA wanted{};
        wanted.hParent = above[row.level];
        wanted.hInsertAfter = TVI_LAST;
        wanted.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_STATE;
        wanted.item.state = wanted.item.stateMask = TVIS_EXPANDED;
        wanted.item.pszText = row.text.data();
        wanted.item.lParam = reinterpret_cast<LPARAM>(row.component);
        const auto item = reinterpret_cast<HTREEITEM>(
            SendMessageA(tree_, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&wanted)));
        above[row.level + 1] = item;
        if (row.component && !first) first = item;
        if (row.component && row.component == before) again = item;
    }
    const HTREEITEM chosen = again ? again : first;
    if (chosen) SendMessageA(tree_, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(chosen));
    SendMessageA(tree_, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(tree_, nullptr, TRUE);
}

workspace::Component* ProjectTree::selected() const {
    TVITEMA item{};
    item.mask = TVIF_PARAM;
    item.hItem = reinterpret_cast<HTREEITEM>(SendMessageA(tree_, TVM_GETNEXTITEM, TVGN_CARET, 0));
    if (!item.hItem || !SendMessageA(tree_, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item))) return nullptr;
    return reinterpret_cast<workspace::Component*>(item.lParam);
}

} // namespace corvelle::workbench
