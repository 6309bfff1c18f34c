// SPDX-License-Identifier: MIT
// A stand-in for the system's winmm.dll: a joystick and a loudspeaker that a test drives and reads
// through the shared record. It lies beside a copy of the program, never in the program's own
// folder. Taviro calls it on one thread only.
#define _WINMM_  // this library defines the functions, it does not import them
#include <windows.h>

#include <atomic>
#include <cstring>
#include <mmsystem.h>

#include "tests/e2e/winmm/standin_layout.h"

namespace {

using namespace taviro::standin;

constexpr uint32_t AXIS_CENTRE = 32767;
constexpr uint32_t AXIS_MAXIMUM = 65535;
constexpr uint32_t HAT_CENTRED = 0xFFFF;
constexpr UINT BUTTON_COUNT = 16;

Sample Held = {AXIS_CENTRE, AXIS_CENTRE, 0};
bool bOpening = false;  // the capabilities were asked for, the position was not yet
constexpr uint32_t EVERY_READ_TAKES = 2;  // a presence in which no read counts as an opening

// The test sees an entry only after it is complete.
void Publish(uint32_t& nCounter, uint32_t nValue) {
    std::atomic_ref<uint32_t>(nCounter).store(nValue, std::memory_order_release);
}

uint32_t Current(uint32_t& nCounter) {
    return std::atomic_ref<uint32_t>(nCounter).load(std::memory_order_acquire);
}

SharedRecord* MapRecord() {
    wchar_t strPath[PATH_LENGTH];
    const DWORD nLength = GetEnvironmentVariableW(L"TAVIRO_STANDIN", strPath, PATH_LENGTH);
    if (nLength == 0 || nLength >= PATH_LENGTH) return nullptr;
    const HANDLE hFile = CreateFileW(strPath, GENERIC_READ | GENERIC_WRITE,
                                     FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                     nullptr, OPEN_EXISTING, 0, nullptr);
    if (hFile == INVALID_HANDLE_VALUE) return nullptr;
    const HANDLE hMapping = CreateFileMappingW(hFile, nullptr, PAGE_READWRITE, 0, 0, nullptr);
    CloseHandle(hFile);
    if (hMapping == nullptr) return nullptr;
    void* pView = MapViewOfFile(hMapping, FILE_MAP_WRITE, 0, 0, sizeof(SharedRecord));
    CloseHandle(hMapping);
    auto* pRecord = static_cast<SharedRecord*>(pView);
    if (pRecord != nullptr && pRecord->nMagic == MAGIC && pRecord->nVersion == VERSION &&
        pRecord->nSize == sizeof(SharedRecord))
        return pRecord;
    return nullptr;
}

// The record, mapped on first use and kept for the life of the process; nullptr when there is none,
// and then no device answers and no sound plays.
SharedRecord* Record() {
    static SharedRecord* const pRecord = MapRecord();
    return pRecord;
}

void TakeQueuedSample(SharedRecord& Shared) {
    if (Shared.nTaken == Current(Shared.nQueued)) return;
    Held = Shared.Queue[Shared.nTaken % QUEUE_LENGTH];
    Publish(Shared.nTaken, Shared.nTaken + 1);
}

void LogRead(SharedRecord& Shared, ReadKind nKind) {
    Shared.ReadLog[Shared.nReadCount % READ_LOG_LENGTH] = {GetTickCount(), Held, nKind};
    Publish(Shared.nReadCount, Shared.nReadCount + 1);
}

// The question whether a sound plays is never answered with its end, as on a system without a
// working sound device.
BOOL PlayAndLog(const wchar_t* strPath, UINT nFlags) {
    SharedRecord* pRecord = Record();
    if (pRecord == nullptr || strPath == nullptr || *strPath == 0) return FALSE;
    SoundEntry& Entry = pRecord->SoundLog[pRecord->nSoundCount % SOUND_LOG_LENGTH];
    Entry = {};
    Entry.nTick = GetTickCount();
    Entry.nFlags = nFlags;
    for (uint32_t i = 0; i + 1 < PATH_LENGTH && strPath[i] != 0; ++i)
        Entry.strPath[i] = static_cast<char16_t>(strPath[i]);
    Publish(pRecord->nSoundCount, pRecord->nSoundCount + 1);
    return TRUE;
}

}  // namespace

MMRESULT WINAPI joyGetDevCapsA(UINT_PTR nId, LPJOYCAPSA pCaps, UINT nSize) {
    SharedRecord* pRecord = Record();
    if (pRecord == nullptr) return MMSYSERR_NODRIVER;
    if (nId != 0 || pCaps == nullptr || nSize < sizeof(JOYCAPSA)) return JOYERR_PARMS;
    if (pRecord->bPresent == 0) return JOYERR_UNPLUGGED;
    if (pRecord->nCapsResult != 0) return pRecord->nCapsResult;
    bOpening = pRecord->bPresent != EVERY_READ_TAKES;
    *pCaps = {};
    std::strcpy(pCaps->szPname, "Stand-in joystick");
    pCaps->wXmax = pCaps->wYmax = AXIS_MAXIMUM;
    pCaps->wNumAxes = pCaps->wMaxAxes = 2;
    pCaps->wNumButtons = pCaps->wMaxButtons = BUTTON_COUNT;
    return JOYERR_NOERROR;
}

MMRESULT WINAPI joyGetPosEx(UINT nId, LPJOYINFOEX pInfo) {
    SharedRecord* pRecord = Record();
    if (pRecord == nullptr) return MMSYSERR_NODRIVER;
    if (nId != 0 || pInfo == nullptr || pInfo->dwSize < sizeof(JOYINFOEX)) return JOYERR_PARMS;
    if (pRecord->bPresent == 0) return JOYERR_UNPLUGGED;
    const ReadKind nKind = bOpening ? ReadKind::Open : ReadKind::Poll;
    bOpening = false;
    if (nKind == ReadKind::Poll) TakeQueuedSample(*pRecord);
    pInfo->dwXpos = Held.nX;
    pInfo->dwYpos = Held.nY;
    pInfo->dwZpos = pInfo->dwRpos = pInfo->dwUpos = pInfo->dwVpos = AXIS_CENTRE;
    pInfo->dwButtons = Held.nButtons;
    pInfo->dwPOV = HAT_CENTRED;
    LogRead(*pRecord, nKind);
    return JOYERR_NOERROR;
}

BOOL WINAPI sndPlaySoundW(LPCWSTR strPath, UINT nFlags) {
    return PlayAndLog(strPath, nFlags);
}
