// SPDX-License-Identifier: MIT
// The scenario language: what is read from a line, what an assistant is told about a wrong one, and
// that an expectation which is not met is noticed.
#include <gtest/gtest.h>
#include <set>

#include "platform/text.h"
#include "tools/simulator/gaps.h"
#include "tools/simulator/line_diff.h"
#include "tools/simulator/scenario.h"
#include "tools/simulator/scenario_run.h"
#include "tools/simulator/sentences.h"
#include "tools/simulator/words.h"

namespace taviro::simulator {

using Numbers = std::vector<int32_t>;
using Texts = std::vector<std::wstring>;

namespace {

// The only step of a one-sentence scenario; an empty one when it is broken.
Step OnlyStep(const std::string& strText) {
    Scenario Parsed;
    ScenarioError Error;
    const bool bParsed = ParseScenario(strText, Language(), Parsed, Error);
    EXPECT_TRUE(bParsed) << platform::ToUtf8(Error.strText);
    EXPECT_EQ(Parsed.Steps.size(), 1U);
    return Parsed.Steps.empty() ? Step{} : Parsed.Steps.front();
}

// "line: message" of a broken scenario, "" when it is sound.
std::string ErrorOf(const std::string& strText) {
    Scenario Parsed;
    ScenarioError Error;
    if (ParseScenario(strText, Language(), Parsed, Error)) return "";
    return std::to_string(Error.nLine) + ": " + platform::ToUtf8(Error.strText);
}

// Runs a scenario's text; what it prints goes into strPrinted.
Outcome RunText(const std::string& strText, std::string& strPrinted, RunOptions Options = {}) {
    strPrinted.clear();
    const Printer Print = [&](std::string_view strPart) { strPrinted += strPart; };
    return ScenarioRun("day.scenario", Options, Print).Run(strText);
}

const std::string MAP =
    "map\n"
    "    [1,1]A,65\n"
    "    [2,1]B,66\n"
    "end\n"
    "start\n"
    "ignore effects\n";

struct BrokenLine {
    const char* szName;
    const char* szText;
    const char* szError;
};

class BrokenLines : public ::testing::TestWithParam<BrokenLine> {};

}  // namespace

TEST_P(BrokenLines, ErrorSaysWhatWasExpected) {
    EXPECT_EQ(ErrorOf(GetParam().szText), GetParam().szError);
}

INSTANTIATE_TEST_SUITE_P(
    Scenario, BrokenLines,
    ::testing::Values(
        BrokenLine{"Direction", "\nstick rigth\n",
                   "2: expected a direction (right, left, up, down, centre, or a diagonal such as "
                   "right+down) or \"at\", found \"rigth\""},
        BrokenLine{"DiagonalOfOneAxis", "stick right+left\n",
                   "1: expected a direction (right, left, up, down, centre, or a diagonal such as "
                   "right+down) or \"at\", found \"right+left\""},
        BrokenLine{"Time", "wait long ms", "1: expected a time in milliseconds, found \"long\""},
        BrokenLine{"Unit", "wait 3 s", "1: expected \"ms\", found \"s\""},
        BrokenLine{"TimeTooLong", "wait 1234567890 ms",
                   "1: expected a time in milliseconds, found \"1234567890\""},
        BrokenLine{"ButtonTooHigh", "press button 32",
                   "1: expected a button number (0 to 31), found \"32\""},
        BrokenLine{"MissingWord", "press",
                   "1: expected \"button\" or \"key\", found the line's end"},
        BrokenLine{"WordTooMany", "wait 3 ms now", "1: expected the line's end, found \"now\""},
        BrokenLine{"TextWithoutMarks", "front Editor",
                   "1: expected a text in quotation marks or \"nothing\", found \"Editor\""},
        BrokenLine{"Cell", "expect cell 3;1", "1: expected a cell (column,row), found \"3;1\""},
        BrokenLine{"Mode", "expect mode map",
                   "1: expected a mode (select, scan, arrow, application, list), found \"map\""},
        BrokenLine{"OpenMark", "start\nfront \"Editor\n", "2: a quotation mark is not closed"},
        BrokenLine{"OpenBlock", "start\n\nsettings\n  [Info]\n",
                   "3: the block that starts here has no line \"end\""}),
    [](const auto& Info) { return std::string(Info.param.szName); });

TEST(ScenarioText, StepKeepsGapsInOrder_WhenSentenceHasTextsAndNumbers) {
    EXPECT_EQ(OnlyStep("window \"Dopis – editor\" of EDIT.EXE class Main").Texts,
              (Texts{L"Dopis – editor", L"EDIT.EXE", L"Main"}));
    EXPECT_EQ(OnlyStep("press button 3 for 250 ms").Numbers, (Numbers{3, 250}));
    EXPECT_EQ(OnlyStep("press button 3 for 250ms").Numbers, (Numbers{3, 250}));
    EXPECT_EQ(OnlyStep("stick at 52767,0").Numbers, (Numbers{52767, 0}));
    EXPECT_EQ(OnlyStep("stick left+down").Numbers, (Numbers{StickLeft | StickDown}));
    EXPECT_EQ(OnlyStep("key down F12").Numbers, (Numbers{123}));
    EXPECT_EQ(OnlyStep("expect typed \"a \"\"b\"\" # c\" # said").Texts, (Texts{L"a \"b\" # c"}));
}

TEST(ScenarioText, CommentsAndEmptyLines_AreNoSteps) {
    EXPECT_EQ(OnlyStep("\xEF\xBB\xBF# a day\r\n\r\n  start  # now\r\n").nLine, 3);
}

TEST(ScenarioText, Block_LosesCommonIndentationOnly) {
    EXPECT_EQ(OnlyStep("map\n    [1,1]A,65\n\n      # b\n  end\n").Block,
              (Texts{L"[1,1]A,65", L"", L"  # b"}));
}

TEST(ScenarioText, EverySentence_IsDifferentAndExplained) {
    std::set<std::string> Patterns;
    for (const Sentence& Known : Language()) {
        EXPECT_TRUE(Patterns.insert(Known.szPattern).second) << Known.szPattern;
        EXPECT_STRNE(Known.szMeaning, "") << Known.szPattern;
    }
}

TEST(LineDiff, ShowsWhatIsMissingAndWhatIsTooMuch) {
    const std::vector<std::string> Expected{"a", "b", "c"};
    const std::vector<std::string> Happened{"a", "x", "c", "d"};
    EXPECT_EQ(DiffLines(Expected, Happened),
              (std::vector<std::string>{"  a", "- b", "+ x", "  c", "+ d"}));
}

TEST(ScenarioRun, UnknownWord_IsBroken) {
    std::string strPrinted;
    EXPECT_EQ(RunText("start\nend\n", strPrinted), Outcome::Broken);
    EXPECT_EQ(strPrinted.find("day.scenario:2: expected \"seed\", "), 0U) << strPrinted;
    EXPECT_NE(strPrinted.find(", found \"end\"\n"), std::string::npos) << strPrinted;
}

TEST(ScenarioRun, StepThatCannotBeDone_IsBroken) {
    std::string strPrinted;
    EXPECT_EQ(RunText("front \"Editor\"\n", strPrinted, {.bQuiet = true}), Outcome::Broken);
    EXPECT_EQ(strPrinted, "day.scenario:1: there is no window \"Editor\"\n");
    EXPECT_EQ(RunText("shut down\n", strPrinted, {.bQuiet = true}), Outcome::Broken);
    EXPECT_EQ(strPrinted, "day.scenario:1: the program does not run: \"start\" comes first\n");
    EXPECT_EQ(RunText("seed from no-such-folder\n", strPrinted, {.bQuiet = true}), Outcome::Broken);
    EXPECT_EQ(strPrinted, "day.scenario:1: the folder \"no-such-folder\" cannot be read\n");
}

TEST(ScenarioRun, EffectsThatDiffer_FailWithTheDifference) {
    std::string strPrinted;
    const std::string strDay = MAP + "stick right\nwait 100 ms\nexpect\n  beep\nend\n";
    EXPECT_EQ(RunText(strDay, strPrinted, {.bQuiet = true}), Outcome::Failed);
    EXPECT_EQ(strPrinted,
              "day.scenario:9: the effects differ (- expected, + found)\n"
              "    - beep\n"
              "    + say \"<pitch absmiddle=\"0\">B\" [async purge xml]\n"
              "    + caption Taviro - B\n");
}

TEST(ScenarioRun, EffectsAtOtherTimes_Fail) {
    std::string strPrinted;
    const std::string strDay = MAP + "stick right\nwait 100 ms\nexpect times\n";
    const std::string strSaid = "  say \"<pitch absmiddle=\"0\">B\" [async purge xml]\n";
    const std::string strShown = "  caption Taviro - B\nend\n";
    EXPECT_EQ(RunText(strDay + "100" + strSaid + "100" + strShown, strPrinted), Outcome::Passed);
    EXPECT_EQ(RunText(strDay + "100" + strSaid + "200" + strShown, strPrinted), Outcome::Failed);
}

struct WrongHope {
    const char* szName;
    const char* szHope;
    const char* szError;
};

class WrongHopes : public ::testing::TestWithParam<WrongHope> {};

TEST_P(WrongHopes, ExpectationFails) {
    std::string strPrinted;
    EXPECT_EQ(RunText(MAP + GetParam().szHope + "\n", strPrinted, {.bQuiet = true}),
              Outcome::Failed);
    EXPECT_EQ(strPrinted.substr(0, strPrinted.find('\n')),
              std::string("day.scenario:7: ") + GetParam().szError);
}

INSTANTIATE_TEST_SUITE_P(
    Scenario, WrongHopes,
    ::testing::Values(
        WrongHope{"Cell", "expect cell 2,1", "expected cell 2,1, found 1,1"},
        WrongHope{"CellText", "expect cell 1,1 \"B\"", "expected cell 1,1 \"B\", found 1,1 \"A\""},
        WrongHope{"Mode", "expect mode arrow", "expected mode arrow, found select"},
        WrongHope{"Typed", "expect typed \"a\"", "expected typed \"a\", found \"\""},
        WrongHope{"Caption", "expect caption \"B\"",
                  "expected caption \"B\", found \"Taviro - A\""},
        WrongHope{"Status", "expect status \"B\"", "expected status \"B\", found \"A\""},
        WrongHope{"Map", "expect map\n|[A]\n= A\nend", "the map differs (- expected, + found)"},
        WrongHope{"NoFile", "expect data file log.txt\nend", "there is no data file \"log.txt\""},
        WrongHope{"File", "expect data file data.ini\nend",
                  "the file differs (- expected, + found)"},
        WrongHope{"FileLine", "expect data file data.ini has \"[1,1]\"",
                  "no line of the file is \"[1,1]\"; it holds"},
        WrongHope{"AFile", "expect no data file data.ini", "there is a data file \"data.ini\""}),
    [](const auto& Info) { return std::string(Info.param.szName); });

TEST(ScenarioRun, KeyLeftDown_FailsKeysUp) {
    std::string strPrinted;
    EXPECT_EQ(RunText("key down A\nexpect keys up\n", strPrinted, {.bQuiet = true}),
              Outcome::Failed);
    EXPECT_EQ(strPrinted, "day.scenario:2: virtual keys that are still down: 65\n");
    EXPECT_EQ(RunText("key down A\nkey up A\nexpect keys up\n", strPrinted), Outcome::Passed);
}

TEST(ScenarioRun, ScenarioWithoutExpectation_FailsAsATest) {
    std::string strPrinted;
    EXPECT_EQ(RunText(MAP, strPrinted), Outcome::Passed);
    EXPECT_EQ(RunText(MAP, strPrinted, {.bMustExpect = true}), Outcome::Failed);
}

TEST(ScenarioRun, NextScenario_StartsAfresh) {
    std::string strPrinted;
    EXPECT_EQ(RunText(MAP + "stick right\nwait 100 ms\nexpect cell 2,1\n", strPrinted),
              Outcome::Passed);
    EXPECT_EQ(RunText("expect cell 1,1\nexpect no data file data.ini\n", strPrinted),
              Outcome::Passed);
}

}  // namespace taviro::simulator
