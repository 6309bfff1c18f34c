// SPDX-License-Identifier: MIT
#include "vocabulary/command.h"

#include <gtest/gtest.h>
#include <string>

#include "platform/text.h"
#include "vocabulary/button_word.h"

namespace taviro {
namespace {

TEST(Commands, Text_MeansModeResetAndWhatIsCarriedOut) {
    const struct {
        const wchar_t* szText;
        Command Meaning;
    } Rows[] = {
        {.szText = L"", .Meaning = {}},
        {.szText = L"notepad", .Meaning = {ModeMark::None, false, CommandKind::Launch, L"notepad"}},
        // Each mode mark, and only the first character is one.
        {.szText = L"<calc", .Meaning = {ModeMark::Selection, false, CommandKind::Launch, L"calc"}},
        {.szText = L"|", .Meaning = {ModeMark::Arrow, false, CommandKind::Launch, L""}},
        {.szText = L">calc",
         .Meaning = {ModeMark::Application, false, CommandKind::Launch, L"calc"}},
        {.szText = L"a<b", .Meaning = {ModeMark::None, false, CommandKind::Launch, L"a<b"}},
        {.szText = L"<|x", .Meaning = {ModeMark::Selection, false, CommandKind::Launch, L"|x"}},
        // The column mark anywhere; what is carried out keeps those that are not in front.
        {.szText = L"^", .Meaning = {ModeMark::None, true, CommandKind::Launch, L""}},
        {.szText = L"calc^", .Meaning = {ModeMark::None, true, CommandKind::Launch, L"calc^"}},
        {.szText = L"x:y^z", .Meaning = {ModeMark::None, true, CommandKind::Launch, L"x:y^z"}},
        {.szText = L"^^", .Meaning = {ModeMark::None, true, CommandKind::Launch, L""}},
        {.szText = L"<^^", .Meaning = {ModeMark::Selection, true, CommandKind::Launch, L""}},
        {.szText = L"^calc", .Meaning = {ModeMark::None, true, CommandKind::Launch, L"calc"}},
        // In front of another mark it does not hide that.
        {.szText = L"^|notepad",
         .Meaning = {ModeMark::Arrow, true, CommandKind::Launch, L"notepad"}},
        {.szText = L"^^<^^*T;a",
         .Meaning = {ModeMark::Selection, true, CommandKind::List, L"*T;a"}},
        // Lists, of which a star further on makes none.
        {.szText = L"*T;a,b", .Meaning = {ModeMark::None, false, CommandKind::List, L"*T;a,b"}},
        {.szText = L">*T;a^",
         .Meaning = {ModeMark::Application, true, CommandKind::List, L"*T;a^"}},
        {.szText = L"a*b", .Meaning = {ModeMark::None, false, CommandKind::Launch, L"a*b"}},
    };
    for (const auto& Row : Rows) {
        SCOPED_TRACE(platform::ToUtf8(Row.szText));
        EXPECT_EQ(ParseCommand(Row.szText), Row.Meaning);
        EXPECT_EQ(ParseCommand(ComposeCommand(Row.Meaning)), Row.Meaning);
    }
}

TEST(Commands, Composed_PutsTheColumnMarkFirst_ThenTheMode) {
    EXPECT_EQ(ComposeCommand({ModeMark::Arrow, true, CommandKind::Launch, L"notepad"}),
              L"^|notepad");
    EXPECT_EQ(ComposeCommand({ModeMark::Selection, false, CommandKind::List, L"*T;a"}), L"<*T;a");
    EXPECT_EQ(ComposeCommand({ModeMark::Application, false, CommandKind::Launch, L""}), L">");
    EXPECT_EQ(ComposeCommand({}), L"");
}

TEST(Commands, WithoutColumnMarks_TakesAllOfThem) {
    EXPECT_EQ(WithoutColumnMarks(L"^a^b^^c^"), L"abc");
    EXPECT_EQ(WithoutColumnMarks(L"abc"), L"abc");
}

TEST(Commands, Launch_SplitsAtTheFirstColon_UnlessQuoted) {
    const struct {
        const wchar_t* szText;
        ProgramCall Call;
    } Rows[] = {
        {.szText = L"", .Call = {L"", L""}},
        {.szText = L"notepad", .Call = {L"notepad", L""}},
        {.szText = L"notepad:c.txt", .Call = {L"notepad", L"c.txt"}},
        {.szText = L"a:b:c", .Call = {L"a", L"b:c"}},
        {.szText = L":b", .Call = {L"", L"b"}},
        {.szText = L"a:", .Call = {L"a", L""}},
        {.szText = L"\"C:\\a b.exe\"", .Call = {L"\"C:\\a b.exe\"", L""}},
        {.szText = L"a:b\"", .Call = {L"a:b\"", L""}},
        // Column marks leave the program and stay in the arguments.
        {.szText = L"ca^lc^", .Call = {L"calc", L""}},
        {.szText = L"x^:y^z", .Call = {L"x", L"y^z"}},
    };
    for (const auto& Row : Rows)
        EXPECT_EQ(LaunchOf(ParseCommand(Row.szText)), Row.Call) << platform::ToUtf8(Row.szText);
}

TEST(ButtonWords, Quotes_AreStoredAsDollars_AndComeBack) {
    EXPECT_EQ(ButtonWord::ToStoredQuotes(L"\"a\" $b"), L"$a$ $b");
    EXPECT_EQ(ButtonWord::FromStoredQuotes(L"$a$ b"), L"\"a\" b");
    EXPECT_EQ(ButtonWord::Action, L"*action");
    EXPECT_EQ(ButtonWord::Mode, L"*mode");
}

}  // namespace
}  // namespace taviro
