#include "formatter/run_engine.h"

#include <gtest/gtest.h>
#include <string>

// What the passes tell their owner and when, how a stop request is honoured, and what a run leaves to the
// next.
namespace corvelle::formatter {
namespace {

using test::Lines;
using test::RecordingObserver;

class Passes : public ::testing::Test {
  protected:
    RecordingObserver observer;
    Engine engine{observer};

    void load(const Lines& raw) {
        engine.ResetAll();
        engine.beginCleaning(raw.size());
        for (const std::string& line : raw) engine.cleanLine(line);
        observer.told.clear();
    }

    Lines buffer() const {
        Lines lines;
        for (std::int32_t i = 0; i <= engine.lineBuffer().maxIndx(); ++i) {
            lines.push_back(engine.lineBuffer().line(i));
        }
        return lines;
    }
};

TEST_F(Passes, formattingTellsEachStepInItsOrder) {
    load({"Sub A()", "x", "End Sub"});
    EXPECT_EQ(engine.VB_Format(2), 0);
    EXPECT_EQ(observer.told, (Lines{
                                 "start",
                                 "clear",
                                 "info: Formating...",
                                 "events",
                                 "proc: In Line: 0 of 2",
                                 "events",
                                 "proc: In Line: 1 of 2",
                                 "events",
                                 "proc: In Line: 2 of 2",
                                 "info: Formating Done...",
                                 "stop",
                             }));
}

TEST_F(Passes, formattingNoLineTellsItsBeginAndItsEnd) {
    load({});
    EXPECT_EQ(engine.VB_Format(-1), 0);
    EXPECT_EQ(observer.told,
              (Lines{"start", "clear", "info: Formating...", "info: Formating Done...", "stop"}));
}

TEST_F(Passes, errorsAreToldBeforeTheirLineIsDone) {
    load({"End Sub"});
    EXPECT_EQ(engine.VB_Format(0), 1);
    EXPECT_EQ(observer.told, (Lines{"start", "clear", "info: Formating...", "events", "error: Tab On Line: 0",
                                    "proc: In Line: 0 of 0", "info: Formating Done...", "stop"}));
}

TEST_F(Passes, theProcessTextCountsFromZeroToTheUpperBound) {
    load(Lines(121, "x"));
    engine.VB_Format(120);
    EXPECT_EQ(observer.told[3 + 2 * 5 + 1], "proc: In Line: 5 of 120");
}

TEST_F(Passes, resettingShowsNoProcess) {
    engine.ResetAll();
    EXPECT_EQ(observer.told, Lines{"proc: No Process"});
}

TEST_F(Passes, resettingLeavesASingleEmptyLine) {
    load({"a", "b"});
    engine.ResetAll();
    EXPECT_EQ(buffer(), Lines{""});
}

TEST_F(Passes, aStopRequestIsHonouredAtTheNextLine) {
    load({"Sub A()", "x", "y", "End Sub"});
    const int yieldsOfLoading = 4;
    observer.onEvents = [&](int yields) {
        if (yields == yieldsOfLoading + 3) engine.DisableProc(); // before line 2
    };
    EXPECT_EQ(engine.VB_Format(3), -1);
    EXPECT_EQ(observer.told, (Lines{
                                 "start",
                                 "clear",
                                 "info: Formating...",
                                 "events",
                                 "proc: In Line: 0 of 3",
                                 "events",
                                 "proc: In Line: 1 of 3",
                                 "events",
                                 "stop",
                                 "proc: Cleaning Memory..",
                                 "proc: No Process..",
                             }));
    EXPECT_EQ(buffer(), (Lines{"Sub A()", "  x", "y", "End Sub"}));
}

TEST_F(Passes, aStopRequestBeforeThePassStopsItAtTheFirstLine) {
    load({"Sub A()", "x"});
    engine.DisableProc();
    EXPECT_EQ(engine.VB_Format(1), -1);
    EXPECT_EQ(buffer(), (Lines{"Sub A()", "x"}));
}

TEST_F(Passes, aStopRequestAfterTheLastLineComesTooLate) {
    class StopAtTheEnd : public RecordingObserver {
      public:
        Engine* engine = nullptr;
        void lineFormatted(std::int32_t i, std::int32_t maxIndx) override {
            if (i == maxIndx) engine->DisableProc();
        }
    } late;
    Engine stopped(late);
    late.engine = &stopped;
    stopped.beginCleaning(1);
    stopped.cleanLine("End Sub");
    EXPECT_EQ(stopped.VB_Format(0), 1);
}

TEST_F(Passes, aStopRequestHidesTheErrorsFoundSoFarFromTheResultAlone) {
    load({"End Sub", "x"});
    observer.onEvents = [&](int yields) {
        if (yields == 2 + 2) engine.DisableProc(); // before line 1
    };
    EXPECT_EQ(engine.VB_Format(1), -1);
    EXPECT_EQ(observer.told[4], "error: Tab On Line: 0");
}

TEST_F(Passes, cleaningDoesNotLookAtAStopRequest) {
    engine.ResetAll();
    engine.beginCleaning(2);
    engine.DisableProc();
    EXPECT_TRUE(engine.cleanLine("a"));
    EXPECT_TRUE(engine.cleanLine("b"));
    EXPECT_EQ(buffer(), (Lines{"a", "b"}));
}

TEST_F(Passes, resettingTakesAStopRequestBack) {
    engine.DisableProc();
    load({"x"});
    EXPECT_EQ(engine.VB_Format(0), 0);
}

TEST_F(Passes, aRunCarriesNothingToTheNextOne) {
    // Leaves a level, an open Begin block, an open Select with a Case, and started code behind.
    load({"Private Sub A()", "Begin Child1", "Select Case x", "Case 1"});
    engine.VB_Format(3);
    EXPECT_EQ(engine.indentLevel(), 4);

    engine.options.bNoAllCmnt = 1;
    load({"Case 1 ' a", "Sub A()", "End", "Case 2"});
    EXPECT_EQ(engine.indentLevel(), 0);
    EXPECT_EQ(engine.VB_Format(3), 0);
    // The comment stays, End is a statement, and no Case steps back.
    EXPECT_EQ(buffer(), (Lines{"Case 1 ' a", "  Sub A()", "    End", "    Case 2"}));
}

TEST_F(Passes, formattingAgainWithoutAResetGoesOnAtItsLevel) {
    load({"Sub A()"});
    engine.VB_Format(0);
    engine.VB_Format(0);
    EXPECT_EQ(buffer(), Lines{"  Sub A()"});
}

TEST_F(Passes, theLinesBeyondTheBoundAreLeftAlone) {
    load({"Sub A()", "x", "y"});
    engine.VB_Format(1);
    EXPECT_EQ(buffer(), (Lines{"Sub A()", "  x", "y"}));
}

TEST_F(Passes, anObserverThatOverridesNothingIsEnough) {
    PassObserver silent;
    Engine quiet(silent);
    quiet.ResetAll();
    quiet.beginCleaning(1);
    quiet.cleanLine("End Sub");
    EXPECT_EQ(quiet.VB_Format(0), 1);
}

} // namespace
} // namespace corvelle::formatter
