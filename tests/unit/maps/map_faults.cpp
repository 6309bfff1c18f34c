// SPDX-License-Identifier: MIT
#include "tests/unit/maps/map_faults.h"

#include <algorithm>
#include <iterator>

#include "actions/key_sequence.h"
#include "actions/key_synthesis.h"
#include "maps/key_names.h"
#include "maps/map_file.h"
#include "platform/headless/desktop.h"
#include "platform/map_keyboard.h"
#include "platform/text.h"
#include "state/program_state.h"
#include "tests/unit/maps/caption_width.h"
#include "vocabulary/action_code.h"

namespace taviro {

namespace {

using platform::headless::Desktop;

// Beside a work area on the smallest usual screen, 1024 x 768 pixels.
constexpr int32_t WIDEST_WINDOW = 620;
constexpr int32_t HIGHEST_MAP = 330;
constexpr size_t LONGEST_ENTRY = 40;  // characters of a list's entry

// On every Windows, and such as a user may have.
constexpr std::wstring_view STANDARD_PROGRAMS[] = {L"notepad", L"calc",     L"explorer",
                                                   L"mspaint", L"control",  L"osk",
                                                   L"magnify", L"shutdown", L"ms-settings:"};
constexpr std::wstring_view OPTIONAL_PROGRAMS[] = {L"msedge", L"winword", L"excel", L"outlook"};
constexpr std::wstring_view DELIVERED_FILES[] = {L"\\help\\taviro.htm"};

// Virtual keys beside letters, digits, function keys and those with a name: Print Screen, Windows,
// the number pad, media keys, the equals sign and the Czech keys of §, ) and the acute accent.
constexpr int32_t OTHER_KEYS[] = {44,  91,  96,  97,  98,  99,  100, 101, 102, 103, 104, 105,
                                  106, 107, 109, 110, 111, 176, 177, 178, 187, 191, 222};

bool IsKnownVk(int32_t nKey) {
    const bool bLetterOrDigit = (nKey >= 'A' && nKey <= 'Z') || (nKey >= '0' && nKey <= '9');
    const bool bNamed = std::any_of(KeyTable.begin(), KeyTable.end(),
                                    [&](const auto& Named) { return Named.Code == nKey; });
    const bool bOther =
        std::find(std::begin(OTHER_KEYS), std::end(OTHER_KEYS), nKey) != std::end(OTHER_KEYS);
    return bLetterOrDigit || bNamed || bOther;
}

// What arrives in the program in front.
std::wstring Arrives(const std::wstring& strText) {
    Desktop.Keyboard = {};
    vbSendKey(strText);
    return Desktop.Keyboard.strTyped;
}

// The real layout has more dead keys than the model.
bool HasDeadCharacter(const std::wstring& strText) {
    return strText.find_first_of(L"°¨´ˇ^`~") != std::wstring::npos;
}

bool IsCharacterKey(int32_t nKey) {
    constexpr int32_t NEEDS_ALTGR = 0x600;
    const int32_t nFound = platform::VkKeyScanAnsi(static_cast<uint8_t>(nKey));
    return nKey > 32 && nKey < 256 && nFound != -1 && (nFound & NEEDS_ALTGR) == 0;
}

bool IsScanKey(int32_t nKind, int32_t nKey) {
    using namespace platform;
    constexpr int32_t KIND_ACUTE = 2, KIND_CARON = 3, KIND_ALTGR = 5;
    const LayoutKey* pKey = KeyOfScan(MapKeys(), static_cast<uint32_t>(nKey));
    if (pKey == nullptr) return false;
    if (nKind == KIND_ACUTE) return Compose(DEAD_ACUTE, pKey->nPlain) != 0;
    if (nKind == KIND_CARON) return Compose(DEAD_CARON, pKey->nPlain) != 0;
    return nKind != KIND_ALTGR || pKey->nAltGr != 0;
}

std::string ProgramFault(std::wstring_view strProgram) {
    const auto IsIn = [&](const auto& Programs) {
        return std::find(std::begin(Programs), std::end(Programs), strProgram) !=
               std::end(Programs);
    };
    if (IsIn(STANDARD_PROGRAMS) || IsIn(OPTIONAL_PROGRAMS) || IsIn(DELIVERED_FILES)) return {};
    return "an unknown program, " + platform::ToUtf8(strProgram);
}

std::vector<std::wstring> Split(const std::wstring& strText, wchar_t nAt) {
    std::vector<std::wstring> Parts(1);
    for (const wchar_t n : strText) {
        if (n == nAt) {
            Parts.emplace_back();
        } else {
            Parts.back() += n;
        }
    }
    return Parts;
}

// A word with a full stop behind it is an abbreviation or ends a sentence; a letter is a key.
std::string WordFault(const std::wstring& strText, bool bSentence, const KnownWords& Words) {
    std::wstring strWord;
    const auto IsLetter = [](wchar_t n) {
        const std::wstring str(1, n);
        return platform::ToLower(str) != platform::ToUpper(str);
    };
    for (const wchar_t n : strText + L" ") {
        if (IsLetter(n)) {
            strWord += n;
            continue;
        }
        const bool bAbbreviation = n == L'.' && !bSentence;
        const bool bTaken = strWord.size() < 2 || bAbbreviation;
        if (!bTaken && !Words.contains(platform::ToLower(strWord)))
            return "an unknown word, " + platform::ToUtf8(strWord);
        strWord.clear();
    }
    return {};
}

std::string EntryFault(const std::wstring& strEntry, const KnownWords& Words) {
    const auto nComma = strEntry.find(L',');
    const std::wstring strLabel = strEntry.substr(0, nComma);
    if (strLabel.empty()) return "a list entry without a text";
    if (strLabel.size() > LONGEST_ENTRY) return "a list entry that is too long";
    if (auto strFault = WordFault(strLabel, true, Words); !strFault.empty()) return strFault;
    if (nComma == std::wstring::npos) {
        const bool bArrives = !HasDeadCharacter(strLabel) && Arrives(strLabel) == strLabel;
        return bArrives ? "" : "a text that does not arrive, " + platform::ToUtf8(strLabel);
    }
    const std::wstring strCommand = strEntry.substr(nComma + 1);
    const auto nOpen = strCommand.find(L'(');
    const auto nClose = strCommand.find(L')');
    const bool bNone = nOpen == std::wstring::npos && nClose == std::wstring::npos;
    const bool bPaired = nOpen < nClose && nClose + 1 == strCommand.size() &&
                         strCommand.find(L'(', nOpen + 1) == std::wstring::npos;
    if (!bNone && !bPaired) return "parentheses that do not pair";
    return ProgramFault(strCommand.substr(0, nOpen));
}

std::string ListFault(const std::wstring& strCommand, const KnownWords& Words) {
    const auto Segments = Split(strCommand, L';');
    if (Segments[0].size() < 2) return "a list without a title";
    if (Segments.size() < 2) return "a list without entries";
    for (size_t n = 1; n < Segments.size(); ++n) {
        if (auto strFault = EntryFault(Segments[n], Words); !strFault.empty()) return strFault;
    }
    return {};
}

std::string CellFault(const MapCell& Cell, const KnownWords& Words) {
    const int32_t nWidth = CaptionWidth(Cell.Caption);
    if (nWidth < 0) return "a character of unknown width";
    if (nWidth > Program.nCellWidth) return "a caption that is cut";
    if (auto strFault = WordFault(Cell.Caption, false, Words); !strFault.empty()) return strFault;
    if (Cell.Code != 0) {
        if (!Cell.Command.empty()) return "a command that its key keeps from being carried out";
        return CodeFault(Cell.Code);
    }
    return CommandFault(Cell.Command, Words);
}

// The bytes as the program itself writes them: nothing lost, nothing twice, Windows line ends.
std::vector<std::string> FileFaults(std::string_view strBytes, const MapGrid& Grid) {
    std::vector<std::string> Faults;
    const auto nLines = std::count(strBytes.begin(), strBytes.end(), '\n');
    MapGrid Again;
    if (ReadMapText(strBytes, Again) != nLines) Faults.emplace_back("a line that is no cell");
    if (!strBytes.ends_with("\r\n")) Faults.emplace_back("a last line without an end");
    if (WriteMapText(Grid) != strBytes) Faults.emplace_back("not what the program would write");
    if (strBytes.find_first_of("\x81\x83\x88\x90\x98") != std::string_view::npos)
        Faults.emplace_back("not Windows-1250");
    return Faults;
}

}  // namespace

std::string CodeFault(int32_t nCode) {
    constexpr int32_t WINDOWS = 9, KIND_CHARACTER = 1, LAST_KIND = 5;
    const ActionCode Code = ParseActionCode(nCode);
    const int32_t nKind = Code.nKind % 10;
    if (nCode < 0 || Code.nKey < 1 || nKind > LAST_KIND) return "a code without a key";
    if (Code.nModifiers > 7 && Code.nModifiers != WINDOWS) return "unknown modifiers";
    if (Code.nModifiers != 0 && nKind != 0) return "modifiers that rob a code of its kind";
    if (nKind == 0) return IsKnownVk(Code.nKey) ? "" : "an unknown key";
    if (nKind == KIND_CHARACTER)
        return IsCharacterKey(Code.nKey) ? "" : "a character that has no key";
    return IsScanKey(nKind, Code.nKey) ? "" : "a scan code without a meaning";
}

std::string CommandFault(std::wstring strCommand, const KnownWords& Words) {
    if (strCommand.empty()) return "neither a key nor a command";
    if (std::wstring_view(L"<|>").find(strCommand[0]) != std::wstring_view::npos) {
        strCommand.erase(0, 1);
        if (strCommand.empty()) return {};
    }
    if (strCommand.starts_with(L"*")) return ListFault(strCommand, Words);
    return ProgramFault(strCommand);
}

std::vector<MapCell> ShownCells(const MapGrid& Grid) {
    std::vector<MapCell> Cells;
    for (int32_t nRow = 1; nRow <= MAP_ROWS && !Grid.Cell(1, nRow)->Caption.empty(); ++nRow) {
        for (int32_t n = 1; n <= MAP_COLUMNS && !Grid.Cell(n, nRow)->Caption.empty(); ++n)
            Cells.push_back(*Grid.Cell(n, nRow));
    }
    return Cells;
}

std::vector<std::string> FaultsOf(std::string_view strBytes, const KnownWords& Words) {
    MapGrid Grid;
    (void)ReadMapText(strBytes, Grid);
    std::vector<std::string> Faults = FileFaults(strBytes, Grid);
    std::set<std::wstring> Captions;
    const std::vector<MapCell> Cells = ShownCells(Grid);
    for (const MapCell& Cell : Cells) {
        const std::string strName = platform::ToUtf8(Cell.Caption) + ": ";
        if (!Captions.insert(Cell.Caption).second) Faults.push_back(strName + "a second time");
        const std::string strFault = CellFault(Cell, Words);
        if (!strFault.empty()) Faults.push_back(strName + strFault);
    }
    // A cell behind a gap cannot be reached.
    if (static_cast<std::ptrdiff_t>(Cells.size()) !=
        std::count(strBytes.begin(), strBytes.end(), '\n'))
        Faults.emplace_back("cells that no way leads to");
    int32_t nColumns = 0;
    int32_t nRows = 0;
    for (int32_t n = 1; n <= MAP_COLUMNS; ++n)
        nColumns = Grid.Cell(n, 1)->Caption.empty() ? nColumns : n;
    for (int32_t n = 1; n <= MAP_ROWS; ++n)
        nRows = Grid.Cell(1, n)->Caption.empty() ? nRows : n;
    if (nColumns * (Program.nCellWidth + 1) > WIDEST_WINDOW ||
        nRows * (Program.nCellHeight + 1) > HIGHEST_MAP)
        Faults.emplace_back("too large for the screen");
    return Faults;
}

}  // namespace taviro
