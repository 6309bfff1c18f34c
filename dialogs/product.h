// SPDX-License-Identifier: MIT
// What the product is called and whose it is: the one place for the about box and the program's
// version information. Macros, because the resource compiler reads them too.
#pragma once

#define PRODUCT_TITLE "Taviro"
#define PRODUCT_COMMENTS "Ovládání počítače pákovým ovladačem a jeho tlačítky"
#define PRODUCT_MAJOR 0
#define PRODUCT_MINOR 1
#define PRODUCT_REVISION 0
#define PRODUCT_COPYRIGHT "Copyright © 2026 vývojáři programu Taviro"
#define PRODUCT_WEB "https://taviro.example"
#define PRODUCT_MAIL "taviro@taviro.example"
