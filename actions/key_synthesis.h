// SPDX-License-Identifier: MIT
// The lowest layer of output: key presses, typed characters and mouse clicks as exact sequences of
// input events, and the events of an action code in their order. Stateless; each operation sends
// its events before it returns.
#pragma once

#include <cstdint>

namespace taviro {

// Each sends its records in one call and returns how many events the system took.
uint32_t SendVirtualKey(uint16_t nVk);  ///< down and up
uint32_t KeyDownVk(uint16_t nVk);
uint32_t KeyUpVk(uint16_t nVk);
uint32_t KeyTapScan(uint16_t nScan);  ///< down and up by scan code
uint32_t KeyDownScan(uint16_t nScan);
uint32_t KeyUpScan(uint16_t nScan);

/// Types one Windows-1250 character with the key that the live layout has for it.
void TypeCharacter(uint8_t nCharacter);

/// Presses the key of an action code whose key number is 1 or more, with its modifiers.
void PressActionCode(int32_t nCode);

}  // namespace taviro
