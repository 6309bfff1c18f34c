// SPDX-License-Identifier: MIT
// What the product is called and whose it is: the one place for the about box, the program's
// version information and the packages. Macros, because the resource compiler reads them too.
#pragma once

#define PRODUCT_TITLE "Taviro"
#define PRODUCT_COMMENTS "Ovládání počítače pákovým ovladačem a jeho tlačítky"
#define PRODUCT_MAJOR 0
#define PRODUCT_MINOR 1
#define PRODUCT_REVISION 0
#define PRODUCT_MAKER "vývojáři programu Taviro"
#define PRODUCT_COPYRIGHT "Copyright © 2026 vývojáři programu Taviro"
#define PRODUCT_WEB "https://taviro.example"
#define PRODUCT_MAIL "taviro@taviro.example"

// "major.minor.revision"; parentheses around the arguments would stand in the text.
#define PRODUCT_TEXT_OF(x) #x
// NOLINTNEXTLINE(bugprone-macro-parentheses)
#define PRODUCT_VERSION_TEXT(a, b, c) PRODUCT_TEXT_OF(a.b.c)
#define PRODUCT_VERSION PRODUCT_VERSION_TEXT(PRODUCT_MAJOR, PRODUCT_MINOR, PRODUCT_REVISION)
