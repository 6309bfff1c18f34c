// SPDX-License-Identifier: MIT
// comfort.ini, in two places: each key is looked up in the user's file, then in the one beside the
// program, then in the table. So an upgrade brings new keys to everybody, and the user's file holds
// only what the user wants otherwise. What a file says wrongly never stops anything: a value out of
// range counts as the nearest one, one without a meaning as if it were not there, and Faults tells.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "settings/comfort.h"

namespace taviro {

/// What became of a wish to change a value.
enum class ComfortOutcome {
    Taken,
    Bounded,  ///< the nearest value was taken: the wish lay beyond the range
    Refused,  ///< it means nothing for this key; all is as it was
};

class ComfortStore {
  public:
    explicit ComfortStore(std::span<const ComfortKey> objAll = ComfortKeys());

    /// Looks every key up in both files, either of which may be missing, and puts the values in
    /// force. Forgets what was set and not saved.
    void Init(const std::wstring& strUserFile, const std::wstring& strProgramFile);

    /// The key of that name, "Watch" or "Stick.Watch", without regard to case. Null when there is
    /// none, or more than one without naming the section.
    [[nodiscard]] const ComfortKey* Find(std::wstring_view strName) const;

    /// The value in force, as its normal text.
    [[nodiscard]] const std::wstring& Text(const ComfortKey& objKey) const;

    /// Sets a value, or changes it by one step; it is in force at once, and in the file after Save.
    [[nodiscard]] ComfortOutcome Set(const ComfortKey& objKey, std::wstring_view strText);
    [[nodiscard]] ComfortOutcome Step(const ComfortKey& objKey, bool bUp);

    /// Writes what was set since the last Save into the user's file, in one replacement. A key that
    /// was set back to what counts without the user's file is removed from it; all other keys and
    /// lines stay. Returns false, the old file whole, when that fails: the next Save tries again.
    [[nodiscard]] bool Save();

    /// What Init found wrong, a sentence each with file and line; see FindComfortFaults.
    [[nodiscard]] const std::vector<std::wstring>& Faults() const { return strFaults; }

  private:
    struct Value {
        std::wstring strBase;  ///< what counts without the user's file
        bool bBaseKnown =
            true;  ///< false: the program's file may say otherwise once it is readable
        std::wstring strInForce{};
        bool bChanged = false;  ///< since the last Save
    };

    [[nodiscard]] size_t NumberOf(const ComfortKey& objKey) const;
    void PutInForce(size_t nKey, const std::wstring& strNormal);
    void Change(size_t nKey, const std::wstring& strNormal);

    std::span<const ComfortKey> Keys;
    std::vector<Value> Values;  ///< one for each key
    std::wstring strUserPath;
    std::vector<std::wstring> strFaults;
};

/// The program's own, made afresh at start-up.
inline ComfortStore objComfort;

}  // namespace taviro
