// SPDX-License-Identifier: MIT
#include "predictor/files.h"

#include <system_error>

namespace taviro::predictor {

bool MappedFile::Open(const std::filesystem::path& Path, std::string& strError) {
    return DoneInSpiteOfHolders([&] { return Map(Path, strError); }, Pause);
}

bool SaveLearned(const Learned& Own, const std::filesystem::path& Path, std::string& strError,
                 const SaveSteps& Steps) {
    return SaveLearnedText(Own.Write(), Path, strError, Steps);
}

bool SaveLearnedText(std::string_view Written, const std::filesystem::path& Path,
                     std::string& strError, const SaveSteps& Steps) {
    std::error_code Ignored;  // the write tells whether the folder is there
    std::filesystem::create_directories(Path.parent_path(), Ignored);
    std::filesystem::path Beside = Path;
    Beside += ".new";
    if (!DoneInSpiteOfHolders([&] { return Steps.pWrite(Beside, Written); }, Steps.pPause)) {
        std::filesystem::remove(Beside, Ignored);
        strError = "The learned words cannot be written.";
        return false;
    }
    if (DoneInSpiteOfHolders([&] { return Steps.pReplace(Beside, Path); }, Steps.pPause)) {
        return true;
    }
    std::filesystem::remove(Beside, Ignored);
    strError = "The file of learned words cannot be replaced.";
    return false;
}

LearnedFile LoadLearned(const std::filesystem::path& Path, Learned& Own, std::string& strError) {
    Own.Forget();
    std::error_code Error;
    if (!std::filesystem::exists(Path, Error) && !Error) return LearnedFile::Read;
    MappedFile File;
    if (!File.Open(Path, strError)) return LearnedFile::Unreadable;
    return Own.Read(File.Bytes(), strError) ? LearnedFile::Read : LearnedFile::Damaged;
}

}  // namespace taviro::predictor
