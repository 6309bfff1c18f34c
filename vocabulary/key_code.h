// SPDX-License-Identifier: MIT
// The keys by name: as virtual keys, which name what a key means on a layout, and as scan codes,
// which name the place of a key on the keyboard. The numbers are the system's and the keyboard's;
// maps, settings and the automation interface store them.
#pragma once

#include <cstdint>

namespace taviro {

namespace KeyCode {

inline constexpr int32_t Backspace = 8;
inline constexpr int32_t Tab = 9;
inline constexpr int32_t Enter = 13;
inline constexpr int32_t Shift = 16;
inline constexpr int32_t Ctrl = 17;
inline constexpr int32_t Alt = 18;
inline constexpr int32_t CapsLock = 20;
inline constexpr int32_t Escape = 27;
inline constexpr int32_t PageUp = 33;
inline constexpr int32_t PageDown = 34;
inline constexpr int32_t End = 35;
inline constexpr int32_t Home = 36;
// The arrows are the directions as well: of the highlight, of a list, of a scan.
inline constexpr int32_t Left = 37;
inline constexpr int32_t Up = 38;
inline constexpr int32_t Right = 39;
inline constexpr int32_t Down = 40;
inline constexpr int32_t Insert = 45;
inline constexpr int32_t Delete = 46;
inline constexpr int32_t LeftWindows = 91;
inline constexpr int32_t LeftShift = 160;
inline constexpr int32_t RightShift = 161;
inline constexpr int32_t LeftCtrl = 162;
inline constexpr int32_t RightCtrl = 163;
inline constexpr int32_t LeftAlt = 164;
inline constexpr int32_t RightAlt = 165;

/// How many virtual keys there are, 0 included.
inline constexpr int32_t Count = 256;

}  // namespace KeyCode

namespace ScanCode {

inline constexpr int32_t DeadKey = 13;  ///< right of the digit row: acute, with Shift caron
inline constexpr int32_t Ctrl = 29;
inline constexpr int32_t LeftShift = 42;
inline constexpr int32_t RightShift = 54;
inline constexpr int32_t Alt = 56;
inline constexpr int32_t AltGrCtrl = 541;  ///< the Ctrl that a keyboard sends ahead of AltGr

}  // namespace ScanCode

/// Whether a virtual key is one of the four arrows.
constexpr bool IsArrow(int32_t nVk) {
    return nVk >= KeyCode::Left && nVk <= KeyCode::Down;
}

/// Whether a virtual key moves the cursor of a text: Page Up, Page Down, End, Home, the arrows.
constexpr bool MovesTextCursor(int32_t nVk) {
    return nVk >= KeyCode::PageUp && nVk <= KeyCode::Down;
}

/// Whether a virtual key is on the number pad as well, where NumLock makes a digit or the comma of
/// it.
constexpr bool IsAlsoOnNumberPad(int32_t nVk) {
    return MovesTextCursor(nVk) || nVk == KeyCode::Insert || nVk == KeyCode::Delete;
}

}  // namespace taviro
