// SPDX-License-Identifier: MIT
// What each joystick button does, and how that is written in the [Buttons] section: a word, a
// code's number, or a command's text.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace taviro {

enum class ButtonKind : int32_t {
    Action = 0,      ///< chooses the highlighted cell
    Mode = 1,        ///< goes to the next operating mode
    Code = 2,        ///< presses the key of the record's code, like a cell's code
    Command = 3,     ///< carries out the record's command, like a cell's command
    Unassigned = 4,  ///< does nothing
};

struct ButtonAction {
    ButtonKind Kind{};
    std::wstring Command{};  ///< for kind Command, with real double quotes
    int32_t Code{};          ///< for kind Code: an action code

    bool operator==(const ButtonAction&) const = default;
};

inline constexpr size_t nButtonCount = 16;

/// By joystick button number, 0 to 15.
inline std::array<ButtonAction, nButtonCount> ButtonTable;

/// Sets the kind, and for a code or a command that field, from the text in the file. The other
/// fields keep what they held, and so does the code when its number does not fit 32 bits.
void LoadButton(std::wstring_view strText, ButtonAction& objButton);

/// Whether the file would say something else by this command's own text: one of the words, a number
/// or nothing. It stands in quotes there, two characters more, and comes back without them.
bool NeedsQuotes(std::wstring_view strCommand);

/// The text for the file. None for an unassigned button (or an unknown kind): it has no key there.
std::optional<std::wstring> ButtonText(const ButtonAction& objButton);

}  // namespace taviro
