// SPDX-License-Identifier: MIT
// Any bytes as setting.ini: read, saved and read again. What is saved must be read back as it was
// (as far as the file's notation can say it), and foreign lines must stay, in their order.
#include <cmath>
#include <set>
#include <string>

#include "fuzz/foreign_lines.h"
#include "platform/files.h"
#include "platform/headless/desktop.h"
#include "platform/text.h"
#include "settings/button_table.h"
#include "settings/setting.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize);

namespace taviro {
namespace {

const std::wstring SETTINGS_PATH = L"C:\\setting.ini";

using Getter = int32_t (cSetting::*)() const;

constexpr Getter UnchangedIntegers[] = {&cSetting::Delay,
                                        &cSetting::DefCursorButton,
                                        &cSetting::DefActionButton,
                                        &cSetting::Volume,
                                        &cSetting::Rate,
                                        &cSetting::Pitch};
constexpr Getter AbsoluteIntegers[] = {
    &cSetting::RowWrap,  &cSetting::ColumnWrap,        &cSetting::TriggerColumnReset,
    &cSetting::ScanMode, &cSetting::VoiceOnLineChange, &cSetting::TriggerRowReset,
    &cSetting::Log};
constexpr Getter AbsoluteTexts[] = {&cSetting::ScanSizeX, &cSetting::ScanSizeY,
                                    &cSetting::ScanDelay, &cSetting::CellTextSize,
                                    &cSetting::CellWidth, &cSetting::CellHeight};

/// A text as it comes back from the file: without the blanks and quotes around it.
std::wstring ReadBack(const std::wstring& strText) {
    IniFile objFile;
    objFile.Write({L"s", L"k", strText});
    return IniFile(objFile.Bytes()).ReadString(L"s", L"k", L"");
}

void RequireSameSettings(const cSetting& objFirst, const cSetting& objSecond) {
    for (const Getter Get : UnchangedIntegers) {
        Require((objFirst.*Get)() == (objSecond.*Get)());
    }
    for (const Getter Get : AbsoluteIntegers) {  // the smallest number wraps back to itself
        const int32_t nFirst = (objFirst.*Get)();
        Require((objSecond.*Get)() == (nFirst < 0 && nFirst != INT32_MIN ? -nFirst : nFirst));
    }
    for (const Getter Get : AbsoluteTexts) {  // its absolute value is no 32-bit number
        const int32_t nFirst = (objFirst.*Get)();
        Require((objSecond.*Get)() == (nFirst == INT32_MIN ? 0 : std::abs(nFirst)));
    }
    Require(objSecond.SndName() == objFirst.SndName());
    Require(objSecond.VoiceName() == ReadBack(objFirst.VoiceName()));
}

void RequireSameButtons(const std::array<ButtonAction, nButtonCount>& First,
                        const std::array<ButtonAction, nButtonCount>& Second) {
    std::array<ButtonAction, nButtonCount> Expected;
    std::set<ButtonKind> Kinds;
    for (size_t i = 0; i < nButtonCount; ++i) {
        LoadButton(ReadBack(ButtonText(First[i]).value_or(L"")), Expected[i]);
        Kinds.insert(Expected[i].Kind);
        const bool bCommand = First[i].Kind == ButtonKind::Command;
        Require(!bCommand || Expected[i].Kind == ButtonKind::Command);
        Require(!bCommand || Expected[i].Command == First[i].Command);
    }
    if (!Kinds.contains(ButtonKind::Action)) Expected[0].Kind = ButtonKind::Action;
    if (!Kinds.contains(ButtonKind::Mode)) Expected[1].Kind = ButtonKind::Mode;
    Require(Second == Expected);
}

/// Whether saving owns the key: any but those that are only read.
bool IsOwnKey(const std::string& strSection, const std::string& strKey) {
    static const std::set<std::string> Info = {"triggerrowreset",  "triggercolumnreset",
                                               "columnwrap",       "rowwrap",
                                               "scanmode",         "scansizex",
                                               "scansizey",        "scandelay",
                                               "cellwidth",        "celltextsize",
                                               "cellheight",       "defcursorbutton",
                                               "defactionbutton",  "log",
                                               "voiceonlinechange"};
    static const std::set<std::string> Voice = {"name", "rate", "pitch", "volume"};
    if (strSection == "info") return Info.contains(strKey);
    if (strSection == "voice") return Voice.contains(strKey);
    if (strSection != "buttons") return false;
    for (size_t i = 0; i < nButtonCount; ++i) {
        if (strKey == std::to_string(i)) return true;
    }
    return false;
}

void TestBytes(const std::string& strBytes) {
    ForgetFiles();
    platform::headless::Desktop.Files.Put(SETTINGS_PATH, strBytes);
    ButtonTable = {};
    cSetting objFirst;
    objFirst.Init(SETTINGS_PATH);
    const auto FirstButtons = ButtonTable;
    objFirst.SaveSetting();

    ButtonTable = {};
    cSetting objSecond;
    objSecond.Init(SETTINGS_PATH);
    RequireSameSettings(objFirst, objSecond);
    RequireSameButtons(FirstButtons, ButtonTable);
    std::string strAfter;
    Require(platform::ReadFileBytes(SETTINGS_PATH, strAfter));
    RequireForeignLines(strBytes, strAfter, IsOwnKey);
    ForgetFiles();
    ButtonTable = {};
}

}  // namespace
}  // namespace taviro

int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    taviro::TestBytes(std::string(pData, pData + nSize));
    return 0;
}
