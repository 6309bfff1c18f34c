// SPDX-License-Identifier: MIT
#include "predictor/learned.h"

#include <filesystem>
#include <fstream>
#include <iterator>

#include "predictor/files.h"
#include "tests/unit/predictor/predictor_fixture.h"

namespace taviro::predictor {
namespace {

namespace fs = std::filesystem;

double CountOf(const Learned& Own, const std::wstring& strWord) {
    const auto it = Own.Words().find(strWord);
    return it == Own.Words().end() ? 0 : Own.Now(it->second.Count);
}

TEST(PredictorLearned, Counts_GrowWithUse) {
    Learned Own;
    Own.Note(L"", L"nazdar", NO_WORD);
    Own.Note(L"nazdar", L"nazdar", NO_WORD);
    EXPECT_NEAR(CountOf(Own, L"nazdar"), 2, 1e-3);
    EXPECT_NEAR(Own.Total(), 2, 1e-3);
    ASSERT_NE(Own.After(L"nazdar"), nullptr);
    EXPECT_EQ(Own.After(L"ahoj"), nullptr);
}

TEST(PredictorLearned, Count_IsHalvedByTheHalfLife) {
    Learned Own;
    Own.Note(L"", L"nazdar", NO_WORD);
    for (uint32_t n = 0; n < Learned::HALF_LIFE; ++n)
        Own.Note(L"", L"ano", 0);
    EXPECT_NEAR(CountOf(Own, L"nazdar"), 0.5, 1e-3);
    for (uint32_t n = 0; n < 3 * Learned::HALF_LIFE; ++n)
        Own.Note(L"", L"ano", 0);
    EXPECT_EQ(Own.Write().find("nazdar"), std::string::npos);  // faded, so not stored any more
}

TEST(PredictorLearned, Capital_IsKeptOnlyForNames) {
    Learned Own;
    Own.Note(L"", L"Nazdar", NO_WORD);
    EXPECT_EQ(Own.Words().at(L"nazdar").strWord, L"Nazdar");
    Own.Note(L"", L"nazdar", NO_WORD);
    Own.Note(L"", L"Nazdar", NO_WORD);
    EXPECT_EQ(Own.Words().at(L"nazdar").strWord, L"nazdar");
}

TEST(PredictorLearned, Store_StaysSmall) {
    Learned Own;
    std::wstring strPrevious;
    for (int n = 0; n < 30000; ++n) {
        std::wstring strWord = L"a";
        for (int nRest = n; nRest > 0; nRest /= 5)
            strWord += std::wstring_view(L"bedafe").substr(static_cast<size_t>(nRest % 5), 2);
        Own.Note(strPrevious, strWord, 0);
        strPrevious = strWord;
    }
    EXPECT_LE(Own.Words().size(), Learned::MOST_WORDS_KEPT);
    EXPECT_LT(Own.Write().size(), size_t{1} << 20);
    Own.Note(L"", L"nejnovější", NO_WORD);
    EXPECT_GT(CountOf(Own, L"nejnovější"), 0);
}

TEST(PredictorLearned, Text_BringsEverythingBack) {
    Learned Own;
    Own.Note(L"", L"Žižkov", NO_WORD);
    Own.Note(L"Žižkov", L"křižovatka", NO_WORD);
    Learned Back;
    std::string strError;
    ASSERT_TRUE(Back.Read(Own.Write(), strError));
    EXPECT_EQ(Back.Write(), Own.Write());
    EXPECT_EQ(Back.Words().at(L"žižkov").strWord, L"Žižkov");
    EXPECT_TRUE(Back.After(L"žižkov")->contains(L"křižovatka"));
}

struct FileCase {
    const char* szName;
    std::string Bytes;
    bool bGood;
    size_t nWords;
};

TEST(PredictorLearned, HostileText_GivesOnlyWords) {
    const std::string strFirst = "Taviro learned words 1\n";
    const FileCase CASES[] = {
        {"empty", "", false, 0},
        {"other kind", "[Info]\nScanMode=1\n", false, 0},
        {"nothing learned", strFirst, true, 0},
        {"no words", strFirst + "100 a;b\n100 (\n100 \n100\n\n \n", true, 0},
        {"no counts", strFirst + "x ano\n-5 ano\n0 ano\n99999999999999 ano\n", true, 0},
        {"no word before the follower", strFirst + "100 =ano\n", true, 0},
        {"follower that is no word itself", strFirst + "100 ano\n100 =nikdo\n", true, 1},
        {"bytes", strFirst + std::string("\0\xFF\xFE 100 \xC5\n100 ano", 16), true, 1},
        {"huge", strFirst + std::string(5 << 20, 'a'), false, 0},
    };
    for (const FileCase& One : CASES) {
        Learned Own;
        std::string strError;
        EXPECT_EQ(Own.Read(One.Bytes, strError), One.bGood) << One.szName;
        EXPECT_EQ(strError.empty(), One.bGood) << One.szName;
        EXPECT_EQ(Own.Words().size(), One.nWords) << One.szName;
        EXPECT_EQ(Own.After(L"ano"), nullptr) << One.szName;
    }
}

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
