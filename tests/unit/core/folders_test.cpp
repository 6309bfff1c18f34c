// SPDX-License-Identifier: MIT
// The data folder: found, made level by level, seeded on the first start.
#include "core/folders.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

constexpr int32_t APPLICATION_DATA = 26;
const std::wstring ROAMING = L"C:\\Users\\Jana\\AppData\\Roaming";
const std::wstring SEEDS = L"C:\\Program Files\\Taviro\\data";
const std::string COPIED = platform::ToUtf8(L"copy " + SEEDS + L"\\*.* to " + DATA_PATH);

class FoldersTest : public ProgramTest {
  protected:
    FoldersTest() {
        Desktop.Files.Put(SEEDS + L"\\data.ini", "[1,1]A,65\r\n");
        Desktop.Files.Put(SEEDS + L"\\data_WINWORD.EXE.ini", "[1,1]W,66\r\n");
        Desktop.Files.Put(SEEDS + L"\\setting.ini", "[Info]\r\nLog=1\r\n");
    }
    static Effects CreationsFrom(size_t nFirstLevel) {
        const Effects All{
            "create folder C:\\Users\\Jana\\AppData\\Roaming\\Nordane",
            "create folder C:\\Users\\Jana\\AppData\\Roaming\\Nordane\\Corvela",
            "create folder C:\\Users\\Jana\\AppData\\Roaming\\Nordane\\Corvela\\v2.2",
            "create folder C:\\Users\\Jana\\AppData\\Roaming\\Nordane\\Corvela\\v2.2\\taviro"};
        return {All.begin() + static_cast<std::ptrdiff_t>(nFirstLevel), All.end()};
    }
    static Effects Then(Effects First, const std::string& strLast) {
        First.push_back(strLast);
        return First;
    }
};

TEST_F(FoldersTest, GetSpecialFolderPath_GivesPathAndNamesOwner100_WhenFolderIsKnown) {
    EXPECT_EQ(GetSpecialFolderPath(APPLICATION_DATA), ROAMING);
    EXPECT_EQ(Desktop.FolderOwners, std::vector<uintptr_t>{100});
}

TEST_F(FoldersTest, GetSpecialFolderPath_IsEmpty_WhenFolderIsUnknown) {
    EXPECT_EQ(GetSpecialFolderPath(9999), L"");
}

TEST_F(FoldersTest, GetSpecialFolderPath_IsEmpty_WhenFolderHasNoPath) {
    Desktop.SpecialFolders[17] = L"";  // the list exists but names no folder of the file system
    EXPECT_EQ(GetSpecialFolderPath(17), L"");
}

TEST_F(FoldersTest, GetSpecialFolderPath_EndsAtFirstNul_WhenMoreFollows) {
    Desktop.SpecialFolders[APPLICATION_DATA] = std::wstring(L"C:\\A\0B", 6);
    EXPECT_EQ(GetSpecialFolderPath(APPLICATION_DATA), L"C:\\A");
}

TEST_F(FoldersTest, GetSpecialFolderPath_Holds511Characters_WhenPathIsLong) {
    Desktop.SpecialFolders[APPLICATION_DATA] = std::wstring(511, L'x');
    EXPECT_EQ(GetSpecialFolderPath(APPLICATION_DATA), std::wstring(511, L'x'));
    Desktop.SpecialFolders[APPLICATION_DATA] = std::wstring(512, L'x');
    EXPECT_EQ(GetSpecialFolderPath(APPLICATION_DATA), L"");
}

TEST_F(FoldersTest, PrepareDataFolder_MakesEveryLevelThenCopiesAllSeeds_WhenFirstStarted) {
    PrepareDataFolder();
    EXPECT_EQ(Program.strDataPath, DATA_PATH);
    EXPECT_EQ(Desktop.TakeEffects(), Then(CreationsFrom(0), COPIED));
    EXPECT_EQ(DataText(L"data.ini"), L"[1,1]A,65\r\n");
    EXPECT_EQ(DataText(L"data_WINWORD.EXE.ini"), L"[1,1]W,66\r\n");
    EXPECT_EQ(DataText(L"setting.ini"), L"[Info]\r\nLog=1\r\n");
}

TEST_F(FoldersTest, PrepareDataFolder_MakesMissingLevelsOnly_WhenSomeStand) {
    const std::wstring LEVELS[] = {L"\\Nordane", L"\\Corvela", L"\\v2.2", L"\\taviro"};
    std::wstring strFolder = ROAMING;
    for (size_t nStanding = 1; nStanding <= 4; ++nStanding) {
        Desktop.Files = {};
        strFolder += LEVELS[nStanding - 1];
        Desktop.Files.CreateFolders(strFolder);
        PrepareDataFolder();
        EXPECT_EQ(Desktop.TakeEffects(), Then(CreationsFrom(nStanding), COPIED)) << nStanding;
    }
}

TEST_F(FoldersTest, PrepareDataFolder_CopiesNothing_WhenDataIniExistsAndOtherSeedsAreMissing) {
    PutData(L"data.ini", L"mine");
    PrepareDataFolder();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
    EXPECT_EQ(DataText(L"data.ini"), L"mine");
    EXPECT_FALSE(Desktop.Files.FileExists(DATA_PATH + L"\\setting.ini"));
}

TEST_F(FoldersTest, PrepareDataFolder_CopiesNothing_WhenDataIniIsHeldByAnotherProgram) {
    PutData(L"data.ini", L"mine");
    Desktop.Files.Lock(DATA_PATH + L"\\data.ini");
    PrepareDataFolder();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{});
}

TEST_F(FoldersTest, PrepareDataFolder_OverwritesOtherFiles_WhenDataIniIsMissing) {
    PutData(L"setting.ini", L"old");
    PrepareDataFolder();
    EXPECT_EQ(Desktop.TakeEffects(), Effects{COPIED});
    EXPECT_EQ(DataText(L"setting.ini"), L"[Info]\r\nLog=1\r\n");
}

TEST_F(FoldersTest, PrepareDataFolder_UsesRelativePath_WhenFolderQueryFails) {
    Desktop.SpecialFolders.clear();
    PrepareDataFolder();
    EXPECT_EQ(Program.strDataPath, L"\\Nordane\\Corvela\\v2.2\\taviro");
    EXPECT_TRUE(Desktop.Files.FileExists(L"\\Nordane\\Corvela\\v2.2\\taviro\\data.ini"));
}

TEST_F(FoldersTest, PrepareDataFolder_TriesEveryStep_WhenFirstLevelCannotBeMade) {
    Desktop.Files.Put(ROAMING + L"\\Nordane", "a file stands in the way");
    PrepareDataFolder();
    EXPECT_EQ(Program.strDataPath, DATA_PATH);
    EXPECT_EQ(Desktop.TakeEffects(), Then(CreationsFrom(0), COPIED));
    EXPECT_FALSE(Desktop.Files.FolderExists(DATA_PATH));
}

TEST_F(FoldersTest, PrepareDataFolder_LeavesFolderEmpty_WhenProgramHasNoSeeds) {
    Desktop.strProgramFolder = L"D:\\Elsewhere";
    PrepareDataFolder();
    EXPECT_TRUE(Desktop.Files.FolderExists(DATA_PATH));
    EXPECT_TRUE(Desktop.Files.List(DATA_PATH + L"\\*").empty());
}

}  // namespace
}  // namespace taviro
