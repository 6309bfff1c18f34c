// SPDX-License-Identifier: MIT
#include "tools/effort/driving.h"

#include <cstdlib>

#include "actions/entry_typing.h"
#include "forms/main_form.h"
#include "platform/headless/desktop.h"
#include "platform/headless/user.h"
#include "platform/text.h"
#include "predictor/letters.h"
#include "state/cursor_state.h"
#include "state/mode_state.h"
#include "tools/effort/map_keys.h"
#include "tools/effort/measured_run.h"
#include "tools/effort/words_of_text.h"

namespace taviro::effort {

namespace {

using forms::FrmMain;
using platform::headless::Desktop;

constexpr uint32_t TICK_MS = forms::POLL_INTERVAL_MS;
constexpr uint32_t SCAN_STEP_MS = 1000;
constexpr int LONGEST_WAY = 60;           // tilts in one direction: a longer way goes astray
constexpr int LONGEST_SCAN_TICKS = 4000;  // ticks: a scan that takes longer goes astray

// Scanning begins at the map's first cell after every choice.
constexpr std::string_view SCAN_SETTINGS =
    "[Info]\r\nScanMode=1\r\nTriggerColumnReset=1\r\nTriggerRowReset=1\r\n";

void StartProgram(std::string_view strMapFile, const DrivingWay& Way) {
    PrepareDesktop(strMapFile, Way.bScans ? SCAN_SETTINGS : std::string_view());
    if (Way.pPredictor != nullptr) {
        Desktop.Classes[L"Presager.Dict"] = [pPredictor = Way.pPredictor] {
            return platform::headless::MakeObject(
                [pPredictor](auto, const auto&, auto Arguments, auto& Result) {
                    auto* pPrefix = std::get_if<std::wstring>(&Arguments[0].Value);
                    if (pPrefix == nullptr) return false;
                    predictor::Answer Given = pPredictor->GetPrediction(*pPrefix);
                    *pPrefix = Given.strPrefix;
                    Result = Given.strList;
                    return true;
                });
        };
    }
    OpenProgram();
}

class Driver {
  public:
    explicit Driver(const DrivingWay& Way) : m_Way(Way) {}
    Effort Spent;

    void EnterScanMode();
    void Type(const TextWord& Next);

  private:
    void Tilt(int32_t nRight, int32_t nDown);
    void Press(int nButton);
    void Choose(CellPlace Place);
    void MoveTo(CellPlace Place);
    void ScanTo(CellPlace Place);
    void SendAway();
    void TypeAll(std::wstring_view strText);
    bool AnswerList(const TextWord& Next, size_t nTyped);
    [[nodiscard]] uint32_t TimeFor(std::wstring_view strText) const;
    [[nodiscard]] uint32_t TimeToErase() const;

    const DrivingWay& m_Way;
};

// Moves to the right, or to the left when negative; a row is left over its edge.
int32_t ColumnDistance(int32_t nFrom, CellPlace To) {
    const int32_t nColumns = ColumnsOf(To.nRow);
    const int32_t nStraight = To.nColumn - nFrom;
    if (std::abs(nStraight) * 2 <= nColumns) return nStraight;
    return nStraight > 0 ? nStraight - nColumns : nStraight + nColumns;
}

void Driver::Tilt(int32_t nRight, int32_t nDown) {
    platform::headless::NudgeStick(nRight, nDown);
    ++Spent.nMoves;
}

void Driver::Press(int nButton) {
    platform::headless::PushButton(nButton);
    ++Spent.nPresses;
}

void Driver::MoveTo(CellPlace Place) {
    for (int n = 0; n < LONGEST_WAY && Cursor.nRow != Place.nRow; ++n)
        Tilt(0, Cursor.nRow < Place.nRow ? 1 : -1);
    for (int n = 0; n < LONGEST_WAY && Cursor.nColumn != Place.nColumn; ++n)
        Tilt(ColumnDistance(Cursor.nColumn, Place) > 0 ? 1 : -1, 0);
    if (Cursor.nColumn == Place.nColumn && Cursor.nRow == Place.nRow) return;
    Spent.strError = "the highlight does not reach a cell";
}

void Driver::ScanTo(CellPlace Place) {
    Press(ACTION_BUTTON);
    for (int n = 0; n < LONGEST_SCAN_TICKS; ++n) {
        if (Cursor.nColumn == Place.nColumn && Cursor.nRow == Place.nRow) return;
        platform::headless::Ticks();
    }
    Spent.strError = "the scan does not reach a cell";
}

void Driver::Choose(CellPlace Place) {
    if (m_Way.bScans) {
        ScanTo(Place);
    } else {
        MoveTo(Place);
    }
    Press(ACTION_BUTTON);
}

// Select mode leads to arrow mode and on to scan mode.
void Driver::EnterScanMode() {
    Press(MODE_BUTTON);
    Press(MODE_BUTTON);
}

// A sign whose character the program does not know brings a list, too.
void Driver::TypeAll(std::wstring_view strText) {
    for (const wchar_t nCharacter : strText) {
        for (const CellPlace Place : CellsFor(nCharacter)) {
            Choose(Place);
            SendAway();
        }
    }
}

void Driver::SendAway() {
    if (!Modes.bListMode) return;
    Press(MODE_BUTTON);
    if (m_Way.bScans) EnterScanMode();  // the mode button led to select mode
    ++Spent.nDismissed;
}

// What the user expects typing to take, to see whether a word from the list is the shorter way.
uint32_t Driver::TimeFor(std::wstring_view strText) const {
    uint32_t nTime = 0;
    int32_t nColumn = Cursor.nColumn;
    int32_t nRow = Cursor.nRow;
    for (const wchar_t nCharacter : strText) {
        for (const CellPlace Place : CellsFor(nCharacter)) {
            const int32_t nMoves =
                std::abs(ColumnDistance(nColumn, Place)) + std::abs(nRow - Place.nRow);
            const int32_t nCells = CellsBefore(Place);
            nTime += m_Way.bScans ? static_cast<uint32_t>(nCells) * SCAN_STEP_MS + 2 * TICK_MS
                                  : static_cast<uint32_t>(nMoves) * 2 * TICK_MS;
            nTime += 2 * TICK_MS;
            nColumn = Place.nColumn;
            nRow = Place.nRow;
        }
    }
    return nTime;
}

// A blank that came with the word but does not belong there, and the way on from that cell.
uint32_t Driver::TimeToErase() const {
    const CellPlace Erase = CellOf(L"smazat");
    const auto nMoves = static_cast<uint32_t>(std::abs(ColumnDistance(Cursor.nColumn, Erase)) +
                                              std::abs(Cursor.nRow - Erase.nRow));
    const uint32_t nScan = 2 * TICK_MS + SCAN_STEP_MS;
    return (m_Way.bScans ? nScan : nMoves * 2 * TICK_MS) + 2 * TICK_MS;
}

// Takes the word when it is in the list and the shorter way; sends the list away otherwise.
bool Driver::AnswerList(const TextWord& Next, size_t nTyped) {
    int32_t nRow = 0;
    const int32_t nRows = FrmMain->List1.ListCount();
    const auto IsWanted = [&](const std::wstring& strRow) {
        return platform::TrimBlanks(strRow) == Next.strWord;
    };
    while (nRow < nRows && !IsWanted(FrmMain->List1.ItemText(nRow)))
        ++nRow;
    const bool bThere = nRow < nRows;
    const bool bBlankComes = bThere && FrmMain->List1.ItemText(nRow).ends_with(L' ');
    const bool bBlankFits = Next.strBehind.starts_with(L' ');
    const std::wstring strRest = Next.strWord.substr(nTyped) + Next.strBehind.substr(0, 1);
    const auto nListTime = static_cast<uint32_t>(nRow) * 2 * TICK_MS;
    const uint32_t nErase = bBlankComes && !bBlankFits ? TimeToErase() : 0;
    const std::wstring strAfter = bBlankComes && bBlankFits ? L"" : Next.strBehind.substr(0, 1);
    if (!bThere || nListTime + nErase + TimeFor(strAfter) >= TimeFor(strRest)) {
        SendAway();
        return false;
    }
    for (int32_t n = 0; n < nRow; ++n)
        Tilt(0, 1);
    Press(ACTION_BUTTON);
    ++Spent.nTaken;
    if (bBlankComes && !bBlankFits) Choose(CellOf(L"smazat"));
    SendAway();
    TypeAll(std::wstring_view(Next.strBehind).substr(bBlankComes && bBlankFits ? 1 : 0));
    return true;
}

// A capital takes several cells, each of which may bring the word.
void Driver::Type(const TextWord& Next) {
    TypeAll(Next.strBefore);
    for (size_t n = 0; n < Next.strWord.size(); ++n) {
        const std::vector<CellPlace> Cells = CellsFor(Next.strWord[n]);
        for (size_t nCell = 0; nCell < Cells.size(); ++nCell) {
            Choose(Cells[nCell]);
            const size_t nTyped = nCell + 1 < Cells.size() ? n : n + 1;
            if (Modes.bListMode && AnswerList(Next, nTyped)) return;
        }
    }
    TypeAll(Next.strBehind);
}

}  // namespace

std::wstring UntypeableLetters() {
    std::wstring strLetters;
    for (unsigned n = 0x80; n <= 0xFF; ++n) {
        const wchar_t nLetter =
            platform::FromAnsi(std::string(1, static_cast<char>(static_cast<uint8_t>(n)))).front();
        if (predictor::IsLetter(nLetter) && !IsTypedFromList(nLetter)) strLetters += nLetter;
    }
    return strLetters;
}

Effort Drive(std::string_view strMapFile, const std::wstring& strText, const DrivingWay& Way) {
    StartProgram(strMapFile, Way);
    Driver User(Way);
    const uint32_t nStart = Desktop.nNow;
    if (Way.bScans) User.EnterScanMode();
    for (const TextWord& Next : WordsOf(strText)) {
        User.Type(Next);
        if (!User.Spent.strError.empty()) break;
    }
    User.Spent.nMilliseconds = Desktop.nNow - nStart;
    User.Spent.nCharacters = strText.size();
    if (User.Spent.strError.empty()) User.Spent.strError = ArrivalError(strText);
    CloseProgram();
    return User.Spent;
}

std::wstring Typeable(std::string_view strMapFile, std::wstring_view strText) {
    StartProgram(strMapFile, {});
    std::wstring strTypeable;
    for (const wchar_t nCharacter : WithPlainSigns(strText)) {
        // Czech has no apostrophe: what looks like one is a quotation mark.
        if (nCharacter != L'\'' && !CellsFor(nCharacter).empty()) strTypeable += nCharacter;
    }
    CloseProgram();
    return strTypeable;
}

}  // namespace taviro::effort
