// SPDX-License-Identifier: MIT
// A text box whose model refuses characters: what was typed before keeps its caret and its undo.
#include <windows.h>

#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "forms/form.h"
#include "platform/win32/edit_view.h"
#include "platform/win32/window_text.h"
#include "tests/win32/test_support.h"

namespace taviro::platform::win32 {
namespace {

class TextBoxForm : public forms::Form {
  public:
    TextBoxForm() : Form(L"frmTest") {}
    forms::TextBox Box{*this, L"Box", 1};
};

class TextBoxTest : public testing::Test {
  protected:
    void SetUp() override {
        if (!tests::HasDrawing()) GTEST_SKIP() << "no device context on this desktop";
        Form.Box.Admit = [](const std::wstring& strEntered) {
            std::wstring strHeld = strEntered;
            std::erase(strHeld, L',');
            std::replace(strHeld.begin(), strHeld.end(), L'$', L'"');
            return strHeld;
        };
        hEdit = CreateWindowExW(0, L"EDIT", L"", WS_POPUP | ES_AUTOHSCROLL, 0, 0, 200, 20, nullptr,
                                nullptr, nullptr, nullptr);
        ASSERT_NE(hEdit, nullptr);
        WatchInsertions(hEdit, Form.Box);
    }
    void TearDown() override {
        if (hEdit != nullptr) DestroyWindow(hEdit);
    }
    void Type(const std::wstring& strText) {
        for (const wchar_t nCharacter : strText) {
            SendMessageW(hEdit, WM_CHAR, nCharacter, 1);
            Form.Box.Text = WindowText(hEdit);
        }
    }
    DWORD Caret() const { return HIWORD(SendMessageW(hEdit, EM_GETSEL, 0, 0)); }

    TextBoxForm Form;
    HWND hEdit = nullptr;
};

TEST_F(TextBoxTest, RefusedCharacter_ChangesNeitherTextNorCaretNorUndo) {
    Type(L"abc");
    SendMessageW(hEdit, EM_SETSEL, 1, 1);
    Type(L",");
    EXPECT_EQ(WindowText(hEdit), L"abc");
    EXPECT_EQ(Caret(), 1U);
    SendMessageW(hEdit, EM_SETSEL, 0, 2);
    Type(L",");
    EXPECT_EQ(WindowText(hEdit), L"abc") << "what is marked stays too";
    EXPECT_EQ(SendMessageW(hEdit, EM_CANUNDO, 0, 0), TRUE);
    SendMessageW(hEdit, EM_UNDO, 0, 0);
    EXPECT_EQ(WindowText(hEdit), L"") << "the typing before is taken back";
}

TEST_F(TextBoxTest, ChangedCharacter_StandsAtTheCaret) {
    Type(L"ac");
    SendMessageW(hEdit, EM_SETSEL, 1, 1);
    Type(L"$");
    EXPECT_EQ(WindowText(hEdit), L"a\"c");
    EXPECT_EQ(Caret(), 2U);
}

TEST_F(TextBoxTest, OtherKeys_WorkAsInAnyBox) {
    Type(L"ab\bc");
    EXPECT_EQ(WindowText(hEdit), L"ac");
}

TEST_F(TextBoxTest, PastedText_ComesInAsItIsAdmitted) {
    Type(L"ab");
    SendMessageW(hEdit, EM_SETSEL, 1, 1);
    ASSERT_NE(OpenClipboard(hEdit), FALSE);
    EmptyClipboard();
    constexpr wchar_t PASTED[] = L"x,y";
    const HGLOBAL hText = GlobalAlloc(GMEM_MOVEABLE, sizeof(PASTED));
    ASSERT_NE(hText, nullptr);
    auto* pText = static_cast<wchar_t*>(GlobalLock(hText));
    std::copy(std::begin(PASTED), std::end(PASTED), pText);
    GlobalUnlock(hText);
    ASSERT_NE(SetClipboardData(CF_UNICODETEXT, hText), nullptr);
    CloseClipboard();
    SendMessageW(hEdit, WM_PASTE, 0, 0);
    EXPECT_EQ(WindowText(hEdit), L"axyb");
    EXPECT_EQ(Caret(), 3U);
}

}  // namespace
}  // namespace taviro::platform::win32
