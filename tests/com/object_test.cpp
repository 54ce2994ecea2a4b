#include "com/object.h"

#include <gtest/gtest.h>
#include <ole2.h>

namespace corvelle::com {
namespace {

class TwoFaces : public Object<IOleWindow, IPersist> {
  public:
    bool* gone = nullptr;
    ~TwoFaces() override {
        const Ptr<IUnknown> last(static_cast<IOleWindow*>(this)); // does not end it twice
        if (gone) *gone = true;
    }
    HRESULT STDMETHODCALLTYPE GetWindow(HWND*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ContextSensitiveHelp(BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetClassID(CLSID*) override { return S_FALSE; }
};

TEST(ComObject, AnswersEachOfItsInterfacesWithOneIdentity) {
    const auto object = make<TwoFaces>();
    const auto persist = Ptr<IOleWindow>(object).query<IPersist>();
    ASSERT_TRUE(persist);
    EXPECT_EQ(persist->GetClassID(nullptr), S_FALSE);
    EXPECT_TRUE(isSameObject(persist, Ptr<IOleWindow>(object)));
    EXPECT_FALSE(isSameObject(persist, make<TwoFaces>()));
    EXPECT_FALSE(persist.query<IDispatch>());
    EXPECT_EQ(object->QueryInterface(IID_IUnknown, nullptr), E_POINTER);
}

TEST(ComObject, CountsAmongTheModulesObjectsUntilItsLastReference) {
    const auto before = objectCount();
    bool gone = false;
    auto first = make<TwoFaces>();
    first->gone = &gone;
    Ptr<IPersist> second = first;
    EXPECT_EQ(objectCount(), before + 1);
    first.reset();
    EXPECT_FALSE(gone);
    second = nullptr;
    EXPECT_TRUE(gone);
    EXPECT_EQ(objectCount(), before);
    lockModule();
    EXPECT_EQ(objectCount(), before + 1);
    unlockModule();
}

TEST(ComPtr, CountsItsReferences) {
    const auto before = objectCount();
    {
        Ptr<IOleWindow> first = make<TwoFaces>();
        Ptr<IOleWindow> second = first;
        const Ptr<IOleWindow> third = std::move(first);
        EXPECT_FALSE(first);
        auto& same = second;
        second = same;
        auto* raw = second.release();
        EXPECT_EQ(Ptr<IOleWindow>::take(raw).get(), third.get());
        EXPECT_FALSE(Ptr<IOleWindow>().query<IPersist>());
    }
    EXPECT_EQ(objectCount(), before);
}

} // namespace
} // namespace corvelle::com
