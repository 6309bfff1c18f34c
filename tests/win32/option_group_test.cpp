// SPDX-License-Identifier: MIT
// Radio buttons: what chooses one, and what does not.
#include <windows.h>

#include <gtest/gtest.h>

#include "forms/dialog_controls.h"
#include "forms/form.h"
#include "platform/win32/control_view.h"
#include "tests/win32/test_support.h"

namespace taviro::platform::win32 {
namespace {

class OptionsForm : public forms::Form {
  public:
    OptionsForm() : Form(L"frmTest") {}
    forms::OptionGroup Options{*this, L"Options", 100, 2};
};

class OptionGroupTest : public testing::Test {
  protected:
    void SetUp() override {
        pShown = &Form;
        hDialog = CreateWindowExW(0, L"STATIC", L"", WS_POPUP | WS_VISIBLE, 0, 0, 200, 80, nullptr,
                                  nullptr, nullptr, nullptr);
        ASSERT_NE(hDialog, nullptr);
        SetWindowLongPtrW(hDialog, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&OnMessage));
        for (const int nOption : {0, 1}) {
            hOptions[nOption] = CreateWindowExW(
                0, L"BUTTON", L"", WS_CHILD | WS_VISIBLE | BS_AUTORADIOBUTTON, 0, nOption * 20, 100,
                20, hDialog, Number(100 + nOption), nullptr, nullptr);
            ASSERT_NE(hOptions[nOption], nullptr);
            pSystems = reinterpret_cast<WNDPROC>(SetWindowLongPtrW(
                hOptions[nOption], GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&OnMessageOfOption)));
        }
    }
    void TearDown() override { DestroyWindow(hDialog); }

    static HMENU Number(int nId) { return reinterpret_cast<HMENU>(static_cast<INT_PTR>(nId)); }
    static LRESULT CALLBACK OnMessage(HWND hWindow, UINT nMessage, WPARAM wParam, LPARAM lParam) {
        if (nMessage == WM_COMMAND) {
            if (HIWORD(wParam) == BN_CLICKED) ++nClicks;
            OnNotification(hWindow, pShown->Options, LOWORD(wParam), HIWORD(wParam));
        }
        return DefWindowProcW(hWindow, nMessage, wParam, lParam);
    }

    /// A radio button of Windows: Wine's does not choose itself when it gets the focus.
    static LRESULT CALLBACK OnMessageOfOption(HWND hOption, UINT nMessage, WPARAM wParam,
                                              LPARAM lParam) {
        if (nMessage == BM_SETDONTCLICK) SetPropW(hOption, STILL, wParam != 0 ? hOption : nullptr);
        const LRESULT nResult = CallWindowProcW(pSystems, hOption, nMessage, wParam, lParam);
        if (nMessage == WM_SETFOCUS && GetPropW(hOption, STILL) == nullptr) {
            SendMessageW(hOption, BM_CLICK, 0, 0);
        }
        return nResult;
    }

    static constexpr const wchar_t* STILL = L"does not click by itself";
    inline static WNDPROC pSystems = nullptr;
    inline static OptionsForm* pShown = nullptr;
    inline static int nClicks = 0;
    OptionsForm Form;
    HWND hDialog = nullptr;
    HWND hOptions[2]{};
};

TEST_F(OptionGroupTest, Option_IsNotChosen_WhenItOnlyGetsTheFocus) {
    PushControl(hDialog, Form.Options);
    nClicks = 0;
    SetFocus(hOptions[1]);
    EXPECT_EQ(nClicks, 0);
    EXPECT_EQ(Form.Options.Selected, -1);
}

TEST_F(OptionGroupTest, Option_IsChosen_WhenItIsClicked) {
    PushControl(hDialog, Form.Options);
    SendMessageW(hOptions[1], BM_CLICK, 0, 0);
    EXPECT_EQ(Form.Options.Selected, 1);
    SendMessageW(hOptions[0], BM_CLICK, 0, 0);
    EXPECT_EQ(Form.Options.Selected, 0);
}

}  // namespace
}  // namespace taviro::platform::win32
