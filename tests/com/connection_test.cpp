#include "base/error_of.h"
#include "com/connection_point.h"
#include "com/event_sink.h"

#include <functional>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <olectl.h>

namespace corvelle::com {
namespace {

using test::errorOf;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr IID events = {0x11112222, 1, 2, {3, 4, 5, 6, 7, 8, 9, 10}};

class Source : public Object<IConnectionPointContainer> {
  public:
    Ptr<ConnectionPoint> point = make<ConnectionPoint>(events, this);
    ~Source() override { point->leave(); }

    HRESULT STDMETHODCALLTYPE EnumConnectionPoints(IEnumConnectionPoints**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE FindConnectionPoint(REFIID iid, IConnectionPoint** result) override {
        *result = nullptr;
        if (!IsEqualIID(iid, events)) return CONNECT_E_NOCONNECTION;
        *result = Ptr<IConnectionPoint>(point).release();
        return S_OK;
    }
};

class Sink : public EventSink {
  public:
    Sink(std::vector<int>& seen, std::function<void()> then = {})
        : EventSink(events), seen_(seen), then_(std::move(then)) {}

  protected:
    void event(DISPID id, const Arguments& arguments) override {
        seen_.push_back(id * 100 + arguments.number(0) * 10 + arguments.number(1));
        if (then_) then_();
    }

  private:
    std::vector<int>& seen_;
    std::function<void()> then_;
};

struct ConnectionTest : testing::Test {
    const long before = objectCount();
    Ptr<Source> source = make<Source>();
    std::vector<int> seen;

    void fire(DISPID id) { source->point->fire(id, {Variant(1).get(), Variant(2).get()}); }
    ~ConnectionTest() override {
        source.reset();
        EXPECT_EQ(objectCount(), before);
    }
};

TEST_F(ConnectionTest, BringsEventsUntilItEnds) {
    {
        const Connection connection(source.get(), events, make<Sink>(seen).get());
        fire(5);
    }
    fire(6);
    EXPECT_THAT(seen, ElementsAre(512));
    EXPECT_EQ(source->point->sinkCount(), 0U);
}

TEST_F(ConnectionTest, AnswersTheEventsInterface) {
    const Ptr<IUnknown> sink(make<Sink>(seen).get());
    EXPECT_TRUE(sink.queryAs<IDispatch>(events));
    EXPECT_TRUE(sink.query<IDispatch>());
    EXPECT_TRUE(isSameObject(sink.queryAs<IDispatch>(events), sink));
}

TEST_F(ConnectionTest, RefusesOtherEventsAndOtherSources) {
    EXPECT_EQ(errorOf([&] { Connection(source.get(), IID_IDispatch, make<Sink>(seen).get()); }).number,
              CONNECT_E_NOCONNECTION);
    EXPECT_EQ(errorOf([&] { Connection(make<Sink>(seen).get(), events, make<Sink>(seen).get()); }).number,
              438);
    EXPECT_EQ(errorOf([&] { Connection(nullptr, events, make<Sink>(seen).get()); }).number, 438);
    EXPECT_EQ(errorOf([&] { Connection(source.get(), events, source.get()); }).number,
              CONNECT_E_CANNOTCONNECT);
}

TEST_F(ConnectionTest, EndsWhatAnEventThrows) {
    const Connection first(source.get(), events, make<Sink>(seen, [] { throw 1; }).get());
    const Connection second(source.get(), events, make<Sink>(seen).get());
    fire(1);
    EXPECT_THAT(seen, ElementsAre(112, 112));
}

TEST_F(ConnectionTest, CallsNoSinkThatLeftDuringTheEvent) {
    Connection second;
    const Connection first(source.get(), events, make<Sink>(seen, [&] { second = {}; }).get());
    second = Connection(source.get(), events, make<Sink>(seen).get());
    fire(1);
    EXPECT_THAT(seen, ElementsAre(112));
}

TEST_F(ConnectionTest, OutlivesItsSource) {
    Connection connection(source.get(), events, make<Sink>(seen, [&] { source.reset(); }).get());
    fire(1);
    connection = {};
    EXPECT_THAT(seen, ElementsAre(112));
}

TEST_F(ConnectionTest, KnowsItsCookies) {
    DWORD cookie = 0;
    EXPECT_EQ(source->point->Advise(nullptr, &cookie), E_POINTER);
    ASSERT_EQ(source->point->Advise(make<Sink>(seen).get(), &cookie), S_OK);
    EXPECT_EQ(source->point->Unadvise(cookie), S_OK);
    EXPECT_EQ(source->point->Unadvise(cookie), CONNECT_E_NOCONNECTION);
}

} // namespace
} // namespace corvelle::com
