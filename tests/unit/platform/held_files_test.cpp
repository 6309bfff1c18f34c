// SPDX-License-Identifier: MIT
// Files that another program holds for a while, and how long the file contract waits for them.
#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/failure.h"
#include "platform/file_steps.h"
#include "platform/files.h"
#include "platform/headless/desktop.h"
#include "platform/text.h"
#include "platform/unneeded.h"

namespace taviro::platform {
namespace {

using headless::Desktop;

const std::wstring HELD = L"C:\\d\\data.ini";
const std::wstring OTHER = L"C:\\d\\other.ini";
constexpr uint32_t PATIENCE_MS = 500;

struct Undertaking {
    const char* szName;
    bool (*Do)();
    std::string strLeft;  ///< what the held file holds afterwards; nothing: it is gone
};

std::string ContentOf(const std::wstring& strPath) {
    std::string strBytes;
    return Desktop.Files.Read(strPath, strBytes) ? strBytes : "";
}

const Undertaking UNDERTAKINGS[] = {
    {"Replacing", [] { return ReplaceFileBytes(HELD, "new"); }, "new"},
    {"Appending", [] { return AppendFileBytes(HELD, "+"); }, "old+"},
    {"MovingAway", [] { return MoveFileTo(HELD, OTHER); }, ""},
    {"MovingOver", [] { return MoveFileTo(L"C:\\s\\data.ini", HELD); }, "seed"},
    {"CopyingOver", [] { return CopyFolderFiles(L"C:\\s", L"C:\\d"); }, "seed"},
    {"CopyingFrom", [] { return CopyFolderFiles(L"C:\\d", L"C:\\t"); }, "old"},
    {"Reading",
     [] {
         std::string strBytes;
         return ReadFileBytes(HELD, strBytes) && strBytes == "old";
     },
     "old"},
};

class HeldFile : public ::testing::TestWithParam<Undertaking> {
  protected:
    HeldFile() {
        Desktop = headless::DesktopState{};
        Reports = {};
        Desktop.Files.CreateFolders(L"C:\\t");
        Desktop.Files.Put(L"C:\\s\\data.ini", "seed");
        Desktop.Files.Put(HELD, "old");
    }
    static void HoldFor(uint32_t nMs) {
        Desktop.Files.Lock(HELD);
        Desktop.Meanwhile(Desktop.nNow + nMs, [] { Desktop.Files.Lock(HELD, false); });
    }
};

TEST_P(HeldFile, IsWaitedFor_UntilItIsFree) {
    HoldFor(PATIENCE_MS);
    const uint32_t nStart = Desktop.nNow;
    EXPECT_TRUE(GetParam().Do());
    EXPECT_EQ(ContentOf(HELD), GetParam().strLeft);
    EXPECT_EQ(Desktop.nNow - nStart, PATIENCE_MS);
    EXPECT_TRUE(Reports.Counts.empty()) << "nothing has failed";
}

TEST_P(HeldFile, IsGivenUp_AfterHalfASecond) {
    Desktop.Files.Lock(HELD);
    const uint32_t nStart = Desktop.nNow;
    EXPECT_FALSE(GetParam().Do());
    EXPECT_EQ(Desktop.nNow - nStart, PATIENCE_MS);
    EXPECT_EQ(Reports.Counts.size(), 1U) << "said once";
    Desktop.Files.Lock(HELD, false);
    EXPECT_EQ(ContentOf(HELD), "old");
    EXPECT_EQ(Desktop.Files.List(L"C:\\d\\*").size(), 1U) << "nothing is left beside it";
}

TEST_P(HeldFile, IsNotWaitedFor_WhenItIsFreeInAMoment) {
    HoldFor(1);
    const uint32_t nStart = Desktop.nNow;
    EXPECT_TRUE(GetParam().Do());
    EXPECT_LE(Desktop.nNow - nStart, 100U) << "longer than its holder takes";
}

INSTANTIATE_TEST_SUITE_P(, HeldFile, ::testing::ValuesIn(UNDERTAKINGS),
                         [](const auto& Info) { return Info.param.szName; });

class OtherFailure : public HeldFile {};

// What waiting cannot mend must not keep the person waiting.
TEST_F(OtherFailure, IsToldAtOnce) {
    const uint32_t nStart = Desktop.nNow;
    std::string strBytes;
    EXPECT_FALSE(ReplaceFileBytes(L"C:\\none\\data.ini", "new"));
    EXPECT_FALSE(AppendFileBytes(L"C:\\none\\log.txt", "new"));
    EXPECT_FALSE(ReadFileBytes(L"C:\\none\\data.ini", strBytes));
    EXPECT_FALSE(MoveFileTo(L"C:\\none\\data.ini", HELD));
    EXPECT_FALSE(CopyFolderFiles(L"C:\\none", L"C:\\d"));
    Desktop.Files.SetReadOnly(HELD);
    EXPECT_FALSE(ReplaceFileBytes(HELD, "new"));
    Desktop.Files.SetReadOnly(HELD, false);
    Desktop.Files.nFreeBytes = 0;
    EXPECT_FALSE(ReplaceFileBytes(HELD, "new"));
    EXPECT_EQ(Desktop.nNow, nStart);
}

class ScannedFile : public HeldFile {
  protected:
    ScannedFile() { Desktop.Holders.nHeldForMs = PATIENCE_MS; }
};

// A scanner opens the temporary file as soon as it is closed, so that it cannot be renamed.
TEST_F(ScannedFile, IsSaved_AgainAndAgain) {
    for (const char* szContent : {"1", "2", "3"}) {
        const uint32_t nStart = Desktop.nNow;
        EXPECT_TRUE(ReplaceFileBytes(HELD, szContent));
        EXPECT_EQ(ContentOf(HELD), szContent);
        EXPECT_LE(Desktop.nNow - nStart, PATIENCE_MS) << "one wait for all steps of a saving";
    }
    EXPECT_EQ(Desktop.Files.List(L"C:\\d\\*").size(), 1U);
    EXPECT_TRUE(Reports.Counts.empty());
}

TEST_F(ScannedFile, IsHeldAfterEachWriting) {
    const auto Waited = [](const std::function<bool()>& Do) {
        const uint32_t nStart = Desktop.nNow;
        EXPECT_TRUE(Do());
        return Desktop.nNow - nStart;
    };
    std::string strBytes;
    const auto Read = [&] { return ReadFileBytes(HELD, strBytes); };
    EXPECT_EQ(Waited(Read), 0U);
    EXPECT_EQ(Waited(Read), 0U) << "reading calls no scanner";
    EXPECT_EQ(Waited([] { return AppendFileBytes(HELD, "+"); }), 0U);
    EXPECT_EQ(Waited(Read), PATIENCE_MS);
    EXPECT_EQ(Waited([] { return MoveFileTo(HELD, OTHER); }), 0U);
    EXPECT_EQ(Waited([] { return MoveFileTo(OTHER, HELD); }), PATIENCE_MS);
}

// A temporary file that could not be renamed would lie there for good.
TEST_F(ScannedFile, LeftOver_IsRemoved_ThoughItIsHeldToo) {
    Desktop.Files.Lock(HELD);
    EXPECT_FALSE(ReplaceFileBytes(HELD, "new"));
    EXPECT_EQ(Desktop.Files.List(L"C:\\d\\*").size(), 1U);
}

}  // namespace
}  // namespace taviro::platform
