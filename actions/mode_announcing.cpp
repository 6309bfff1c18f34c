// SPDX-License-Identifier: MIT
#include "actions/mode_announcing.h"

#include <string>

#include "feedback/announce.h"
#include "feedback/speech.h"
#include "forms/main_form.h"
#include "maps/map_grid.h"
#include "platform/clock.h"
#include "platform/messages.h"
#include "platform/sound.h"
#include "platform/unneeded.h"
#include "state/cursor_state.h"

namespace taviro {

namespace {

// The default map's cell at the cursor, also while an application map is shown.
std::wstring CommonCellText() {
    const MapCell* pCell = CommonMap.Cell(Cursor.nColumn, Cursor.nRow);
    return pCell == nullptr ? std::wstring{} : pCell->Caption;
}

// Far above every sound of a mode. A system without a working sound device, or with its own sounds
// switched off, may never report the end, and the joystick would stay dead.
constexpr uint32_t LONGEST_SOUND_MS = 10000;

// Plays a sound to its end. Returns false when there is no such file.
bool PlayToEnd(const std::wstring& strName) {
    if (!HasSound(strName)) return false;
    // A sound that does not play has no end to wait for.
    const bool bPlays = platform::SndPlaySound(SoundPath(strName), platform::SND_FLAG_ASYNC);
    const uint32_t nStart = platform::TickCount();
    do {
        platform::RunPendingMessages();
    } while (bPlays && !platform::SndPlaySound(L"", platform::SND_FLAG_NOSTOP) &&
             platform::TickCount() - nStart < LONGEST_SOUND_MS);
    return true;
}

void PlayOrSpeak(const std::wstring& strSoundName, const std::wstring& strSpoken) {
    if (!HasSound(strSoundName)) return SpeakIt(strSpoken);
    Unneeded(platform::SndPlaySound(SoundPath(strSoundName), platform::SND_FLAG_ASYNC));
}

}  // namespace

void EnterSelectMode() {
    if (!PlayToEnd(L"mode_select")) return SpeakIt(L"výběr " + CommonCellText());
    PlayOrSpeak(CommonCellText(), CommonCellText());
}

void EnterAppMode() {
    const auto& Status = forms::FrmMain->Label1.Caption;
    if (!PlayToEnd(L"mode_app")) return SpeakIt(L"aplikace " + Status.Get());
    PlayOrSpeak(Status, CommonCellText());
}

}  // namespace taviro
