// SPDX-License-Identifier: MIT
// An INI file in memory with the rules of the system's profile functions: which text a key has, how
// it becomes a number, where a written key goes. The same on every system, so that the settings can
// be tested anywhere. 8-bit text is Windows-1250. What the rules do not touch (comments, order,
// blank and unknown lines, foreign bytes) stays as it is.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "settings/ini_text.h"

namespace taviro {

/// A text to be stored under a key; without a text the key is to be deleted.
struct IniEntry {
    std::wstring strSection;
    std::wstring strKey;
    std::optional<std::wstring> strValue;

    bool operator==(const IniEntry&) const = default;
};

class IniFile {
  public:
    IniFile() : IniFile(std::string()) {}

    /// Any bytes will do: what is not a section or an entry is ignored. Text is Windows-1250, or
    /// UTF-8 behind a byte order mark.
    explicit IniFile(std::string strBytes);

    /// The key's text without enclosing quotes, single or double, cut to 1023 characters; the
    /// default when the section or key is missing. Blanks around the text in the file are dropped,
    /// those inside the quotes kept. Of repeated keys and sections the first counts.
    [[nodiscard]] std::wstring ReadString(std::wstring_view strSection, std::wstring_view strKey,
                                          std::wstring_view strDefault) const;

    /// The decimal number, with sign, at the start of the key's text; 0 without digits, the default
    /// when the section or key is missing. A number beyond 32 bits wraps.
    [[nodiscard]] int32_t ReadInt(std::wstring_view strSection, std::wstring_view strKey,
                                  int32_t nDefault) const;

    /// Number of characters, at most 1022, that reading the whole section yields: each entry with
    /// one end mark. 0 when the section is missing or has no entries.
    [[nodiscard]] size_t SectionTextCount(std::wstring_view strSection) const;

    /// Stores or deletes a key's text. A key that exists keeps its place; a new one goes to the end
    /// of its section, before its trailing blank lines; a new section to the end of the file. A
    /// text ends at its first line end or NUL: it could not be read back beyond it. A text that the
    /// code page lacks makes the file one of UTF-8. Deleting
    /// removes every line of that key in the section, so that no forgotten second line comes to
    /// life.
    void Write(const IniEntry& objEntry);

    /// The file with all that was written.
    [[nodiscard]] std::string Bytes() const;

  private:
    struct Pending {
        std::string strSection;
        std::string strKey;
        std::optional<std::string> strValue;
    };

    [[nodiscard]] std::wstring Decoded(std::string_view strBytes) const;
    [[nodiscard]] std::string Encoded(std::wstring_view strText) const;
    void TurnToUtf8();
    /// Its number; the count of pending ones when there is none.
    [[nodiscard]] size_t FindPending(std::string_view strSection, std::string_view strKey) const;
    /// The value as it stands in the file.
    [[nodiscard]] std::optional<std::string_view> FindValue(std::string_view strSection,
                                                            std::string_view strKey) const;

    bool bUnicode;  ///< UTF-8, else the code page
    IniText objText;
    std::vector<Pending> objPending;  ///< in the order of their first writing, each key once
};

}  // namespace taviro
