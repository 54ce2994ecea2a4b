#include "base/error_of.h"
#include "com/scripted_object.h"
#include "ide/automation/automation.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace corvelle::automation {
namespace {

using base::ErrorNumber;
using com::Variant;
using test::error;
using test::errorOf;
using test::ErrorSeen;
using test::ScriptedObject;
using testing::ElementsAre;

// An IDE in which one object plays every part, so that every road leads to it.
struct HostileIde : testing::Test {
    const long before = com::objectCount();
    com::Ptr<ScriptedObject> object = com::make<ScriptedObject>();
    std::shared_ptr<ide::VBE> vbe = automation::vbe(object.get());

    HostileIde() {
        for (const auto* name :
             {L"ActiveVBProject", L"ActiveCodePane", L"CommandBars", L"Events", L"VBComponents", L"Item",
              L"CodeModule", L"Designer", L"DesignerWindow", L"VBControls", L"Properties", L"Controls",
              L"Add", L"CommandBarEvents", L"Parent"})
            givesItself(name);
    }
    ~HostileIde() override {
        object->members.clear();
        vbe.reset();
        object.reset();
        EXPECT_EQ(com::objectCount(), before);
    }

    void givesItself(const wchar_t* name) {
        object->members[name] = [this](ScriptedObject::Call& call) {
            call.result = Variant(object);
            return S_OK;
        };
    }
    std::shared_ptr<ide::VBProject> project() { return vbe->ActiveVBProject(); }
    std::shared_ptr<ide::VBComponent> component() { return project()->VBComponents()->Item(1); }
    std::shared_ptr<ide::CodeModule> code() { return vbe->ActiveCodePane()->CodeModule(); }
    std::shared_ptr<ide::VBControl> control() { return component()->Designer()->VBControls()->Item(1); }
    std::shared_ptr<ide::CommandBarControls> menu() { return vbe->CommandBars()->Item("m")->Controls(); }
    std::shared_ptr<ide::CommandBarControl> command() {
        return menu()->Add(ide::CommandBarControlType::Button);
    }

    // Every call of the model by the name of its member.
    struct Call {
        const wchar_t* name;
        std::function<void()> run;
        bool givesObject = false;
    };
    std::vector<Call> calls() {
        return {
            {L"ActiveVBProject", [this] { vbe->ActiveVBProject(); }, true},
            {L"ActiveCodePane", [this] { vbe->ActiveCodePane(); }, true},
            {L"CommandBars", [this] { vbe->CommandBars(); }, true},
            {L"Events", [this] { vbe->Events(); }, true},
            {L"Name", [p = project()] { p->Name(); }},
            {L"FileName", [p = project()] { p->FileName(); }},
            {L"Type", [p = project()] { p->Type(); }},
            {L"IsDirty", [p = project()] { p->IsDirty(); }},
            {L"VBComponents", [p = project()] { p->VBComponents(); }, true},
            {L"Count", [c = project()->VBComponents()] { c->Count(); }},
            {L"Item", [c = project()->VBComponents()] { c->Item(1); }, true},
            {L"Item", [c = project()->VBComponents()] { c->Item("x"); }, true},
            {L"Add", [c = project()->VBComponents()] { c->Add(ide::ComponentType::StdModule); }, true},
            {L"Name", [c = component()] { c->Name(); }},
            {L"Name", [c = component()] { c->setName("x"); }},
            {L"Type", [c = component()] { c->Type(); }},
            {L"IsDirty", [c = component()] { c->IsDirty(); }},
            {L"FileNames", [c = component()] { c->FileNames(1); }},
            {L"CodeModule", [c = component()] { c->CodeModule(); }, true},
            {L"Designer", [c = component()] { c->Designer(); }, true},
            {L"DesignerWindow", [c = component()] { c->DesignerWindow(); }, true},
            {L"Activate", [c = component()] { c->Activate(); }},
            {L"SaveAs", [c = component()] { c->SaveAs("x"); }},
            {L"SetFocus", [w = component()->DesignerWindow()] { w->SetFocus(); }},
            {L"Close", [w = component()->DesignerWindow()] { w->Close(); }},
            {L"VBControls", [f = component()->Designer()] { f->VBControls(); }, true},
            {L"Count", [c = component()->Designer()->VBControls()] { c->Count(); }},
            {L"Item", [c = component()->Designer()->VBControls()] { c->Item(1); }, true},
            {L"ClassName", [c = control()] { c->ClassName(); }},
            {L"Properties", [c = control()] { c->Properties(); }, true},
            {L"Item", [p = control()->Properties()] { p->Item("x"); }, true},
            {L"Value", [p = control()->Properties()->Item("x")] { p->Value(); }},
            {L"CodeModule", [p = vbe->ActiveCodePane()] { p->CodeModule(); }, true},
            {L"Name", [m = code()] { m->Name(); }},
            {L"Parent", [m = code()] { m->Parent(); }, true},
            {L"CountOfLines", [m = code()] { m->CountOfLines(); }},
            {L"Lines", [m = code()] { m->Lines(1, 1); }},
            {L"DeleteLines", [m = code()] { m->DeleteLines(1, 1); }},
            {L"InsertLines", [m = code()] { m->InsertLines(1, "x"); }},
            {L"Item", [b = vbe->CommandBars()] { b->Item("x"); }, true},
            {L"Controls", [b = vbe->CommandBars()->Item("m")] { b->Controls(); }, true},
            {L"Add", [c = menu()] { c->Add(ide::CommandBarControlType::Button); }, true},
            {L"Caption", [c = command()] { c->setCaption("x"); }},
            {L"Delete", [c = command()] { c->Delete(); }},
            {L"CommandBarEvents", [e = vbe->Events(), c = command()] { e->CommandBarEvents(c); }, true},
        };
    }
};

TEST_F(HostileIde, RaisesItsOwnErrorsFromEveryCall) {
    for (const auto& call : calls()) {
        const auto saved = object->members;
        object->members[call.name] = [](ScriptedObject::Call& made) {
            made.information->scode = static_cast<HRESULT>(0x800A0000 + 40198);
            made.information->bstrDescription = SysAllocString(L"The IDE says no");
            return DISP_E_EXCEPTION;
        };
        EXPECT_EQ(errorOf(call.run), (ErrorSeen{40198, "The IDE says no"}))
            << std::string(call.name, call.name + wcslen(call.name));
        object->members = saved;
    }
}

TEST_F(HostileIde, FailsInEveryCallWithoutADescription) {
    for (const auto& call : calls()) {
        const auto saved = object->members;
        object->fails(call.name, E_FAIL);
        EXPECT_EQ(errorOf(call.run).number, E_FAIL);
        object->members = saved;
    }
}

TEST_F(HostileIde, LacksAnyMember) {
    for (const auto& call : calls()) {
        const auto saved = object->members;
        object->members.erase(call.name);
        EXPECT_EQ(errorOf(call.run), error(ErrorNumber::MemberNotSupported));
        object->members = saved;
    }
}

TEST_F(HostileIde, AnswersNothingForAnObject) {
    object->answers(L"ActiveCodePane", Variant());
    EXPECT_EQ(vbe->ActiveCodePane(), nullptr);
    object->answers(L"ActiveCodePane", Variant(static_cast<IDispatch*>(nullptr)));
    EXPECT_EQ(vbe->ActiveCodePane(), nullptr);
    object->answers(L"CommandBarEvents", Variant(static_cast<IUnknown*>(nullptr)));
    EXPECT_EQ(vbe->Events()->CommandBarEvents(command()), nullptr);
    object->answers(L"Designer", Variant());
    EXPECT_EQ(component()->Designer(), nullptr);
}

TEST_F(HostileIde, AnswersAnotherKindOfValue) {
    for (const auto& call : calls()) {
        if (!call.givesObject) continue;
        const auto saved = object->members;
        object->answers(call.name, 5);
        EXPECT_EQ(errorOf(call.run), error(ErrorNumber::ObjectRequired));
        object->members = saved;
    }
    object->answers(L"CountOfLines", "many");
    EXPECT_EQ(errorOf([&] { code()->CountOfLines(); }), error(ErrorNumber::TypeMismatch));
    object->answers(L"CountOfLines", "12");
    EXPECT_EQ(code()->CountOfLines(), 12);
    object->answers(L"Name", 12);
    EXPECT_EQ(project()->Name(), "12");
    object->answers(L"IsDirty", -1);
    EXPECT_TRUE(project()->IsDirty());
    object->answers(L"Value", Variant());
    EXPECT_EQ(control()->Properties()->Item("x")->Value(), "");
    object->answers(L"Value", true);
    EXPECT_EQ(control()->Properties()->Item("x")->Value(), "True");
}

TEST_F(HostileIde, HasTextThatIsNotInTheCodePage) {
    object->answers(L"Lines", Variant(com::Bstr(std::wstring_view(L"x = \"\u03A9\""))));
    EXPECT_EQ(errorOf([&] { code()->Lines(1, 1); }).number, 13);
    object->answers(L"Lines", Variant(com::Bstr(std::wstring_view(L"\u20AC?"))));
    EXPECT_EQ(code()->Lines(1, 1), "\x80?");
}

TEST_F(HostileIde, SaysThatNothingWasSaved) {
    object->answers(L"SaveAs", false);
    component()->SaveAs("x.bas");
}

TEST_F(HostileIde, IsAskedForANameOnceAnObject) {
    object->answers(L"Lines", "x");
    object->answers(L"InsertLines", Variant());
    const auto module = code();
    object->lookups.clear();
    for (int line = 1; line < 100; ++line) {
        module->Lines(line, 1);
        module->InsertLines(line, "x");
    }
    EXPECT_THAT(object->lookups, ElementsAre(L"Lines", L"InsertLines"));
}

TEST_F(HostileIde, GetsPlainArguments) {
    object->members[L"Item"] = [this](ScriptedObject::Call& call) {
        EXPECT_EQ(call.parameters.cArgs, 1U);
        EXPECT_THAT(V_VT(&call.parameters.rgvarg[0]), testing::AnyOf(VT_I4, VT_BSTR));
        EXPECT_EQ(call.kind, DISPATCH_METHOD | DISPATCH_PROPERTYGET);
        call.result = Variant(object);
        return S_OK;
    };
    control()->Properties()->Item("Name");
    menu();
}

} // namespace
} // namespace corvelle::automation
