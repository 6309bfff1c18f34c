// SPDX-License-Identifier: MIT
#include "platform/sound.h"

#include <windows.h>

#include <mmsystem.h>
#include <string>

#include "platform/failure.h"
#include "platform/files.h"
#include "platform/playing_sound.h"
#include "platform/win32/failure.h"

namespace taviro::platform {

namespace {

PlayingSound Playing;

}  // namespace

bool SndPlaySound(const std::wstring& strFile, uint32_t nFlags) {
    if ((nFlags & SND_FLAG_NOSTOP) != 0 && !Playing.HasEnded()) return false;
    if (strFile.empty()) return true;
    // A sound that cannot be played is no reason for the system to play its own.
    const bool bPlayed = sndPlaySoundW(strFile.c_str(), nFlags | SND_NODEFAULT) != FALSE;
    std::string strBytes;
    Playing.Begin(bPlayed && ReadFileBytes(strFile, strBytes) ? WaveLengthMs(strBytes) : 0);
    if (!bPlayed) ReportFailure("sndPlaySound", CODE_FAILED);  // the system tells no reason
    return bPlayed;
}

void SystemBeep() {
    // A system without a sound device stays silent; nothing better can be done about it.
    win32::OrReport(MessageBeep(MB_OK), "MessageBeep");
}

}  // namespace taviro::platform
