// SPDX-License-Identifier: MIT
#include "platform/clock.h"

#include <windows.h>

#include <iterator>

#include "platform/win32/failure.h"

namespace taviro::platform {

namespace {

void AppendTwoDigits(std::wstring& strText, unsigned nNumber) {
    strText += static_cast<wchar_t>(L'0' + nNumber / 10 % 10);
    strText += static_cast<wchar_t>(L'0' + nNumber % 10);
}

}  // namespace

uint32_t TickCount() {
    return GetTickCount();
}

void SleepMs(uint32_t nMilliseconds) {
    // The tick count moves in steps of up to 16 ms, apart from the timer that ends the sleep.
    // Whoever sleeps until a time has come must find it come, and not sleep a whole step more.
    const uint32_t nStart = TickCount();
    Sleep(nMilliseconds);
    while (TickCount() - nStart < nMilliseconds)
        Sleep(1);
}

std::wstring TimeOfDayText() {
    SYSTEMTIME Now{};
    GetLocalTime(&Now);
    std::wstring strText;
    AppendTwoDigits(strText, Now.wHour);
    strText += L':';
    AppendTwoDigits(strText, Now.wMinute);
    strText += L':';
    AppendTwoDigits(strText, Now.wSecond);
    return strText;
}

std::wstring DateTimeText() {
    SYSTEMTIME Now{};
    GetLocalTime(&Now);
    wchar_t strDate[80] = {};
    wchar_t strTime[80] = {};
    const bool bDate = win32::OrReport(
        GetDateFormatEx(LOCALE_NAME_USER_DEFAULT, DATE_SHORTDATE, &Now, nullptr, strDate,
                        static_cast<int>(std::size(strDate)), nullptr) != 0,
        "GetDateFormatEx");
    const bool bTime =
        win32::OrReport(GetTimeFormatEx(LOCALE_NAME_USER_DEFAULT, 0, &Now, nullptr, strTime,
                                        static_cast<int>(std::size(strTime))) != 0,
                        "GetTimeFormatEx");
    if (!bDate || !bTime) return TimeOfDayText();  // a broken format of the user's
    return std::wstring(strDate) + L" " + strTime;
}

}  // namespace taviro::platform
