// SPDX-License-Identifier: MIT
// What the user hears of the map and the modes: the sound file of that name, else speech.
#pragma once

#include <string>

namespace taviro {

/// Path of the sound file of a name: program folder, "sound", name, ".wav".
std::wstring SoundPath(const std::wstring& strName);

/// Whether there is a sound file of that name; a name that could be no file's has none.
bool HasSound(const std::wstring& strName);

/// Plays the sound file of that name if there is one, else speaks the text; the names of the modes
/// are spoken as their Czech words.
void Announce(const std::wstring& strText);

}  // namespace taviro
