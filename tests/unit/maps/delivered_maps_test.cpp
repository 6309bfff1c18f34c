// SPDX-License-Identifier: MIT
// Every map that Taviro is delivered with is read and tried out, and samples of every fault show
// that it would be found.
#include <algorithm>
#include <filesystem>

#include "actions/command_action.h"
#include "actions/key_synthesis.h"
#include "core/cursor_movement.h"
#include "dialogs/map_chooser_form.h"
#include "maps/key_names.h"
#include "maps/map_file.h"
#include "tests/unit/maps/map_faults.h"
#include "tests/unit/program_fixture.h"
#include "tests/unit/source_tree.h"
#include "tools/effort/typing_cells.h"
#include "tools/simulator/host_files.h"
#include "vocabulary/key_code.h"

namespace taviro {

namespace {

using effort::CellPlace;
using effort::TypingCells;

// The map of every day, the two that may take its place, and those of applications by the names of
// their executables as the system's list of processes gives them.
const std::vector<std::wstring> COMMON_MAPS{L"data.ini", L"data_abeceda.ini", L"data_sken.ini"};
const std::vector<std::wstring> APPLICATIONS{L"ApplicationFrameHost.exe",
                                             L"calc.exe",
                                             L"Calculator.exe",
                                             L"CalculatorApp.exe",
                                             L"chrome.exe",
                                             L"EXCEL.EXE",
                                             L"explorer.exe",
                                             L"firefox.exe",
                                             L"Microsoft.Media.Player.exe",
                                             L"ms-teams.exe",
                                             L"msedge.exe",
                                             L"NOTEPAD.EXE",
                                             L"olk.exe",
                                             L"OUTLOOK.EXE",
                                             L"soffice.bin",
                                             L"thunderbird.exe",
                                             L"vlc.exe",
                                             L"WhatsApp.exe",
                                             L"win32calc.exe",
                                             L"WINWORD.EXE",
                                             L"wmplayer.exe",
                                             L"wordpad.exe"};

constexpr std::wstring_view SMALL = L"aábcčdďeéěfghiíjklmnňoópqrřsštťuúůvwxyýzž";
constexpr std::wstring_view SIGNS = L"0123456789 \n\t.,?!-:;()\"'+=*/%<>_@#&§€\\";

// Not in the dictionary of words: names of keys, and imperatives and terms that everyday texts
// lack.
constexpr const wchar_t* MORE_WORDS[] = {
    L"caps",  L"esc", L"home", L"end", L"pgup",  L"pgdn",    L"delete", L"insert",  L"ctrl",
    L"prtsc", L"sh",  L"smaž", L"maž", L"označ", L"nulovat", L"tišeji", L"ztlumit", L"odrážky"};

KnownWords Words() {
    std::string strTable;
    EXPECT_TRUE(
        simulator::ReadHostFile(SourceTree() / "predictor" / "data" / "words.tsv", strTable));
    KnownWords Known(std::begin(MORE_WORDS), std::end(MORE_WORDS));
    for (size_t n = 0; n < strTable.size();) {
        const size_t nEnd = std::min(strTable.find('\n', n), strTable.size());
        const std::string strLine = strTable.substr(n, nEnd - n);
        Known.insert(platform::ToLower(platform::FromUtf8(strLine.substr(0, strLine.find('\t')))));
        n = nEnd + 1;
    }
    return Known;
}

const KnownWords& Dictionary() {
    static const KnownWords Known = Words();
    return Known;
}

std::string Delivered(const std::wstring& strName) {
    std::string strBytes;
    EXPECT_TRUE(simulator::ReadHostFile(SourceTree() / "data" / strName, strBytes));
    return strBytes;
}

MapGrid GridOf(const std::wstring& strName) {
    MapGrid Grid;
    (void)ReadMapText(Delivered(strName), Grid);
    return Grid;
}

std::string Joined(const std::vector<std::string>& Lines) {
    std::string strAll;
    for (const std::string& strLine : Lines)
        strAll += strLine + "\n";
    return strAll;
}

// What the cells type one after the other.
std::wstring TypedBy(const MapGrid& Grid, const std::vector<CellPlace>& Places) {
    Desktop.Keyboard = {};
    for (const CellPlace Place : Places)
        PressActionCode(Grid.Cell(Place.nColumn, Place.nRow)->Code);
    return Desktop.Keyboard.strTyped;
}

class DeliveredMaps : public ProgramTest {
  protected:
    DeliveredMaps() {
        PrepareBare();
        InitKeyTable();
    }
};

class CommonMaps : public DeliveredMaps, public ::testing::WithParamInterface<std::wstring> {};

}  // namespace

TEST_F(DeliveredMaps, Folder_HoldsTheKnownFilesOnly) {
    std::vector<std::wstring> Wanted = COMMON_MAPS;
    for (const std::wstring& strName : APPLICATIONS)
        Wanted.push_back(L"data_" + strName + L".ini");
    std::sort(Wanted.begin(), Wanted.end());
    std::vector<std::filesystem::path> Paths;
    ASSERT_TRUE(simulator::ListHostFiles(SourceTree() / "data", Paths));
    std::vector<std::wstring> Found;
    for (const auto& Path : Paths)
        Found.push_back(simulator::FileNameOf(Path));
    std::sort(Found.begin(), Found.end());
    EXPECT_EQ(Found, Wanted);
}

TEST_F(DeliveredMaps, EveryMap_HasNoFault) {
    std::vector<std::filesystem::path> Paths;
    ASSERT_TRUE(simulator::ListHostFiles(SourceTree() / "data", Paths));
    for (const auto& Path : Paths) {
        const std::wstring strName = simulator::FileNameOf(Path);
        EXPECT_EQ(Joined(FaultsOf(Delivered(strName), Dictionary())), "")
            << platform::ToUtf8(strName);
    }
}

namespace {

// What a cell does to the program in front: text, and keys that are no text.
struct Arrived {
    std::wstring strTyped;
    std::vector<platform::headless::ReceivedKey> Keys;
    bool operator==(const Arrived&) const = default;
};

Arrived ArrivesFrom(int32_t nCode, platform::LayoutHandle hLayout) {
    Desktop.Keyboard = {};
    Desktop.Keyboard.hLayout = hLayout;
    PressActionCode(nCode);
    EXPECT_EQ(Desktop.KeysDown(), std::vector<int>{}) << nCode;
    Arrived Result{.strTyped = Desktop.Keyboard.strTyped, .Keys = {}};
    if (Result.strTyped.empty()) Result.Keys = Desktop.Keyboard.Received;
    return Result;
}

// The operations of the calculators are written as one learns them at school.
std::wstring MeantBy(const std::wstring& strCaption, int32_t nCode) {
    constexpr int32_t PAD_TIMES = 106, PAD_DIVIDED = 111;
    if (strCaption == L"×" && nCode == PAD_TIMES) return L"*";
    if (strCaption == L":" && nCode == PAD_DIVIDED) return L"/";
    if (strCaption == L"=" && nCode == KeyCode::Enter) return L"\n";
    return strCaption;
}

}  // namespace

TEST_F(DeliveredMaps, EveryCell_TypesItsCaption_OnEveryLayout) {
    using namespace platform::headless;
    std::vector<std::filesystem::path> Paths;
    ASSERT_TRUE(simulator::ListHostFiles(SourceTree() / "data", Paths));
    size_t nLetters = 0;
    for (const auto& Path : Paths) {
        for (const MapCell& Cell : ShownCells(GridOf(simulator::FileNameOf(Path)))) {
            if (Cell.Code < 1) continue;
            const std::string strWhere = Path.string() + ", " + platform::ToUtf8(Cell.Caption);
            const Arrived Czech = ArrivesFrom(Cell.Code, CZECH_LAYOUT);
            if (Cell.Caption.size() == 1 && !Czech.strTyped.empty()) {
                EXPECT_EQ(Czech.strTyped, MeantBy(Cell.Caption, Cell.Code)) << strWhere;
                ++nLetters;
            }
            const bool bWaits = Desktop.Keyboard.nPendingDeadKey != 0;
            for (const auto hLayout : {US_LAYOUT, RUSSIAN_LAYOUT}) {
                const Arrived Here = ArrivesFrom(Cell.Code, hLayout);
                EXPECT_EQ(Here.strTyped, Czech.strTyped) << strWhere << ", " << hLayout;
                // A dead key is kept back where the layout in front has none.
                if (bWaits) continue;
                EXPECT_EQ(Here, Czech) << strWhere << ", " << hLayout;
            }
        }
    }
    EXPECT_GT(nLetters, 3 * SMALL.size()) << "the captions of three maps at least";
}

TEST_F(DeliveredMaps, EveryApplicationMap_LeadsBackToSelectionOneTiltFromItsStart) {
    for (const std::wstring& strName : APPLICATIONS) {
        const MapGrid Grid = GridOf(L"data_" + strName + L".ini");
        int32_t nLast = 1;
        while (!Grid.Cell(nLast + 1, 1)->Caption.empty())
            ++nLast;
        EXPECT_EQ(Grid.Cell(nLast, 1)->Caption, L"výběr") << platform::ToUtf8(strName);
        EXPECT_EQ(Grid.Cell(nLast, 1)->Command, L"<") << platform::ToUtf8(strName);
    }
}

TEST_P(CommonMaps, EveryLetterAndSign_IsTypedByOneCell) {
    const MapGrid Grid = GridOf(GetParam());
    const TypingCells Cells(Grid);
    std::wstring strWanted(SMALL);
    for (wchar_t n = L'A'; n <= L'Z'; ++n)
        strWanted += n;
    for (const wchar_t n : strWanted + std::wstring(SIGNS)) {
        const auto Places = Cells.For(n);
        EXPECT_EQ(Places.size(), 1U) << platform::ToUtf8(std::wstring(1, n));
        EXPECT_EQ(TypedBy(Grid, Places), std::wstring(1, n));
    }
}

TEST_P(CommonMaps, EveryCapitalWithAMark_IsTypedBetweenTwoUsesOfCapsLock) {
    const MapGrid Grid = GridOf(GetParam());
    const TypingCells Cells(Grid);
    for (const wchar_t nSmall : SMALL) {
        const std::wstring strCapital = platform::ToUpper(std::wstring(1, nSmall));
        const auto Places = Cells.For(strCapital.front());
        EXPECT_EQ(Places.size(), strCapital.front() < 128 ? 1U : 3U);
        EXPECT_EQ(TypedBy(Grid, Places), strCapital);
    }
}

TEST_P(CommonMaps, DeadKeys_MakeCapitalsWithMarks) {
    const MapGrid Grid = GridOf(GetParam());
    const TypingCells Cells(Grid);
    const auto CellOf = [&](std::wstring_view strCaption) {
        for (const CellPlace Place : effort::Routes(Grid, {}).Cells()) {
            if (Grid.Cell(Place.nColumn, Place.nRow)->Caption == strCaption) return Place;
        }
        return CellPlace{};
    };
    EXPECT_EQ(TypedBy(Grid, {CellOf(L"ˇ háček"), CellOf(L"C")}), L"Č");
    EXPECT_EQ(TypedBy(Grid, {CellOf(L"´ délka"), CellOf(L"U")}), L"Ú");
}

// "<" and ">" need AltGr on the Czech layout, and the keys of these names type a comma and a full
// stop there: the maps have codes that work.
TEST_P(CommonMaps, EveryNamedKey_HasACell) {
    const auto Cells = ShownCells(GridOf(GetParam()));
    const auto Working = [](int32_t nCode) {
        if (nCode == 1060) return 5051;
        return nCode == 1062 ? 5052 : nCode;
    };
    for (const KeyName& Key : KeyTable) {
        const auto IsIt = [&](const MapCell& Cell) { return Cell.Code == Working(Key.Code); };
        EXPECT_TRUE(std::any_of(Cells.begin(), Cells.end(), IsIt)) << platform::ToUtf8(Key.Name);
    }
}

TEST_P(CommonMaps, EveryMode_HasACell) {
    const auto Cells = ShownCells(GridOf(GetParam()));
    for (const wchar_t* szMode : {L"|", L">", L"<"}) {
        EXPECT_EQ(std::count_if(Cells.begin(), Cells.end(),
                                [&](const MapCell& Cell) { return Cell.Command == szMode; }),
                  1);
    }
}

// Whoever knows one of them finds every cell in the others.
TEST_P(CommonMaps, Cells_AreThoseOfTheMapOfEveryDay) {
    const auto Sorted = [](const std::wstring& strName) {
        std::vector<std::wstring> Lines;
        for (const MapCell& Cell : ShownCells(GridOf(strName)))
            Lines.push_back(Cell.Caption + L"," + std::to_wstring(Cell.Code) + L"," + Cell.Command);
        std::sort(Lines.begin(), Lines.end());
        return Lines;
    };
    EXPECT_EQ(Sorted(GetParam()), Sorted(L"data.ini"));
}

INSTANTIATE_TEST_SUITE_P(All, CommonMaps, ::testing::ValuesIn(COMMON_MAPS),
                         [](const auto& Info) { return "Map" + std::to_string(Info.index); });

namespace {

struct BadMap {
    const char* szName;
    const wchar_t* szText;
    const char* szFault;
};

class BadMaps : public DeliveredMaps, public ::testing::WithParamInterface<BadMap> {};

}  // namespace

TEST_P(BadMaps, Fault_IsFound) {
    const auto Faults = FaultsOf(platform::ToAnsi(GetParam().szText), Dictionary());
    EXPECT_NE(Joined(Faults).find(GetParam().szFault), std::string::npos) << Joined(Faults);
}

INSTANTIATE_TEST_SUITE_P(
    All, BadMaps,
    ::testing::Values(BadMap{"UnixLines", L"[1,1]a,65\n[2,1]b,66\n", "without an end"},
                      BadMap{"NoLastEnd", L"[1,1]a,65\r\n[2,1]b,66", "without an end"},
                      BadMap{"NotACell", L"[1,1]a,65\r\nb\r\n", "no cell"},
                      BadMap{"OutsideTheGrid", L"[1,1]a,65\r\n[41,1]b,66\r\n", "no cell"},
                      BadMap{"SamePlaceTwice", L"[1,1]a,65\r\n[1,1]b,66\r\n", "would write"},
                      BadMap{"BlankAtTheEnd", L"[1,1]a ,65\r\n", "would write"},
                      BadMap{"UndefinedByte", L"[1,1]\x81,65\r\n", "not Windows-1250"},
                      BadMap{"EmptyFirstColumn", L"[2,1]a,65\r\n", "no way leads"},
                      BadMap{"BehindAGap", L"[1,1]a,65\r\n[3,1]b,66\r\n", "no way leads"},
                      BadMap{"CaptionTwice", L"[1,1]a,65\r\n[2,1]a,66\r\n", "a second time"},
                      BadMap{"TooWide", L"[1,1]mmmmmmm,65\r\n", "cut"},
                      BadMap{"UnknownWidth", L"[1,1]ß,65\r\n", "unknown width"},
                      BadMap{"Misspelt", L"[1,1]mezrea,32\r\n", "unknown word, mezrea"},
                      BadMap{"WithoutDiacritics", L"[1,1]carka,188\r\n", "unknown word, carka"},
                      BadMap{"NoKey", L"[1,1]a,1000\r\n", "without a key"},
                      BadMap{"NegativeCode", L"[1,1]a,-65\r\n", "without a key"},
                      BadMap{"UnknownKind", L"[1,1]a,6065\r\n", "without a key"},
                      BadMap{"UnknownModifiers", L"[1,1]a,80065\r\n", "unknown modifiers"},
                      BadMap{"KindWithModifier", L"[1,1]a,11065\r\n", "rob"},
                      BadMap{"UnknownKey", L"[1,1]a,255\r\n", "unknown key"},
                      BadMap{"CharacterWithAltGr", L"[1,1]a,1064\r\n", "no key"},
                      BadMap{"CharacterWithDeadKey", L"[1,1]a,1200\r\n", "no key"},
                      BadMap{"NoAcute", L"[1,1]a,2032\r\n", "scan code"},
                      BadMap{"NoCaron", L"[1,1]a,3022\r\n", "scan code"},
                      BadMap{"NoAltGr", L"[1,1]a,5030\r\n", "scan code"},
                      BadMap{"KeyAndCommand", L"[1,1]a,65,notepad\r\n", "keeps from"},
                      BadMap{"Nothing", L"[1,1]a,0\r\n", "neither"},
                      BadMap{"UnknownProgram", L"[1,1]a,0,no_such\r\n", "unknown program"},
                      BadMap{"ProgramAfterPrefix", L"[1,1]a,0,>no_such\r\n", "unknown program"},
                      BadMap{"PrefixInside", L"[1,1]a,0,notepad<\r\n", "unknown program"}));

INSTANTIATE_TEST_SUITE_P(
    Lists, BadMaps,
    ::testing::Values(
        BadMap{"NoTitle", L"[1,1]a,0,*;Ano\r\n", "without a title"},
        BadMap{"NoEntries", L"[1,1]a,0,*Texty\r\n", "without entries"},
        BadMap{"EmptyEntry", L"[1,1]a,0,*Texty;Ano;;Ne\r\n", "without a text"},
        BadMap{"EmptyLabel", L"[1,1]a,0,*Texty;,calc\r\n", "without a text"},
        BadMap{"LongEntry", L"[1,1]a,0,*Texty;ano ano ano ano ano ano ano ano ano ano ano\r\n",
               "too long"},
        BadMap{"LostLetter", L"[1,1]a,0,*Texty;Mám žízeň\r\n", "does not arrive"},
        BadMap{"LostCapital", L"[1,1]a,0,*Texty;Čekám\r\n", "does not arrive"},
        BadMap{"Notation", L"[1,1]a,0,*Texty;ano+ne\r\n", "does not arrive"},
        BadMap{"DeadCharacter", L"[1,1]a,0,*Texty;°\r\n", "does not arrive"},
        BadMap{"WordInEntry", L"[1,1]a,0,*Texty;Dekuji\r\n", "unknown word, Dekuji"},
        BadMap{"OpenParenthesis", L"[1,1]a,0,*Texty;Ano,calc(1\r\n", "pair"},
        BadMap{"WrongOrder", L"[1,1]a,0,*Texty;Ano,calc)(\r\n", "pair"},
        BadMap{"TextBehind", L"[1,1]a,0,*Texty;Ano,calc(1)2\r\n", "pair"},
        BadMap{"UnknownProgram", L"[1,1]a,0,*Texty;Ano,no_such(1)\r\n", "unknown program"}));

// The chooser is for a try: it shows a map as an application's, until a mode leads back.
TEST_F(DeliveredMaps, AlphabetMap_TypesInSelectionMode_WhenItIsChosen) {
    PutData(L"data.ini", platform::FromAnsi(Delivered(L"data.ini")));
    PutData(L"data_abeceda.ini", platform::FromAnsi(Delivered(L"data_abeceda.ini")));
    Start();
    frmMap->Show();
    ASSERT_TRUE(frmMap->File1.SelectText(L"data_abeceda.ini"));
    frmMap->Command1.Click();
    MoveCursor(KeyCode::Right);
    CommandAction(CELL_UNDER_CURSOR);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"a");
    frmMap->Show();
    ASSERT_TRUE(frmMap->File1.SelectText(L"data.ini"));
    frmMap->Command1.Click();
    CommandAction(CELL_UNDER_CURSOR);
    EXPECT_EQ(Desktop.Keyboard.strTyped, L"aj");
}

TEST_F(DeliveredMaps, TooLargeMap_IsFound) {
    MapGrid Wide;
    for (int32_t n = 1; n <= 11; ++n) {
        Wide.Cell(n, 1)->Caption = static_cast<wchar_t>(L'a' + n);
        Wide.Cell(n, 1)->Code = 65;
    }
    EXPECT_NE(Joined(FaultsOf(WriteMapText(Wide), Dictionary())).find("too large"),
              std::string::npos);
}

TEST_F(DeliveredMaps, SmallGoodMap_HasNoFault) {
    const std::wstring strText =
        L"[1,1]a,65\r\n[2,1]zpět,20090\r\n[1,2]seznam,0,*Texty;Dobrý den;Editor,notepad\r\n"
        L"[2,2]šipky,0,|\r\n";
    EXPECT_EQ(Joined(FaultsOf(platform::ToAnsi(strText), Dictionary())), "");
}

}  // namespace taviro
