// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>

#include "platform/text.h"
#include "settings/ini_file.h"

namespace taviro {
namespace {

std::string Read(const std::string& strFile, std::wstring_view strKey = L"k") {
    return platform::ToAnsi(IniFile(strFile).ReadString(L"s", strKey, L"(default)"));
}

std::string Written(const std::string& strFile, const std::vector<IniEntry>& Entries) {
    IniFile objFile(strFile);
    for (const IniEntry& objEntry : Entries)
        objFile.Write(objEntry);
    return objFile.Bytes();
}

struct ReadRow {
    const char* strName;
    std::string strFile;
    std::string strText;
};

TEST(IniReadString, Table) {
    const ReadRow Rows[] = {
        {"plain", "[s]\r\nk=v\r\n", "v"},
        {"file is empty", "", "(default)"},
        {"section is missing", "[t]\r\nk=v\r\n", "(default)"},
        {"key is missing", "[s]\r\na=v\r\n", "(default)"},
        {"key of another section", "[s]\r\na=1\r\n[t]\r\nk=v\r\n", "(default)"},
        {"key before any section", "k=v\r\n[s]\r\n", "(default)"},
        {"no final line end", "[s]\r\nk=v", "v"},
        {"lone LF", "[s]\nk=v\na=b", "v"},
        {"lone CR", "[s]\rk=v\ra=b", "v"},
        {"LF before CR", "[s]\n\rk=v", "v"},
        {"blanks around all", " \t[ s ]\t\n \tk \t=\t v w \t\n", "v w"},
        {"other blanks", "[s]\n\v\fk\x1A=\v\fv\x1A\f\n", "v"},
        {"no-break space is a letter", "[s]\nk=\xA0v\n", "\xA0v"},
        {"case of the section", "[S]\nk=v", "v"},
        {"case of the key", "[s]\nK=v", "v"},
        {"empty value", "[s]\nk=\n", ""},
        {"blank value", "[s]\nk=  \n", ""},
        {"key without a value", "[s]\nk\n", "(default)"},
        {"key without a value comes first", "[s]\nk\nk=v\n", "(default)"},
        {"first of two keys", "[s]\nk=1\nk=2\n", "1"},
        {"first of two sections", "[s]\na=1\n[s]\nk=2\n", "(default)"},
        {"equals sign in the value", "[s]\nk==v=w\n", "=v=w"},
        {"comment", "[s]\n;k=1\n ;k=2\nk=3\n", "3"},
        {"semicolon in the value", "[s]\nk=v ;w\n", "v ;w"},
        {"header with a tail", "[s] ; tail\nk=v", "v"},
        {"header that is not closed", "[s\nk=v", "(default)"},
        {"line that looks like a header", "[s]\n[t\nk=v", "v"},
        {"byte order mark", "\xEF\xBB\xBF[s]\nk=v", "v"},
        {"undefined bytes", "[s]\nk=\x81\x83\x88\x90\x98", "\x81\x83\x88\x90\x98"},
        {"NUL ends the value", std::string("[s]\nk=v\0w\na=b", 13), "v"},
        {"NULs elsewhere", std::string("\0\0\n\0[\n[s]\n\0=1\n\nk=v", 18), "v"},
    };
    for (const ReadRow& Row : Rows)
        EXPECT_EQ(Read(Row.strFile), Row.strText) << Row.strName;
}

TEST(IniReadString, EnclosingQuotes_AreRemoved) {
    const ReadRow Rows[] = {
        {"double", "\"a b\"", "a b"},
        {"single", "'a b'", "a b"},
        {"blanks inside", "\" a \"", " a "},
        {"empty double", "\"\"", ""},
        {"empty single", "''", ""},
        {"one quote", "\"", "\""},
        {"different", "'a\"", "'a\""},
        {"only leading", "\"a", "\"a"},
        {"only trailing", "a\"", "a\""},
        {"doubled", "\"\"a\"\"", "\"a\""},
        {"text behind", "\"a\" x", "\"a\" x"},
    };
    for (const ReadRow& Row : Rows) {
        EXPECT_EQ(Read("[s]\r\nk= " + Row.strFile + " \r\n"), Row.strText) << Row.strName;
    }
}

TEST(IniReadString, LongValue_IsCutTo1023Characters) {
    const auto Text = [](size_t nLength) { return std::string(nLength, 'x'); };
    EXPECT_EQ(Read("[s]\nk=" + Text(1023)), Text(1023));
    EXPECT_EQ(Read("[s]\nk=" + Text(1024)), Text(1023));
    EXPECT_EQ(Read("[s]\nk=" + Text(5000)), Text(1023));
    EXPECT_EQ(Read("[s]\nk=\"" + Text(1023) + "\""), Text(1023));
    EXPECT_EQ(Read("[s]\nk=\"" + Text(1024) + "\""), Text(1023));
}

TEST(IniReadString, CzechNames_AreFoundInEitherCase) {
    const IniFile objFile(platform::ToAnsi(L"[Říčany]\r\nŽluťoučký=kůň\r\n"));
    EXPECT_EQ(objFile.ReadString(L"ŘÍČANY", L"žluťoučký", L""), L"kůň");
    EXPECT_EQ(objFile.ReadString(L"říčany", L"ŽLUŤOUČKÝ", L""), L"kůň");
    EXPECT_EQ(objFile.ReadString(L"Ricany", L"Žluťoučký", L"-"), L"-");
}

// Look-ups go by a short print of each name, which many names share.
TEST(IniReadString, Name_IsFoundBehindAnyOther) {
    for (int i = 0; i < 1000; ++i) {
        const std::string strOther = "other" + std::to_string(i);
        EXPECT_EQ(Read("[s]\n" + strOther + "=1\nk=v\n"), "v") << strOther;
        EXPECT_EQ(Read("[" + strOther + "]\nk=1\n[s]\nk=v\n"), "v") << strOther;
        EXPECT_EQ(Read("[" + strOther + "]\nk=1\n[t]\n"), "(default)") << strOther;
    }
}

TEST(IniReadInt, Table) {
    const struct {
        const char* strText;
        int32_t nValue;
    } Rows[] = {
        {"5", 5},
        {"-5", -5},
        {"+5", 5},
        {"1x", 1},
        {"abc", 0},
        {"", 0},
        {"   ", 0},
        {"- 5", 0},
        {"--5", 0},
        {"-", 0},
        {"1 2", 1},
        {"1.9", 1},
        {"010", 10},
        {"0x10", 0},
        {"\"12\"", 12},
        {"' 12 '", 12},
        {"\x18\x01 12", 12},
        {"2147483647", 2147483647},
        // Beyond 32 bits the number wraps.
        {"2147483648", -2147483647 - 1},
        {"4294967301", 5},
        {"-4294967301", -5},
        {"99999999999999999999", 1661992959},
        {"0000000000000000000000000000000000000005", 5},
    };
    for (const auto& Row : Rows) {
        const IniFile objFile(std::string("[s]\r\nk=") + Row.strText + "\r\n");
        EXPECT_EQ(objFile.ReadInt(L"s", L"k", 77), Row.nValue) << Row.strText;
    }
}

TEST(IniReadInt, MissingKeySectionOrValue_GivesTheDefault) {
    for (const char* strFile : {"", "[t]\nk=1", "[s]\na=1", "[s]\nk"}) {
        EXPECT_EQ(IniFile(strFile).ReadInt(L"s", L"k", -77), -77) << strFile;
    }
}

TEST(IniSectionTextCount, Table) {
    const struct {
        const char* strFile;
        size_t nCount;
    } Rows[] = {
        {"", 0},
        {"[t]\nk=v", 0},
        {"[s]", 0},
        {"[s]\n\n;comment\n", 0},
        {"[s]\n \t\n", 0},
        {"[s]\nk=v", 4},
        {"[S]\n k = v \n;c\na=\"b\"\n", 10},
        {"[s]\nword\n", 5},
        {"[s]\nk=v\n[t]\na=b\n[s]\nc=d\n", 4},
    };
    for (const auto& Row : Rows) {
        EXPECT_EQ(IniFile(Row.strFile).SectionTextCount(L"s"), Row.nCount) << Row.strFile;
    }
    EXPECT_EQ(IniFile("[s]\nk=" + std::string(2000, 'x')).SectionTextCount(L"s"), 1022U);
}

struct WriteRow {
    const char* strName;
    std::string strBefore;
    std::vector<IniEntry> Entries;
    std::string strAfter;
};

void ExpectWritten(const WriteRow& Row) {
    EXPECT_EQ(Written(Row.strBefore, Row.Entries), Row.strAfter) << Row.strName;
}

TEST(IniWrite, Table) {
    const IniEntry objSet{L"s", L"k", L"v"};
    const WriteRow Rows[] = {
        {"empty file", "", {objSet}, "[s]\r\nk=v\r\n"},
        {"new section", "[t]\r\na=1\r\n", {objSet}, "[t]\r\na=1\r\n[s]\r\nk=v\r\n"},
        {"new section, last line open", "[t]\na=1", {objSet}, "[t]\na=1\r\n[s]\r\nk=v\r\n"},
        {"new key", "[s]\r\na=1\r\n", {objSet}, "[s]\r\na=1\r\nk=v\r\n"},
        {"new key, last line open", "[s]\r\na=1", {objSet}, "[s]\r\na=1\r\nk=v\r\n"},
        {"new key, empty section", "[s]\n\n[t]\n", {objSet}, "[s]\nk=v\r\n\n[t]\n"},
        {"new key, blank lines", "[s]\na=1\n\n \n[t]\n", {objSet}, "[s]\na=1\nk=v\r\n\n \n[t]\n"},
        {"new key, after a comment", "[s]\na=1\n;c\n\n[t]", {objSet}, "[s]\na=1\n;c\nk=v\r\n\n[t]"},
        {"replaced in place", "[s]\r\nk=1\r\na=2\r\n", {objSet}, "[s]\r\nk=v\r\na=2\r\n"},
        {"replaced, rest of the line stays", "[ S ]\n  K\t= 1 \r", {objSet}, "[ S ]\n  K\t= v \r"},
        {"replaced, quotes go", "[s]\nk=\"1\"\n", {objSet}, "[s]\nk=v\n"},
        {"empty value filled", "[s]\nk=", {objSet}, "[s]\nk=v"},
        {"bare key filled", "[s]\nk\na=1", {objSet}, "[s]\nk=v\na=1"},
        {"first of two keys", "[s]\nk=1\nk=2\n", {objSet}, "[s]\nk=v\nk=2\n"},
        {"first of two sections", "[s]\na=1\n[s]\nk=2\n", {objSet}, "[s]\na=1\nk=v\r\n[s]\nk=2\n"},
        {"same value", "[s]\n k = v\n", {objSet}, "[s]\n k = v\n"},
        {"several",
         "[s]\na=1",
         {objSet, {L"t", L"x", L"y"}, {L"s", L"l", L"w"}, {L"T", L"z", L""}},
         "[s]\na=1\r\nk=v\r\nl=w\r\n[t]\r\nx=y\r\nz=\r\n"},
        {"the last of two writes", "", {objSet, {L"S", L"K", L"w"}}, "[s]\r\nk=w\r\n"},
        {"byte order mark stays first", "\xEF\xBB\xBF[s]\n", {objSet}, "\xEF\xBB\xBF[s]\nk=v\r\n"},
        {"foreign characters", "", {{L"s", L"k", L"čЖ"}}, "\xEF\xBB\xBF[s]\r\nk=čЖ\r\n"},
        {"text ends with its line", "", {{L"s", L"k", L"a\r\n[t]"}}, "[s]\r\nk=a\r\n"},
        {"text ends with NUL", "", {{L"s", L"k", std::wstring(L"a\0b", 3)}}, "[s]\r\nk=a\r\n"},
    };
    for (const WriteRow& Row : Rows)
        ExpectWritten(Row);
}

TEST(IniWrite, NoText_DeletesTheKey) {
    const IniEntry objDelete{L"s", L"k", std::nullopt};
    const WriteRow Rows[] = {
        {"empty file", "", {objDelete}, ""},
        {"section missing", "[t]\nk=1\n", {objDelete}, "[t]\nk=1\n"},
        {"key missing", "[s]\na=1\n", {objDelete}, "[s]\na=1\n"},
        {"only that line", "[s]\r\na=1\r\n K = 2\r\nb=3\r\n", {objDelete}, "[s]\r\na=1\r\nb=3\r\n"},
        {"last line open", "[s]\nk=1", {objDelete}, "[s]\n"},
        {"every line of that key", "[s]\nk=1\na=2\nk=3\n", {objDelete}, "[s]\na=2\n"},
        {"lines beside each other", "[s]\nk=1\nk=2\nk=3\na=1\nk=4", {objDelete}, "[s]\na=1\n"},
        {"keys beside each other",
         "[s]\nk=1\nl=2\nk=3\nl=4\na=5\n",
         {{L"s", L"l", std::nullopt}, objDelete},
         "[s]\na=5\n"},
        {"beside a replaced line",
         "[s]\na=1\nk=2\nb=3\n",
         {{L"s", L"a", L"9"}, objDelete, {L"s", L"b", L"8"}},
         "[s]\na=9\nb=8\n"},
        {"deleted, then written", "[s]\nk=1\n", {objDelete, {L"s", L"k", L"2"}}, "[s]\nk=2\n"},
        {"written, then deleted", "[s]\n", {{L"s", L"k", L"2"}, objDelete}, "[s]\n"},
        {"with a new key, last line open",
         "[s]\nk=1",
         {objDelete, {L"s", L"l", L"2"}},
         "[s]\n\r\nl=2\r\n"},
    };
    for (const WriteRow& Row : Rows)
        ExpectWritten(Row);
}

TEST(IniWrite, WrittenTexts_AreReadBack) {
    IniFile objFile("[s]\nk=1\nk=2\na=1\n");
    objFile.Write({L"s", L"k", L" \"v w\" "});
    objFile.Write({L"s", L"a", std::nullopt});
    objFile.Write({L"new", L"n", L"-7"});
    EXPECT_EQ(objFile.ReadString(L"S", L"K", L"-"), L"v w");
    EXPECT_EQ(objFile.ReadString(L"s", L"a", L"-"), L"-");
    EXPECT_EQ(objFile.ReadInt(L"new", L"n", 0), -7);
    EXPECT_EQ(objFile.SectionTextCount(L"new"), 5U);
}

TEST(IniWrite, UnknownBytes_Survive) {
    std::string strJunk;
    for (uint32_t n = 12345; strJunk.size() < 20000; n = n * 1664525 + 1013904223) {
        strJunk += static_cast<char>(n >> 24U);
    }
    const std::string strAfter = Written(strJunk, {{L"Settings", L"k", L"v"}});
    ASSERT_GT(strAfter.size(), strJunk.size());
    EXPECT_EQ(strAfter.substr(0, strJunk.size()), strJunk);
    EXPECT_EQ(IniFile(strAfter).ReadString(L"Settings", L"k", L""), L"v");
}

TEST(IniFile, HugeFiles_AreReadAndWritten) {
    const size_t nSize = 500'000;
    std::string strShortLines = "[s]\n";
    while (strShortLines.size() < nSize)
        strShortLines += "a=1\n";
    std::string strSections;
    while (strSections.size() < nSize)
        strSections += "[x]\n";
    for (const std::string& strFile :
         {strShortLines, strSections, std::string(nSize, '\n'), "[s]\n" + std::string(nSize, '\n'),
          "[s]\na=" + std::string(nSize, 'x'), std::string(nSize, '['), std::string(nSize, '\0')}) {
        std::string strAfter = strFile;
        for (const wchar_t* strKey : {L"k", L"l", L"m"}) {
            strAfter = Written(strAfter, {{L"s", strKey, strKey}});
            EXPECT_EQ(IniFile(strAfter).ReadString(L"s", strKey, L""), strKey);
        }
        EXPECT_GT(strAfter.size(), strFile.size());
    }
}

}  // namespace
}  // namespace taviro
