// SPDX-License-Identifier: MIT
// How a text chosen from a list gets into the application, so that the chosen word stands there
// whole and once, with its blank. A list is a command's, or one of completions; in this order:
//
// 1. The word is the label. A "*" at its end is taken off, and the label is then put in front of
//    the held suffix, unless it begins with that already; the result is the word and is held for
//    the next marked entry. So a list can offer "ne*" in front of "chci*", chosen before. An
//    unmarked entry drops what is held, and so does a command's list, which completes nothing.
// 2. For a completion as many characters are erased as the typed count says, but never more than
//    stand in front of the cursor (see standing_word.h). What stands there still, because it was
//    typed while the list was open, is cut off the front of the word; when the word does not begin
//    with it, it is erased as well. So the word arrives in its own case and with its own accents.
// 3. What stands there whole is left alone; when nothing remains to be typed, nothing is sent.
// 4. With a blank the word is finished: prefix and held suffix are empty again. Without one the
//    word is the typed prefix, and letters typed behind it go on with it.
//
// The text goes out in key-sequence notation. In a text without that notation, letters that need a
// dead key on the Czech keyboard are typed by the action codes that cells have for them.
//
// Caps Lock that a cell turned on is turned off first: the text has its own case.
//
// What cannot be known: keys of the physical keyboard (Caps Lock among them) and mouse clicks
// between the letters, and a dead key in front of a letter that it does not go with.
#pragma once

#include <string>

namespace taviro {

/// Types the label, which is trimmed of blanks; nothing when it is empty or the mark alone.
void TypeChosenText(const std::wstring& strLabel, bool bWithBlank, bool bCompletion);

/// Whether a letter arrives when it is typed from a list.
[[nodiscard]] bool IsTypedFromList(wchar_t nLetter);

}  // namespace taviro
