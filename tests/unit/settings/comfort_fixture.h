// SPDX-License-Identifier: MIT
// What the tests of comfort.ini share: a table with a key of every kind, and both files.
#pragma once

#include <array>
#include <gtest/gtest.h>
#include <string>

#include "platform/files.h"
#include "platform/headless/desktop.h"
#include "platform/text.h"
#include "platform/unneeded.h"
#include "settings/comfort_store.h"

namespace taviro {

inline const std::wstring COMFORT_OF_USER = L"C:\\data\\comfort.ini";
inline const std::wstring COMFORT_OF_PROGRAM = L"C:\\program\\comfort.ini";

/// What a program with these keys would read.
struct SampleValues {
    bool bWatch = false;
    int32_t nStep = 0;
    int32_t nPattern = 0;
    std::wstring strDevice;
    int32_t nVolume = 50;
};
inline SampleValues Sample;

inline constexpr ComfortKey SAMPLE_KEYS[] = {
    {.strSection = L"Stick",
     .strKey = L"Watch",
     .Target = &Sample.bWatch,
     .strDefault = L"0",
     .strDelivered = L"1",
     .strMeaning = L"sleduje"},
    {.strSection = L"Stick",
     .strKey = L"Device",
     .Target = &Sample.strDevice,
     .strDefault = L"",
     .strDelivered = L"",
     .strMeaning = L"jméno"},
    {.strSection = L"Scan",
     .strKey = L"StepMs",
     .Target = &Sample.nStep,
     .strDefault = L"0",  // the rules' own pace, outside the range
     .strDelivered = L"1000",
     .nLeast = 300,
     .nMost = 6000,
     .nStep = 100,
     .strMeaning = L"krok"},
    {.strSection = L"Scan",
     .strKey = L"Pattern",
     .Target = &Sample.nPattern,
     .strDefault = L"cells",
     .strDelivered = L"rows",
     .Words = {L"cells", L"rows", L"groups"},
     .strMeaning = L"vzor"},
    {.strSection = L"Sound",
     .strKey = L"Volume",
     .Target = &Sample.nVolume,
     .strDefault = L"50",
     .strDelivered = L"50",
     .nLeast = -100,
     .nMost = 100,
     .nStep = 30,
     .strMeaning = L"hlasitost"},
};
inline constexpr const ComfortKey& WATCH = SAMPLE_KEYS[0];
inline constexpr const ComfortKey& DEVICE = SAMPLE_KEYS[1];
inline constexpr const ComfortKey& STEP = SAMPLE_KEYS[2];
inline constexpr const ComfortKey& PATTERN = SAMPLE_KEYS[3];
inline constexpr const ComfortKey& VOLUME = SAMPLE_KEYS[4];

class ComfortTest : public testing::Test {
  protected:
    ComfortTest() {
        platform::headless::Desktop = platform::headless::DesktopState{};
        platform::headless::Desktop.Files.CreateFolders(L"C:\\data");
        Sample = {};
    }

    static void PutUser(const std::string& strBytes) {
        platform::headless::Desktop.Files.Put(COMFORT_OF_USER, strBytes);
    }
    static void PutProgram(const std::string& strBytes) {
        platform::headless::Desktop.Files.Put(COMFORT_OF_PROGRAM, strBytes);
    }
    static std::string UserFile() {
        std::string strBytes = "(no file)";
        Unneeded(platform::ReadFileBytes(COMFORT_OF_USER, strBytes));
        return strBytes;
    }

    void Init() {
        objStore = ComfortStore(SAMPLE_KEYS);
        objStore.Init(COMFORT_OF_USER, COMFORT_OF_PROGRAM);
    }
    void InitFrom(const std::string& strUser, const std::string& strProgram) {
        PutUser(strUser);
        PutProgram(strProgram);
        Init();
    }
    void Set(const ComfortKey& objKey, std::wstring_view strText) {
        EXPECT_NE(objStore.Set(objKey, strText), ComfortOutcome::Refused);
    }

    ComfortStore objStore{SAMPLE_KEYS};
};

}  // namespace taviro
