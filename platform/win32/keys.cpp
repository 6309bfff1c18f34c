// SPDX-License-Identifier: MIT
#include "platform/keys.h"

#include <windows.h>

#include <string>
#include <vector>

#include "platform/key_flags.h"
#include "platform/main_window.h"
#include "platform/text.h"
#include "platform/unneeded.h"
#include "platform/win32/failure.h"
#include "platform/win32/numbers.h"

namespace taviro::platform {

static_assert(KEY_FLAG_EXTENDED == KEYEVENTF_EXTENDEDKEY);
#ifndef _WIN64
static_assert(sizeof(INPUT) == 28);
#endif

namespace {

constexpr int16_t NO_KEY = -1;

INPUT ToInput(const KeyRecord& Record) {
    INPUT Input{};
    Input.type = INPUT_KEYBOARD;
    Input.ki.wVk = Record.wVk;
    Input.ki.wScan = Record.wScan;
    Input.ki.dwFlags = FlagsForSystem(Record.wVk, Record.dwFlags);
    Input.ki.time = Record.nTime;
    Input.ki.dwExtraInfo = Record.dwExtraInfo;
    return Input;
}

INPUT ToInput(const MouseRecord& Record) {
    INPUT Input{};
    Input.type = INPUT_MOUSE;
    Input.mi.dx = Record.nDx;
    Input.mi.dy = Record.nDy;
    Input.mi.mouseData = Record.nMouseData;
    Input.mi.dwFlags = Record.dwFlags;
    Input.mi.time = Record.nTime;
    Input.mi.dwExtraInfo = Record.dwExtraInfo;
    return Input;
}

// The key that types a small letter alone, for systems that know an accented letter's key but do
// not find it by the letter. A key's character is told as a capital; a dead key's is marked, and no
// letter.
int16_t FindKeyOfSmallLetter(wchar_t nLetter) {
    constexpr UINT FIRST_VK = 8;
    constexpr UINT LAST_VK = 254;
    wchar_t nUpper = nLetter;
    Unneeded(CharUpperBuffW(&nUpper, 1));  // one character, always
    if (nUpper == nLetter) return NO_KEY;
    for (UINT nVk = FIRST_VK; nVk <= LAST_VK; ++nVk) {
        const UINT nCharacter = MapVirtualKeyW(nVk, MAPVK_VK_TO_CHAR);
        if (nCharacter == nLetter || nCharacter == nUpper) return static_cast<int16_t>(nVk);
    }
    return NO_KEY;
}

}  // namespace

uint32_t SendInputRecords(std::span<const InputRecord> Records) {
    std::vector<INPUT> Inputs;
    Inputs.reserve(Records.size());
    for (const InputRecord& Record : Records) {
        Inputs.push_back(std::visit([](const auto& Kind) { return ToInput(Kind); }, Record));
    }
    if (Inputs.empty()) return 0;
    const UINT nTaken = SendInput(static_cast<UINT>(Inputs.size()), Inputs.data(), sizeof(INPUT));
    win32::OrReport(nTaken == Inputs.size(), "SendInput");
    return nTaken;
}

void KeybdEvent(uint8_t nVk, uint8_t nScan, uint32_t dwFlags, uint32_t dwExtraInfo) {
    keybd_event(nVk, nScan, FlagsForSystem(nVk, dwFlags), dwExtraInfo);
}

int16_t VkKeyScanAnsi(uint8_t nCharacter) {
    const int16_t nFound = VkKeyScanA(static_cast<CHAR>(nCharacter));
    if (nFound != NO_KEY) return nFound;
    return FindKeyOfSmallLetter(FromAnsi(std::string(1, static_cast<char>(nCharacter))).front());
}

uint32_t OemKeyScanCode(uint8_t nOemCharacter) {
    return OemKeyScan(nOemCharacter);
}

uint8_t CharToOemAnsi(uint8_t nCharacter) {
    const char strAnsi[] = {static_cast<char>(nCharacter), '\0'};
    char strOem[sizeof(strAnsi)] = {};
    if (CharToOemA(strAnsi, strOem) == FALSE) return nCharacter;
    return static_cast<uint8_t>(strOem[0]);
}

uint32_t MapVirtualKeyCode(uint32_t nCode, uint32_t nMapType) {
    return MapVirtualKeyA(nCode, nMapType);
}

int32_t KeyToAnsi(uint32_t nVk, uint32_t nScan, const std::array<uint8_t, 256>& KeyState,
                  uint16_t& nCharacter) {
    const HWND hMain = win32::ToHwnd(MainWindowHandle());
    // Without a window the thread is 0, which means the calling thread: the same one.
    const DWORD nThread = GetWindowThreadProcessId(hMain, nullptr);
    return ToAsciiEx(nVk, nScan, KeyState.data(), &nCharacter, 0, GetKeyboardLayout(nThread));
}

}  // namespace taviro::platform
