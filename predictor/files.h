// SPDX-License-Identifier: MIT
// The two ways in which the predictor touches files: the dictionary is mapped and read where it
// lies, the learned words are replaced whole, so that a crash at any moment leaves either the old
// file or the new one.
#pragma once

#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

#include "predictor/learned.h"

namespace taviro::predictor {

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
    struct Mapping;
    std::unique_ptr<Mapping> m_pMapping;
    std::string_view m_Bytes;
};

/// The steps of a save, so that a test can let each of them fail. Each returns false on failure.
struct SaveSteps {
    /// Writes a new file that only the user may read, and waits until it is on the disk.
    bool (*pWrite)(const std::filesystem::path& Path, std::string_view Bytes);
    /// Puts the first file in the place of the second in one step.
    bool (*pReplace)(const std::filesystem::path& From, const std::filesystem::path& To);
};
/// The real ones.
[[nodiscard]] const SaveSteps& SystemSteps();

/// Replaces the file of learned words, making its folder if need be; false with a sentence when it
/// could not be, and the old file is then as it was. The second form takes what Write() gave.
[[nodiscard]] bool SaveLearned(const Learned& Own, const std::filesystem::path& Path,
                               std::string& strError, const SaveSteps& Steps = SystemSteps());
[[nodiscard]] bool SaveLearnedText(std::string_view Written, const std::filesystem::path& Path,
                                   std::string& strError, const SaveSteps& Steps = SystemSteps());

/// Loads the learned words. A file that is not there yet is an empty one. Returns false with a
/// sentence when it is there and unreadable or none: then nothing is learned yet.
[[nodiscard]] bool LoadLearned(const std::filesystem::path& Path, Learned& Own,
                               std::string& strError);

}  // namespace taviro::predictor
