// SPDX-License-Identifier: MIT
// The look of controls: the system's present one in dialogs and messages, and only there.
#include "platform/win32/visual_styles.h"

#include <gtest/gtest.h>

namespace taviro::platform::win32 {
namespace {

/// Whether windows that are made now get their controls from the library of the present look.
bool HasPresentLook() {
    ACTCTX_SECTION_KEYED_DATA Found{};
    Found.cbSize = sizeof(Found);
    return FindActCtxSectionStringW(0, nullptr, ACTIVATION_CONTEXT_SECTION_DLL_REDIRECTION,
                                    L"comctl32.dll", &Found) != FALSE;
}

TEST(VisualStyles, GiveTheirLookToWhatIsMadeMeanwhile_AndToNothingElse) {
    EXPECT_FALSE(HasPresentLook());
    for (int n = 0; n < 2; ++n) {
        {
            const VisualStyles Look;
            EXPECT_TRUE(HasPresentLook());
        }
        EXPECT_FALSE(HasPresentLook());
    }
}

}  // namespace
}  // namespace taviro::platform::win32
