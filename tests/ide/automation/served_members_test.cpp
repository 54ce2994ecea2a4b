#include "base/error_of.h"
#include "com/scripted_object.h"
#include "ide/automation/served_ide.h"

namespace corvelle::workbench {
namespace {

using base::ErrorNumber;
using com::Dispatch;
using com::Variant;
using test::error;
using test::errorOf;

// What a caller by name sees of the served objects, beyond what our own side asks for.
struct ServedMembers : test::ServedIde {
    Dispatch object{served};

    static Dispatch get(Dispatch& from, const wchar_t* name) {
        return Dispatch(com::objectOf(from.get(name)));
    }
    template <class... Arguments>
    static Dispatch item(Dispatch from, Arguments... arguments) {
        return Dispatch(com::objectOf(from.get(L"Item", arguments...)));
    }
    Dispatch project() { return get(object, L"ActiveVBProject"); }
    Dispatch components() {
        auto active = project();
        return get(active, L"VBComponents");
    }
    Dispatch addIns() { return item(get(object, L"CommandBars"), "Add-Ins"); }

    static DISPID idOf(const Dispatch& of, const wchar_t* name) {
        DISPID id = DISPID_UNKNOWN;
        auto* text = const_cast<wchar_t*>(name);
        of.object()->GetIDsOfNames(IID_NULL, &text, 1, 0, &id);
        return id;
    }
};

TEST_F(ServedMembers, HaveTheirDispids) {
    auto form = item(components(), 1);
    auto code = get(form, L"CodeModule");
    auto menu = addIns();
    auto controls = get(menu, L"Controls");
    const struct {
        Dispatch object;
        const wchar_t* name;
        DISPID id;
    } rows[] = {
        {object, L"Name", 0},
        {object, L"CommandBars", 108},
        {object, L"Events", 111},
        {object, L"ActiveVBProject", 201},
        {object, L"ActiveCodePane", 206},
        {object, L"Quit", 207},
        {project(), L"Name", 0},
        {project(), L"FileName", 109},
        {project(), L"IsDirty", 110},
        {project(), L"Type", 129},
        {project(), L"VBComponents", 135},
        {components(), L"Item", 0},
        {components(), L"Count", 10},
        {components(), L"Add", 12},
        {form, L"SaveAs", 12},
        {form, L"Name", 48},
        {form, L"Designer", 49},
        {form, L"CodeModule", 50},
        {form, L"Type", 51},
        {form, L"DesignerWindow", 57},
        {form, L"Activate", 60},
        {code, L"Name", 0},
        {code, L"Lines", 0x60020006},
        {code, L"CountOfLines", 0x60020007},
        {code, L"InsertLines", 0x60020008},
        {code, L"DeleteLines", 0x60020009},
        {get(form, L"DesignerWindow"), L"Close", 99},
        {get(form, L"DesignerWindow"), L"SetFocus", 111},
        {get(form, L"Designer"), L"VBControls", 47},
        {get(object, L"Events"), L"CommandBarEvents", 205},
        {menu, L"Controls", 0x60040003},
        {controls, L"Add", 0x60030000},
    };
    for (const auto& row : rows)
        EXPECT_EQ(idOf(row.object, row.name), row.id) << std::string(row.name, row.name + wcslen(row.name));
}

TEST_F(ServedMembers, OfTheIde) {
    EXPECT_EQ(com::textOf(object.get(L"Name")), "Corvelle Workbench");
    EXPECT_EQ(com::textOf(object.get(L"Version")), "6.00");
    EXPECT_NE(com::textOf(object.get(L"FullName")), "");
    EXPECT_FALSE(com::objectOf(object.get(L"Addins")));
    program->addInModel = com::make<test::ScriptedObject>();
    EXPECT_TRUE(com::objectOf(object.get(L"Addins")));
    object.call(L"Quit");
    EXPECT_EQ(program->done, std::vector<std::string>{"quit"});
    auto window = get(object, L"MainWindow");
    EXPECT_EQ(com::longOf(window.get(L"HWnd")),
              static_cast<std::int32_t>(reinterpret_cast<std::intptr_t>(GetDesktopWindow())));
    EXPECT_EQ(com::longOf(window.get(L"Type")), 12);
    EXPECT_EQ(errorOf([&] { object.get(L"Windows"); }), error(ErrorNumber::MemberNotSupported));
    EXPECT_EQ(errorOf([&] { object.get(L"Quit", 1); }).number, DISP_E_BADPARAMCOUNT);
}

TEST_F(ServedMembers, OfProjects) {
    auto projects = get(object, L"VBProjects");
    EXPECT_EQ(com::longOf(projects.get(L"Count")), 1);
    EXPECT_TRUE(com::isSameObject(com::Ptr<IUnknown>(item(projects, 1).object()),
                                  com::Ptr<IUnknown>(item(projects, "PROJ").object())));
    EXPECT_EQ(errorOf([&] { item(projects, 2); }), error(ErrorNumber::SubscriptOutOfRange));
    auto active = project();
    EXPECT_TRUE(com::booleanOf(active.get(L"Saved")));
    object.putRef(L"ActiveVBProject", com::Ptr<IDispatch>(active.object()));
    EXPECT_EQ(errorOf([&] { object.put(L"ActiveVBProject", served); }), error(ErrorNumber::TypeMismatch));
    program->ide.reset();
    EXPECT_EQ(com::longOf(projects.get(L"Count")), 0);
}

TEST_F(ServedMembers, OfAComponent) {
    auto form = item(components(), "frmMain");
    EXPECT_EQ(com::textOf(form.get(L"FileNames", 1)), (folder.path() / "frmMain.frm").string());
    EXPECT_EQ(errorOf([&] { form.get(L"FileNames", 2); }), error(ErrorNumber::SubscriptOutOfRange));
    EXPECT_FALSE(com::booleanOf(form.get(L"HasOpenDesigner")));
    auto window = get(form, L"DesignerWindow");
    EXPECT_TRUE(com::booleanOf(form.get(L"HasOpenDesigner")));
    EXPECT_EQ(com::textOf(window.get(L"Caption")), "frmMain (Form)");
    EXPECT_FALSE(com::booleanOf(window.get(L"Visible")));
    window.put(L"Visible", true);
    EXPECT_TRUE(component(0).designerWindow()->isVisible());
    EXPECT_TRUE(com::isSameObject(com::objectOf(form.get(L"Collection")),
                                  com::Ptr<IDispatch>(components().object())));
    program->selected = &component(0);
    EXPECT_TRUE(com::isSameObject(com::objectOf(object.get(L"SelectedVBComponent")),
                                  com::Ptr<IDispatch>(form.object())));
}

TEST_F(ServedMembers, OfCode) {
    auto klass = item(components(), "Klass");
    auto code = get(klass, L"CodeModule");
    code.call(L"DeleteLines", 2);
    EXPECT_EQ(com::textOf(code.get(L"Lines", 1, 2)), "'1\r\n'3");
    code.call(L"ReplaceLine", 1, "new");
    EXPECT_EQ(com::textOf(code.get(L"Lines", 1, 2)), "new\r\n'3");
    EXPECT_EQ(errorOf([&] { code.call(L"ReplaceLine", 3, ""); }), error(ErrorNumber::SubscriptOutOfRange));
    EXPECT_EQ(errorOf([&] { code.call(L"InsertLines", "here", ""); }), error(ErrorNumber::TypeMismatch));
    auto pane = get(code, L"CodePane");
    pane.call(L"Show");
    EXPECT_EQ(program->done, std::vector<std::string>{"show Klass"});
    EXPECT_TRUE(
        com::isSameObject(com::objectOf(object.get(L"ActiveCodePane")), com::Ptr<IDispatch>(pane.object())));
    auto panes = get(object, L"CodePanes");
    EXPECT_EQ(com::longOf(panes.get(L"Count")), 0);
    program->panes = {&component(1)};
    EXPECT_EQ(com::longOf(panes.get(L"Count")), 1);
    EXPECT_EQ(item(panes, 1).object(), pane.object());
    EXPECT_EQ(errorOf([&] { item(panes, 2); }), error(ErrorNumber::SubscriptOutOfRange));
}

TEST_F(ServedMembers, OfMenus) {
    auto menu = addIns();
    EXPECT_EQ(com::textOf(menu.get(L"Name")), "Add-Ins");
    auto controls = get(menu, L"Controls");
    Dispatch last(com::objectOf(controls.get(L"Add")));
    Dispatch first(com::objectOf(controls.get(L"Add", 1, com::missing, com::missing, 1, true)));
    EXPECT_EQ(com::longOf(last.get(L"Index")), 2);
    EXPECT_EQ(item(controls, 1).object(), first.object());
    EXPECT_EQ(com::longOf(controls.get(L"Count")), 2);
    last.put(L"Caption", "&Last");
    EXPECT_EQ(com::textOf(last.get(L"Caption")), "&Last");
    EXPECT_TRUE(com::booleanOf(last.get(L"Enabled")));
    last.put(L"Enabled", false);
    last.put(L"Visible", false);
    last.put(L"Tag", "note");
    const auto& command = *program->menuModel.addIns().commands()[1];
    EXPECT_FALSE(command.isEnabled());
    EXPECT_FALSE(command.isVisible());
    EXPECT_EQ(command.tag(), "note");
    EXPECT_EQ(com::objectOf(last.get(L"Parent")).get(), menu.object());
    last.call(L"Delete", true);
    EXPECT_EQ(com::longOf(controls.get(L"Count")), 1);
    EXPECT_EQ(errorOf([&] { last.get(L"Index"); }), error(ErrorNumber::ObjectVariableNotSet));
    for (const auto popup : {10, 4}) {
        EXPECT_EQ(errorOf([&] { controls.get(L"Add", popup); }), error(ErrorNumber::InvalidProcedureCall));
    }
    EXPECT_EQ(errorOf([&] { controls.get(L"Add", 1, com::missing, com::missing, 3); }),
              error(ErrorNumber::InvalidProcedureCall));
}

TEST_F(ServedMembers, AreTheSameObjectAsLongAsItLives) {
    auto form = item(components(), 1);
    EXPECT_EQ(form.object(), item(components(), "frmMain").object());
    auto code = get(form, L"CodeModule");
    EXPECT_EQ(com::objectOf(code.get(L"Parent")).get(), form.object());
    EXPECT_EQ(com::objectOf(form.get(L"VBE")).get(), served.get());
}

} // namespace
} // namespace corvelle::workbench
