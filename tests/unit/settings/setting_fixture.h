// SPDX-License-Identifier: MIT
// What the tests of the settings share: a data folder, the settings file in it, and the table of
// all number properties for the tests that hold for every one of them.
#pragma once

#include <array>
#include <gtest/gtest.h>
#include <string>

#include "platform/files.h"
#include "platform/headless/desktop.h"
#include "platform/text.h"
#include "platform/unneeded.h"
#include "settings/button_table.h"
#include "settings/setting.h"

namespace taviro {

inline const std::wstring SETTING_FILE = L"C:\\data\\setting.ini";
inline const std::wstring APP_FILE = L"C:\\data\\app.ini";

/// A number property, for the tests that hold for every one of them.
struct NumberProperty {
    const char* strSection;
    const char* strKey;
    int32_t (cSetting::*Get)() const;
    void (cSetting::*Set)(int32_t);
    int32_t nDefault;
    bool bWholeText;     ///< a text that is no number leaves the property alone
    const char* strOff;  ///< what a saved -1 becomes; null when the setting is not saved
};

#define TAVIRO_NUMBER(strSection, strKey, Name, nDefault, bWholeText, strOff) \
    { strSection, strKey, &cSetting::Name, &cSetting::Name, nDefault, bWholeText, strOff }

inline const NumberProperty NumberProperties[] = {
    TAVIRO_NUMBER("Info", "Delay", Delay, 1, false, nullptr),
    TAVIRO_NUMBER("Info", "RowWrap", RowWrap, 1, false, "1"),
    TAVIRO_NUMBER("Info", "ColumnWrap", ColumnWrap, 0, false, "1"),
    TAVIRO_NUMBER("Info", "TriggerColumnReset", TriggerColumnReset, 0, false, "1"),
    TAVIRO_NUMBER("Info", "TriggerRowReset", TriggerRowReset, 0, false, "1"),
    TAVIRO_NUMBER("Info", "DefCursorButton", DefCursorButton, -1, false, "-1"),
    TAVIRO_NUMBER("Info", "DefActionButton", DefActionButton, -1, false, "-1"),
    TAVIRO_NUMBER("Info", "ScanMode", ScanMode, 0, false, "1"),
    TAVIRO_NUMBER("Info", "VoiceOnLineChange", VoiceOnLineChange, 0, false, "1"),
    TAVIRO_NUMBER("Voice", "Volume", Volume, 50, true, "-1"),
    TAVIRO_NUMBER("Voice", "Rate", Rate, 0, true, "-1"),
    TAVIRO_NUMBER("Voice", "Pitch", Pitch, 0, true, "-1"),
    TAVIRO_NUMBER("Info", "ScanSizeX", ScanSizeX, 50, true, "1"),
    TAVIRO_NUMBER("Info", "ScanSizeY", ScanSizeY, 50, true, "1"),
    TAVIRO_NUMBER("Info", "ScanDelay", ScanDelay, 0, true, "1"),
    TAVIRO_NUMBER("Info", "CellTextSize", CellTextSize, 8, true, "1"),
    TAVIRO_NUMBER("Info", "CellWidth", CellWidth, 60, true, "1"),
    TAVIRO_NUMBER("Info", "CellHeight", CellHeight, 15, true, "1"),
    TAVIRO_NUMBER("Info", "Log", Log, 0, false, "1"),
};

class SettingTest : public testing::Test {
  protected:
    SettingTest() {
        platform::headless::Desktop.Files = {};
        platform::headless::Desktop.Files.CreateFolders(L"C:\\data");
        objSetting = cSetting{};
        ButtonTable = {};
    }

    static void Put(const std::string& strBytes, const std::wstring& strPath = SETTING_FILE) {
        ASSERT_TRUE(platform::ReplaceFileBytes(strPath, strBytes));
    }

    static void Init() { objSetting.Init(SETTING_FILE); }

    static void InitFrom(const std::string& strBytes) {
        Put(strBytes);
        Init();
    }

    static std::string Saved() {
        objSetting.SaveSetting();
        std::string strBytes = "(no file)";
        Unneeded(platform::ReadFileBytes(SETTING_FILE, strBytes));
        return strBytes;
    }

    /// The text of a key in the file as it is on disk; "(none)" when the key is missing.
    static std::string Stored(const std::string& strSection, const std::string& strKey) {
        std::string strBytes;
        Unneeded(platform::ReadFileBytes(SETTING_FILE, strBytes));
        return platform::ToAnsi(IniFile(strBytes).ReadString(
            platform::FromAnsi(strSection), platform::FromAnsi(strKey), L"(none)"));
    }

    static std::string KeyLine(const NumberProperty& objProperty, const std::string& strText) {
        return std::string("[") + objProperty.strSection + "]\r\n" + objProperty.strKey + "=" +
               strText + "\r\n";
    }

    static void ExpectKinds(const std::array<int, nButtonCount>& Kinds) {
        for (size_t i = 0; i < nButtonCount; ++i) {
            EXPECT_EQ(static_cast<int>(ButtonTable[i].Kind), Kinds[i]) << "button " << i;
        }
    }
};

inline constexpr std::array<int, nButtonCount> UsualKinds = {0, 1, 4, 4, 4, 4, 4, 4,
                                                             4, 4, 4, 4, 4, 4, 4, 4};

#undef TAVIRO_NUMBER

}  // namespace taviro
