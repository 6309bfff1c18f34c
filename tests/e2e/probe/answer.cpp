// SPDX-License-Identifier: MIT
#include "tests/e2e/probe/answer.h"

#include <windows.h>

#include <cstdio>

namespace taviro::probe {

namespace {

std::string Escaped(std::wstring_view strField) {
    std::string strResult;
    for (const char cByte : ToUtf8(strField)) {
        switch (cByte) {
            case '\t':
                strResult += "\\t";
                break;
            case '\n':
                strResult += "\\n";
                break;
            case '\r':
                strResult += "\\r";
                break;
            case '\\':
                strResult += "\\\\";
                break;
            default:
                strResult += cByte;
        }
    }
    return strResult;
}

char Unescaped(char cMark) {
    switch (cMark) {
        case 't':
            return '\t';
        case 'n':
            return '\n';
        case 'r':
            return '\r';
        default:
            return cMark;
    }
}

void WriteLine(const std::string& strLine) {
    // A reader that went away ends the probe through its input; nothing is lost here.
    static_cast<void>(std::fputs((strLine + "\n").c_str(), stdout));
}

}  // namespace

std::wstring FromUtf8(std::string_view strText) {
    const int nBytes = static_cast<int>(strText.size());
    const int nLength = MultiByteToWideChar(CP_UTF8, 0, strText.data(), nBytes, nullptr, 0);
    std::wstring strResult(static_cast<size_t>(nLength), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, strText.data(), nBytes, strResult.data(), nLength);
    return strResult;
}

std::string ToUtf8(std::wstring_view strText) {
    const int nCharacters = static_cast<int>(strText.size());
    const int nLength =
        WideCharToMultiByte(CP_UTF8, 0, strText.data(), nCharacters, nullptr, 0, nullptr, nullptr);
    std::string strResult(static_cast<size_t>(nLength), '\0');
    WideCharToMultiByte(CP_UTF8, 0, strText.data(), nCharacters, strResult.data(), nLength, nullptr,
                        nullptr);
    return strResult;
}

std::vector<std::wstring> SplitFields(std::string_view strLine) {
    std::vector<std::string> Fields(1);
    for (size_t i = 0; i < strLine.size(); ++i) {
        if (strLine[i] == '\t')
            Fields.emplace_back();
        else if (strLine[i] == '\\' && i + 1 < strLine.size())
            Fields.back() += Unescaped(strLine[++i]);
        else
            Fields.back() += strLine[i];
    }
    std::vector<std::wstring> Result;
    for (const std::string& strField : Fields)
        Result.push_back(FromUtf8(strField));
    return Result;
}

void Answer(std::initializer_list<std::wstring> Fields) {
    // The blank in front keeps an answer apart from the line that ends it.
    std::string strLine = " ";
    bool bFirst = true;
    for (const std::wstring& strField : Fields) {
        if (!bFirst) strLine += '\t';
        bFirst = false;
        strLine += Escaped(strField);
    }
    WriteLine(strLine);
}

void EndAnswer(const std::wstring& strError) {
    WriteLine(strError.empty() ? std::string("ok") : "error " + Escaped(strError));
    std::fflush(stdout);
}

}  // namespace taviro::probe
