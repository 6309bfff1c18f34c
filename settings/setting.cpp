// SPDX-License-Identifier: MIT
#include "settings/setting.h"

#include <cmath>
#include <utility>

#include "platform/files.h"
#include "platform/number_text.h"
#include "platform/unneeded.h"
#include "settings/button_table.h"

namespace taviro {

enum class ReadAs {
    Int,           ///< the number at the start of the text; 0 without one
    TextToNumber,  ///< the whole text; the property stays as it is when that is no number
    Text,
};

enum class SaveAs {
    Nothing,
    AsIs,
    Absolute,  ///< dialogs may hold -1 for "on", which is 1 in the file
};

namespace {

using enum ReadAs;
using enum SaveAs;

constexpr wchar_t INFO[] = L"Info";
constexpr wchar_t VOICE[] = L"Voice";
constexpr wchar_t BUTTONS[] = L"Buttons";

}  // namespace

struct cSetting::Row {
    const wchar_t* strSection;
    const wchar_t* strKey;
    int32_t cSetting::*nNumber;  ///< null for a text
    const wchar_t* strDefault;
    ReadAs nReadAs;
    SaveAs nSaveAs;
    std::wstring cSetting::*strText = nullptr;  ///< null for a number
};

const cSetting::Row cSetting::Rows[] = {
    // clang-format off
    {INFO, L"TriggerRowReset", &cSetting::nTriggerRowReset, L"0", Int, Absolute},
    {INFO, L"TriggerColumnReset", &cSetting::nTriggerColumnReset, L"0", Int, Absolute},
    {INFO, L"ColumnWrap", &cSetting::nColumnWrap, L"0", Int, Absolute},
    {INFO, L"RowWrap", &cSetting::nRowWrap, L"1", Int, Absolute},
    {VOICE, L"Name", nullptr, L"Male", Text, AsIs, &cSetting::strVoiceName},
    {VOICE, L"Rate", &cSetting::nRate, L"0", TextToNumber, AsIs},
    {VOICE, L"Pitch", &cSetting::nPitch, L"0", TextToNumber, AsIs},
    {VOICE, L"Volume", &cSetting::nVolume, L"50", TextToNumber, AsIs},
    {INFO, L"ScanMode", &cSetting::nScanMode, L"0", Int, Absolute},
    {INFO, L"VoiceOnLineChange", &cSetting::nVoiceOnLineChange, L"0", Int, Absolute},
    {INFO, L"ScanSizeX", &cSetting::nScanSizeX, L"50", TextToNumber, Absolute},
    {INFO, L"ScanSizeY", &cSetting::nScanSizeY, L"50", TextToNumber, Absolute},
    {INFO, L"ScanDelay", &cSetting::nScanDelay, L"0", TextToNumber, Absolute},
    {INFO, L"CellTextSize", &cSetting::nCellTextSize, L"8", TextToNumber, Absolute},
    {INFO, L"CellWidth", &cSetting::nCellWidth, L"60", TextToNumber, Absolute},
    {INFO, L"CellHeight", &cSetting::nCellHeight, L"15", TextToNumber, Absolute},
    {INFO, L"DefCursorButton", &cSetting::nDefCursorButton, L"-1", Int, AsIs},
    {INFO, L"DefActionButton", &cSetting::nDefActionButton, L"-1", Int, AsIs},
    {INFO, L"Log", &cSetting::nLog, L"0", Int, Absolute},
    {INFO, L"Delay", &cSetting::nDelay, L"1", Int, Nothing},
    {INFO, L"SndName", nullptr, L"C:\\", Text, Nothing, &cSetting::strSndName},
    // clang-format on
};

bool cSetting::FileExists(const std::wstring& strPath) {
    return platform::FileExists(strPath);
}

cSetting::Source cSetting::Open(const std::wstring& strPath) {
    Source objSource;
    objSource.bExists = FileExists(strPath);
    std::string strBytes;
    objSource.bUnreadable = objSource.bExists && !platform::ReadFileBytes(strPath, strBytes);
    objSource.objFile = IniFile(std::move(strBytes));
    return objSource;
}

bool cSetting::SectionExists(std::wstring_view strSection, const Source& objSource) {
    return objSource.bExists && objSource.objFile.SectionTextCount(strSection) != 0;
}

std::wstring cSetting::ReadStringFromFile(std::wstring_view strSection, std::wstring_view strKey,
                                          std::wstring_view strDefault, const Source& objSource) {
    if (!objSource.bExists) return std::wstring(strDefault);
    return objSource.objFile.ReadString(strSection, strKey, strDefault);
}

int32_t cSetting::ReadIntFromFile(std::wstring_view strSection, std::wstring_view strKey,
                                  int32_t nDefault, const Source& objSource) {
    return objSource.bExists ? objSource.objFile.ReadInt(strSection, strKey, nDefault) : nDefault;
}

std::wstring cSetting::GetString(std::wstring_view strSection, std::wstring_view strKey,
                                 std::wstring_view strDefault) const {
    const bool bFromApp = SectionExists(strSection, objAppSource);
    return ReadStringFromFile(strSection, strKey, strDefault,
                              bFromApp ? objAppSource : objDefaultSource);
}

int32_t cSetting::GetInt(std::wstring_view strSection, std::wstring_view strKey,
                         std::wstring_view strDefault) const {
    const bool bFromApp = SectionExists(strSection, objAppSource);
    int32_t nDefault = 0;
    Unneeded(platform::WholeTextToInt32(strDefault, nDefault));  // the table's texts are numbers
    return ReadIntFromFile(strSection, strKey, nDefault,
                           bFromApp ? objAppSource : objDefaultSource);
}

void cSetting::Init(const std::wstring& sPathDefult, const std::wstring& sPathApp) {
    strDefaultPath = sPathDefult;
    objDefaultSource = Open(strDefaultPath);
    objAppSource = Open(sPathApp);
    for (const Row& objRow : Rows)
        ReadRow(objRow);
    ReadButtons();
    UnreadEntries.clear();
    if (objDefaultSource.bUnreadable) UnreadEntries = EntriesToSave();
    objDefaultSource = {};
    objAppSource = {};
}

void cSetting::ReadRow(const Row& objRow) {
    if (objRow.nReadAs == Int) {
        this->*objRow.nNumber = GetInt(objRow.strSection, objRow.strKey, objRow.strDefault);
        return;
    }
    std::wstring strText = GetString(objRow.strSection, objRow.strKey, objRow.strDefault);
    if (objRow.nReadAs == Text) {
        this->*objRow.strText = std::move(strText);
    } else {
        Unneeded(
            platform::WholeTextToInt32(strText, this->*objRow.nNumber));  // or it stays as it was
    }
}

void cSetting::ReadButtons() const {
    bool bFoundAction = false;
    bool bFoundMode = false;
    for (size_t i = 0; i < nButtonCount; ++i) {
        LoadButton(GetString(BUTTONS, std::to_wstring(i), L""), ButtonTable[i]);
        bFoundAction = bFoundAction || ButtonTable[i].Kind == ButtonKind::Action;
        bFoundMode = bFoundMode || ButtonTable[i].Kind == ButtonKind::Mode;
    }
    // Whatever the file says, there is a button to choose with and one to change the mode with.
    if (!bFoundAction) ButtonTable[0].Kind = ButtonKind::Action;
    if (!bFoundMode) ButtonTable[1].Kind = ButtonKind::Mode;
}

std::wstring cSetting::TextToSave(const Row& objRow) const {
    if (objRow.strText != nullptr) return this->*objRow.strText;
    const int64_t nValue = this->*objRow.nNumber;
    return std::to_wstring(objRow.nSaveAs == Absolute ? std::abs(nValue) : nValue);
}

std::vector<IniEntry> cSetting::EntriesToSave() const {
    std::vector<IniEntry> Entries;
    for (const Row& objRow : Rows) {
        if (objRow.nSaveAs == Nothing) continue;
        Entries.push_back({objRow.strSection, objRow.strKey, TextToSave(objRow)});
    }
    for (size_t i = 0; i < nButtonCount; ++i) {
        Entries.push_back({BUTTONS, std::to_wstring(i), ButtonText(ButtonTable[i])});
    }
    return Entries;
}

void cSetting::SaveSetting() {
    std::string strOld;
    const bool bExists = FileExists(strDefaultPath);
    // What cannot be read would be lost if it were replaced.
    if (bExists && !platform::ReadFileBytes(strDefaultPath, strOld)) return;
    IniFile objFile(strOld);
    const std::vector<IniEntry> Entries = EntriesToSave();
    for (size_t i = 0; i < Entries.size(); ++i) {
        const bool bUnchanged = i < UnreadEntries.size() && Entries[i] == UnreadEntries[i];
        if (!bUnchanged) objFile.Write(Entries[i]);
    }
    const std::string strNew = objFile.Bytes();
    if (bExists && strNew == strOld) return;
    Unneeded(platform::ReplaceFileBytes(strDefaultPath, strNew));  // a failed save stops nothing
}

}  // namespace taviro
