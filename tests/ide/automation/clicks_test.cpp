#include "base/error_of.h"
#include "com/scripted_object.h"
#include "ide/automation/served_ide.h"

#include <functional>
#include <ocidl.h>
#include <olectl.h>
#include <vector>

namespace corvelle::automation {
namespace {

using base::ErrorNumber;
using test::error;
using test::errorOf;

constexpr IID clickEvents = {0x0002E198, 0, 0, {0xC0, 0, 0, 0, 0, 0, 0, 0x46}};

struct Clicks : test::ServedIde {
    std::shared_ptr<ide::CommandBarControl> command = add();
    std::shared_ptr<ide::CommandBarEvents> source = vbe->Events()->CommandBarEvents(command);
    int clicks = 0;

    std::shared_ptr<ide::CommandBarControl> add() {
        return vbe->CommandBars()->Item("Add-Ins")->Controls()->Add(ide::CommandBarControlType::Button);
    }
    void count() {
        source->setClick([this](ide::CommandBarControl&, bool&, bool&) { ++clicks; });
    }
    void userClicks(std::size_t index = 0) {
        const auto chosen = program->menuModel.addIns().commands()[index];
        chosen->Execute();
    }
};

TEST_F(Clicks, ReachTheHandlerOfTheirCommand) {
    add();
    count();
    userClicks();
    EXPECT_EQ(clicks, 1);
    userClicks(1);
    EXPECT_EQ(clicks, 1);
    com::Dispatch(objectOf(command)).call(L"Execute");
    EXPECT_EQ(clicks, 2);
}

TEST_F(Clicks, BringTheCommand) {
    source->setClick([&](ide::CommandBarControl& clicked, bool& handled, bool& cancelDefault) {
        EXPECT_FALSE(handled);
        EXPECT_FALSE(cancelDefault);
        clicked.setCaption("clicked");
        handled = true;
    });
    userClicks();
    EXPECT_EQ(program->menuModel.addIns().commands()[0]->caption(), "clicked");
}

TEST_F(Clicks, EndWithTheHandler) {
    count();
    source->setClick({});
    userClicks();
    count();
    source->setClick([](ide::CommandBarControl&, bool&, bool&) {}); // in place of the other
    userClicks();
    count();
    source.reset();
    userClicks();
    EXPECT_EQ(clicks, 0);
}

TEST_F(Clicks, MayTakeTheirHandlerAndTheirCommandAway) {
    source->setClick([this](ide::CommandBarControl& clicked, bool&, bool&) {
        ++clicks;
        source->setClick({});
        source.reset();
        clicked.Delete();
        command.reset();
    });
    userClicks();
    EXPECT_EQ(clicks, 1);
    EXPECT_TRUE(program->menuModel.addIns().commands().empty());
}

TEST_F(Clicks, LetNoFailureOutOfTheHandler) {
    source->setClick(
        [](ide::CommandBarControl&, bool&, bool&) { throw base::RunTimeError(ErrorNumber::DiskFull); });
    EXPECT_EQ(errorOf([&] { userClicks(); }).number, 0);
}

TEST_F(Clicks, NeedACommandOfTheIde) {
    class Foreign : public ide::CommandBarControl {
        void setCaption(std::string_view) override {}
        void Delete() override {}
    };
    EXPECT_EQ(errorOf([&] { vbe->Events()->CommandBarEvents(std::make_shared<Foreign>()); }),
              error(ErrorNumber::TypeMismatch));
    EXPECT_EQ(errorOf([&] { vbe->Events()->CommandBarEvents(nullptr); }), error(ErrorNumber::TypeMismatch));
}

TEST_F(Clicks, EndWithTheirSourceThoughItsConnectionPointIsHeld) {
    count();
    com::Ptr<IConnectionPoint> point;
    objectOf(source).query<IConnectionPointContainer>()->FindConnectionPoint(clickEvents, point.receive());
    ASSERT_TRUE(point);
    com::Ptr<IConnectionPointContainer> container;
    EXPECT_EQ(point->GetConnectionPointContainer(container.receive()), S_OK);
    EXPECT_TRUE(com::isSameObject(container, objectOf(source)));
    container.reset();
    source.reset();
    EXPECT_EQ(point->GetConnectionPointContainer(container.receive()), E_UNEXPECTED);
    DWORD cookie = 0;
    EXPECT_EQ(point->Advise(com::make<test::ScriptedObject>().get(), &cookie), CONNECT_E_CANNOTCONNECT);
    userClicks();
    EXPECT_EQ(clicks, 0);
}

TEST_F(Clicks, NeedASourceOfEvents) {
    const auto object = com::make<test::ScriptedObject>();
    const auto odd = commandBarEvents(object.get());
    EXPECT_EQ(errorOf([&] { odd->setClick([](ide::CommandBarControl&, bool&, bool&) {}); }),
              error(ErrorNumber::MemberNotSupported));
    odd->setClick({});
}

// A source whose calls to its sink are made here.
class OddSource : public com::Object<IConnectionPointContainer, IConnectionPoint> {
  public:
    com::Ptr<IDispatch> sink, last;

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID, IConnectionPoint** point) override {
        AddRef();
        *point = this;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetConnectionInterface(IID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetConnectionPointContainer(IConnectionPointContainer**) override {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE Advise(IUnknown* object, DWORD* cookie) override {
        sink = last = com::Ptr<IUnknown>(object).queryAs<IDispatch>(clickEvents);
        *cookie = 7;
        return sink ? S_OK : E_FAIL;
    }
    HRESULT STDMETHODCALLTYPE Unadvise(DWORD cookie) override {
        EXPECT_EQ(cookie, 7U);
        sink.reset();
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE EnumConnections(IEnumConnections**) override { return E_NOTIMPL; }
};

struct OddClicks : testing::Test {
    com::Ptr<OddSource> odd = com::make<OddSource>();
    std::shared_ptr<ide::CommandBarEvents> source =
        commandBarEvents(static_cast<IConnectionPointContainer*>(odd.get()));
    int clicks = 0;
    bool wantHandled = false, wantCancel = false;
    test::ErrorSeen captionError;

    OddClicks() {
        source->setClick([this](ide::CommandBarControl& command, bool& handled, bool& cancelDefault) {
            ++clicks;
            if (wantHandled) handled = !handled;
            if (wantCancel) cancelDefault = !cancelDefault;
            captionError = errorOf([&] { command.setCaption("x"); });
        });
    }
    HRESULT invoke(std::vector<VARIANT> arguments, DISPID id = 1) {
        DISPPARAMS parameters{arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
        return odd->last->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
    }
    static VARIANT reference(VARIANT_BOOL& truth) {
        VARIANT value;
        VariantInit(&value);
        V_VT(&value) = VT_BYREF | VT_BOOL;
        V_BOOLREF(&value) = &truth;
        return value;
    }
};

TEST_F(OddClicks, AnswerOnlyWhatTheHandlerChanges) {
    VARIANT_BOOL cancelDefault = 5, handled = 5; // both are true
    const com::Variant nothing;
    invoke({reference(cancelDefault), reference(handled), nothing.get()});
    EXPECT_EQ(cancelDefault, 5);
    EXPECT_EQ(handled, 5);
    wantHandled = true;
    invoke({reference(cancelDefault), reference(handled), nothing.get()});
    EXPECT_EQ(cancelDefault, 5);
    EXPECT_EQ(handled, VARIANT_FALSE);
    EXPECT_EQ(clicks, 2);
}

TEST_F(OddClicks, WriteTheirAnswersThrough) {
    const auto object = com::make<test::ScriptedObject>();
    object->answers(L"Caption", 0);
    const com::Variant command(object);
    wantHandled = wantCancel = true;
    VARIANT_BOOL cancelDefault = VARIANT_TRUE, handled = VARIANT_FALSE;
    invoke({reference(cancelDefault), reference(handled), command.get()});
    EXPECT_EQ(handled, VARIANT_TRUE);
    EXPECT_EQ(cancelDefault, VARIANT_FALSE);
    VARIANT inner = com::Variant(false).release(), outer;
    VariantInit(&outer);
    V_VT(&outer) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&outer) = &inner;
    invoke({outer, reference(handled), command.get()});
    EXPECT_EQ(V_BOOL(&inner), VARIANT_TRUE);
}

TEST_F(OddClicks, TolerateArgumentsThatAreMissingOrOdd) {
    wantHandled = wantCancel = true;
    const com::Variant text("odd"), number(3), missing(com::missing);
    VARIANT null = com::Variant().release();
    V_VT(&null) = VT_BYREF | VT_BOOL; // to nowhere
    V_BOOLREF(&null) = nullptr;
    EXPECT_EQ(invoke({}), S_OK);
    EXPECT_EQ(captionError, error(ErrorNumber::ObjectVariableNotSet)); // no command, no caption
    EXPECT_EQ(invoke({text.get()}), S_OK);
    EXPECT_EQ(invoke({text.get(), number.get(), missing.get()}), S_OK);
    EXPECT_EQ(invoke({null, null, null}), S_OK);
    EXPECT_EQ(clicks, 4);
    EXPECT_EQ(odd->last->Invoke(1, IID_NULL, 0, DISPATCH_METHOD, nullptr, nullptr, nullptr, nullptr), S_OK);
    EXPECT_EQ(clicks, 5);
    EXPECT_EQ(invoke({}, 2), S_OK); // another event
    EXPECT_EQ(clicks, 5);
}

TEST_F(OddClicks, ThatComeLateReachNobody) {
    source->setClick({});
    EXPECT_FALSE(odd->sink);
    EXPECT_EQ(invoke({}), S_OK);
    source.reset();
    EXPECT_EQ(invoke({}), S_OK);
    EXPECT_EQ(clicks, 0);
}

TEST_F(OddClicks, LeaveTheSourceWithTheirOwner) {
    source.reset();
    EXPECT_FALSE(odd->sink);
}

} // namespace
} // namespace corvelle::automation
