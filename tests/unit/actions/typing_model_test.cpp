// SPDX-License-Identifier: MIT
// A user types, takes and refuses words at random; what arrives in the application must always be
// what was typed and chosen. The expectation is kept by positions: the word that is being typed
// reaches from where it began to the cursor, and a chosen word takes that place.
//
// Left out, because nobody can tell them from outside: keys of the physical keyboard, dead keys in
// front of letters that they do not go with, and words that hold key-sequence notation.
#include <algorithm>
#include <map>
#include <random>

#include "actions/choice_list.h"
#include "actions/command_action.h"
#include "actions/entry_typing.h"
#include "actions/prediction.h"
#include "state/mode_state.h"
#include "tests/unit/actions/action_fixture.h"
#include "tests/unit/actions/text_field.h"
#include "tests/unit/predictor/predictor_fixture.h"

namespace taviro {
namespace {

using forms::FrmMain;
using platform::AutomationArgument;
using platform::AutomationValue;
using platform::WindowHandle;

enum class Do {
    Letter,       // of the word that the user has in mind, or any
    Sign,         // ends the word
    Erase,        // the Backspace cell
    Caps,         // the Caps Lock cell
    Idle,         // a key that leaves the text alone
    Move,         // a key that moves the cursor
    Accept,       // takes a row of the open list
    Dismiss,      // sends it away
    Phrase,       // opens a command's list and takes a row
    OtherWindow,  // another window comes to the front
    Dictionary    // fails from now on, or works again
};
constexpr const char* NAMES[] = {"letter", "sign",    "erase",  "Caps Lock",    "idle",      "move",
                                 "accept", "dismiss", "phrase", "other window", "dictionary"};
constexpr int WEIGHTS[] = {60, 8, 8, 4, 3, 2, 16, 6, 3, 2, 1};

struct Step {
    Do nWhat;
    uint32_t nChoice;
};
using Steps = std::vector<Step>;

struct Cell {
    std::vector<int32_t> Codes;
    const wchar_t* szTyped;
};
const Cell LETTERS[] = {{{65}, L"a"},
                        {{66}, L"b"},
                        {{67}, L"c"},
                        {{68}, L"d"},
                        {{69}, L"e"},
                        {{72}, L"h"},
                        {{73}, L"i"},
                        {{74}, L"j"},
                        {{75}, L"k"},
                        {{76}, L"l"},
                        {{77}, L"m"},
                        {{78}, L"n"},
                        {{79}, L"o"},
                        {{80}, L"p"},
                        {{82}, L"r"},
                        {{83}, L"s"},
                        {{84}, L"t"},
                        {{85}, L"u"},
                        {{86}, L"v"},
                        {{90}, L"z"},
                        {{50}, L"ě"},
                        {{51}, L"š"},
                        {{52}, L"č"},
                        {{53}, L"ř"},
                        {{54}, L"ž"},
                        {{55}, L"ý"},
                        {{56}, L"á"},
                        {{57}, L"í"},
                        {{48}, L"é"},
                        {{219}, L"ú"},
                        {{2024}, L"ó"},
                        {{3032}, L"ď"},
                        {{3049}, L"ň"},
                        {{3020}, L"ť"},
                        // the same in other ways, and what no dictionary has
                        {{1080}, L"P"},
                        {{1065}, L"A"},
                        {{10080}, L"P"},
                        {{10083}, L"S"},
                        {{2030}, L"á"},
                        {{191, 65}, L"á"},
                        {{10191, 67}, L"č"},
                        {{3046}, L"č"},
                        {{4005}, L"č"},
                        {{4030}, L"a"},
                        {{1049}, L"1"},
                        {{1047}, L"/"},
                        {{5047}, L"@"},
                        {{187}, L"="},
                        {{10050}, L"2"},
                        {{6065}, L"a"}};
const Cell SIGNS[] = {{{32}, L" "},   {{188}, L","}, {{190}, L"."}, {{1033}, L"!"},
                      {{1045}, L"-"}, {{13}, L"\n"}, {{192}, L";"}};
constexpr int32_t IDLE_KEYS[] = {112, 16, 144, 4042, 4029, 0};
constexpr int32_t MOVING_KEYS[] = {36, 37, 39, 35, 20065, 10036};
const std::wstring WORDS[] = {L"dobrý", L"dobře", L"den",    L"děkuji", L"Praha", L"píseň",
                              L"teď",   L"auto",  L"sestra", L"a",      L"síň",   L"šest"};

template <class Rows>
const auto& Pick(const Rows& All, uint32_t nChoice) {
    return All[nChoice % std::size(All)];
}

struct Page {
    TextField Field;  // the application's
    std::wstring strWanted;
    size_t nCursor = 0;
    size_t nWordStart = 0;

    void Put(std::wstring_view strText) {
        strWanted.insert(nCursor, strText);
        nCursor += strText.size();
    }
};

std::map<WindowHandle, Page> Pages;

class Typing : public ActionTest {
  protected:
    Typing() : m_Bytes(predictor::CompiledModel(SmallDictionary())) {
        Desktop.Classes[L"Presager.Dict"] = [this] {
            return platform::headless::MakeObject([this](auto, const auto&,
                                                         std::span<AutomationArgument> Arguments,
                                                         AutomationValue& Result) {
                if (m_bFails) return false;
                auto& strPrefix = std::get<std::wstring>(Arguments[0].Value);
                Result = m_bHostile ? AnyList(strPrefix) : OwnList(strPrefix);
                return true;
            });
        };
        Desktop.bRecording = false;
    }

    /// Empty, or what went wrong at which step.
    std::string Run(const Steps& All, bool bHostile);
    void TypeAtRandom(bool bHostile, uint32_t nRuns);

  private:
    static std::vector<predictor::TestWord> SmallDictionary() {
        std::vector<predictor::TestWord> Words(predictor::EVERYDAY_WORDS);
        Words.push_back({L"teď", 0.01});
        Words.push_back({L"síň", 0.01});
        return Words;
    }
    void Begin(bool bHostile);
    void Carry(const Step& Next);
    void Press(int32_t nCode);
    void PressCells(const Cell& Cells);
    void TypeLetter(uint32_t nChoice);
    void Accept(uint32_t nChoice);
    void Expect(const std::wstring& strRow);
    Page& Here();
    uint32_t Whim() { return static_cast<uint32_t>(m_Engine()); }
    std::wstring OwnList(std::wstring& strPrefix);
    std::wstring AnyList(std::wstring& strPrefix);

    std::string m_Bytes;
    predictor::Predictor m_Own;
    std::mt19937 m_Engine;
    bool m_bHostile = false;
    bool m_bFails = false;
    bool m_bCompletions = false;
    bool m_bCaps = false;
    std::wstring m_strHeld;
    std::wstring m_strMind;  // the word in the user's mind, as far as it is not typed
    WindowHandle m_hTyped = 0;
};

std::wstring Typing::OwnList(std::wstring& strPrefix) {
    const predictor::Answer Given = m_Own.GetPrediction(strPrefix);
    strPrefix = Given.strPrefix;
    return Given.strList;
}

// Words that have nothing to do with what was typed, marks, blanks, and prefixes made up.
std::wstring Typing::AnyList(std::wstring& strPrefix) {
    if (Whim() % 3 == 0) return {};
    std::wstring strList = L"*";
    for (uint32_t n = Whim() % 4 + 1; n > 0; --n) {
        const std::wstring& strWord = Pick(WORDS, Whim());
        strList += L';' + strWord.substr(0, Whim() % strWord.size() + 1);
        if (Whim() % 4 == 0) strList += L'*';
        if (Whim() % 2 == 0) strList += L' ';
    }
    if (Whim() % 8 == 0) strPrefix = Pick(WORDS, Whim());
    if (Whim() % 16 == 0) strPrefix.clear();
    return strList;
}

void Typing::Begin(bool bHostile) {
    HideList();
    Prediction = {};
    Desktop.Keyboard = {};
    Desktop.Keyboard.pHook = [](int32_t, uintptr_t, const platform::KeyHookRecord& Info) {
        const bool bUp = (Info.flags & platform::HOOK_FLAG_UP) != 0;
        Pages[Desktop.hForeground].Field.Key(Info.vkCode, bUp);
        return intptr_t{0};
    };
    Desktop.hForeground = 1;
    Pages.clear();
    m_Own = {};
    std::string strError;
    ASSERT_TRUE(m_Own.Words.Open(m_Bytes, strError)) << strError;
    m_Own.Settings.bAlways = true;
    m_Own.Settings.bRepeats = true;
    for (wchar_t nLetter = 0xC0; nLetter < 0x180; ++nLetter) {
        if (!IsTypedFromList(nLetter)) m_Own.Settings.strUntypeable += nLetter;
    }
    m_Engine.seed(7);
    m_bHostile = bHostile;
    m_bFails = false;
    m_bCaps = TextField::bCapsLock = false;
    m_strHeld.clear();
    m_strMind.clear();
    m_hTyped = 1;
}

// The page in front. Where another one was typed on before, the word begins here.
Page& Typing::Here() {
    Page& Front = Pages[Desktop.hForeground];
    if (m_hTyped != Desktop.hForeground) Front.nWordStart = Front.nCursor;
    m_hTyped = Desktop.hForeground;
    return Front;
}

void Typing::Press(int32_t nCode) {
    const bool bOpen = Modes.bListMode;
    CommonMap.Cell(1, 1)->Code = nCode;
    CommonMap.Cell(1, 1)->Command = nCode == 0 ? L"*x;Dobrý den;teď ;ano*" : L"";
    CommandAction(CELL_UNDER_CURSOR);
    if (!bOpen) m_bCompletions = nCode != 0;
}

void Typing::PressCells(const Cell& Cells) {
    std::wstring strTyped(Cells.szTyped);
    const bool bAltGr = Cells.Codes.front() == 5047;
    if (m_bCaps && !bAltGr) {
        const std::wstring strUpper = platform::ToUpper(strTyped);
        strTyped = strTyped == strUpper ? platform::ToLower(strTyped) : strUpper;
    }
    Here().Put(strTyped);
    for (const int32_t nCode : Cells.Codes)
        Press(nCode);
}

void Typing::TypeLetter(uint32_t nChoice) {
    if (m_strMind.empty()) m_strMind = Pick(WORDS, nChoice);
    const auto* pCell = std::find_if(std::begin(LETTERS), std::end(LETTERS), [&](const Cell& One) {
        return *One.szTyped == m_strMind.front();
    });
    m_strMind.erase(0, 1);
    const bool bAny = nChoice % 5 == 0;
    PressCells(bAny ? Pick(LETTERS, nChoice / 5) : *pCell);
}

// What the chosen row means for the text.
void Typing::Expect(const std::wstring& strRow) {
    Page& Front = Here();
    std::wstring strWord(platform::TrimBlanks(strRow));
    const bool bMarked = strWord.ends_with(L'*');
    const bool bBlank = strRow.ends_with(L' ');
    if (bMarked) strWord.pop_back();
    if (!m_bCompletions) m_strHeld.clear();
    if (bMarked && !strWord.starts_with(m_strHeld)) strWord += m_strHeld;
    m_strHeld = bMarked && !bBlank ? strWord : L"";
    if (m_bCompletions) {
        Front.strWanted.erase(Front.nWordStart, Front.nCursor - Front.nWordStart);
        Front.nCursor = Front.nWordStart;
    }
    Front.nWordStart = Front.nCursor;
    Front.Put(strWord);
    m_bCaps = m_bCaps && strWord.empty();
    if (bBlank) Front.Put(L" ");
    if (bBlank) Front.nWordStart = Front.nCursor;
    m_strMind.clear();
}

void Typing::Accept(uint32_t nChoice) {
    if (!Modes.bListMode) return;
    constexpr int32_t VK_DOWN = 40;
    const auto nRows = static_cast<uint32_t>(FrmMain->List1.ListCount());
    for (uint32_t n = nChoice % nRows; n > 0; --n)
        ListMove(VK_DOWN);
    Expect(FrmMain->List1.ItemText(FrmMain->List1.ListIndex));
    ListAccept();
    ListAccept();  // the second press finds no list
}

void Typing::Carry(const Step& Next) {
    switch (Next.nWhat) {
        case Do::Letter:
            return TypeLetter(Next.nChoice);
        case Do::Sign:
            PressCells(Pick(SIGNS, Next.nChoice));
            Here().nWordStart = Here().nCursor;
            m_strHeld.clear();
            return m_strMind.clear();
        case Do::Erase: {
            Page& Front = Here();
            if (Front.nCursor > 0) Front.strWanted.erase(--Front.nCursor, 1);
            Front.nWordStart = std::min(Front.nWordStart, Front.nCursor);
            return Press(8);
        }
        case Do::Caps:
            m_bCaps = !m_bCaps;
            return Press(20);
        case Do::Idle:
            (void)Here();
            return Press(Pick(IDLE_KEYS, Next.nChoice % 5));
        case Do::Move: {
            Page& Front = Here();
            const int32_t nCode = Pick(MOVING_KEYS, Next.nChoice);
            Press(nCode);
            Front.nCursor = Front.nWordStart = Front.Field.nCursor;
            return;
        }
        case Do::Accept:
            return Accept(Next.nChoice);
        case Do::Dismiss:
            return HideList();
        case Do::Phrase:
            (void)Here();
            Press(0);
            return Accept(Next.nChoice);
        case Do::OtherWindow:
            Desktop.hForeground = Desktop.hForeground == 1 ? 2 : 1;
            return;
        case Do::Dictionary:
            m_bFails = !m_bFails;
            return;
    }
}

std::string Typing::Run(const Steps& All, bool bHostile) {
    Begin(bHostile);
    for (size_t n = 0; n < All.size(); ++n) {
        Carry(All[n]);
        for (const auto& [hWindow, Shown] : Pages) {
            if (Shown.Field.strText == Shown.strWanted) continue;
            return "step " + std::to_string(n) + ", window " + std::to_string(hWindow) +
                   ": wanted \"" + platform::ToUtf8(Shown.strWanted) + "\", arrived \"" +
                   platform::ToUtf8(Shown.Field.strText) + "\"";
        }
    }
    return {};
}

Steps RandomSteps(uint32_t nSeed) {
    std::mt19937 Random(nSeed);
    std::discrete_distribution<int> What(std::begin(WEIGHTS), std::end(WEIGHTS));
    Steps All(10 + Random() % 30);
    for (Step& Next : All)
        Next = {static_cast<Do>(What(Random)), static_cast<uint32_t>(Random())};
    return All;
}

void Typing::TypeAtRandom(bool bHostile, uint32_t nRuns) {
    for (uint32_t nSeed = 1; nSeed <= nRuns; ++nSeed) {
        Steps All = RandomSteps(nSeed);
        if (Run(All, bHostile).empty()) continue;
        // As few steps as go wrong.
        for (size_t n = All.size(); n-- > 0;) {
            Steps Fewer = All;
            Fewer.erase(Fewer.begin() + static_cast<ptrdiff_t>(n));
            if (!Run(Fewer, bHostile).empty()) All = Fewer;
        }
        std::string strSteps;
        for (const Step& Next : All)
            strSteps += std::string(" ") + NAMES[static_cast<size_t>(Next.nWhat)] + ":" +
                        std::to_string(Next.nChoice);
        FAIL() << "seed " << nSeed << ": " << Run(All, bHostile) << "\nsteps:" << strSteps;
    }
}

TEST_F(Typing, TextIsWhatWasTypedAndChosen_WithThePredictor) {
    TypeAtRandom(false, 1000);
}

TEST_F(Typing, TextIsWhatWasTypedAndChosen_WithAHostileDictionary) {
    TypeAtRandom(true, 1000);
}

}  // namespace
}  // namespace taviro
