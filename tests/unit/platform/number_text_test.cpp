// SPDX-License-Identifier: MIT
#include "platform/number_text.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

#include "platform/text.h"

namespace taviro::platform {
namespace {

TEST(LeadingNumber, Table) {
    const struct {
        const wchar_t* strText;
        double fNumber;
    } Rows[] = {
        // Plain numbers.
        {L"", 0},
        {L"0", 0},
        {L"12", 12},
        {L"012", 12},
        {L"-3", -3},
        {L"+3", 3},
        {L"1.5", 1.5},
        {L".5", 0.5},
        {L"5.", 5},
        {L"-.25", -0.25},
        {L"2147483648", 2147483648.0},
        // Reading stops at the first character that cannot continue the number.
        {L"12abc", 12},
        {L"1,5", 1},
        {L"1.2.3", 1.2},
        {L"1-2", 1},
        {L"--1", 0},
        {L"1e3", 1},
        {L"0x10", 0},
        {L"abc", 0},
        {L"a1", 0},
        {L"-", 0},
        {L".", 0},
        {L"-.", 0},
        {L"]5", 0},
        {L"\u00A05", 0},
        // Blanks and tabs are skipped wherever they stand.
        {L"  7", 7},
        {L"\t7", 7},
        {L"- 3", -3},
        {L"1 2\t3", 123},
        {L"1 . 5", 1.5},
        {L"   ", 0},
        {L"\n7", 0},
    };
    for (const auto& Row : Rows) {
        EXPECT_DOUBLE_EQ(LeadingNumber(Row.strText), Row.fNumber) << ToUtf8(Row.strText);
    }
}

TEST(LeadingNumber, ManyDecimals_KeepTheValue) {
    EXPECT_DOUBLE_EQ(LeadingNumber(L"0.1" + std::wstring(2000, L'0')), 0.1);
    EXPECT_DOUBLE_EQ(LeadingNumber(L"2." + std::wstring(2000, L'3')), 7.0 / 3);
    EXPECT_DOUBLE_EQ(LeadingNumber(L"0." + std::wstring(2000, L'0') + L"1"), 0);
    EXPECT_GT(LeadingNumber(std::wstring(2000, L'9') + L".5"), 1e300);
}

TEST(RoundToInt32, Halves_GoToTheEvenNumber) {
    const struct {
        double fNumber;
        int32_t nValue;
    } Rows[] = {
        {0.5, 0},
        {1.5, 2},
        {2.5, 2},
        {3.5, 4},
        {-0.5, 0},
        {-1.5, -2},
        {-2.5, -2},
        {0.49, 0},
        {0.51, 1},
        {2.4999, 2},
        {2.51, 3},
        {-2.51, -3},
        {-2.49, -2},
        {0, 0},
        {12, 12},
        {-12, -12},
        {2147483647.4, 2147483647},
        {2147483646.5, 2147483646},
        {-2147483648.5, std::numeric_limits<int32_t>::min()},
    };
    for (const auto& Row : Rows) {
        int32_t nValue = 77;
        EXPECT_TRUE(RoundToInt32(Row.fNumber, nValue)) << Row.fNumber;
        EXPECT_EQ(nValue, Row.nValue) << Row.fNumber;
    }
}

TEST(RoundToInt32, NumberThatDoesNotFit_LeavesTheValue) {
    const double fInfinity = std::numeric_limits<double>::infinity();
    for (const double fNumber : {2147483647.5, 2147483648.0, -2147483648.6, 1e300, fInfinity,
                                 -fInfinity, std::numeric_limits<double>::quiet_NaN()}) {
        int32_t nValue = 77;
        EXPECT_FALSE(RoundToInt32(fNumber, nValue)) << fNumber;
        EXPECT_EQ(nValue, 77) << fNumber;
    }
}

TEST(WholeTextToInt32, Numbers_Convert) {
    const struct {
        const wchar_t* strText;
        int32_t nValue;
    } Rows[] = {
        {L"0", 0},
        {L"50", 50},
        {L"-10", -10},
        {L"+5", 5},
        {L" 7 ", 7},
        {L"\t7\t", 7},
        {L"1.5", 2},
        {L"2.5", 2},
        {L"-2.5", -2},
        {L".6", 1},
        {L"3.", 3},
        {L"0007", 7},
        {L"2147483647", 2147483647},
        {L"-2147483648", std::numeric_limits<int32_t>::min()},
    };
    for (const auto& Row : Rows) {
        int32_t nValue = 77;
        EXPECT_TRUE(WholeTextToInt32(Row.strText, nValue)) << ToUtf8(Row.strText);
        EXPECT_EQ(nValue, Row.nValue) << ToUtf8(Row.strText);
    }
}

TEST(WholeTextToNumber, Number_IsGivenHoweverLarge) {
    EXPECT_EQ(WholeTextToNumber(L" -2.5 "), -2.5);
    EXPECT_LT(WholeTextToNumber(L"-99999999999999999999"), -9e19);
    EXPECT_GT(WholeTextToNumber(std::wstring(400, L'9')), 1e300);
    for (const wchar_t* strText : {L"", L" ", L"-", L"5x", L"1e3", L"1 2"})
        EXPECT_EQ(WholeTextToNumber(strText), std::nullopt) << ToUtf8(strText);
}

TEST(WholeTextToInt32, TextThatIsNoNumberOrDoesNotFit_LeavesTheValue) {
    for (const wchar_t* strText : {L"", L" ", L"abc", L"5x", L"x5", L"1 2", L"- 5", L"--5",
                                   L"1.2.3", L"1,5", L"1e3", L"0x10", L"-", L".", L"5\u00A0",
                                   L"2147483648", L"-2147483649", L"99999999999999999999"}) {
        int32_t nValue = 77;
        EXPECT_FALSE(WholeTextToInt32(strText, nValue)) << ToUtf8(strText);
        EXPECT_EQ(nValue, 77) << ToUtf8(strText);
    }
}

}  // namespace
}  // namespace taviro::platform
