// SPDX-License-Identifier: MIT
#include "tests/e2e/probe/answer.h"

#include <windows.h>

#include <cstdio>
#include <fcntl.h>
#include <io.h>

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

// Reads one line without its line feed. Returns false at the end of the input.
bool ReadLine(std::string& strLine) {
    strLine.clear();
    int nByte = std::getchar();
    while (nByte != EOF && nByte != '\n') {
        strLine += static_cast<char>(nByte);
        nByte = std::getchar();
    }
    return nByte != EOF;
}

void EndAnswer(const std::wstring& strError) {
    WriteLine(strError.empty() ? std::string("ok") : "error " + Escaped(strError));
    std::fflush(stdout);
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

Fields SplitFields(std::string_view strLine) {
    std::vector<std::string> Parts(1);
    for (size_t i = 0; i < strLine.size(); ++i) {
        if (strLine[i] == '\t')
            Parts.emplace_back();
        else if (strLine[i] == '\\' && i + 1 < strLine.size())
            Parts.back() += Unescaped(strLine[++i]);
        else
            Parts.back() += strLine[i];
    }
    Fields Result;
    for (const std::string& strPart : Parts)
        Result.push_back(FromUtf8(strPart));
    return Result;
}

void Answer(std::initializer_list<std::wstring> Given) {
    // The blank in front keeps an answer apart from the line that ends it.
    std::string strLine = " ";
    bool bFirst = true;
    for (const std::wstring& strField : Given) {
        if (!bFirst) strLine += '\t';
        bFirst = false;
        strLine += Escaped(strField);
    }
    WriteLine(strLine);
}

void AnswerCommands(const std::function<std::wstring(const Fields&)>& Run) {
    _setmode(_fileno(stdin), _O_BINARY);
    _setmode(_fileno(stdout), _O_BINARY);
    std::string strLine;
    while (ReadLine(strLine))
        EndAnswer(Run(SplitFields(strLine)));
}

}  // namespace taviro::probe
