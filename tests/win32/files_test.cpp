// SPDX-License-Identifier: MIT
#include "platform/files.h"

#include <gtest/gtest.h>
#include <random>
#include <thread>

#include "tests/win32/test_support.h"

namespace taviro::platform {
namespace {

using tests::TestFolder;

void MakeFile(const std::wstring& strPath, std::string_view strBytes) {
    ASSERT_TRUE(AppendFileBytes(strPath, strBytes));
}

std::string Content(const std::wstring& strPath) {
    std::string strBytes = "(unreadable)";
    return ReadFileBytes(strPath, strBytes) ? strBytes : "(unreadable)";
}

win32::UniqueHandle OpenWithoutSharing(const std::wstring& strPath) {
    return win32::OwnUnlessInvalid(CreateFileW(strPath.c_str(), GENERIC_READ | GENERIC_WRITE, 0,
                                               nullptr, OPEN_EXISTING, 0, nullptr));
}

TEST(Replace_MakesTheFile, WhenMissing) {
    TestFolder Folder;
    EXPECT_TRUE(ReplaceFileBytes(Folder / L"Šipky.ini", std::string_view("a\0b", 3)));
    EXPECT_EQ(Content(Folder / L"Šipky.ini"), std::string("a\0b", 3));
    EXPECT_EQ(ListFiles(Folder / L"*").size(), 1U);
}

TEST(Replace_ReplacesAll, WhenTheNewContentIsShorter) {
    TestFolder Folder;
    MakeFile(Folder / L"data.ini", "a longer content");
    EXPECT_TRUE(ReplaceFileBytes(Folder / L"data.ini", "new"));
    EXPECT_EQ(Content(Folder / L"data.ini"), "new");
}

TEST(Replace_FailsAndKeepsTheOldFile, WhenAnotherProgramHoldsIt) {
    TestFolder Folder;
    MakeFile(Folder / L"data.ini", "old");
    {
        const win32::UniqueHandle hLock = OpenWithoutSharing(Folder / L"data.ini");
        ASSERT_TRUE(hLock);
        EXPECT_FALSE(ReplaceFileBytes(Folder / L"data.ini", "new"));
        std::string strBytes = "earlier";
        EXPECT_FALSE(ReadFileBytes(Folder / L"data.ini", strBytes));
        EXPECT_EQ(strBytes, "earlier");
    }
    EXPECT_EQ(Content(Folder / L"data.ini"), "old");
    EXPECT_EQ(ListFiles(Folder / L"*").size(), 1U) << "the temporary file is gone";
}

// Held as scanners and backups do it, on another thread, from before the call until a moment later.
class Holder {
  public:
    explicit Holder(const std::wstring& strPath, DWORD nShare)
        : m_hFile(CreateFileW(strPath.c_str(), GENERIC_READ, nShare, nullptr, OPEN_EXISTING, 0,
                              nullptr)),
          m_Releasing([this] {
              Sleep(HELD_MS);
              static_cast<void>(CloseHandle(m_hFile));
          }) {
        EXPECT_NE(m_hFile, INVALID_HANDLE_VALUE);
    }
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
    ~Holder() { m_Releasing.join(); }

  private:
    static constexpr DWORD HELD_MS = 200;
    HANDLE m_hFile;
    std::thread m_Releasing;
};

TEST(HeldFile_IsWaitedFor, WhateverIsDoneWithIt) {
    for (const DWORD nShare :
         {DWORD{0}, DWORD{FILE_SHARE_READ}, DWORD{FILE_SHARE_READ | FILE_SHARE_WRITE}}) {
        TestFolder Folder;
        const std::wstring strPath = Folder / L"data.ini";
        MakeFile(strPath, "old");
        {
            const Holder Held(strPath, nShare);
            EXPECT_TRUE(ReplaceFileBytes(strPath, "new")) << nShare;
        }
        {
            const Holder Held(strPath, nShare);
            EXPECT_EQ(Content(strPath), "new") << nShare;
        }
        {
            const Holder Held(strPath, nShare);
            EXPECT_TRUE(AppendFileBytes(strPath, "er")) << nShare;
        }
        {
            const Holder Held(strPath, nShare);
            EXPECT_TRUE(MoveFileTo(strPath, Folder / L"kept.bak")) << nShare;
        }
        EXPECT_EQ(Content(Folder / L"kept.bak"), "newer");
    }
}

TEST(Replace_FailsAtOnce, WhenWaitingCannotHelp) {
    TestFolder Folder;
    const DWORD nStart = GetTickCount();
    EXPECT_FALSE(ReplaceFileBytes(Folder / L"missing\\data.ini", "new"));
    EXPECT_FALSE(MoveFileTo(Folder / L"missing.ini", Folder / L"data.ini"));
    EXPECT_LT(GetTickCount() - nStart, 400U);
}

TEST(Replace_FailsAndKeepsTheOldFile, WhenReadOnly) {
    TestFolder Folder;
    MakeFile(Folder / L"data.ini", "old");
    ASSERT_NE(SetFileAttributesW((Folder / L"data.ini").c_str(), FILE_ATTRIBUTE_READONLY), FALSE);
    EXPECT_FALSE(ReplaceFileBytes(Folder / L"data.ini", "new"));
    EXPECT_EQ(Content(Folder / L"data.ini"), "old");
    EXPECT_EQ(ListFiles(Folder / L"*").size(), 1U);
}

TEST(Replace_FailsAndKeepsTheFolder, WhenAFolderHasTheName) {
    TestFolder Folder;
    ASSERT_TRUE(CreateFolder(Folder / L"data.ini"));
    EXPECT_FALSE(ReplaceFileBytes(Folder / L"data.ini", "new"));
    EXPECT_TRUE(FolderExists(Folder / L"data.ini"));
    EXPECT_TRUE(ListFiles(Folder / L"*").empty());
}

TEST(Replace_Fails, WhenTheFolderIsMissing) {
    TestFolder Folder;
    EXPECT_FALSE(ReplaceFileBytes(Folder / L"missing\\data.ini", "new"));
}

TEST(Replace_LeavesTheOldOrTheNewContentWhole, WhenKilledAtAnyMoment) {
    constexpr int KILLS = 50;
    constexpr DWORD LONGEST_LIFE_MS = 60;
    TestFolder Folder;
    const std::wstring strPath = Folder / L"data.ini";
    ASSERT_TRUE(ReplaceFileBytes(strPath, tests::SavedContent(false)));
    std::mt19937 Random(20261121);
    std::uniform_int_distribution<DWORD> Life(0, LONGEST_LIFE_MS);
    int nSeconds = 0;
    for (int i = 0; i < KILLS; ++i) {
        const win32::UniqueHandle hChange = win32::OwnUnlessInvalid(FindFirstChangeNotificationW(
            Folder.Path().c_str(), FALSE, FILE_NOTIFY_CHANGE_FILE_NAME));
        const auto hSaver = tests::StartInRole(tests::ROLE_SAVE_FOREVER, strPath);
        ASSERT_TRUE(hSaver);
        ASSERT_TRUE(hChange);
        ASSERT_EQ(WaitForSingleObject(hChange.get(), 10000), WAIT_OBJECT_0) << "it saves";
        EXPECT_EQ(WaitForSingleObject(hSaver.get(), Life(Random)), DWORD{WAIT_TIMEOUT});
        ASSERT_NE(TerminateProcess(hSaver.get(), 1), FALSE);
        ASSERT_EQ(WaitForSingleObject(hSaver.get(), 10000), WAIT_OBJECT_0);
        const std::string strLeft = Content(strPath);
        const bool bSecond = strLeft == tests::SavedContent(true);
        ASSERT_TRUE(bSecond || strLeft == tests::SavedContent(false)) << strLeft.size();
        nSeconds += bSecond ? 1 : 0;
    }
    EXPECT_GT(nSeconds, 0) << "no new content was ever saved";
    EXPECT_EQ(ListFiles(Folder / L"data*.ini"), std::vector<std::wstring>{L"data.ini"})
        << "what a kill leaves behind is not taken for a map";
}

TEST(FileExists_CountsNormalFilesOnly, WhenAskedForEachKind) {
    TestFolder Folder;
    MakeFile(Folder / L"map.ini", "");
    MakeFile(Folder / L"fixed.ini", "");
    ASSERT_NE(SetFileAttributesW((Folder / L"fixed.ini").c_str(), FILE_ATTRIBUTE_READONLY), FALSE);
    ASSERT_TRUE(CreateFolder(Folder / L"folder"));
    EXPECT_TRUE(FileExists(Folder / L"MAP.INI"));
    EXPECT_TRUE(FileExists(Folder / L"fixed.ini"));
    EXPECT_FALSE(FileExists(Folder / L"folder"));
    EXPECT_FALSE(FileExists(Folder / L"missing.ini"));
    EXPECT_FALSE(FileExists(Folder / L"<invalid>|"));
    EXPECT_FALSE(FileExists(L""));
    EXPECT_TRUE(FolderExists(Folder / L"folder"));
    EXPECT_FALSE(FolderExists(Folder / L"map.ini"));
}

TEST(CreateFolder_MakesOneLevel, WhenTheParentExists) {
    TestFolder Folder;
    EXPECT_TRUE(CreateFolder(Folder / L"Ž"));
    EXPECT_FALSE(CreateFolder(Folder / L"a\\b"));
    EXPECT_FALSE(FolderExists(Folder / L"a"));
}

TEST(CopyFolderFiles_CopiesFilesToBeChanged, WhenTheSourceIsReadOnly) {
    TestFolder From;
    TestFolder To;
    MakeFile(From / L"data.ini", "map");
    MakeFile(From / L"data_ČTENÍ.EXE.ini", "other");
    MakeFile(To / L"data.ini", "a longer old map");
    ASSERT_TRUE(CreateFolder(From / L"folder"));
    ASSERT_NE(SetFileAttributesW((From / L"data.ini").c_str(), FILE_ATTRIBUTE_READONLY), FALSE);
    EXPECT_TRUE(CopyFolderFiles(From.Path(), To.Path()));
    EXPECT_EQ(Content(To / L"data.ini"), "map");
    EXPECT_EQ(Content(To / L"data_ČTENÍ.EXE.ini"), "other");
    EXPECT_FALSE(FolderExists(To / L"folder"));
    EXPECT_TRUE(ReplaceFileBytes(To / L"data.ini", "changed"));
}

TEST(CopyFolderFiles_Fails, WhenTheSourceIsMissingOrTheTargetIsHeld) {
    TestFolder From;
    TestFolder To;
    EXPECT_FALSE(CopyFolderFiles(From / L"missing", To.Path()));
    MakeFile(From / L"data.ini", "map");
    MakeFile(To / L"data.ini", "held");
    const win32::UniqueHandle hLock = OpenWithoutSharing(To / L"data.ini");
    EXPECT_FALSE(CopyFolderFiles(From.Path(), To.Path()));
}

TEST(Append_AddsToTheEnd, WhenTheFileIsThereOrNot) {
    TestFolder Folder;
    EXPECT_TRUE(AppendFileBytes(Folder / L"log.txt", "one"));
    EXPECT_TRUE(AppendFileBytes(Folder / L"log.txt", " two"));
    EXPECT_EQ(Content(Folder / L"log.txt"), "one two");
    EXPECT_FALSE(AppendFileBytes(Folder / L"missing\\log.txt", "x"));
}

TEST(Move_ReplacesTheTarget, WhenThere) {
    TestFolder Folder;
    MakeFile(Folder / L"a.ini", "a");
    MakeFile(Folder / L"b.ini", "b");
    EXPECT_TRUE(MoveFileTo(Folder / L"a.ini", Folder / L"b.ini"));
    EXPECT_EQ(Content(Folder / L"b.ini"), "a");
    EXPECT_FALSE(FileExists(Folder / L"a.ini"));
    EXPECT_FALSE(MoveFileTo(Folder / L"a.ini", Folder / L"b.ini"));
}

TEST(ListFiles_GivesSortedNames, WhenFoldersAndOthersAreThere) {
    TestFolder Folder;
    for (const wchar_t* pName : {L"data_B.ini", L"DATA.INI", L"data_a.ini", L"other.ini"}) {
        MakeFile(Folder / pName, "");
    }
    ASSERT_TRUE(CreateFolder(Folder / L"data_folder.ini"));
    EXPECT_EQ(ListFiles(Folder / L"data*.ini"),
              (std::vector<std::wstring>{L"DATA.INI", L"data_a.ini", L"data_B.ini"}));
    EXPECT_TRUE(ListFiles(Folder / L"missing\\*.ini").empty());
}

TEST(Read_IsFast, WhenTheFileHas100Megabytes) {
    constexpr size_t LENGTH = 100U << 20U;
    TestFolder Folder;
    ASSERT_TRUE(ReplaceFileBytes(Folder / L"large", std::string(LENGTH, 'x')));
    std::string strBytes;
    const DWORD nStart = GetTickCount();
    ASSERT_TRUE(ReadFileBytes(Folder / L"large", strBytes));
    EXPECT_LT(GetTickCount() - nStart, 3000U);
    EXPECT_EQ(strBytes.size(), LENGTH);
}

}  // namespace
}  // namespace taviro::platform
