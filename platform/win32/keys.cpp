// SPDX-License-Identifier: MIT
#include "platform/keys.h"

#include <windows.h>

#include <iterator>
#include <string>
#include <vector>

#include "platform/front_layout.h"
#include "platform/input_ledger.h"
#include "platform/key_flags.h"
#include "platform/layout_translation.h"
#include "platform/map_keyboard.h"
#include "platform/text.h"
#include "platform/unneeded.h"
#include "platform/win32/failure.h"
#include "platform/win32/numbers.h"

namespace taviro::platform {

static_assert(KEY_FLAG_EXTENDED == KEYEVENTF_EXTENDEDKEY);
static_assert(KEY_FLAG_UNICODE == KEYEVENTF_UNICODE);
#ifndef _WIN64
static_assert(sizeof(INPUT) == 28);
#endif

namespace {

HKL ToHkl(LayoutHandle hLayout) {
    return reinterpret_cast<HKL>(hLayout);  // NOLINT(performance-no-int-to-ptr)
}

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

LayoutTranslation Translation;
InputLedger Ledger;

size_t SendAll(std::span<const InputRecord> Records) {
    std::vector<INPUT> Inputs;
    Inputs.reserve(Records.size());
    for (const InputRecord& Record : Records) {
        Inputs.push_back(std::visit([](const auto& Kind) { return ToInput(Kind); }, Record));
    }
    if (Inputs.empty()) return 0;
    const UINT nTaken = SendInput(static_cast<UINT>(Inputs.size()), Inputs.data(), sizeof(INPUT));
    win32::OrReport(nTaken == Inputs.size(), "SendInput");
    Ledger.Note(Records, nTaken);
    return nTaken;
}

}  // namespace

uint32_t SendInputRecords(std::span<const InputRecord> Records) {
    const TranslatedRecords Translated = Translate(Translation, Records);
    return RecordsTaken(Translated, SendAll(Translated.Sent));
}

void ReleaseHeldInput() {
    Unneeded(SendAll(Ledger.Releases()));  // what is not taken is still down at the next call
}

void KeybdEvent(uint8_t nVk, uint8_t nScan, uint32_t dwFlags, uint32_t dwExtraInfo) {
    const KeyRecord Wanted{
        .wVk = nVk, .wScan = nScan, .dwFlags = dwFlags, .dwExtraInfo = dwExtraInfo};
    for (const KeyRecord& Record : Translation.Of(Wanted)) {
        const InputRecord Single = Record;
        Unneeded(SendAll({&Single, 1}));  // the older call reports nothing
    }
}

int16_t VkKeyScanAnsi(uint8_t nCharacter) {
    return KeyForCharacter(FromAnsi(std::string(1, static_cast<char>(nCharacter))).front());
}

uint32_t OemKeyScanCode(uint8_t nOemCharacter) {
    const char strOem[] = {static_cast<char>(nOemCharacter), '\0'};
    wchar_t strText[std::size(strOem)] = {};
    if (OemToCharW(strOem, strText) == FALSE) return MapScanOf(0);
    return MapScanOf(strText[0]);
}

uint8_t CharToOemAnsi(uint8_t nCharacter) {
    const char strAnsi[] = {static_cast<char>(nCharacter), '\0'};
    char strOem[sizeof(strAnsi)] = {};
    if (CharToOemA(strAnsi, strOem) == FALSE) return nCharacter;
    return static_cast<uint8_t>(strOem[0]);
}

uint32_t MapVirtualKeyCode(uint32_t nCode, uint32_t nMapType) {
    const uint32_t nFound = MapCodeOf(nCode, nMapType);
    if (nFound != 0 || nMapType != MAP_VK_TO_SCAN) return nFound;
    return MapVirtualKeyW(nCode, nMapType);  // keys that are the same on every layout
}

int32_t KeyToAnsi(uint32_t nVk, uint32_t /*nScan*/, const std::array<uint8_t, 256>& KeyState,
                  uint16_t& nCharacter) {
    return MapCharacterOf(nVk, KeyState, nCharacter);
}

LayoutHandle LayoutInFront() {
    GUITHREADINFO Info{};
    Info.cbSize = sizeof(Info);
    DWORD nThread = 0;  // the calling one, unless somebody has the focus
    if (GetGUIThreadInfo(0, &Info) != FALSE) {
        const HWND hFocused = Info.hwndFocus != nullptr ? Info.hwndFocus : Info.hwndActive;
        nThread = GetWindowThreadProcessId(hFocused, nullptr);
    }
    // Some threads do not tell: those behind a console.
    HKL hLayout = GetKeyboardLayout(nThread);
    if (hLayout == nullptr) hLayout = GetKeyboardLayout(0);
    return win32::ToNumber(hLayout);
}

int16_t KeyOnLayout(LayoutHandle hLayout, wchar_t nCharacter) {
    return VkKeyScanExW(nCharacter, ToHkl(hLayout));
}

uint32_t VkAtScan(LayoutHandle hLayout, uint32_t nScan) {
    return MapVirtualKeyExW(nScan, MAPVK_VSC_TO_VK, ToHkl(hLayout));
}

uint32_t ScanOnLayout(LayoutHandle hLayout, uint32_t nVk) {
    return MapVirtualKeyExW(nVk, MAPVK_VK_TO_VSC, ToHkl(hLayout));
}

bool IsCapsLockOn() {
    constexpr int TOGGLED = 1;
    return (GetKeyState(VK_CAPITAL) & TOGGLED) != 0;
}

}  // namespace taviro::platform
