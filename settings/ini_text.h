// SPDX-License-Identifier: MIT
// The bytes of an INI file and where its sections and entries stand in them. The bytes are read
// once; later look-ups go by a one-byte print of each name, so that a file of any size (someone may
// have put anything there) costs one pass and not one per key.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace taviro {

/// One line, without its line end. Lone CRs and LFs end lines too. Blanks around a name or value do
/// not belong to it.
struct IniLine {
    enum class Type {
        Nothing,  ///< a blank line or a comment
        Header,
        Entry,
    };

    Type nType = Type::Nothing;
    size_t nBegin = 0;              ///< offset of the first byte
    size_t nNext = 0;               ///< offset behind the line end
    bool bEnded = false;            ///< false: the file ends without a line end
    std::string_view strName;       ///< section name or key
    std::string_view strSeparator;  ///< an entry's "=" with its blanks; empty when it has none
    std::string_view strValue;      ///< empty when there is no "="
};

/// Without the blanks of the profile functions (space, tab, vertical tab, form feed, DOS file end).
std::string_view TrimIniBlanks(std::string_view strBytes);

/// Names of sections and keys are equal without regard to case, Czech letters included.
bool IniNamesEqual(std::string_view strFirst, std::string_view strSecond);

class IniText {
  public:
    /// A section's entries and its lines (header included); a section ends before the next header.
    struct Section {
        size_t nFirstEntry;
        size_t nEndEntry;
        size_t nBegin;
        size_t nEnd;
    };

    explicit IniText(std::string strFileBytes);

    [[nodiscard]] const std::string& Bytes() const { return strBytes; }

    /// The first section of that name: later ones of the same name are never consulted.
    [[nodiscard]] std::optional<Section> FindSection(std::string_view strName) const;

    /// The first entry with that key at or after nEntry; nEndEntry when there is none. Advancing
    /// nEntry past the result finds the next one.
    [[nodiscard]] size_t FindEntry(const Section& objSection, std::string_view strKey,
                                   size_t nEntry) const;

    [[nodiscard]] IniLine Entry(size_t nEntry) const { return LineAt(objEntries.nOffsets[nEntry]); }

    /// The offset of the first line: behind a byte order mark, when there is one.
    [[nodiscard]] size_t FirstLine() const;

    /// The line that begins at the offset.
    [[nodiscard]] IniLine LineAt(size_t nOffset) const;

    /// What is left of the section's last line that is not blank (the header, when all others are)
    /// behind its last character: where it ends, and whether it does.
    [[nodiscard]] IniLine EndOfLastLine(const Section& objSection) const;

  private:
    /// Lines in file order, each with the print of its name.
    struct NamedLines {
        std::string strPrints;
        std::vector<size_t> nOffsets;

        void Add(const IniLine& objLine);
    };

    /// The first line of that name at or after nFirst and before nEnd; nEnd when there is none.
    [[nodiscard]] size_t Find(const NamedLines& objLines, std::string_view strName, size_t nFirst,
                              size_t nEnd) const;

    std::string strBytes;
    NamedLines objHeaders;
    NamedLines objEntries;
    std::vector<size_t> nFirstEntries;  ///< for each header the number of the entry that follows
};

}  // namespace taviro
