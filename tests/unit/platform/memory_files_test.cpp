// SPDX-License-Identifier: MIT
// The virtual desktop's files: found, listed and failing as real ones do.
#include "platform/headless/memory_files.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/files.h"
#include "platform/headless/desktop.h"

namespace taviro::platform {
namespace {

using headless::Desktop;
using headless::MemoryFiles;
using Names = std::vector<std::wstring>;

std::string Content(const MemoryFiles& Files, const std::wstring& strPath) {
    std::string strBytes = "(cannot be read)";
    (void)Files.Read(strPath, strBytes);
    return strBytes;
}

TEST(MemoryFiles, Names_MatchWithoutRegardToCase_WhenCzech) {
    MemoryFiles Files;
    Files.Put(L"C:\\Mapy\\Říjen.ini", "x");
    EXPECT_TRUE(Files.FileExists(L"c:\\MAPY\\říjen.INI"));
    EXPECT_TRUE(Files.FolderExists(L"c:\\mapy"));
    EXPECT_EQ(Content(Files, L"C:\\mapy\\ŘÍJEN.ini"), "x");
}

TEST(MemoryFiles, Exists_TellsFilesFromFolders_WhenAsked) {
    MemoryFiles Files;
    Files.Put(L"C:\\a\\file", "");
    EXPECT_TRUE(Files.FileExists(L"C:\\a\\file"));
    EXPECT_FALSE(Files.FolderExists(L"C:\\a\\file"));
    EXPECT_TRUE(Files.FolderExists(L"C:\\a"));
    EXPECT_FALSE(Files.FileExists(L"C:\\a"));
    EXPECT_FALSE(Files.FileExists(L"C:\\a\\none"));
    EXPECT_FALSE(Files.FolderExists(L"C:\\none"));
    EXPECT_TRUE(Files.FolderExists(L"C:")) << "a drive is always there";
}

TEST(MemoryFiles, CreateFolder_MakesOneLevel_WhenParentExists) {
    MemoryFiles Files;
    EXPECT_FALSE(Files.CreateFolder(L"C:\\a\\b"));
    EXPECT_TRUE(Files.CreateFolder(L"C:\\a"));
    EXPECT_TRUE(Files.CreateFolder(L"C:\\a\\b"));
    EXPECT_FALSE(Files.CreateFolder(L"C:\\A\\B")) << "it stands already";
    EXPECT_TRUE(Files.CreateFolder(L"\\relative")) << "the root of the current drive";
    Files.Put(L"C:\\file", "");
    EXPECT_FALSE(Files.CreateFolder(L"C:\\file"));
    EXPECT_FALSE(Files.CreateFolder(L"C:\\file\\c"));
}

TEST(MemoryFiles, Read_LeavesTargetAlone_WhenFileIsMissing) {
    const MemoryFiles Files;
    std::string strBytes = "kept";
    EXPECT_FALSE(Files.Read(L"C:\\none", strBytes));
    EXPECT_EQ(strBytes, "kept");
}

TEST(MemoryFiles, Write_ReplacesWholeContentAndKeepsName_WhenFileExists) {
    MemoryFiles Files;
    Files.Put(L"C:\\d\\Data.ini", "long old content");
    EXPECT_TRUE(Files.Write(L"C:\\d\\DATA.INI", "new"));
    EXPECT_EQ(Content(Files, L"C:\\d\\data.ini"), "new");
    EXPECT_EQ(Files.List(L"C:\\d\\*"), Names{L"Data.ini"});
}

TEST(MemoryFiles, Write_Fails_WhenFolderIsMissingOrTargetIsAFolder) {
    MemoryFiles Files;
    EXPECT_FALSE(Files.Write(L"C:\\none\\file", "x"));
    Files.CreateFolders(L"C:\\a\\b");
    EXPECT_FALSE(Files.Write(L"C:\\a\\b", "x"));
    EXPECT_FALSE(Files.Write(L"C:\\a\\", "x")) << "no name";
}

TEST(MemoryFiles, Append_AddsAtEndAndCreates_WhenCalled) {
    MemoryFiles Files;
    Files.CreateFolders(L"C:\\d");
    EXPECT_TRUE(Files.Append(L"C:\\d\\log", "one"));
    EXPECT_TRUE(Files.Append(L"C:\\d\\log", "two"));
    EXPECT_EQ(Content(Files, L"C:\\d\\log"), "onetwo");
    EXPECT_FALSE(Files.Append(L"C:\\none\\log", "x"));
}

TEST(MemoryFiles, Move_ReplacesTarget_WhenItMayBeReplaced) {
    MemoryFiles Files;
    Files.Put(L"C:\\d\\from", "new");
    Files.Put(L"C:\\d\\to", "old");
    EXPECT_TRUE(Files.Move(L"C:\\d\\from", L"C:\\d\\To"));
    EXPECT_FALSE(Files.FileExists(L"C:\\d\\from"));
    EXPECT_EQ(Content(Files, L"C:\\d\\to"), "new");
    EXPECT_EQ(Files.List(L"C:\\d\\*"), Names{L"To"});
    EXPECT_FALSE(Files.Move(L"C:\\d\\none", L"C:\\d\\to"));
    EXPECT_FALSE(Files.Move(L"C:\\d\\to", L"C:\\none\\to"));
    EXPECT_EQ(Content(Files, L"C:\\d\\to"), "new") << "a failed move loses nothing";
}

TEST(MemoryFiles, Move_KeepsContent_WhenOnlyTheCaseChanges) {
    MemoryFiles Files;
    Files.Put(L"C:\\d\\name", "x");
    EXPECT_TRUE(Files.Move(L"C:\\d\\name", L"C:\\d\\NAME"));
    EXPECT_EQ(Files.List(L"C:\\d\\*"), Names{L"NAME"});
    EXPECT_EQ(Content(Files, L"C:\\d\\name"), "x");
}

TEST(MemoryFiles, Lock_StopsEveryUse_WhileAnotherProgramHoldsTheFile) {
    MemoryFiles Files;
    Files.Put(L"C:\\d\\held", "x");
    Files.Put(L"C:\\d\\other", "y");
    Files.Lock(L"C:\\d\\held");
    EXPECT_TRUE(Files.FileExists(L"C:\\d\\held"));
    EXPECT_EQ(Files.List(L"C:\\d\\h*"), Names{L"held"});
    EXPECT_EQ(Content(Files, L"C:\\d\\held"), "(cannot be read)");
    EXPECT_FALSE(Files.Write(L"C:\\d\\held", "z"));
    EXPECT_FALSE(Files.Append(L"C:\\d\\held", "z"));
    EXPECT_FALSE(Files.Move(L"C:\\d\\held", L"C:\\d\\new"));
    EXPECT_FALSE(Files.Move(L"C:\\d\\other", L"C:\\d\\held"));
    EXPECT_FALSE(Files.Remove(L"C:\\d\\held"));
    Files.Lock(L"C:\\d\\held", false);
    EXPECT_EQ(Content(Files, L"C:\\d\\held"), "x");
    EXPECT_TRUE(Files.Remove(L"C:\\d\\held"));
    EXPECT_FALSE(Files.FileExists(L"C:\\d\\held"));
}

TEST(MemoryFiles, ReadOnly_AllowsReadingAlone_WhenSet) {
    MemoryFiles Files;
    Files.Put(L"C:\\d\\fixed", "x");
    Files.SetReadOnly(L"C:\\d\\fixed");
    EXPECT_EQ(Content(Files, L"C:\\d\\fixed"), "x");
    EXPECT_FALSE(Files.Write(L"C:\\d\\fixed", "z"));
    EXPECT_FALSE(Files.Append(L"C:\\d\\fixed", "z"));
    EXPECT_EQ(Content(Files, L"C:\\d\\fixed"), "x");
    Files.SetReadOnly(L"C:\\d\\fixed", false);
    EXPECT_TRUE(Files.Write(L"C:\\d\\fixed", "z"));
}

TEST(MemoryFiles, Write_FailsAndKeepsOldContent_WhenDiskIsFull) {
    MemoryFiles Files;
    Files.Put(L"C:\\d\\file", "old");
    Files.nFreeBytes = 4;
    EXPECT_FALSE(Files.Write(L"C:\\d\\file", "12345"));
    EXPECT_EQ(Content(Files, L"C:\\d\\file"), "old");
    EXPECT_TRUE(Files.Write(L"C:\\d\\file", "1234"));
}

struct PatternCase {
    const char* szName;
    const wchar_t* szPattern;
    Names Found;
};

TEST(MemoryFiles, List_MatchesPattern_WhenNamesDiffer) {
    MemoryFiles Files;
    for (const wchar_t* szName : {L"data.ini", L"data_B.ini", L"Data_A.INI", L"setting.ini",
                                  L"log.txt", L"sub\\data_C.ini"}) {
        Files.Put(std::wstring(L"C:\\t\\") + szName, "");
    }
    Files.CreateFolders(L"C:\\t\\data_folder.ini");
    Files.Put(L"C:\\t2\\data_D.ini", "");
    const PatternCase CASES[] = {
        {"all files, sorted, no folders",
         L"C:\\t\\*",
         {L"data.ini", L"Data_A.INI", L"data_B.ini", L"log.txt", L"setting.ini"}},
        {"star in the middle", L"C:\\t\\data_*.ini", {L"Data_A.INI", L"data_B.ini"}},
        {"star may be empty", L"C:\\t\\data*.ini", {L"data.ini", L"Data_A.INI", L"data_B.ini"}},
        {"question mark is one character", L"C:\\t\\data_?.ini", {L"Data_A.INI", L"data_B.ini"}},
        {"question mark is not nothing", L"C:\\t\\data?.ini", {}},
        {"no wildcard", L"C:\\T\\LOG.TXT", {L"log.txt"}},
        {"no such folder", L"C:\\none\\*", {}},
    };
    for (const PatternCase& Case : CASES) {
        EXPECT_EQ(Files.List(Case.szPattern), Case.Found) << Case.szName;
    }
}

TEST(MemoryFiles, List_GoesByShortNamesToo_AsTheSystemsSearchDoes) {
    MemoryFiles Files;
    for (const wchar_t* szName : {L"a.ini", L"b.inix", L"letter.html", L"long name.txt"})
        Files.Put(std::wstring(L"C:\\t\\") + szName, "");
    EXPECT_EQ(Files.List(L"C:\\t\\*.ini"), (Names{L"a.ini", L"b.inix"}));
    EXPECT_EQ(Files.List(L"C:\\t\\letter.htm"), Names{});
    EXPECT_EQ(Files.List(L"C:\\t\\*.htm"), Names{L"letter.html"});
    EXPECT_EQ(Files.List(L"C:\\t\\long n~1.txt"), Names{L"long name.txt"});
}

// The file contract as the program sees it.
class FileContractTest : public ::testing::Test {
  protected:
    FileContractTest() {
        Desktop = headless::DesktopState{};
        Desktop.Files.CreateFolders(L"C:\\d");
    }
};

TEST_F(FileContractTest, Effects_StandInTranscript_WhenFilesChange) {
    EXPECT_TRUE(CreateFolder(L"C:\\d\\e"));
    EXPECT_TRUE(ReplaceFileBytes(L"C:\\d\\a", "1"));
    EXPECT_TRUE(AppendFileBytes(L"C:\\d\\a", "2"));
    EXPECT_TRUE(MoveFileTo(L"C:\\d\\a", L"C:\\d\\b"));
    Desktop.Files.Lock(L"C:\\d\\b");
    EXPECT_FALSE(ReplaceFileBytes(L"C:\\d\\b", "1"));
    EXPECT_FALSE(AppendFileBytes(L"C:\\d\\b", "2"));
    EXPECT_FALSE(MoveFileTo(L"C:\\d\\b", L"C:\\d\\a"));
    const std::vector<std::string> EFFECTS{
        "create folder C:\\d\\e",          "save C:\\d\\a",        "append to C:\\d\\a",
        "move C:\\d\\a to C:\\d\\b",       "cannot save C:\\d\\b", "cannot append to C:\\d\\b",
        "cannot move C:\\d\\b to C:\\d\\a"};
    EXPECT_EQ(Desktop.TakeEffects(), EFFECTS);
}

TEST_F(FileContractTest, CopyFolderFiles_CopiesFilesAlone_WhenFolderHasFolders) {
    Desktop.Files.Put(L"C:\\s\\a", "1");
    Desktop.Files.Put(L"C:\\s\\sub\\b", "2");
    Desktop.Files.Put(L"C:\\d\\a", "old");
    EXPECT_TRUE(CopyFolderFiles(L"C:\\s", L"C:\\d"));
    EXPECT_EQ(Content(Desktop.Files, L"C:\\d\\a"), "1");
    EXPECT_EQ(ListFiles(L"C:\\d\\*"), Names{L"a"});
    EXPECT_FALSE(FolderExists(L"C:\\d\\sub"));
}

TEST_F(FileContractTest, CopyFolderFiles_MakesCopiesWritable_WhenSeedsAreReadOnly) {
    Desktop.Files.Put(L"C:\\s\\a", "1");
    Desktop.Files.SetReadOnly(L"C:\\s\\a");
    EXPECT_TRUE(CopyFolderFiles(L"C:\\s", L"C:\\d"));
    EXPECT_TRUE(ReplaceFileBytes(L"C:\\d\\a", "mine"));
}

TEST_F(FileContractTest, CopyFolderFiles_StopsAtFirstFailure_WhenAFileCannotBeCopied) {
    Desktop.Files.Put(L"C:\\s\\a", "1");
    Desktop.Files.Put(L"C:\\s\\b", "2");
    Desktop.Files.Put(L"C:\\s\\c", "3");
    Desktop.Files.Lock(L"C:\\s\\b");
    EXPECT_FALSE(CopyFolderFiles(L"C:\\s", L"C:\\d"));
    EXPECT_EQ(ListFiles(L"C:\\d\\*"), Names{L"a"});
    EXPECT_FALSE(CopyFolderFiles(L"C:\\none", L"C:\\d"));
    EXPECT_FALSE(CopyFolderFiles(L"C:\\s", L"C:\\none"));
}

}  // namespace
}  // namespace taviro::platform
