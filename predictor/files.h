// SPDX-License-Identifier: MIT
// The two ways in which the predictor touches files: the dictionary is mapped and read where it
// lies, the learned words are replaced whole, so that a crash at any moment leaves either the old
// file or the new one. A file that another program holds, a virus scanner or a backup, is waited
// for half a second.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "predictor/learned.h"

namespace taviro::predictor {

/// What a step with a file came to.
enum class FileStep { Done, Failed, Held };

using PauseStep = void (*)(unsigned nMilliseconds);
/// Sleeps.
void Pause(unsigned nMilliseconds);

/// Tries a step until it is done, fails for another reason than that the file is held, or half a
/// second is over.
template <class Step>
[[nodiscard]] bool DoneInSpiteOfHolders(Step Try, PauseStep pPause) {
    constexpr int TRIES = 11;
    constexpr unsigned PAUSE_MS = 50;
    FileStep nResult = Try();
    for (int nTry = 1; nResult == FileStep::Held && nTry < TRIES; ++nTry) {
        pPause(PAUSE_MS);
        nResult = Try();
    }
    return nResult == FileStep::Done;
}

/// A file's bytes in memory for as long as the object lives.
class MappedFile {
  public:
    MappedFile();
    ~MappedFile();
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;

    /// Returns false with a sentence when the file cannot be read; an empty one can.
    [[nodiscard]] bool Open(const std::filesystem::path& Path, std::string& strError);
    [[nodiscard]] std::string_view Bytes() const { return m_Bytes; }

  private:
    [[nodiscard]] FileStep Map(const std::filesystem::path& Path, std::string& strError);

    struct Mapping;
    std::unique_ptr<Mapping> m_pMapping;
    std::string_view m_Bytes;
};

/// The steps of a save, so that a test can let each of them fail.
struct SaveSteps {
    /// Writes a new file that only the user may read, and waits until it is on the disk.
    FileStep (*pWrite)(const std::filesystem::path& Path, std::string_view Bytes);
    /// Puts the first file in the place of the second in one step.
    FileStep (*pReplace)(const std::filesystem::path& From, const std::filesystem::path& To);
    PauseStep pPause = Pause;
};
/// The real ones.
[[nodiscard]] const SaveSteps& SystemSteps();

/// Replaces the file of learned words, making its folder if need be; false with a sentence when it
/// could not be, and the old file is then as it was. The second form takes what Write() gave.
[[nodiscard]] bool SaveLearned(const Learned& Own, const std::filesystem::path& Path,
                               std::string& strError, const SaveSteps& Steps = SystemSteps());
[[nodiscard]] bool SaveLearnedText(std::string_view Written, const std::filesystem::path& Path,
                                   std::string& strError, const SaveSteps& Steps = SystemSteps());

/// How the learned words were found.
enum class LearnedFile { Read, Unreadable, Damaged };

/// Loads the learned words. A file that is not there yet is an empty one. When it cannot be read,
/// or is no file of learned words, it says so with a sentence; then nothing is learned yet.
[[nodiscard]] LearnedFile LoadLearned(const std::filesystem::path& Path, Learned& Own,
                                      std::string& strError);

}  // namespace taviro::predictor
