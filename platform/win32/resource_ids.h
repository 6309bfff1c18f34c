// SPDX-License-Identifier: MIT
// Numbers of the program's resources that code asks for by number. Macros, because the resource
// compiler reads them too.
#pragma once

// The system shows the icon of the lowest number for the file itself.
#define ICON_PROGRAM 1

// What dialogs need of the system. Not 1: that one would count for the whole program, from its
// start on.
#define MANIFEST_OF_DIALOGS 2
