// What the control tells its container: ticks and changed properties.

#include "com/error.h"
#include "test_container.h"

#include <atomic>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <olectl.h>
#include <optional>
#include <thread>

namespace corvelle::host {
namespace {

using testing::ElementsAre;

class IndicatorEvents : public testing::Test {
  protected:
    void SetUp() override {
        sink->ticks = 0;
        connection.emplace(control.get(), __uuidof(__Indicator), sink.get());
        control->put_Interval(10);
        control->put_RaiseTicK(VARIANT_TRUE);
    }
    void TearDown() override {
        connection.reset();
        control.reset();
        sink.reset();
        container.reset();
        EXPECT_EQ(livingObjects(), before);
    }
    com::Ptr<IConnectionPoint> point(REFIID iid) {
        com::Ptr<IConnectionPoint> found;
        EXPECT_EQ(control.query<IConnectionPointContainer>()->FindConnectionPoint(iid, found.receive()),
                  S_OK);
        return found;
    }

    const long before = livingObjects();
    com::Ptr<_Indicator> control = makeIndicator();
    com::Ptr<TickSink> sink = com::make<TickSink>();
    com::Ptr<TestContainer> container = com::make<TestContainer>();
    std::optional<com::Connection> connection;
};

TEST_F(IndicatorEvents, TicksAsOftenAsItCounts) {
    control->StartNow();
    ASSERT_TRUE(pumpUntil([this] { return sink->ticks >= 5; }));
    control->PauseNow();
    LONG time = 0;
    control->get_RunTimeInterval(&time);
    EXPECT_EQ(time, sink->ticks * 10);
    const int now = sink->ticks;
    pump(60);
    EXPECT_EQ(sink->ticks, now);
    control->ResumeNow();
    EXPECT_TRUE(pumpUntil([&] { return sink->ticks > now; }));
    control->stopNow();
}

TEST_F(IndicatorEvents, TicksOnlyWhereTheyAreWanted) {
    control->put_RaiseTicK(VARIANT_FALSE);
    control->StartNow();
    const auto time = [this] {
        LONG value = 0;
        control->get_RunTimeInterval(&value);
        return value;
    };
    ASSERT_TRUE(pumpUntil([&] { return time() >= 30; }));
    EXPECT_EQ(sink->ticks, 0);
    control->put_RaiseTicK(VARIANT_TRUE);
    const auto frozen = control.query<IOleControl>();
    frozen->FreezeEvents(TRUE);
    frozen->FreezeEvents(TRUE);
    frozen->FreezeEvents(FALSE);
    const LONG then = time();
    ASSERT_TRUE(pumpUntil([&] { return time() >= then + 30; }));
    EXPECT_EQ(sink->ticks, 0);
    frozen->FreezeEvents(FALSE);
    EXPECT_TRUE(pumpUntil([this] { return sink->ticks > 0; }));
    connection.reset();
    const int last = sink->ticks;
    pump(60);
    EXPECT_EQ(sink->ticks, last);
}

TEST_F(IndicatorEvents, EveryListenerHearsEvenAfterOneThatFails) {
    const auto other = com::make<TickSink>();
    const com::Connection second(control.get(), __uuidof(__Indicator), other.get());
    sink->doing = [] { throw base::RunTimeError(base::ErrorNumber::Overflow); };
    control->StartNow();
    EXPECT_TRUE(pumpUntil([&] { return sink->ticks >= 3 && other->ticks >= 3; }));
    control->stopNow();
}

TEST_F(IndicatorEvents, LetGoOfInsideATickItGoesQuietly) {
    container->host(control);
    container->activate();
    control->put_VisualEffect(1);
    sink->doing = [this] {
        sink->doing = nullptr;
        connection.reset();
        container->leave();
        control.reset();
    };
    control->StartNow();
    ASSERT_TRUE(pumpUntil([this] { return !control; }));
    pump(60);
    EXPECT_EQ(sink->ticks, 1);
}

// It yields when it stops and, with the bar, at every frame.
TEST_F(IndicatorEvents, LetGoOfWhileItYieldsItGoesQuietly) {
    connection.reset();
    for (const bool stopping : {true, false}) {
        control = makeIndicator();
        control->put_VisualEffect(stopping ? 0 : 1);
        container->host(control);
        container->activate();
        if (stopping) control->StartNow();
        const auto called = control; // as VB does for the time of a call
        container->post([&] {
            container->leave();
            control.reset();
        });
        EXPECT_EQ(stopping ? called->stopNow() : called->StartNow(), S_OK);
        EXPECT_FALSE(control) << "inside the call";
    }
}

// The caller's reference goes too.
TEST_F(IndicatorEvents, LetGoOfByItsOnlyOwnerWhileItStops) {
    connection.reset();
    control->StartNow();
    auto* const raw = control.release();
    container->post([raw] {
        raw->Release();
        EXPECT_EQ(callModule("DllCanUnloadNow"), S_FALSE) << "it is still stopping";
    });
    EXPECT_EQ(raw->stopNow(), S_OK);
    EXPECT_EQ(livingObjects(), before + 2) << "the sink and the container are left";
}

// Of an aggregate the outer object tells when it goes.
TEST_F(IndicatorEvents, ItStaysUntilItsOwnWorkIsDone) {
    for (const bool ticking : {true, false}) {
        connection.reset();
        bool gone = false;
        auto outer = com::make<Aggregate>(&gone);
        outer->inner = makeControl(static_cast<IOleClientSite*>(outer.get()));
        control = outer.query<_Indicator>();
        auto* const raw = control.get();
        const auto letGo = [&] {
            outer.reset();
            control.reset();
            EXPECT_FALSE(gone);
        };
        if (ticking) {
            connection.emplace(raw, __uuidof(__Indicator), sink.get());
            sink->doing = [&] {
                sink->doing = nullptr;
                connection.reset();
                letGo();
            };
            raw->put_Interval(10);
            raw->put_RaiseTicK(VARIANT_TRUE);
            raw->StartNow();
            EXPECT_TRUE(pumpUntil([&] { return gone; }));
        } else {
            DWORD cookie = 0;
            ASSERT_EQ(point(IID_IPropertyNotifySink)
                          ->Advise(static_cast<IPropertyNotifySink*>(container.get()), &cookie),
                      S_OK);
            container->doing["OnChanged 8"] = letGo;
            EXPECT_EQ(raw->put_BorderStyle(1), S_OK);
            EXPECT_TRUE(gone);
        }
    }
}

TEST_F(IndicatorEvents, StoppedInsideATick) {
    sink->doing = [this] { control->stopNow(); };
    control->StartNow();
    ASSERT_TRUE(pumpUntil([this] { return sink->ticks == 1; }));
    pump(60);
    EXPECT_EQ(sink->ticks, 1);
}

// Each control ticks in the thread that made it, which serves messages for that.
TEST_F(IndicatorEvents, TicksInTheThreadOfItsContainer) {
    int here = 0, elsewhere = 0;
    std::atomic<bool> done = false;
    std::thread other([&] {
        OleInitialize(nullptr);
        {
            const auto made = makeIndicator();
            const auto heard = com::make<TickSink>();
            heard->doing = [&, home = GetCurrentThreadId()] {
                ++(GetCurrentThreadId() == home ? here : elsewhere);
            };
            const com::Connection connected(made.get(), __uuidof(__Indicator), heard.get());
            made->put_Interval(10);
            made->put_RaiseTicK(VARIANT_TRUE);
            made->StartNow();
            pumpUntil([&] { return heard->ticks >= 3; });
        }
        OleUninitialize();
        done = true;
    });
    control->StartNow();
    EXPECT_TRUE(pumpUntil([&] { return sink->ticks >= 3 && done; }));
    other.join();
    EXPECT_GE(here, 3);
    EXPECT_EQ(elsewhere, 0);
}

TEST_F(IndicatorEvents, EveryWrittenPropertyIsTold) {
    const auto changes = point(IID_IPropertyNotifySink);
    DWORD cookie = 0;
    ASSERT_EQ(changes->Advise(static_cast<IPropertyNotifySink*>(container.get()), &cookie), S_OK);
    control->put_FillColor(1);
    control->put_ForeColor(1);
    control->put_Interval(99);
    control->put_DotColor(1);
    control->put_VisualEffect(1);
    control->put_ScrollColor(1);
    control->put_BorderStyle(1);
    control->put_Backcolor(1);
    control->put_BorderColor(1);
    EXPECT_THAT(container->calls,
                ElementsAre("OnChanged 2", "OnChanged 3", "OnChanged 4", "OnChanged 5", "OnChanged 6",
                            "OnChanged 7", "OnChanged 8", "OnChanged 9", "OnChanged 10"));
    container->calls.clear();
    EXPECT_EQ(control->put_Interval(-1), static_cast<HRESULT>(0x800A017C));
    control->put_RaiseTicK(VARIANT_FALSE); // not persisted
    EXPECT_EQ(changes->Unadvise(cookie), S_OK);
    control->put_FillColor(2);
    EXPECT_TRUE(container->calls.empty());
    EXPECT_EQ(changes->Unadvise(cookie), CONNECT_E_NOCONNECTION);
}

TEST_F(IndicatorEvents, LetGoOfWhenAPropertyIsTold) {
    container->host(control);
    container->activate();
    DWORD cookie = 0;
    ASSERT_EQ(
        point(IID_IPropertyNotifySink)->Advise(static_cast<IPropertyNotifySink*>(container.get()), &cookie),
        S_OK);
    connection.reset();
    auto* const raw = control.release();
    container->doing["OnChanged 8"] = [&] {
        container->leave();
        raw->Release();
    };
    EXPECT_EQ(raw->put_BorderStyle(1), S_OK);
    EXPECT_EQ(livingObjects(), before + 2);
}

TEST_F(IndicatorEvents, ItsConnectionPointsCanBeFound) {
    const auto source = control.query<IConnectionPointContainer>();
    com::Ptr<IConnectionPoint> none;
    EXPECT_EQ(source->FindConnectionPoint(IID_IDispatch, none.receive()), CONNECT_E_NOCONNECTION);
    com::Ptr<IEnumConnectionPoints> all;
    ASSERT_EQ(source->EnumConnectionPoints(all.receive()), S_OK);
    com::Ptr<IConnectionPoint> points[3];
    IConnectionPoint* raw[3]{};
    ULONG got = 0;
    EXPECT_EQ(all->Next(3, raw, &got), S_FALSE);
    ASSERT_EQ(got, 2U);
    for (ULONG i = 0; i < got; ++i) points[i] = com::Ptr<IConnectionPoint>::take(raw[i]);
    IID iid{};
    EXPECT_EQ(points[0]->GetConnectionInterface(&iid), S_OK);
    EXPECT_EQ(iid, __uuidof(__Indicator));
    EXPECT_EQ(points[1]->GetConnectionInterface(&iid), S_OK);
    EXPECT_EQ(iid, IID_IPropertyNotifySink);
    for (const auto& point : {points[0], points[1]}) {
        com::Ptr<IConnectionPointContainer> owner;
        EXPECT_EQ(point->GetConnectionPointContainer(owner.receive()), S_OK);
        EXPECT_TRUE(com::isSameObject(owner, source));
        EXPECT_EQ(point->Advise(nullptr, nullptr), E_POINTER);
        EXPECT_EQ(point->Unadvise(4711), CONNECT_E_NOCONNECTION);
    }
    EXPECT_EQ(all->Reset(), S_OK);
    EXPECT_EQ(all->Skip(1), S_OK);
    com::Ptr<IEnumConnectionPoints> copy;
    EXPECT_EQ(all->Clone(copy.receive()), S_OK);
    com::Ptr<IConnectionPoint> last;
    EXPECT_EQ(copy->Next(1, last.receive(), nullptr), S_OK);
    EXPECT_EQ(last.get(), points[1].get());
    EXPECT_EQ(copy->Skip(1), S_FALSE);
    EXPECT_EQ(all->Skip(5), S_FALSE);
}

// Without the control its points are of no use, but they may still be held.
TEST_F(IndicatorEvents, APointMayOutliveItsControl) {
    const auto ticks = point(__uuidof(__Indicator)), changes = point(IID_IPropertyNotifySink);
    connection.reset();
    control.reset();
    DWORD cookie = 0;
    com::Ptr<IConnectionPointContainer> owner;
    EXPECT_EQ(ticks->GetConnectionPointContainer(owner.receive()), E_UNEXPECTED);
    EXPECT_EQ(changes->GetConnectionPointContainer(owner.receive()), E_UNEXPECTED);
    EXPECT_EQ(ticks->Advise(sink.get(), &cookie), CONNECT_E_CANNOTCONNECT);
    EXPECT_EQ(changes->Advise(static_cast<IPropertyNotifySink*>(container.get()), &cookie),
              CONNECT_E_CANNOTCONNECT);
}

} // namespace
} // namespace corvelle::host
