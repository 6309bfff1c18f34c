// SPDX-License-Identifier: MIT
#include "dialogs/about_form.h"

#include <string>

#include "dialogs/product.h"
#include "platform/text.h"

namespace taviro {

AboutForm::AboutForm() : Form(L"frmAbout") {
    OnLoad = [this] { PrepereForm(); };
    cmdOK.OnClick = [this] { Unload(); };
}

void AboutForm::PrepereForm() {
    Caption = L"O aplikaci Taviro";
    cmdOK.Caption = L"OK";
    lblTitle.Caption = platform::FromUtf8(PRODUCT_TITLE);
    lblCommets.Caption = platform::FromUtf8(PRODUCT_COMMENTS);
    lblVersion.Caption = L"verze " + std::to_wstring(PRODUCT_MAJOR) + L"." +
                         std::to_wstring(PRODUCT_MINOR) + L"." + std::to_wstring(PRODUCT_REVISION);
    txtCopyright.Text = platform::FromUtf8(PRODUCT_COPYRIGHT) + L"\r\n" +
                        platform::FromUtf8(PRODUCT_WEB) + L"\r\nmail: " +
                        platform::FromUtf8(PRODUCT_MAIL);
}

}  // namespace taviro
