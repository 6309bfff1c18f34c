// SPDX-License-Identifier: MIT
// The names and numbers of the dialogs' controls: layouts, forms and scripts of tests know a
// control by one of them, and both must be the same control's.
#include <fstream>
#include <gtest/gtest.h>
#include <map>
#include <string>
#include <vector>

#include "dialogs/about_form.h"
#include "dialogs/app_setting_form.h"
#include "dialogs/button_config_form.h"
#include "dialogs/cell_editor_form.h"
#include "dialogs/map_chooser_form.h"
#include "dialogs/voice_form.h"
#include "platform/text.h"
#include "tests/unit/source_tree.h"

namespace taviro {
namespace {

using Numbers = std::map<std::string, int32_t>;

/// Every "#define IDC_name number" that the layouts use.
Numbers NumbersOfNames() {
    std::ifstream File(SourceTree() / "dialogs/control_ids.h");
    Numbers Known;
    std::string strName;
    std::string strNumber;
    for (std::string strWord; File >> strWord;) {
        if (strWord != "#define" || !(File >> strName >> strNumber)) continue;
        const bool bNumber = strNumber.find_first_not_of("0123456789") == std::string::npos;
        if (bNumber && strName.starts_with("IDC_")) Known[strName.substr(4)] = std::stoi(strNumber);
    }
    return Known;
}

std::vector<const forms::Form*> Dialogs() {
    return {frmAbout.get(),  frmAppSetting.get(), frmButtonConfig.get(),
            frmConfig.get(), frmMap.get(),        FrmVoice.get()};
}

TEST(DialogControls, Number_IsThatOfTheName) {
    const Numbers Known = NumbersOfNames();
    ASSERT_GE(Known.size(), 50U);
    size_t nControls = 0;
    for (const forms::Form* pDialog : Dialogs()) {
        for (const forms::Control* pControl : pDialog->Controls()) {
            if (pControl->nId == 0) continue;
            const std::string strName = platform::ToUtf8(pControl->strName);
            const auto Found = Known.find(strName);
            EXPECT_TRUE(Found != Known.end() && Found->second == pControl->nId) << strName;
            ++nControls;
        }
    }
    EXPECT_GE(nControls, 50U);
}

// More than the layout has would let a role be chosen that means nothing.
TEST(DialogControls, Groups_OfferWhatHasAMeaning) {
    EXPECT_EQ(frmConfig->OptSetMode.nItems, 4) << "no mode, selection, arrow, application";
    EXPECT_EQ(frmConfig->OptionType.nItems, 2) << "a key, no key";
    EXPECT_EQ(frmButtonConfig->OptionType.nItems, 4) << "action, mode, key, command";
}

}  // namespace
}  // namespace taviro
