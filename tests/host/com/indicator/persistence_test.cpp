// What a container keeps of the control.

#include "com/error.h"
#include "expected_picture.h"
#include "test_container.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>

namespace corvelle::host {
namespace {

using testing::ElementsAre;

const std::vector<std::string> read{"FillColor",   "ForeColor",   "Interval",  "DotColor",   "visualEffect",
                                    "ScrollColor", "BorderStyle", "BackColor", "BorderColor"};
const std::vector<std::string> written{"FillColor",   "ForeColor",    "Interval",
                                       "DotColor",    "VisualEffect", "ScrollColor",
                                       "BorderStyle", "BackColor",    "BorderColor"};

std::vector<LONG> valuesOf(_Indicator& control) {
    OLE_COLOR fill = 0, fore = 0, dot = 0, scroll = 0, back = 0, border = 0;
    LONG interval = 0, effect = 0, style = 0;
    control.get_FillColor(&fill);
    control.get_ForeColor(&fore);
    control.get_Interval(&interval);
    control.get_DotColor(&dot);
    control.get_VisualEffect(&effect);
    control.get_ScrollColor(&scroll);
    control.get_BorderStyle(&style);
    control.get_Backcolor(&back);
    control.get_BorderColor(&border);
    const auto number = [](OLE_COLOR colour) { return static_cast<LONG>(colour); };
    return {number(fill),   number(fore), interval,     number(dot),   effect,
            number(scroll), style,        number(back), number(border)};
}

const std::vector<LONG> usual{0,
                              static_cast<LONG>(0x80000012),
                              120,
                              0xFF0000,
                              0,
                              0xFF0000,
                              0,
                              static_cast<LONG>(0x8000000F),
                              static_cast<LONG>(0x80000002)};

class IndicatorPersistence : public testing::Test {
  protected:
    ~IndicatorPersistence() override {
        control.reset();
        bag.reset();
        EXPECT_EQ(livingObjects(), before);
    }
    HRESULT load(const com::Ptr<TestBag>& from) {
        return control.query<IPersistPropertyBag>()->Load(from.get(), nullptr);
    }
    HRESULT save(WINBOOL clearDirty, WINBOOL all) {
        return control.query<IPersistPropertyBag>()->Save(bag.get(), clearDirty, all);
    }
    std::vector<std::string> keys() const {
        std::vector<std::string> keys;
        for (const auto& value : bag->values) keys.push_back(value.first);
        return keys;
    }
    bool isDirty() { return control.query<IPersistStreamInit>()->IsDirty() == S_OK; }

    const long before = livingObjects();
    com::Ptr<_Indicator> control = makeIndicator();
    com::Ptr<TestBag> bag = com::make<TestBag>();
};

TEST_F(IndicatorPersistence, WritesNineKeysInTheirOrder) {
    EXPECT_EQ(save(FALSE, TRUE), S_OK);
    ASSERT_EQ(keys(), written);
    for (std::size_t i = 0; i < usual.size(); ++i) {
        EXPECT_EQ(bag->values[i].second.type(), VT_I4);
        EXPECT_EQ(com::longOf(bag->values[i].second), usual[i]);
    }
}

TEST_F(IndicatorPersistence, LeavesOutWhatIsAsUsualUnlessAllIsWanted) {
    control->put_VisualEffect(1);
    control->put_Backcolor(5);
    EXPECT_EQ(save(FALSE, FALSE), S_OK);
    EXPECT_THAT(keys(), ElementsAre("VisualEffect", "BackColor"));
}

TEST_F(IndicatorPersistence, AsksForNineKeysInTheirOrder) {
    EXPECT_EQ(load(bag), S_OK);
    EXPECT_EQ(bag->asked, read);
    EXPECT_EQ(valuesOf(*control), usual);
}

TEST_F(IndicatorPersistence, TakesValuesAsContainersHaveThem) {
    VARIANT unsignedColour{};
    V_VT(&unsignedColour) = VT_UI4;
    V_UI4(&unsignedColour) = 0x80000001;
    bag->set("FillColor", com::Variant(unsignedColour));
    bag->set("forecolor", "255");
    bag->set("VISUALEFFECT", std::int32_t{1});
    bag->set("Interval", com::Variant(" 33 "));
    bag->set("BorderStyle", com::Variant());
    EXPECT_EQ(load(bag), S_OK);
    auto wanted = usual;
    wanted[0] = static_cast<LONG>(0x80000001);
    wanted[1] = 255;
    wanted[2] = 33;
    wanted[4] = 1;
    EXPECT_EQ(valuesOf(*control), wanted);
}

TEST_F(IndicatorPersistence, ToldNonsenseItSaysSo) {
    bag->set("DotColor", "red");
    EXPECT_EQ(load(bag), static_cast<HRESULT>(0x800A000D));
    const auto other = com::make<TestBag>();
    other->set("Interval", std::int32_t{65536});
    EXPECT_EQ(load(other), static_cast<HRESULT>(0x800A017C));
}

TEST_F(IndicatorPersistence, ALoaded3IsABorderAWritten3IsNot) {
    setExtent(control, 70, 25);
    paintWith(*control, 0, 3);
    EXPECT_EQ(viewOf(control, 70, 25), stopped(70, 25, 0));
    EXPECT_EQ(save(FALSE, TRUE), S_OK);
    EXPECT_EQ(load(bag), S_OK);
    EXPECT_EQ(viewOf(control, 70, 25), stopped(70, 25, 2));
    EXPECT_EQ(valuesOf(*control)[6], 3);
}

class SavedControl : public IndicatorPersistence, public testing::WithParamInterface<std::pair<LONG, LONG>> {
  protected:
    void SetUp() override {
        const auto [effect, border] = GetParam();
        setExtent(control, 70, 25);
        paintWith(*control, effect, border);
        control->put_Interval(65432);
        control->put_RaiseTicK(VARIANT_TRUE);
    }
    // Whatever it was kept in, the loaded one is and looks the same.
    void expectSame(const com::Ptr<_Indicator>& loaded) {
        const auto [effect, border] = GetParam();
        EXPECT_EQ(valuesOf(*loaded), valuesOf(*control));
        VARIANT_BOOL raises = VARIANT_TRUE;
        loaded->get_RaiseTicK(&raises);
        EXPECT_EQ(raises, VARIANT_FALSE) << "not persisted";
        setExtent(loaded, 70, 25);
        EXPECT_EQ(viewOf(loaded, 70, 25), stopped(70, 25, border));
        loaded->StartNow();
        EXPECT_EQ(viewOf(loaded, 70, 25), firstFrame(70, 25, effect, border));
    }
};

TEST_P(SavedControl, ComesBackFromAPropertyBag) {
    ASSERT_EQ(save(TRUE, FALSE), S_OK);
    const auto loaded = makeIndicator();
    ASSERT_EQ(loaded.query<IPersistPropertyBag>()->Load(bag.get(), nullptr), S_OK);
    expectSame(loaded);
}

TEST_P(SavedControl, ComesBackFromAStream) {
    com::Ptr<IStream> stream;
    ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.receive()), S_OK);
    ASSERT_EQ(stream->Write("front", 5, nullptr), S_OK); // it is not alone there
    const auto persist = control.query<IPersistStreamInit>();
    ASSERT_EQ(persist->Save(stream.get(), TRUE), S_OK);
    ULARGE_INTEGER at{}, most{};
    stream->Seek({}, STREAM_SEEK_CUR, &at);
    EXPECT_EQ(persist->GetSizeMax(&most), S_OK);
    EXPECT_EQ(at.QuadPart, 5 + most.QuadPart);
    ASSERT_EQ(stream->Write("back", 4, nullptr), S_OK);
    LARGE_INTEGER start{};
    start.QuadPart = 5;
    stream->Seek(start, STREAM_SEEK_SET, nullptr);
    const auto loaded = makeIndicator();
    ASSERT_EQ(loaded.query<IPersistStream>()->Load(stream.get()), S_OK);
    stream->Seek({}, STREAM_SEEK_CUR, &at);
    EXPECT_EQ(at.QuadPart, 5 + most.QuadPart) << "it takes what is its own";
    expectSame(loaded);
}

INSTANTIATE_TEST_SUITE_P(Looks, SavedControl,
                         testing::Values(std::pair{0, 0}, std::pair{1, 1}, std::pair{0, 2}, std::pair{1, 2}));

TEST_F(IndicatorPersistence, ATornStreamChangesNothing) {
    control->put_Interval(50);
    com::Ptr<IStream> whole;
    ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, whole.receive()), S_OK);
    ASSERT_EQ(control.query<IPersistStreamInit>()->Save(whole.get(), FALSE), S_OK);
    STATSTG status{};
    whole->Stat(&status, STATFLAG_NONAME);
    control->put_Interval(60);
    for (ULONG length = 0; length < status.cbSize.QuadPart; ++length) {
        com::Ptr<IStream> torn;
        ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, torn.receive()), S_OK);
        ULARGE_INTEGER count{};
        count.QuadPart = length;
        whole->Seek({}, STREAM_SEEK_SET, nullptr);
        whole->CopyTo(torn.get(), count, nullptr, nullptr);
        torn->Seek({}, STREAM_SEEK_SET, nullptr);
        EXPECT_EQ(control.query<IPersistStreamInit>()->Load(torn.get()), STG_E_READFAULT) << length;
        EXPECT_EQ(valuesOf(*control)[2], 60);
    }
    com::Ptr<IStream> foreign;
    ASSERT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, foreign.receive()), S_OK);
    foreign->Write("something else", 14, nullptr);
    foreign->Seek({}, STREAM_SEEK_SET, nullptr);
    EXPECT_EQ(control.query<IPersistStreamInit>()->Load(foreign.get()), STG_E_INVALIDHEADER);
    EXPECT_EQ(valuesOf(*control)[2], 60);
}

com::Ptr<IStream> streamOf(const std::string& bytes) {
    com::Ptr<IStream> stream;
    EXPECT_EQ(CreateStreamOnHGlobal(nullptr, TRUE, stream.receive()), S_OK);
    stream->Write(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    return stream;
}

std::string bytesOf(const com::Ptr<IStream>& stream) {
    STATSTG status{};
    stream->Stat(&status, STATFLAG_NONAME);
    std::string bytes(static_cast<std::size_t>(status.cbSize.QuadPart), '\0');
    stream->Seek({}, STREAM_SEEK_SET, nullptr);
    stream->Read(bytes.data(), static_cast<ULONG>(bytes.size()), nullptr);
    return bytes;
}

// Bytes changed, gone and added, from a fixed seed.
std::string damaged(std::string bytes, std::mt19937& random) {
    for (auto changes = random() % 4 + 1; changes > 0; --changes) {
        const auto place = random() % (bytes.size() + 1);
        const auto byte = static_cast<char>(random());
        switch (random() % 4) {
        case 0:
            bytes.erase(place, random() % 6);
            break;
        case 1:
            bytes.insert(place, random() % 6, byte);
            break;
        default:
            if (place < bytes.size()) bytes[place] = byte;
        }
    }
    return bytes;
}

TEST_F(IndicatorPersistence, ADamagedStreamIsTakenOrRefused) {
    const auto saved = streamOf({});
    ASSERT_EQ(control.query<IPersistStreamInit>()->Save(saved.get(), FALSE), S_OK);
    const auto whole = bytesOf(saved);
    std::mt19937 random(1);
    int taken = 0, refused = 0;
    for (int i = 0; i < 3000; ++i) {
        SCOPED_TRACE(i);
        const HRESULT result =
            control.query<IPersistStreamInit>()->Load(streamOf(damaged(whole, random)).get());
        ++(result == S_OK ? taken : refused);
        const auto interval = valuesOf(*control)[2];
        EXPECT_TRUE(interval >= 0 && interval <= 65535) << interval;
        if (result != S_OK) {
            EXPECT_TRUE(result == STG_E_READFAULT || result == STG_E_INVALIDHEADER ||
                        result == static_cast<HRESULT>(0x800A017C))
                << std::hex << result;
            continue;
        }
        const auto again = streamOf({});
        ASSERT_EQ(control.query<IPersistStreamInit>()->Save(again.get(), FALSE), S_OK);
        const auto other = makeIndicator();
        ASSERT_EQ(other.query<IPersistStreamInit>()->Load(streamOf(bytesOf(again)).get()), S_OK);
        EXPECT_EQ(valuesOf(*other), valuesOf(*control));
    }
    EXPECT_GT(taken, 300);
    EXPECT_GT(refused, 300);
}

TEST_F(IndicatorPersistence, ABagOfAnyValuesIsTakenOrRefused) {
    std::mt19937 random(2);
    int taken = 0, refused = 0;
    for (int i = 0; i < 2000; ++i) {
        SCOPED_TRACE(i);
        const auto any = com::make<TestBag>();
        for (const auto& key : read) {
            const auto number = static_cast<std::int32_t>(random() >> random() % 32);
            VARIANT value{};
            switch (random() % 12) {
            case 0:
                V_VT(&value) = VT_UI4;
                V_UI4(&value) = static_cast<ULONG>(number);
                break;
            case 1:
                V_VT(&value) = VT_R8;
                V_R8(&value) = number * 1.5;
                break;
            case 2:
                V_VT(&value) = VT_BOOL;
                V_BOOL(&value) = number % 2 == 0 ? VARIANT_TRUE : VARIANT_FALSE;
                break;
            case 3:
                any->set(key, com::Variant(std::to_string(number)));
                continue;
            case 4:
                continue;
            default:
                any->set(key, number & 0xFFFF);
                continue;
            }
            any->set(key, com::Variant(value));
        }
        const HRESULT result = load(any);
        ++(result == S_OK ? taken : refused);
        const auto interval = valuesOf(*control)[2];
        EXPECT_TRUE(interval >= 0 && interval <= 65535) << interval;
        if (result != S_OK) {
            EXPECT_TRUE(result == static_cast<HRESULT>(0x800A017C) || // no such interval
                        result == static_cast<HRESULT>(0x800A0006))   // overflow
                << std::hex << result;
            continue;
        }
        bag->values.clear();
        ASSERT_EQ(save(FALSE, TRUE), S_OK);
        const auto other = makeIndicator();
        ASSERT_EQ(other.query<IPersistPropertyBag>()->Load(bag.get(), nullptr), S_OK);
        EXPECT_EQ(valuesOf(*other), valuesOf(*control));
    }
    EXPECT_GT(taken, 200);
    EXPECT_GT(refused, 200);
}

TEST_F(IndicatorPersistence, KnowsWhetherItHasToBeSaved) {
    EXPECT_EQ(control.query<IPersistStreamInit>()->InitNew(), S_OK);
    EXPECT_TRUE(isDirty()) << "a new one was never saved";
    EXPECT_EQ(save(FALSE, TRUE), S_OK);
    EXPECT_TRUE(isDirty());
    EXPECT_EQ(save(TRUE, TRUE), S_OK);
    EXPECT_FALSE(isDirty());
    control->StartNow();
    control->stopNow();
    control->put_RaiseTicK(VARIANT_TRUE);
    EXPECT_FALSE(isDirty());
    control->put_DotColor(1);
    EXPECT_TRUE(isDirty());
    EXPECT_EQ(load(bag), S_OK);
    EXPECT_FALSE(isDirty());
}

TEST_F(IndicatorPersistence, ANewOneStartsAnew) {
    control->put_VisualEffect(1);
    control->put_BorderStyle(2);
    control->put_Interval(10);
    control->StartNow();
    EXPECT_EQ(control.query<IPersistPropertyBag>()->InitNew(), S_OK);
    EXPECT_EQ(valuesOf(*control), usual);
    pump(50);
    LONG time = -1;
    control->get_RunTimeInterval(&time);
    EXPECT_EQ(time, 0);
}

/// Takes nothing.
class FullBag : public com::Object<IPropertyBag> {
  public:
    HRESULT STDMETHODCALLTYPE Read(LPCOLESTR, VARIANT*, IErrorLog*) override { return E_FAIL; }
    HRESULT STDMETHODCALLTYPE Write(LPCOLESTR, VARIANT*) override { return STG_E_MEDIUMFULL; }
};

TEST_F(IndicatorPersistence, WhatCannotBeSavedStaysToBeSaved) {
    const auto full = com::make<FullBag>();
    EXPECT_EQ(control.query<IPersistPropertyBag>()->Save(full.get(), TRUE, TRUE), STG_E_MEDIUMFULL);
    EXPECT_TRUE(isDirty());
    EXPECT_EQ(control.query<IPersistPropertyBag>()->Save(nullptr, TRUE, TRUE), E_POINTER);
    EXPECT_EQ(control.query<IPersistStreamInit>()->Load(nullptr), E_POINTER);
}

} // namespace
} // namespace corvelle::host
