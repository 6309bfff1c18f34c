// SPDX-License-Identifier: MIT
#include "vocabulary/list_text.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "platform/text.h"

namespace taviro {
namespace {

const ChoiceEntry TITLE{.strLabel = L"", .strCommand = L"", .bShown = false};

TEST(ListText, OnlyAStarInFront_OpensAList) {
    EXPECT_TRUE(IsListText(L"*"));
    EXPECT_TRUE(IsListText(L"*T;a"));
    EXPECT_FALSE(IsListText(L""));
    EXPECT_FALSE(IsListText(L"a*"));
}

TEST(ListText, Segments_BecomeEntries) {
    const struct {
        const wchar_t* szText;
        std::vector<ChoiceEntry> Entries;
    } Rows[] = {
        {.szText = L"", .Entries = {TITLE}},
        {.szText = L"*Title,x", .Entries = {TITLE}},
        {.szText = L"*T;a", .Entries = {TITLE, {L"a", L"", true}}},
        {.szText = L"*T;a,b;c", .Entries = {TITLE, {L"a", L"b", true}, {L"c", L"", true}}},
        {.szText = L"*T;a,b,c", .Entries = {TITLE, {L"a", L"b,c", true}}},
        // Empty segments have an entry and no row; one with a comma alone has both.
        {.szText = L"*T;;b;", .Entries = {TITLE, TITLE, {L"b", L"", true}, TITLE}},
        {.szText = L";,", .Entries = {TITLE, {L"", L"", true}}},
        {.szText = L"*T;,x", .Entries = {TITLE, {L"", L"x", true}}},
        {.szText = L"*T; a ,", .Entries = {TITLE, {L" a ", L"", true}}},
    };
    for (const auto& Row : Rows)
        EXPECT_EQ(ParseList(Row.szText), Row.Entries) << platform::ToUtf8(Row.szText);
}

TEST(ListText, EntrysArguments_StandInParentheses) {
    const struct {
        const wchar_t* szCommand;
        ProgramCall Call;
    } Rows[] = {
        {.szCommand = L"calc", .Call = {L"calc", L""}},
        {.szCommand = L"notepad(c.txt)", .Call = {L"notepad", L"c.txt"}},
        {.szCommand = L"a(b(c)d)", .Call = {L"a", L"b(c"}},
        {.szCommand = L"a()", .Call = {L"a", L""}},
        {.szCommand = L"a(b", .Call = {L"a", L""}},
        {.szCommand = L"a)b(c", .Call = {L"a)b", L""}},
        {.szCommand = L"a)b", .Call = {L"a)b", L""}},
        {.szCommand = L"(b)", .Call = {L"", L"b"}},
    };
    for (const auto& Row : Rows)
        EXPECT_EQ(LaunchOfEntry(Row.szCommand), Row.Call) << platform::ToUtf8(Row.szCommand);
}

TEST(ListText, HeldMark_IsTakenOffTheEnd_Once) {
    std::wstring strLabel = L"ne**";
    EXPECT_TRUE(TakeHeldMark(strLabel));
    EXPECT_EQ(strLabel, L"ne*");
    strLabel = L"*ne";
    EXPECT_FALSE(TakeHeldMark(strLabel));
    EXPECT_EQ(strLabel, L"*ne");
}

}  // namespace
}  // namespace taviro
