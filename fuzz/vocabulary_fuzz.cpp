// SPDX-License-Identifier: MIT
// Any bytes as the texts and numbers that maps and settings store. What is composed of a code or a
// command reads the same; and a text means what it has always meant to the users' files, told here
// a second time, plainly, from the text alone.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>
#include <string_view>

#include "platform/text.h"
#include "vocabulary/action_code.h"
#include "vocabulary/button_word.h"
#include "vocabulary/command.h"
#include "vocabulary/key_sequence_text.h"
#include "vocabulary/list_text.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize);

namespace taviro {
namespace {

void Require(bool bHolds) {
    if (!bHolds) std::abort();
}

void TryCode(int32_t nCode) {
    const ActionCode Action = ParseActionCode(nCode);
    Require(ComposeActionCode(Action) == nCode);
    Require(Action.nModifiers == nCode / 10000 && Action.nKey == nCode % 1000);
    Require(WholeKind(Action) == nCode / 1000);
    Require(FromWholeKind(Action.nKey, WholeKind(Action)) == Action);
    Require(UnmodifiedCode(nCode) == nCode % 10000);
}

// The meaning of a command, told from its text: only a first character is a mode mark.
struct PlainMeaning {
    wchar_t nMode = 0;
    bool bResetsColumn = false;
    bool bList = false;
    std::wstring strProgram;
    std::wstring strArguments;
};

PlainMeaning MeaningOf(std::wstring strText) {
    PlainMeaning Meaning;
    if (!strText.empty() && std::wstring_view(L"<|>").find(strText[0]) != std::wstring::npos) {
        Meaning.nMode = strText[0];
        strText.erase(0, 1);
    }
    Meaning.bResetsColumn = strText.find(L'^') != std::wstring::npos;
    Meaning.bList = strText.starts_with(L'*');
    std::wstring strPlain = strText;
    std::erase(strPlain, L'^');
    const auto nColon = strPlain.find(L':');
    const bool bSplits = nColon != std::wstring::npos && strPlain.find(L'"') == std::wstring::npos;
    Meaning.strProgram = bSplits ? strPlain.substr(0, nColon) : strPlain;
    if (bSplits) Meaning.strArguments = strText.substr(strText.find(L':') + 1);
    return Meaning;
}

wchar_t MarkOf(ModeMark nMode) {
    switch (nMode) {
        case ModeMark::Selection:
            return L'<';
        case ModeMark::Arrow:
            return L'|';
        case ModeMark::Application:
            return L'>';
        case ModeMark::None:
            break;
    }
    return 0;
}

// A column mark in front of another mark does not hide it, which no file can have counted on: no
// program is called so.
bool HidesAMark(std::wstring_view strText) {
    if (MeaningOf(std::wstring(strText)).nMode != 0) strText.remove_prefix(1);
    const auto nMark = strText.find_first_not_of(L'^');
    if (nMark == 0 || nMark == std::wstring_view::npos) return false;
    return std::wstring_view(L"<|>*").find(strText[nMark]) != std::wstring_view::npos;
}

void TryCommand(const std::wstring& strText) {
    const Command Found = ParseCommand(strText);
    Require(ParseCommand(ComposeCommand(Found)) == Found);
    if (HidesAMark(strText)) return;
    const PlainMeaning Meaning = MeaningOf(strText);
    Require(MarkOf(Found.nMode) == Meaning.nMode);
    Require(Found.bResetsColumn == Meaning.bResetsColumn);
    Require((Found.nKind == CommandKind::List) == Meaning.bList);
    if (Meaning.bList) return;
    const ProgramCall Call = LaunchOf(Found);
    Require(Call.strProgram == Meaning.strProgram && Call.strArguments == Meaning.strArguments);
}

// As many entries as there are segments, and their labels and commands make up the text again.
void TryList(const std::wstring& strText) {
    const auto nTitle = strText.find(L';');
    std::wstring strAgain = strText.substr(0, nTitle);
    const auto Entries = ParseList(strText);
    Require(!Entries.empty() && !Entries.front().bShown);
    for (size_t n = 1; n < Entries.size(); ++n) {
        const ChoiceEntry& Entry = Entries[n];
        strAgain += L';' + Entry.strLabel;
        const bool bComma = strText.substr(strAgain.size(), 1) == L",";
        if (bComma) strAgain += L',' + Entry.strCommand;
        Require(Entry.bShown == (bComma || !Entry.strLabel.empty()));
    }
    Require(strAgain == strText);
}

void TrySequence(std::string_view strBytes) {
    SequenceReader Reader(strBytes);
    size_t nSteps = 0;
    while (!Reader.IsAtEnd()) {
        (void)Reader.TakeStep();  // only that it comes to an end
        Require(++nSteps <= strBytes.size());
    }
}

}  // namespace
}  // namespace taviro

int LLVMFuzzerTestOneInput(const uint8_t* pData, size_t nSize) {
    using namespace taviro;
    int32_t nCode = 0;
    if (nSize < sizeof nCode) return 0;
    std::memcpy(&nCode, pData, sizeof nCode);
    TryCode(nCode);
    const std::string strBytes(reinterpret_cast<const char*>(pData) + sizeof nCode,
                               nSize - sizeof nCode);
    const std::wstring strText = platform::FromAnsi(strBytes);
    TryCommand(strText);
    TryList(strText);
    TrySequence(strBytes);
    const std::wstring strStored = ButtonWord::ToStoredQuotes(strText);
    Require(strStored.find(L'"') == std::wstring::npos);
    Require(ButtonWord::ToStoredQuotes(ButtonWord::FromStoredQuotes(strStored)) == strStored);
    return 0;
}
