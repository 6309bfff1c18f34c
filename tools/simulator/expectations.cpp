// SPDX-License-Identifier: MIT
#include "tools/simulator/expectations.h"

#include <algorithm>
#include <utility>

#include "forms/main_form.h"
#include "maps/map_grid.h"
#include "platform/headless/desktop.h"
#include "platform/text.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "tools/simulator/gaps.h"
#include "tools/simulator/line_diff.h"
#include "tools/simulator/map_text.h"
#include "tools/simulator/scenario_run.h"
#include "tools/simulator/scene.h"
#include "tools/simulator/words.h"

namespace taviro::simulator {

namespace {

using forms::FrmMain;
using platform::ToUtf8;
using platform::headless::Desktop;
using platform::headless::Effect;

// Lines of a block as they are compared: without the blanks at their ends.
std::vector<std::string> BlockLines(const Step& Given) {
    std::vector<std::string> Lines;
    for (std::wstring strLine : Given.Block) {
        strLine.erase(strLine.find_last_not_of(L" \t") + 1);
        Lines.push_back(ToUtf8(strLine));
    }
    return Lines;
}

void RemoveEmptyLines(std::vector<std::string>& Lines) {
    std::erase(Lines, std::string());
}

void Compare(ScenarioRun& Run, const Step& Given, const std::string& strWhat,
             const std::vector<std::string>& Expected, const std::vector<std::string>& Happened) {
    ++Run.nExpectations;
    if (Expected == Happened) return;
    Run.Fail(Given, strWhat + " (- expected, + found)", DiffLines(Expected, Happened));
}

void CompareText(ScenarioRun& Run, const Step& Given, const std::string& strWhat,
                 const std::string& strExpected, const std::string& strFound) {
    ++Run.nExpectations;
    if (strExpected == strFound) return;
    Run.Fail(Given, "expected " + strWhat + " " + strExpected + ", found " + strFound);
}

std::string Quoted(const std::wstring& strText) {
    std::string strQuoted(1, '"');
    strQuoted += OneLine(ToUtf8(strText));
    strQuoted += '"';
    return strQuoted;
}

std::string CellName(int32_t nColumn, int32_t nRow) {
    return std::to_string(nColumn) + "," + std::to_string(nRow);
}

// "  300  beep" as the transcript would print it; false when no time stands first.
bool Timed(std::wstring_view strLine, std::string& strTimed) {
    strLine = TrimSides(strLine);
    const auto nDigits = std::min(strLine.find_first_not_of(L"0123456789"), strLine.size());
    constexpr size_t MOST_DIGITS = 9;
    if (nDigits == 0 || nDigits > MOST_DIGITS) return false;
    uint32_t nTime = 0;
    for (const wchar_t nDigit : strLine.substr(0, nDigits)) {
        nTime = nTime * 10 + static_cast<uint32_t>(nDigit - L'0');
    }
    strTimed = TimedLine(nTime, ToUtf8(TrimSides(strLine.substr(nDigits))));
    return true;
}

std::string ModeName(ModeWord nMode) {
    constexpr const char* NAMES[] = {"select", "scan", "arrow", "application", "list"};
    return NAMES[static_cast<size_t>(nMode)];
}

ModeWord ModeNow() {
    if (Modes.bListMode) return ModeWord::List;
    if (Modes.bScanMode) return ModeWord::Scan;
    if (Modes.bArrowMode) return ModeWord::Arrow;
    return Modes.bAppMode ? ModeWord::Application : ModeWord::Select;
}

// Lines of a file of Taviro's; a last line without its end is marked.
std::vector<std::string> FileLines(std::string_view strBytes) {
    std::vector<std::string> Lines;
    while (!strBytes.empty()) {
        const auto nEnd = strBytes.find("\r\n");
        const bool bEnded = nEnd != std::string_view::npos;
        const std::string strLine = OneLine(ToUtf8(platform::FromAnsi(strBytes.substr(0, nEnd))));
        Lines.push_back(strLine + (bEnded ? "" : " (no end of line)"));
        strBytes.remove_prefix(bEnded ? nEnd + 2 : strBytes.size());
    }
    return Lines;
}

bool ReadDataFile(ScenarioRun& Run, const Step& Given, std::vector<std::string>& Lines) {
    std::string strBytes;
    if (!Desktop.Files.Read(DataPath(Given.Texts[0]), strBytes)) {
        ++Run.nExpectations;
        Run.Fail(Given, "there is no data file " + Quoted(Given.Texts[0]));
        return false;
    }
    Lines = FileLines(strBytes);
    return true;
}

}  // namespace

void ExpectEffects(ScenarioRun& Run, const Step& Given) {
    std::vector<std::string> Expected = BlockLines(Given);
    RemoveEmptyLines(Expected);
    std::vector<std::string> Happened;
    for (const Effect& Done : std::exchange(Run.Unchecked, {}))
        Happened.push_back(Done.strText);
    Compare(Run, Given, "the effects differ", Expected, Happened);
}

void ExpectTimedEffects(ScenarioRun& Run, const Step& Given) {
    std::vector<std::string> Expected;
    for (const std::wstring& strLine : Given.Block) {
        if (TrimSides(strLine).empty()) continue;
        if (!Timed(strLine, Expected.emplace_back())) {
            Run.Break(Given, "expected a time before " + Quoted(strLine));
            return;
        }
    }
    std::vector<std::string> Happened;
    for (const Effect& Done : std::exchange(Run.Unchecked, {})) {
        Happened.push_back(TimedLine(Run.Elapsed(Done.nTime), Done.strText));
    }
    Compare(Run, Given, "the effects differ", Expected, Happened);
}

void ExpectNothing(ScenarioRun& Run, const Step& Given) {
    ExpectEffects(Run, Given);
}

void ExpectCell(ScenarioRun& Run, const Step& Given) {
    CompareText(Run, Given, "cell", CellName(Given.Numbers[0], Given.Numbers[1]),
                CellName(Cursor.nColumn, Cursor.nRow));
}

void ExpectCellText(ScenarioRun& Run, const Step& Given) {
    std::wstring strText;
    (void)CellText(Cursor.nColumn, Cursor.nRow, strText);  // outside the grid there is no text
    CompareText(Run, Given, "cell",
                CellName(Given.Numbers[0], Given.Numbers[1]) + " " + Quoted(Given.Texts[0]),
                CellName(Cursor.nColumn, Cursor.nRow) + " " + Quoted(strText));
}

void ExpectMode(ScenarioRun& Run, const Step& Given) {
    CompareText(Run, Given, "mode", ModeName(static_cast<ModeWord>(Given.Numbers[0])),
                ModeName(ModeNow()));
}

void ExpectTyped(ScenarioRun& Run, const Step& Given) {
    CompareText(Run, Given, "typed", Quoted(Given.Texts[0]), Quoted(Desktop.Keyboard.strTyped));
}

void ExpectCaption(ScenarioRun& Run, const Step& Given) {
    CompareText(Run, Given, "caption", Quoted(Given.Texts[0]), Quoted(FrmMain->Caption));
}

void ExpectStatus(ScenarioRun& Run, const Step& Given) {
    CompareText(Run, Given, "status", Quoted(Given.Texts[0]), Quoted(FrmMain->Label1.Caption));
}

void ExpectMap(ScenarioRun& Run, const Step& Given) {
    std::vector<std::string> Happened = MapText(*FrmMain);
    std::vector<std::string> Expected = BlockLines(Given);
    RemoveEmptyLines(Expected);
    Compare(Run, Given, "the map differs", Expected, Happened);
}

void ExpectKeysUp(ScenarioRun& Run, const Step& Given) {
    ++Run.nExpectations;
    const std::vector<int> Down = Desktop.KeysDown();
    if (Down.empty()) return;
    std::string strKeys;
    for (const int nVk : Down)
        strKeys += (strKeys.empty() ? "" : ", ") + std::to_string(nVk);
    Run.Fail(Given, "virtual keys that are still down: " + strKeys);
}

void ExpectDataFile(ScenarioRun& Run, const Step& Given) {
    std::vector<std::string> Happened;
    if (!ReadDataFile(Run, Given, Happened)) return;
    Compare(Run, Given, "the file differs", BlockLines(Given), Happened);
}

void ExpectDataFileLine(ScenarioRun& Run, const Step& Given) {
    std::vector<std::string> Lines;
    if (!ReadDataFile(Run, Given, Lines)) return;
    ++Run.nExpectations;
    const std::string strLine = ToUtf8(Given.Texts[1]);
    if (std::find(Lines.begin(), Lines.end(), strLine) != Lines.end()) return;
    Run.Fail(Given, "no line of the file is " + Quoted(Given.Texts[1]) + "; it holds", Lines);
}

void ExpectNoDataFile(ScenarioRun& Run, const Step& Given) {
    ++Run.nExpectations;
    if (!Desktop.Files.FileExists(DataPath(Given.Texts[0]))) return;
    Run.Fail(Given, "there is a data file " + Quoted(Given.Texts[0]));
}

}  // namespace taviro::simulator
