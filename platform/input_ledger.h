// SPDX-License-Identifier: MIT
// What was pressed and not released. Another program can keep a release from the system, and then a
// key stays down for a person who has no keyboard to lift it with.
#pragma once

#include <span>
#include <vector>

#include "platform/keys.h"

namespace taviro::platform {

class InputLedger {
  public:
    /// Of these records, as the system gets them, it took the first nTaken.
    void Note(std::span<const InputRecord> Sent, size_t nTaken);

    /// A release for each key and mouse button that is down, what was pressed last first. Empty
    /// where all was released.
    [[nodiscard]] std::vector<InputRecord> Releases() const;

  private:
    void Note(const InputRecord& Taken);

    std::vector<InputRecord> m_Releases;  // in the order of the presses
};

}  // namespace taviro::platform
