#include "base/error_of.h"
#include "ide/automation/served_ide.h"

#include <gmock/gmock.h>
#include <ocidl.h>

namespace corvelle::automation {
namespace {

using base::ErrorNumber;
using ide::ComponentType;
using test::error;
using test::errorOf;
using testing::ElementsAre;

struct RoundTrip : test::ServedIde {
    std::shared_ptr<ide::VBComponents> components() { return vbe->ActiveVBProject()->VBComponents(); }
    std::shared_ptr<ide::CodeModule> code(const char* name) { return components()->Item(name)->CodeModule(); }
};

TEST_F(RoundTrip, Project) {
    const auto project = vbe->ActiveVBProject();
    EXPECT_EQ(project->Name(), "Proj");
    EXPECT_EQ(project->FileName(), projectPath);
    EXPECT_EQ(project->Type(), ide::ProjectType::ActiveXDll);
    EXPECT_FALSE(project->IsDirty());
}

TEST_F(RoundTrip, NothingIsOpen) {
    EXPECT_EQ(vbe->ActiveCodePane(), nullptr);
    program->ide.reset();
    EXPECT_EQ(vbe->ActiveVBProject(), nullptr);
    EXPECT_EQ(vbe->ActiveCodePane(), nullptr);
}

TEST_F(RoundTrip, Components) {
    EXPECT_EQ(components()->Count(), 3);
    EXPECT_EQ(components()->Item(1)->Name(), "frmMain");
    EXPECT_EQ(components()->Item(2)->Type(), ComponentType::ClassModule);
    EXPECT_EQ(components()->Item("MODMAIN")->Type(), ComponentType::StdModule);
    EXPECT_EQ(errorOf([&] { components()->Item(0); }), error(ErrorNumber::SubscriptOutOfRange));
    EXPECT_EQ(errorOf([&] { components()->Item(4); }), error(ErrorNumber::SubscriptOutOfRange));
    EXPECT_EQ(errorOf([&] { components()->Item("none"); }), error(ErrorNumber::SubscriptOutOfRange));
}

TEST_F(RoundTrip, FilesOfComponents) {
    const auto form = components()->Item(1);
    EXPECT_EQ(form->FileNames(1), (folder.path() / "frmMain.frm").string());
    EXPECT_EQ(errorOf([&] { form->FileNames(2); }), error(ErrorNumber::SubscriptOutOfRange));
    EXPECT_EQ(errorOf([&] { form->FileNames(0); }), error(ErrorNumber::SubscriptOutOfRange));
}

TEST_F(RoundTrip, NewModule) {
    const auto module = components()->Add(ComponentType::StdModule);
    EXPECT_EQ(module->FileNames(1), "");
    EXPECT_EQ(module->Name(), "Module1");
    EXPECT_TRUE(module->IsDirty());
    module->setName("modHelp");
    EXPECT_EQ(components()->Item(4)->Name(), "modHelp");
    module->CodeModule()->InsertLines(1, "Option Explicit");
    const auto path = (folder.path() / "modHelp.bas").string();
    module->SaveAs(path);
    EXPECT_EQ(folder.read("modHelp.bas"), "Attribute VB_Name = \"modHelp\"\r\nOption Explicit\r\n");
    EXPECT_FALSE(module->IsDirty());

    EXPECT_EQ(errorOf([&] { components()->Add(ComponentType::ClassModule); }),
              error(ErrorNumber::MemberNotSupported));
    const auto second = components()->Add(ComponentType::StdModule);
    EXPECT_EQ(errorOf([&] { second->setName("no name"); }), error(ErrorNumber::InvalidPropertyValue));
    EXPECT_EQ(errorOf([&] { second->setName("modMain"); }),
              (test::ErrorSeen{32813, "Name conflicts with existing module, project, or object library"}));
    EXPECT_EQ(errorOf([&] { second->SaveAs((folder.path() / "none/x.bas").string()); }),
              error(ErrorNumber::PathNotFound));
    EXPECT_EQ(errorOf([&] { components()->Item(1)->setName("x"); }), error(ErrorNumber::MemberNotSupported));
}

TEST_F(RoundTrip, Code) {
    const auto lines = code("Klass");
    EXPECT_EQ(lines->Name(), "Klass");
    EXPECT_EQ(lines->Parent()->Name(), "Klass");
    EXPECT_EQ(lines->CountOfLines(), 3);
    EXPECT_EQ(lines->Lines(1, 2), "'1\r\n'2");
    EXPECT_EQ(lines->Lines(2, 0), "");
    EXPECT_FALSE(lines->Parent()->IsDirty());
    lines->DeleteLines(2, 2);
    lines->InsertLines(2, "x\r\ny");
    lines->InsertLines(4, "");
    EXPECT_EQ(lines->Lines(1, lines->CountOfLines()), "'1\r\nx\r\ny\r\n");
    EXPECT_TRUE(lines->Parent()->IsDirty());
    EXPECT_EQ(errorOf([&] { lines->Lines(5, 1); }), error(ErrorNumber::SubscriptOutOfRange));
    EXPECT_EQ(errorOf([&] { lines->Lines(1, -1); }), error(ErrorNumber::InvalidProcedureCall));
    EXPECT_EQ(errorOf([&] { lines->DeleteLines(1, 9); }), error(ErrorNumber::SubscriptOutOfRange));
    EXPECT_EQ(errorOf([&] { lines->InsertLines(0, ""); }), error(ErrorNumber::SubscriptOutOfRange));
}

TEST_F(RoundTrip, CodeOfEveryByte) {
    std::string bytes;
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != '\r' && byte != '\n') bytes += static_cast<char>(byte);
    }
    const auto lines = code("modMain");
    lines->InsertLines(1, bytes);
    EXPECT_EQ(lines->Lines(1, 1), bytes);
}

TEST_F(RoundTrip, CodeOfTheLargestModule) {
    constexpr std::int32_t count = 65534;
    const auto lines = code("modMain");
    lines->DeleteLines(1, lines->CountOfLines());
    for (std::int32_t line = 1; line <= count; ++line) lines->InsertLines(line, std::to_string(line));
    ASSERT_EQ(lines->CountOfLines(), count);
    for (std::int32_t line = 1; line <= count; ++line) ASSERT_EQ(lines->Lines(line, 1), std::to_string(line));
}

TEST_F(RoundTrip, ActiveCodePane) {
    program->ide->setActiveCodePane(&component(2));
    EXPECT_EQ(vbe->ActiveCodePane()->CodeModule()->Name(), "modMain");
    vbe->ActiveCodePane()->CodeModule()->DeleteLines(1, 1);
    EXPECT_EQ(component(2).CodeModule()->CountOfLines(), 1);
}

TEST_F(RoundTrip, Designer) {
    const auto form = components()->Item("frmMain");
    const auto controls = form->Designer()->VBControls();
    EXPECT_EQ(controls->Count(), 2);
    EXPECT_EQ(controls->Item(1)->ClassName(), "Label");
    EXPECT_EQ(controls->Item(2)->ClassName(), "RichTextBox");
    EXPECT_EQ(controls->Item(2)->Properties()->Item("Name")->Value(), "rtf");
    EXPECT_EQ(errorOf([&] { controls->Item(3); }), error(ErrorNumber::SubscriptOutOfRange));
    EXPECT_EQ(errorOf([&] { controls->Item(1)->Properties()->Item("Caption"); }),
              error(ErrorNumber::SubscriptOutOfRange));
    EXPECT_EQ(components()->Item("modMain")->Designer(), nullptr);
}

TEST_F(RoundTrip, DesignerWindow) {
    const auto form = components()->Item("frmMain");
    const auto& state = *component(0).designerWindow();
    const auto window = form->DesignerWindow();
    EXPECT_TRUE(state.isOpen());
    EXPECT_FALSE(state.isVisible());
    form->Activate();
    EXPECT_TRUE(state.isVisible());
    window->Close();
    EXPECT_FALSE(state.isOpen());
    window->SetFocus();
    EXPECT_TRUE(state.isVisible());
    EXPECT_EQ(components()->Item("modMain")->DesignerWindow(), nullptr);
}

TEST_F(RoundTrip, MenuCommand) {
    const auto controls = vbe->CommandBars()->Item("add-ins")->Controls();
    const auto command = controls->Add(ide::CommandBarControlType::Button);
    command->setCaption("Do \xE4 it");
    ASSERT_EQ(program->menuModel.addIns().commands().size(), 1U);
    EXPECT_EQ(program->menuModel.addIns().commands()[0]->caption(), "Do \xE4 it");
    command->Delete();
    EXPECT_TRUE(program->menuModel.addIns().commands().empty());
    EXPECT_EQ(errorOf([&] { command->Delete(); }), error(ErrorNumber::ObjectVariableNotSet));
    EXPECT_EQ(errorOf([&] { vbe->CommandBars()->Item("File"); }), error(ErrorNumber::InvalidProcedureCall));
}

TEST_F(RoundTrip, ProgramThatIsGone) {
    const auto bars = vbe->CommandBars();
    program.reset();
    EXPECT_EQ(errorOf([&] { vbe->ActiveVBProject(); }).number, RPC_E_DISCONNECTED);
    EXPECT_EQ(errorOf([&] { bars->Item("Add-Ins"); }).number, RPC_E_DISCONNECTED);
}

TEST(Automation, WrapsNothingAsNothing) {
    EXPECT_EQ(vbe(nullptr), nullptr);
    EXPECT_EQ(commandBarControl(nullptr), nullptr);
    EXPECT_EQ(commandBarEvents(nullptr), nullptr);
    EXPECT_FALSE(objectOf(std::shared_ptr<ide::CommandBarControl>()));
    EXPECT_FALSE(objectOf(std::shared_ptr<ide::CommandBarEvents>()));
}

TEST_F(RoundTrip, CommandsAndTheirEventsAreTheIdesOwnObjects) {
    const auto command =
        vbe->CommandBars()->Item("Add-Ins")->Controls()->Add(ide::CommandBarControlType::Button);
    const auto object = objectOf(command);
    com::Dispatch(object).put(L"Caption", "direct");
    EXPECT_EQ(program->menuModel.addIns().commands()[0]->caption(), "direct");
    EXPECT_TRUE(com::isSameObject(objectOf(commandBarControl(object.get())), object));
    commandBarControl(object.get())->setCaption("wrapped");
    EXPECT_EQ(program->menuModel.addIns().commands()[0]->caption(), "wrapped");

    const auto events = objectOf(vbe->Events()->CommandBarEvents(command));
    ASSERT_TRUE(events);
    EXPECT_TRUE(events.query<IConnectionPointContainer>());
    EXPECT_TRUE(com::isSameObject(objectOf(commandBarEvents(events.get())), events));
}

} // namespace
} // namespace corvelle::automation
