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
    EXPECT_TRUE(LoadLearned(Path(), Back, strError));
    EXPECT_EQ(Back.Write(), Own.Write());
}

TEST_F(PredictorFile, MissingFile_IsNothingLearned) {
    EXPECT_TRUE(LoadLearned(Path(), Own, strError));
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
                                   return false;
                               },
                               SystemSteps().pReplace};
    const SaveSteps ReplaceFails{SystemSteps().pWrite,
                                 [](const fs::path&, const fs::path&) { return false; }};
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

TEST_F(PredictorFile, HalfFileOfACrash_IsPassedOver) {
    ASSERT_TRUE(SaveLearned(Own, Path(), strError));
    fs::path Beside = Path();
    Beside += ".new";
    std::ofstream(Beside, std::ios::binary) << "Taviro lear";
    Learned Back;
    EXPECT_TRUE(LoadLearned(Path(), Back, strError));
    EXPECT_EQ(Back.Write(), Own.Write());
    EXPECT_TRUE(SaveLearned(Own, Path(), strError));
    EXPECT_EQ(FilesInFolder(), 1U);
}

TEST_F(PredictorFile, TargetThatCannotBeReplaced_IsReported) {
    fs::create_directories(Path() / "taken");
    EXPECT_FALSE(SaveLearned(Own, Path(), strError));
    EXPECT_EQ(strError, "The file of learned words cannot be replaced.");
    EXPECT_FALSE(LoadLearned(Path(), Own, strError));
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
