// SPDX-License-Identifier: MIT
// Taviro's INI file against the system's profile functions, on random files and random writes. The
// files hold what people and programs leave behind: odd blanks, quotes, repeated names, broken
// headers, lone line ends, long values, junk.
//
// Where the two are meant to differ is said in Exclusions, and here, for what is never generated:
// - Case of letters with marks. The system's comparison knows the plain letters alone on some
//   versions; Taviro's knows the Czech ones too. Names with marks come in one case.
// - Byte order marks. The system would read UTF-8 or UTF-16; Taviro's files are Windows-1250.
// - NUL within a name: never written by anyone, and the system's versions disagree.
// - Line ends within a written text: the system lets them make new lines, Taviro ends the text.
// - Names with blanks at their ends and keys that begin with ";" are never asked for.
#include <windows.h>

#include <gtest/gtest.h>
#include <optional>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "platform/text.h"
#include "settings/ini_file.h"
#include "settings/ini_text.h"

namespace taviro {
namespace {

// The x86 program has the same rules; a part of the files shows that it was built right.
constexpr int FILES = sizeof(void*) == 8 ? 10000 : 2000;
constexpr int FILES_PER_WRITE = 5;  // the system takes milliseconds to write
constexpr unsigned SEED = 20240229;
constexpr DWORD BUFFER_SIZE = 1024;
constexpr const char* NO_KEY_TEXT = "(none)";
constexpr int32_t NO_KEY_NUMBER = -12345;

const std::string Sections[] = {"s", "Info", "\xC8\xE1sti", "two words"};
const std::string Keys[] = {"k", "RowWrap", "15", "\x9Elu\x9D", "a b"};

/// One question or order to both sides.
struct Operation {
    std::string strSection;
    std::string strKey;
    std::string strValue;
    bool bDelete = false;
};

std::vector<IniLine> LinesOfKey(const IniText& objText, const Operation& objOne) {
    std::vector<IniLine> Lines;
    const auto objSection = objText.FindSection(objOne.strSection);
    if (!objSection) return Lines;
    for (size_t i = objText.FindEntry(*objSection, objOne.strKey, objSection->nFirstEntry);
         i < objSection->nEndEntry; i = objText.FindEntry(*objSection, objOne.strKey, i + 1)) {
        Lines.push_back(objText.Entry(i));
    }
    return Lines;
}

/// The text that counts, quotes included; none when the key is missing or has none.
std::optional<std::string> ValueOf(const IniText& objText, const Operation& objOne) {
    const std::vector<IniLine> Lines = LinesOfKey(objText, objOne);
    if (Lines.empty() || Lines.front().strSeparator.empty()) return std::nullopt;
    const std::string_view strValue = Lines.front().strValue;
    return std::string(strValue.substr(0, strValue.find('\0')));
}

std::string WithoutQuotes(const std::string& strValue) {
    const bool bQuoted = strValue.size() > 1 && strValue.front() == strValue.back() &&
                         (strValue.front() == '"' || strValue.front() == '\'');
    return bQuoted ? strValue.substr(1, strValue.size() - 2) : strValue;
}

// Exclusions ------------------------------------------------------------------------------------

/// "0x1F", "0o17" and "0b1" are numbers to the system; here a number is decimal and ends at the x.
bool IsPrefixedNumber(const std::string& strValue) {
    const std::string strText = WithoutQuotes(strValue);
    const size_t nZero = strText.find_first_not_of(" \t\v\f+-");
    return nZero != std::string::npos && nZero + 1 < strText.size() && strText[nZero] == '0' &&
           std::string("xob").find(strText[nZero + 1]) != std::string::npos;
}

/// A key with an empty text: some versions give the default; here a text without digits is 0.
bool IsEmptyNumber(const std::string& strValue) {
    return WithoutQuotes(strValue).empty();
}

/// The system looks at the first 29 characters alone; here all digits count.
bool IsLongNumber(const std::string& strValue) {
    return WithoutQuotes(strValue).size() > 29;
}

/// Some versions lose a character of a quoted text that just fits the buffer.
bool IsQuotedTextThatJustFits(const std::string& strValue) {
    return strValue.size() == BUFFER_SIZE + 1 && WithoutQuotes(strValue).size() < strValue.size();
}

/// The system deletes the first line of a repeated key, and the second comes to life; here all go.
bool IsDeletedKeyRepeated(const IniText& objText, const Operation& objOne) {
    return objOne.bDelete && LinesOfKey(objText, objOne).size() > 1;
}

// The random files ------------------------------------------------------------------------------

class Random {
  public:
    explicit Random(unsigned nStart) : objEngine(nStart) {}

    int Below(int nEnd) { return static_cast<int>(objEngine() % static_cast<unsigned>(nEnd)); }
    bool OneIn(int nChance) { return Below(nChance) == 0; }

    template <typename List>
    auto Pick(const List& Choices) {
        return Choices[static_cast<size_t>(Below(static_cast<int>(std::size(Choices))))];
    }

    std::string Blanks() {
        std::string strResult;
        while (OneIn(4))
            strResult += Pick(std::string(" \t\v\f\x1A "));
        return strResult;
    }

    std::string AnyCase(std::string strText) {
        for (char& nByte : strText) {
            const bool bLetter = (nByte >= 'A' && nByte <= 'Z') || (nByte >= 'a' && nByte <= 'z');
            if (bLetter && OneIn(6)) nByte = static_cast<char>(nByte ^ 0x20);
        }
        return strText;
    }

    std::string Junk(int nLength) {
        std::string strResult;
        for (int i = Below(nLength + 1); i > 0; --i) {
            if (OneIn(4)) {
                strResult += Pick(std::string("[]=;\"'  \t0-k"));
            } else {
                const auto nByte = static_cast<char>(1 + Below(0xEE));
                strResult += nByte == '\r' || nByte == '\n' ? '.' : nByte;
            }
        }
        return strResult;
    }

    std::string Value() {
        switch (Below(10)) {
            case 0:
                return std::to_string(static_cast<int32_t>(objEngine()));
            case 1:
                return Pick(Signs) + std::to_string(objEngine()) + Pick(Tails);
            case 2:
                return std::to_string(Below(20)) + Junk(4);
            case 3:
                return "\"" + Junk(6) + "\"";
            case 4:
                return "'" + Junk(6) + "'";
            case 5:
                return "P\xF8\xEDli\x9A \x9Elu\x9Dou\xE8k\xFD k\xF9\xF2";
            case 6:
                return OneIn(4) ? std::string("7v\0x", 4) : "";
            case 7:
                return OneIn(10) ? LongValue() : Junk(3);
            case 8:
                return "\"" + Junk(3);
            default:
                return Junk(12);
        }
    }

    std::string Line() {
        switch (Below(10)) {
            case 0:
            case 1:
                return Blanks() + "[" + Blanks() + AnyCase(Pick(Sections)) + Blanks() + "]" +
                       (OneIn(6) ? Junk(4) : "");
            case 2:
                return Blanks() + ";" + Junk(8);
            case 3:
                return Blanks();
            case 4:
                return OneIn(2) ? Junk(10) : AnyCase(Pick(Keys));
            default:
                return Blanks() + AnyCase(Pick(Keys)) + Blanks() + "=" + Blanks() + Value() +
                       Blanks();
        }
    }

    std::string File() {
        static const std::string LineEnds[] = {"\r\n", "\r\n", "\r\n", "\n", "\r", "\n\r", "\n\n"};
        std::string strResult = OneIn(2) ? "[" + Pick(Sections) + "]\r\n" : "";
        for (int i = Below(14); i > 0; --i)
            strResult += Line() + Pick(LineEnds);
        return OneIn(3) ? strResult + Line() : strResult;
    }

    Operation Question() { return {AnyCase(Pick(Sections)), AnyCase(Pick(Keys)), {}, false}; }

    Operation Order() {
        Operation objOne = Question();
        objOne.strValue = Value();
        objOne.bDelete = OneIn(4);
        return objOne;
    }

  private:
    std::string LongValue() {
        const std::string strText(static_cast<size_t>(1015 + Below(16)), 'x');
        return OneIn(2) ? "\"" + strText + "\"" : strText;
    }

    static inline const std::string Signs[] = {"", "-", "+", " ", "--", "- ", "0", "00000"};
    static inline const std::string Tails[] = {"", "x", ".5", " 1", "000", "0123456789"};

    std::mt19937 objEngine;
};

// The two sides ---------------------------------------------------------------------------------

struct Answer {
    std::string strText;
    int32_t nNumber = 0;
    size_t nSectionCount = 0;
};

class IniDifferential : public testing::Test {
  protected:
    IniDifferential() {
        char strFolder[MAX_PATH] = "";
        GetTempPathA(MAX_PATH, strFolder);
        strPath =
            std::string(strFolder) + "taviro_ini_" + std::to_string(GetCurrentProcessId()) + ".ini";
    }
    ~IniDifferential() override {
        Flush();
        DeleteFileA(strPath.c_str());
    }

    /// Makes the system forget what it knows of the file.
    void Flush() const { WritePrivateProfileStringA(nullptr, nullptr, nullptr, strPath.c_str()); }

    /// Rewrites the file without creating it anew, which takes many times as long.
    void Put(const std::string& strBytes) const {
        const HANDLE hFile = CreateFileA(strPath.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
                                         FILE_ATTRIBUTE_NORMAL, nullptr);
        ASSERT_NE(hFile, INVALID_HANDLE_VALUE);
        DWORD nWritten = 0;
        EXPECT_TRUE(WriteFile(hFile, strBytes.data(), static_cast<DWORD>(strBytes.size()),
                              &nWritten, nullptr));
        EXPECT_TRUE(SetEndOfFile(hFile));
        EXPECT_TRUE(CloseHandle(hFile));
        ASSERT_EQ(nWritten, strBytes.size());
        Flush();
    }

    std::string Get() const {
        Flush();
        std::string strBytes(size_t{64} * 1024, '\0');
        const HANDLE hFile = CreateFileA(strPath.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr,
                                         OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
        EXPECT_NE(hFile, INVALID_HANDLE_VALUE);
        DWORD nRead = 0;
        EXPECT_TRUE(
            ReadFile(hFile, strBytes.data(), static_cast<DWORD>(strBytes.size()), &nRead, nullptr));
        EXPECT_TRUE(CloseHandle(hFile));
        strBytes.resize(nRead);
        return strBytes;
    }

    Answer AskSystem(const Operation& objOne) const {
        Answer objAnswer;
        char Buffer[BUFFER_SIZE];
        DWORD nCount = GetPrivateProfileStringA(objOne.strSection.c_str(), objOne.strKey.c_str(),
                                                NO_KEY_TEXT, Buffer, BUFFER_SIZE, strPath.c_str());
        objAnswer.strText.assign(Buffer, nCount);
        objAnswer.nNumber = static_cast<int32_t>(GetPrivateProfileIntA(
            objOne.strSection.c_str(), objOne.strKey.c_str(), NO_KEY_NUMBER, strPath.c_str()));
        objAnswer.nSectionCount = GetPrivateProfileSectionA(objOne.strSection.c_str(), Buffer,
                                                            BUFFER_SIZE, strPath.c_str());
        return objAnswer;
    }

    static Answer AskTaviro(const IniFile& objFile, const Operation& objOne) {
        const std::wstring strSection = platform::FromAnsi(objOne.strSection);
        const std::wstring strKey = platform::FromAnsi(objOne.strKey);
        return {platform::ToAnsi(
                    objFile.ReadString(strSection, strKey, platform::FromAnsi(NO_KEY_TEXT))),
                objFile.ReadInt(strSection, strKey, NO_KEY_NUMBER),
                objFile.SectionTextCount(strSection)};
    }

    void Compare(const Answer& objSystem, const Answer& objTaviro, const std::string& strBytes,
                 const Operation& objOne) {
        const std::optional<std::string> strValue = ValueOf(IniText(strBytes), objOne);
        const auto Where = [&] {
            return testing::PrintToString(objOne.strSection + "." + objOne.strKey) + " in " +
                   testing::PrintToString(strBytes);
        };
        if (!Excluded(strValue && IsQuotedTextThatJustFits(*strValue))) {
            EXPECT_EQ(objTaviro.strText, objSystem.strText) << Where();
        }
        if (!Excluded(strValue && (IsPrefixedNumber(*strValue) || IsEmptyNumber(*strValue) ||
                                   IsLongNumber(*strValue)))) {
            EXPECT_EQ(objTaviro.nNumber, objSystem.nNumber) << Where();
        }
        EXPECT_EQ(objTaviro.nSectionCount, objSystem.nSectionCount) << Where();
        ++nCompared;
    }

    bool Excluded(bool bExcluded) {
        if (bExcluded) ++nExcluded;
        return bExcluded;
    }

    /// Reads the key from the system's present file by both sides.
    void CompareReading(const Operation& objOne, const std::string& strBytes) {
        Compare(AskSystem(objOne), AskTaviro(IniFile(strBytes), objOne), strBytes, objOne);
    }

    /// Lets both sides write, then reads either result by either side.
    void CompareWriting(const std::string& strBytes, const Operation& objOrder,
                        const Operation& objQuestion) {
        if (Excluded(IsDeletedKeyRepeated(IniText(strBytes), objOrder))) return;
        IniFile objFile(strBytes);
        const std::wstring strValue = platform::FromAnsi(objOrder.strValue);
        objFile.Write({platform::FromAnsi(objOrder.strSection), platform::FromAnsi(objOrder.strKey),
                       objOrder.bDelete ? std::nullopt : std::optional(strValue)});
        WritePrivateProfileStringA(objOrder.strSection.c_str(), objOrder.strKey.c_str(),
                                   objOrder.bDelete ? nullptr : objOrder.strValue.c_str(),
                                   strPath.c_str());
        const std::string strSystem = Get();
        const std::string strTaviro = objFile.Bytes();
        for (const Operation& objOne : {objOrder, objQuestion}) {
            const Answer objSystem = AskSystem(objOne);
            Compare(objSystem, AskTaviro(IniFile(strSystem), objOne), strSystem, objOne);
            Compare(objSystem, AskTaviro(IniFile(strTaviro), objOne), strTaviro, objOne);
            Compare(objSystem, AskTaviro(objFile, objOne), strTaviro, objOne);
        }
        Put(strTaviro);
        CompareReading(objOrder, strTaviro);
    }

    std::string strPath;
    int nCompared = 0;
    int nExcluded = 0;
};

/// Elsewhere bytes beyond 7F are other characters, some of them blanks: they are left out.
std::string ForThisSystem(std::string strBytes) {
    if (GetACP() == 1250) return strBytes;
    for (char& nByte : strBytes) {
        if (static_cast<unsigned char>(nByte) > 0x7F) nByte = '_';
    }
    return strBytes;
}

Operation ForThisSystem(const Operation& objOne) {
    return {ForThisSystem(objOne.strSection), ForThisSystem(objOne.strKey),
            ForThisSystem(objOne.strValue), objOne.bDelete};
}

TEST_F(IniDifferential, RandomFilesAndWrites_ReadTheSame) {
    Random objRandom(SEED);
    for (int i = 0; i < FILES && !HasFailure(); ++i) {
        const std::string strBytes = ForThisSystem(objRandom.File());
        Put(strBytes);
        CompareReading(ForThisSystem(objRandom.Question()), strBytes);
        CompareReading(ForThisSystem(objRandom.Question()), strBytes);
        if (i % FILES_PER_WRITE == 0) {
            CompareWriting(strBytes, ForThisSystem(objRandom.Order()),
                           ForThisSystem(objRandom.Question()));
        }
    }
    RecordProperty("compared", nCompared);
    RecordProperty("excluded", nExcluded);
    EXPECT_LT(nExcluded, nCompared / 5) << "the exclusions are meant to be narrow";
}

}  // namespace
}  // namespace taviro
