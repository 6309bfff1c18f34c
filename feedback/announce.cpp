// SPDX-License-Identifier: MIT
#include "feedback/announce.h"

#include <utility>

#include "feedback/speech.h"
#include "platform/files.h"
#include "platform/shell.h"
#include "platform/sound.h"
#include "platform/unneeded.h"

namespace taviro {

namespace {

// The modes' names as they are spoken.
constexpr std::pair<const wchar_t*, const wchar_t*> MODE_WORDS[] = {
    {L"mode_select", L"Výběr"},
    {L"mode_scan", L"Sken"},
    {L"mode_arrow", L"Šipky"},
    {L"mode_app", L"Aplikace"},
};

// In a search for a file these stand for others: "?.wav" would be found wherever "a.wav" is, and
// then not played.
constexpr const wchar_t* PATTERN_CHARACTERS = L"*?<>\"";

}  // namespace

std::wstring SoundPath(const std::wstring& strName) {
    return platform::ProgramFolder() + L"\\sound\\" + strName + L".wav";
}

bool HasSound(const std::wstring& strName) {
    return strName.find_first_of(PATTERN_CHARACTERS) == std::wstring::npos &&
           platform::FileExists(SoundPath(strName));
}

void Announce(const std::wstring& strText) {
    if (HasSound(strText)) {
        // A sound that does not play is not replaced by speech: the file is there, so it is wanted.
        Unneeded(platform::SndPlaySound(SoundPath(strText), platform::SND_FLAG_ASYNC));
        return;
    }
    for (const auto& [szName, szWord] : MODE_WORDS) {
        if (strText == szName) return SpeakIt(szWord);
    }
    SpeakIt(strText);
}

}  // namespace taviro
