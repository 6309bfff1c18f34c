// SPDX-License-Identifier: MIT
// Stand-ins for the programs that Taviro talks to: speech engine, speech reader, speech relay and
// word dictionary. Each writes what it is told into the transcript of the virtual desktop.
#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace taviro::simulator {

/// What the stand-ins know; shared with the objects, which outlive the scenario's run.
struct StandInData {
    std::vector<std::wstring> Voices;  ///< descriptions of the engine's voices, in its order
    /// Offers of the dictionary: a typed beginning and the list that it gives.
    std::vector<std::pair<std::wstring, std::wstring>> Predictions;
};

/// Registers the class of each on the virtual desktop.
void InstallSpeechEngine(const std::shared_ptr<StandInData>& pData);
void InstallReader();
void InstallRelay();
void InstallDictionary(const std::shared_ptr<StandInData>& pData);

/// Takes the speech engine away, as on a computer that has none.
void RemoveSpeechEngine();

}  // namespace taviro::simulator
