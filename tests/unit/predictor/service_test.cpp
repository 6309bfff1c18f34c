// SPDX-License-Identifier: MIT
// What the server's clients share and what each has for himself, and what becomes of its files.
#include "predictor/service.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <thread>

#include "predictor/letters.h"
#include "tests/unit/predictor/predictor_fixture.h"

namespace taviro::predictor {
namespace {

namespace fs = std::filesystem;

class PredictorService : public ::testing::Test {
  protected:
    PredictorService() {
        const std::string strTest = ::testing::UnitTest::GetInstance()->current_test_info()->name();
        m_Folder = fs::path(::testing::TempDir()) / ("taviro_service_" + strTest);
        fs::remove_all(m_Folder);
        fs::create_directories(m_Folder);
        m_Files = {.Dictionary = m_Folder / "czech.dict",
                   .Options = m_Folder / "user" / "presager.ini",
                   .Learned = m_Folder / "user" / "learned.txt"};
        Write(m_Files.Dictionary, CompiledModel(EVERYDAY_WORDS));
    }
    ~PredictorService() override {
        std::error_code Ignored;  // Windows keeps a file that a failed test has mapped
        fs::remove_all(m_Folder, Ignored);
    }

    static void Write(const fs::path& Path, const std::string& Bytes) {
        fs::create_directories(Path.parent_path());
        std::ofstream(Path, std::ios::binary) << Bytes;
    }
    static std::string Read(const fs::path& Path) {
        std::ifstream File(Path, std::ios::binary);
        return {std::istreambuf_iterator<char>(File), {}};
    }
    static void Type(Session& User, const std::wstring& strWord) {
        for (size_t n = 1; n <= strWord.size(); ++n)
            (void)User.Ask(strWord.substr(0, n));
    }
    /// A word that no dictionary has, written several times.
    static void WriteOwnWord(Session& User) {
        for (int n = 0; n < 5; ++n) {
            Type(User, L"plkuj");
            Type(User, L"zyxa");
        }
    }
    static bool Offers(Session& User, const std::wstring& strTyped, const std::wstring& strWord) {
        return User.Ask(strTyped).strList.find(L";" + strWord) != std::wstring::npos;
    }

    fs::path m_Folder;
    ServiceFiles m_Files;
};

TEST_F(PredictorService, OwnWord_IsSavedAndOfferedInTheNextRun) {
    {
        Service Shared;
        EXPECT_TRUE(Shared.Open(m_Files, L"").empty());
        Session User(Shared);
        EXPECT_FALSE(Shared.IsUnsaved());
        WriteOwnWord(User);
        EXPECT_TRUE(Shared.IsUnsaved());
        std::string strError;
        EXPECT_TRUE(Shared.Save(strError)) << strError;
        EXPECT_FALSE(Shared.IsUnsaved());
        EXPECT_NE(Read(m_Files.Learned).find("plkuj"), std::string::npos);
    }
    Service Again;
    EXPECT_TRUE(Again.Open(m_Files, L"").empty());
    Session User(Again);
    EXPECT_TRUE(Offers(User, L"plk", L"plkuj"));
}

TEST_F(PredictorService, OwnWord_IsOfferedToAllClientsAtOnce) {
    Service Shared;
    (void)Shared.Open(m_Files, L"");
    Session One(Shared);
    Session Other(Shared);
    EXPECT_FALSE(Offers(Other, L"plk", L"plkuj"));
    WriteOwnWord(One);
    Session Late(Shared);
    EXPECT_TRUE(Offers(Other, L"plku", L"plkuj"));
    EXPECT_TRUE(Offers(Late, L"plk", L"plkuj"));
}

TEST_F(PredictorService, Text_IsEachClientsOwn) {
    Service Shared;
    (void)Shared.Open(m_Files, L"");
    Session Alone(Shared);
    Session One(Shared);
    Session Other(Shared);
    const std::wstring strWord = L"pravda";
    const std::wstring strOther = L"dobře";
    for (size_t n = 1; n <= strWord.size(); ++n) {
        const std::wstring strAlone = Alone.Ask(strWord.substr(0, n)).strList;
        EXPECT_EQ(One.Ask(strWord.substr(0, n)).strList, strAlone) << n;
        (void)Other.Ask(strOther.substr(0, n));
    }
}

TEST_F(PredictorService, Forgetting_EmptiesFileAndMemoryOfAllClients) {
    Service Shared;
    (void)Shared.Open(m_Files, L"");
    Session User(Shared);
    Session Other(Shared);
    WriteOwnWord(User);
    std::string strError;
    ASSERT_TRUE(Shared.Save(strError)) << strError;
    Write(m_Files.Learned.string() + ".bad", "damaged earlier");
    Write(m_Files.Learned.string() + ".new", "interrupted earlier");
    WriteOwnWord(User);
    EXPECT_TRUE(Shared.IsUnsaved());
    EXPECT_TRUE(Shared.Forget(strError)) << strError;
    EXPECT_TRUE(fs::is_empty(m_Files.Learned.parent_path()));
    EXPECT_FALSE(Offers(User, L"plk", L"plkuj"));
    EXPECT_FALSE(Offers(Other, L"plk", L"plkuj"));
    EXPECT_FALSE(Shared.IsUnsaved());
    EXPECT_TRUE(Shared.Save(strError));
    EXPECT_FALSE(fs::exists(m_Files.Learned));
}

TEST_F(PredictorService, Forgetting_ReachesTheWordThatEachClientIsTyping) {
    Service Shared;
    (void)Shared.Open(m_Files, L"");
    Session One(Shared);
    Session Other(Shared);
    for (Session* pUser : {&One, &Other})
        Type(*pUser, L"plkuj");
    std::string strError;
    ASSERT_TRUE(Shared.Forget(strError)) << strError;
    for (Session* pUser : {&One, &Other}) {
        Type(*pUser, L"zyxa");
        EXPECT_FALSE(Shared.IsUnsaved()) << "a word that was begun before is not learned after";
    }
}

TEST_F(PredictorService, Forgetting_FailsWithASentence_WhenTheFileCannotGo) {
    Service Shared;
    (void)Shared.Open(m_Files, L"");
    fs::create_directories(m_Files.Learned / "in the way");
    std::string strError;
    EXPECT_FALSE(Shared.Forget(strError));
    EXPECT_EQ(strError, "learned.txt: The file cannot be removed.");
}

TEST_F(PredictorService, Dictionary_ThatIsMissingOrCut_GivesNoOffersAndIsTold) {
    const std::string Whole = Read(m_Files.Dictionary);
    for (const size_t nKept : {size_t{0}, size_t{5}, Whole.size() / 2, Whole.size() - 1}) {
        Write(m_Files.Dictionary, Whole.substr(0, nKept));
        Service Shared;
        const std::vector<std::string> Complaints = Shared.Open(m_Files, L"");
        ASSERT_EQ(Complaints.size(), 1U) << nKept;
        EXPECT_TRUE(Complaints[0].starts_with("czech.dict: ")) << Complaints[0];
        Session User(Shared);
        WriteOwnWord(User);
        const Answer Given = User.Ask(L"x\bdo");
        EXPECT_EQ(Given.strList, L"");
        EXPECT_EQ(Given.strPrefix, L"do");
        EXPECT_FALSE(Shared.IsUnsaved());
    }
    fs::remove(m_Files.Dictionary);
    Service Shared;
    EXPECT_EQ(Shared.Open(m_Files, L"").size(), 1U);
}

TEST_F(PredictorService, DamagedLearnedFile_IsSetAside) {
    const std::string Damaged("\x00\xFFno words", 10);
    Write(m_Files.Learned, Damaged);
    Service Shared;
    const std::vector<std::string> Complaints = Shared.Open(m_Files, L"");
    ASSERT_EQ(Complaints.size(), 1U);
    EXPECT_TRUE(Complaints[0].starts_with("learned.txt: ")) << Complaints[0];
    EXPECT_EQ(Read(m_Files.Learned.string() + ".bad"), Damaged);
    Session User(Shared);
    WriteOwnWord(User);
    std::string strError;
    EXPECT_TRUE(Shared.Save(strError)) << strError;
    EXPECT_NE(Read(m_Files.Learned).find("plkuj"), std::string::npos);
}

TEST_F(PredictorService, DamagedLearnedFileThatCannotBeMoved_IsNotWrittenOver) {
    const std::string Damaged = "no words";
    Write(m_Files.Learned, Damaged);
    fs::create_directories(fs::path(m_Files.Learned.string() + ".bad") / "in the way");
    Service Shared;
    EXPECT_EQ(Shared.Open(m_Files, L"").size(), 1U);
    Session User(Shared);
    WriteOwnWord(User);
    EXPECT_FALSE(Shared.IsUnsaved());
    std::string strError;
    EXPECT_TRUE(Shared.Save(strError)) << strError;
    EXPECT_EQ(Read(m_Files.Learned), Damaged);
}

// What the dictionary says of a word and what the user wrote count together.
TEST_F(PredictorService, LearnedWords_AreThoseOfTheDictionary) {
    Write(m_Files.Learned, "Taviro learned words 1\n55000 den\n45000 do\n");
    Service Shared;
    EXPECT_TRUE(Shared.Open(m_Files, L"").empty());
    Session User(Shared);
    EXPECT_TRUE(User.Ask(L"d").strList.starts_with(L";do ;den ")) << "den alone has more use";
}

TEST_F(PredictorService, LearnedWords_AreNotSaved_WhenAnotherServerKeepsThem) {
    const std::string Damaged = "not to be touched";
    Write(m_Files.Learned, Damaged);
    Service Shared;
    EXPECT_EQ(Shared.Open(m_Files, L"", false).size(), 1U);
    Session User(Shared);
    WriteOwnWord(User);
    EXPECT_TRUE(Offers(User, L"plk", L"plkuj"));
    EXPECT_FALSE(Shared.IsUnsaved());
    std::string strError;
    EXPECT_TRUE(Shared.Save(strError));
    EXPECT_EQ(Read(m_Files.Learned), Damaged);
}

TEST_F(PredictorService, FailedSave_StaysUnsavedAndIsMadeUpFor) {
    Service Shared;
    (void)Shared.Open(m_Files, L"");
    Session User(Shared);
    WriteOwnWord(User);
    Write(m_Files.Learned.parent_path(), "a file in the folder's place");
    std::string strError;
    EXPECT_FALSE(Shared.Save(strError));
    EXPECT_NE(strError, "");
    EXPECT_TRUE(Shared.IsUnsaved());
    fs::remove(m_Files.Learned.parent_path());
    EXPECT_TRUE(Shared.Save(strError)) << strError;
    EXPECT_NE(Read(m_Files.Learned).find("plkuj"), std::string::npos);
}

TEST_F(PredictorService, Options_AreFollowedAndNonsenseIsTold) {
    Write(m_Files.Options, "[Presager]\nWords=2\nLearn=0\nBlanks=0\nSpeed=9\n");
    Service Shared;
    EXPECT_EQ(Shared.Open(m_Files, L""),
              std::vector<std::string>{"presager.ini: The option \"Speed=9\" has no sense."});
    Session User(Shared);
    WriteOwnWord(User);
    EXPECT_FALSE(Shared.IsUnsaved());
    EXPECT_FALSE(Offers(User, L"plk", L"plkuj"));
    const std::wstring strList = User.Ask(L"d").strList;
    EXPECT_LE(std::count(strList.begin(), strList.end(), L';'), 2);
    EXPECT_EQ(strList.find(L' '), std::wstring::npos);
}

TEST_F(PredictorService, OptionsThatCannotBeRead_AreTold) {
    fs::create_directories(m_Files.Options / "in the way");
    Service Shared;
    const std::vector<std::string> Complaints = Shared.Open(m_Files, L"");
    ASSERT_EQ(Complaints.size(), 1U);
    EXPECT_TRUE(Complaints[0].starts_with("presager.ini: ")) << Complaints[0];
    Session User(Shared);
    EXPECT_TRUE(Offers(User, L"dob", L"dobř"));
}

TEST_F(PredictorService, WordsWithUntypeableLetters_AreNotOffered) {
    Service Plain;
    (void)Plain.Open(m_Files, L"");
    Session All(Plain);
    EXPECT_TRUE(Offers(All, L"dob", L"dobř"));
    Service Shared;
    (void)Shared.Open(m_Files, L"řý");
    Session User(Shared);
    EXPECT_EQ(User.Ask(L"dob").strList, L"");
}

TEST_F(PredictorService, ErasedWord_IsOfferedNothing) {
    Service Shared;
    (void)Shared.Open(m_Files, L"");
    Session User(Shared);
    EXPECT_TRUE(Offers(User, L"dob", L"dobř"));
    const Answer Given = User.Ask(L"dob\b\b\b");
    EXPECT_EQ(Given.strPrefix, L"");
    EXPECT_EQ(Given.strList, L"");
}

TEST_F(PredictorService, HugePrefix_IsAnsweredInNoTime) {
    Service Shared;
    (void)Shared.Open(m_Files, L"");
    Session User(Shared);
    for (const wchar_t nLetter : {L'a', UNKNOWN_LETTER, L'\b'}) {
        const std::wstring strHuge(1000000, nLetter);
        EXPECT_EQ(User.Ask(strHuge).strList, L"");
    }
}

TEST_F(PredictorService, ManyThreads_LoseNothing) {
    Service Shared;
    (void)Shared.Open(m_Files, L"");
    std::vector<std::thread> Threads;
    for (int n = 0; n < 4; ++n) {
        Threads.emplace_back([&] {
            Session User(Shared);
            WriteOwnWord(User);
        });
    }
    std::string strError;
    for (int n = 0; n < 20; ++n)
        EXPECT_TRUE(Shared.Save(strError)) << strError;
    for (std::thread& One : Threads)
        One.join();
    EXPECT_TRUE(Shared.Save(strError)) << strError;
    Service Again;
    (void)Again.Open(m_Files, L"");
    Session User(Again);
    EXPECT_TRUE(Offers(User, L"plk", L"plkuj"));
}

}  // namespace
}  // namespace taviro::predictor
