// SPDX-License-Identifier: MIT
// The about box: the product's data as the user reads it.
#include "dialogs/about_form.h"

#include "dialogs/product.h"
#include "forms/main_form.h"
#include "tests/unit/program_fixture.h"

namespace taviro {
namespace {

class AboutTest : public ProgramTest {
  protected:
    AboutTest() { Start(); }

    static std::string Utf8(const std::wstring& strText) { return platform::ToUtf8(strText); }
    /// The lines of the copyright box; each but the last ends with CR LF.
    static std::vector<std::string> CopyrightLines() {
        std::string strRest = Utf8(frmAbout->txtCopyright.Text);
        std::vector<std::string> Lines;
        for (auto n = strRest.find("\r\n"); n != std::string::npos; n = strRest.find("\r\n")) {
            Lines.push_back(strRest.substr(0, n));
            strRest.erase(0, n + 2);
        }
        Lines.push_back(strRest);
        return Lines;
    }
};

TEST_F(AboutTest, Form_ShowsTheProduct) {
    frmAbout->Show();
    EXPECT_EQ(Utf8(frmAbout->Caption), "O aplikaci Taviro");
    EXPECT_EQ(Utf8(frmAbout->cmdOK.Caption), "OK");
    EXPECT_EQ(Utf8(frmAbout->lblTitle.Caption), "Taviro");
    EXPECT_EQ(Utf8(frmAbout->lblCommets.Caption), PRODUCT_COMMENTS);
}

TEST_F(AboutTest, Version_IsThreePlainNumbers) {
    frmAbout->Show();
    const std::string strVersion = std::to_string(PRODUCT_MAJOR) + "." +
                                   std::to_string(PRODUCT_MINOR) + "." +
                                   std::to_string(PRODUCT_REVISION);
    EXPECT_EQ(Utf8(frmAbout->lblVersion.Caption), "verze " + strVersion);
}

TEST_F(AboutTest, Copyright_IsFollowedByWebAndMail_EachOnItsLine) {
    frmAbout->Show();
    EXPECT_EQ(CopyrightLines(),
              (std::vector<std::string>{PRODUCT_COPYRIGHT, PRODUCT_WEB, "mail: " PRODUCT_MAIL}));
}

TEST_F(AboutTest, Form_IsFilledAnew_WhenOpenedAgain) {
    frmAbout->Show();
    frmAbout->txtCopyright.Type(L"scribble");
    frmAbout->cmdOK.Click();
    frmAbout->Show();
    EXPECT_EQ(CopyrightLines().size(), 3U);
}

TEST_F(AboutTest, FocusOnTheCopyright_ChangesNothing) {
    frmAbout->Show();
    Desktop.TakeEffects();
    const std::wstring strText = frmAbout->txtCopyright.Text;
    if (frmAbout->txtCopyright.OnGotFocus) frmAbout->txtCopyright.OnGotFocus();
    EXPECT_EQ(frmAbout->txtCopyright.Text.Get(), strText);
    EXPECT_EQ(Desktop.TakeEffects(), std::vector<std::string>{});
}

TEST_F(AboutTest, Menu_ShowsItModal_UntilOkIsPressed) {
    Desktop.WhileModal = [](forms::Form&) {
        EXPECT_TRUE(frmAbout->IsModal());
        frmAbout->cmdOK.Click();
        EXPECT_FALSE(frmAbout->IsLoaded());
    };
    forms::FrmMain->mnuAbout.Click();
    EXPECT_EQ(Desktop.TakeEffects(),
              (std::vector<std::string>{"frmAbout shown, modal", "frmAbout hidden"}));
}

}  // namespace
}  // namespace taviro
