// SPDX-License-Identifier: MIT
// How the learned words are saved and loaded, and what a failure leaves.
#include "predictor/files.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "tests/unit/predictor/predictor_fixture.h"

namespace taviro::predictor {
namespace {

namespace fs = std::filesystem;

class PredictorFile : public ::testing::Test {
  protected:
    PredictorFile() : m_Folder(fs::path(::testing::TempDir()) / "taviro_predictor_test") {
        fs::remove_all(m_Folder);
        Own.Note(L"", L"nazdar", NO_WORD);
    }
    ~PredictorFile() override {
        std::error_code Ignored;
        fs::remove_all(m_Folder, Ignored);
    }
    [[nodiscard]] fs::path Path() const { return m_Folder / "inner" / "learned.txt"; }
    [[nodiscard]] std::string Stored() const {
        std::ifstream File(Path(), std::ios::binary);
        return {std::istreambuf_iterator<char>(File), {}};
    }
    [[nodiscard]] size_t FilesInFolder() const {
        const fs::directory_iterator Begin(Path().parent_path());
        return static_cast<size_t>(std::distance(Begin, fs::directory_iterator()));
    }
    Learned Own;
    std::string strError;

  private:
    fs::path m_Folder;
};

TEST_F(PredictorFile, Save_MakesFolderAndFileAndNothingElse) {
    ASSERT_TRUE(SaveLearned(Own, Path(), strError));
    ASSERT_TRUE(SaveLearned(Own, Path(), strError));
    EXPECT_EQ(Stored(), Own.Write());
    EXPECT_EQ(FilesInFolder(), 1U);
    Learned Back;
    EXPECT_EQ(LoadLearned(Path(), Back, strError), LearnedFile::Read);
    EXPECT_EQ(Back.Write(), Own.Write());
}

TEST_F(PredictorFile, MissingFile_IsNothingLearned) {
    EXPECT_EQ(LoadLearned(Path(), Own, strError), LearnedFile::Read);
    EXPECT_TRUE(Own.IsEmpty());
}

TEST_F(PredictorFile, Forgotten_EmptiesTheFile) {
    ASSERT_TRUE(SaveLearned(Own, Path(), strError));
    Own.Forget();
    ASSERT_TRUE(SaveLearned(Own, Path(), strError));
    EXPECT_EQ(Stored().find("nazdar"), std::string::npos);
}

// A save that stops at any step leaves the old file whole.
TEST_F(PredictorFile, FailingSave_LeavesTheOldFile) {
    ASSERT_TRUE(SaveLearned(Own, Path(), strError));
    const std::string strBefore = Stored();
    Own.Note(L"", L"kamaráde", NO_WORD);
    const SaveSteps WriteFails{[](const fs::path& Target, std::string_view Bytes) {
                                   std::ofstream(Target, std::ios::binary)
                                       << Bytes.substr(0, Bytes.size() / 2);
                                   return FileStep::Failed;
                               },
                               SystemSteps().pReplace};
    const SaveSteps ReplaceFails{SystemSteps().pWrite,
                                 [](const fs::path&, const fs::path&) { return FileStep::Failed; }};
    for (const SaveSteps& Steps : {WriteFails, ReplaceFails}) {
        strError.clear();
        EXPECT_FALSE(SaveLearned(Own, Path(), strError, Steps));
        EXPECT_FALSE(strError.empty());
        EXPECT_EQ(Stored(), strBefore);
        EXPECT_EQ(FilesInFolder(), 1U);
    }
    EXPECT_TRUE(SaveLearned(Own, Path(), strError));
    EXPECT_EQ(Stored(), Own.Write());
}

class PredictorHeldFile : public PredictorFile {
  protected:
    PredictorHeldFile() { nHeldMs = nPausedMs = 0; }
    /// Steps with a file that is held until so much time was slept.
    static FileStep Write(const fs::path& Target, std::string_view Bytes) {
        return nPausedMs < nHeldMs ? FileStep::Held : SystemSteps().pWrite(Target, Bytes);
    }
    static FileStep Replace(const fs::path& From, const fs::path& To) {
        return nPausedMs < nHeldMs ? FileStep::Held : SystemSteps().pReplace(From, To);
    }
    static void Sleep(unsigned nMilliseconds) { nPausedMs += nMilliseconds; }
    inline static unsigned nHeldMs;
    inline static unsigned nPausedMs;
};

TEST_F(PredictorHeldFile, IsWaitedFor_InEachStep) {
    const SaveSteps WriteIsHeld{Write, SystemSteps().pReplace, Sleep};
    const SaveSteps ReplaceIsHeld{SystemSteps().pWrite, Replace, Sleep};
    for (const SaveSteps& Steps : {WriteIsHeld, ReplaceIsHeld}) {
        nPausedMs = 0;
        nHeldMs = 500;
        EXPECT_TRUE(SaveLearned(Own, Path(), strError, Steps));
        EXPECT_EQ(nPausedMs, nHeldMs);
        EXPECT_EQ(Stored(), Own.Write());
        nHeldMs = 100000;
        EXPECT_FALSE(SaveLearned(Own, Path(), strError, Steps));
        EXPECT_EQ(Stored(), Own.Write());
        EXPECT_EQ(FilesInFolder(), 1U);
    }
}

TEST_F(PredictorHeldFile, OtherFailure_IsNotWaitedFor) {
    const SaveSteps Fails{[](const fs::path&, std::string_view) { return FileStep::Failed; },
                          SystemSteps().pReplace, Sleep};
    EXPECT_FALSE(SaveLearned(Own, Path(), strError, Fails));
    EXPECT_EQ(nPausedMs, 0U);
}

// A folder of its name cannot be opened either, like a file that somebody holds.
TEST_F(PredictorHeldFile, IsNotTakenForDamaged) {
    fs::create_directories(Path());
    EXPECT_EQ(LoadLearned(Path(), Own, strError), LearnedFile::Unreadable);
    fs::remove(Path());
    std::ofstream(Path(), std::ios::binary) << "nothing that was learned";
    EXPECT_EQ(LoadLearned(Path(), Own, strError), LearnedFile::Damaged);
}

TEST_F(PredictorFile, HalfFileOfACrash_IsPassedOver) {
    ASSERT_TRUE(SaveLearned(Own, Path(), strError));
    fs::path Beside = Path();
    Beside += ".new";
    std::ofstream(Beside, std::ios::binary) << "Taviro lear";
    Learned Back;
    EXPECT_EQ(LoadLearned(Path(), Back, strError), LearnedFile::Read);
    EXPECT_EQ(Back.Write(), Own.Write());
    EXPECT_TRUE(SaveLearned(Own, Path(), strError));
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(PredictorFile, TargetThatCannotBeReplaced_IsReported) {
    fs::create_directories(Path() / "taken");
    EXPECT_FALSE(SaveLearned(Own, Path(), strError));
    EXPECT_EQ(strError, "The file of learned words cannot be replaced.");
    EXPECT_EQ(LoadLearned(Path(), Own, strError), LearnedFile::Unreadable);
    EXPECT_TRUE(Own.IsEmpty());
}

TEST_F(PredictorFile, MappedFile_GivesTheBytesOrAnError) {
    {
        MappedFile File;
        EXPECT_FALSE(File.Open(Path(), strError));
        EXPECT_FALSE(strError.empty());
        ASSERT_TRUE(SaveLearned(Own, Path(), strError));
        ASSERT_TRUE(File.Open(Path(), strError));
        EXPECT_EQ(File.Bytes(), Own.Write());
    }  // a mapped file is closed to writers
    std::ofstream(Path(), std::ios::trunc).close();
    MappedFile Empty;
    EXPECT_TRUE(Empty.Open(Path(), strError));
    EXPECT_TRUE(Empty.Bytes().empty());
}

}  // namespace
}  // namespace taviro::predictor
