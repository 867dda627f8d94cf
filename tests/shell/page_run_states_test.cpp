#include "shell/page_run_states.h"

#include <gtest/gtest.h>

#include "core/contract.h"
#include "core/number_setup.h"

namespace tallymere {
namespace {

constexpr PagePhase AllPhases[] = {PageIdle,  PageStarts, PageBusy,
                                   StopShown, PageEnds,   StopLingers};
constexpr PageTimer AllTimers[] = {NoTimer, StopTimer, LateClickTimer, TextTimer, LeaveTimer};

// A page with such rules in one of its states.
PageStates In(PagePhase phase, PageRules rules = {}) {
    return {rules, phase};
}

PageStates Calculator() {
    return In(PageIdle, {StopAfterAWhile, LeavesBeforeReport});
}

TEST(PageStates, TheTimersHaveTheirIdsAndRunATenthAndAFifthOfASecond) {
    EXPECT_EQ(int32_t{StopTimer}, 100);
    EXPECT_EQ(int32_t{LateClickTimer}, 101);
    EXPECT_EQ(int32_t{LeaveTimer}, 1000);
    EXPECT_EQ(TimerMilliseconds(StopTimer), 100);
    EXPECT_EQ(TimerMilliseconds(LateClickTimer), 200);
    EXPECT_EQ(TimerMilliseconds(LeaveTimer), 200);
    EXPECT_EQ(TimerMilliseconds(TextTimer), 50) << "no text comes later";
    EXPECT_EQ(TimerMilliseconds(NoTimer), 0);
    EXPECT_EQ(TextTimerMilliseconds(false), 50);
    EXPECT_EQ(TextTimerMilliseconds(true), 10) << "a thread that waits loses little time";
}

TEST(PageStates, ARunBeginsOnAnIdlePageAlone) {
    for (const PagePhase phase : AllPhases) {
        PageStates states = In(phase);
        EXPECT_EQ(BeginPage(states), phase == PageIdle) << phase;
        EXPECT_EQ(states.phase, phase == PageIdle ? PageStarts : phase) << phase;
    }
}

TEST(PageStates, ARunIsStoppedAndEndsWhileItCalculatesAlone) {
    for (const PagePhase phase : AllPhases) {
        PageStates states = In(phase);
        const bool calculates = phase == PageBusy || phase == StopShown;
        EXPECT_EQ(IsPageCalculating(states), calculates) << phase;
        EXPECT_EQ(EndPage(states), calculates) << phase;
        EXPECT_EQ(states.phase, calculates ? PageEnds : phase) << phase;
    }
}

TEST(PageStates, AnInputWithAnErrorLeavesThePageIdle) {
    PageStates states = Calculator();
    BeginPage(states);
    EXPECT_FALSE(IsPageClosedToOthers(states));
    GiveUpPage(states);
    EXPECT_EQ(states.phase, PageIdle);
}

TEST(PageStates, StopIsThereFromTheStartOrAfterAWhileOrNever) {
    const struct {
        PageStopRule rule;
        PagePhase phase;
        PageTimer timer;
    } cases[] = {{StopFromTheStart, StopShown, NoTimer},
                 {StopAfterAWhile, PageBusy, StopTimer},
                 {StopNever, PageBusy, NoTimer}};
    for (const auto& expected : cases) {
        PageStates states = In(PageStarts, {expected.rule, LeavesAtOnce});
        EXPECT_EQ(StartPage(states), expected.timer) << expected.rule;
        EXPECT_EQ(states.phase, expected.phase) << expected.rule;
    }
}

TEST(PageStates, APageThatLeavesAtOnceIsIdleAtOnce) {
    for (const PageStopRule stop : {StopFromTheStart, StopAfterAWhile, StopNever}) {
        PageStates states = In(PageStarts, {stop, LeavesAtOnce});
        StartPage(states);
        EndPage(states);
        EXPECT_EQ(LeavePage(states), NoTimer);
        EXPECT_EQ(states.phase, PageIdle);
    }
}

TEST(PageStates, APageThatLeavesAtOnceStartsNothingByALateKey) {
    for (const PageStopRule stop : {StopFromTheStart, StopAfterAWhile, StopNever}) {
        PageStates states = In(PageStarts, {stop, LeavesAtOnce});
        StartPage(states);
        EndPage(states);
        EXPECT_EQ(LeavePage(states, true), LateClickTimer);
        EXPECT_EQ(states.phase, StopLingers);
        EXPECT_FALSE(IsPageClosedToOthers(states));
        EXPECT_FALSE(BeginPage(states));
        EXPECT_TRUE(EndPageTimer(states, LateClickTimer));
        EXPECT_EQ(states.phase, PageIdle);
    }
}

TEST(PageStates, APageThatLeavesLaterStaysClosedUntilThen) {
    PageStates states = In(PageIdle, {StopFromTheStart, LeavesLater});
    BeginPage(states);
    StartPage(states);
    EXPECT_TRUE(IsPageClosedToOthers(states));
    EndPage(states);
    EXPECT_TRUE(IsPageClosedToOthers(states));
    EXPECT_EQ(LeavePage(states), LeaveTimer);
    EXPECT_EQ(states.phase, StopLingers);
    EXPECT_TRUE(IsPageClosedToOthers(states));
    EXPECT_TRUE(EndPageTimer(states, LeaveTimer));
    EXPECT_EQ(states.phase, PageIdle);
    EXPECT_FALSE(IsPageClosedToOthers(states));
}

TEST(PageStates, TheCalculatorsShortRunGoesStraightBackToIdle) {
    PageStates states = Calculator();
    BeginPage(states);
    StartPage(states);
    EndPage(states);
    EXPECT_EQ(LeavePage(states), NoTimer);
    EXPECT_EQ(states.phase, PageIdle);
}

TEST(PageStates, TheCalculatorsLongRunLetsStopLingerWhileOthersCanBeUsed) {
    PageStates states = Calculator();
    BeginPage(states);
    StartPage(states);
    EXPECT_TRUE(EndPageTimer(states, StopTimer));
    EXPECT_EQ(states.phase, StopShown);
    EndPage(states);
    EXPECT_EQ(LeavePage(states), LateClickTimer);
    EXPECT_EQ(states.phase, StopLingers);
    EXPECT_FALSE(IsPageClosedToOthers(states));
    EXPECT_TRUE(EndPageTimer(states, LateClickTimer));
    EXPECT_EQ(states.phase, PageIdle);
    // The next run is a short one again.
    BeginPage(states);
    StartPage(states);
    EndPage(states);
    EXPECT_EQ(LeavePage(states), NoTimer);
}

TEST(PageStates, ATimerThatComesLateChangesNothing) {
    for (const PagePhase phase : AllPhases) {
        for (const PageTimer timer : AllTimers) {
            PageStates states = In(phase, {StopAfterAWhile, LeavesBeforeReport});
            const bool endsLingering = timer == LateClickTimer || timer == LeaveTimer;
            const bool inTime = (timer == StopTimer && phase == PageBusy) ||
                                (endsLingering && phase == StopLingers);
            EXPECT_EQ(EndPageTimer(states, timer), inTime) << phase << " " << timer;
            EXPECT_EQ(states.phase != phase, inTime) << phase << " " << timer;
        }
    }
}

TEST(PageStates, OthersAreShutOutFromTheStartToTheLeave) {
    for (const PagePhase phase : AllPhases) {
        const bool runs = phase == PageBusy || phase == StopShown || phase == PageEnds;
        EXPECT_EQ(IsPageClosedToOthers(In(phase, {StopFromTheStart, LeavesAtOnce})), runs);
        EXPECT_EQ(IsPageClosedToOthers(In(phase, {StopFromTheStart, LeavesLater})),
                  runs || phase == StopLingers);
        EXPECT_EQ(IsPageClosedToOthers(In(phase, {StopAfterAWhile, LeavesBeforeReport})), runs);
        EXPECT_FALSE(IsPageClosedToOthers(In(phase, {StopNever, LeavesAtOnce})));
    }
}

#ifdef TALLYMERE_CHECK_CONTRACTS

TEST(PageStatesContract, NoRunBeginsWithinAScopeOfNumbers) {
    const NumberSetupScope scope;
    PageStates states;
    EXPECT_DEATH(BeginPage(states), "NumberSetupScopeCount");
}

TEST(PageStatesContract, NoStepIsTakenFromAnotherState) {
    for (const PagePhase phase : AllPhases) {
        PageStates states = In(phase);
        if (phase != PageStarts) {
            EXPECT_DEATH(StartPage(states), "PageStarts");
            EXPECT_DEATH(GiveUpPage(states), "PageStarts");
        }
        if (phase != PageEnds) {
            EXPECT_DEATH(LeavePage(states), "PageEnds");
        }
    }
}

#endif

}  // namespace
}  // namespace tallymere
