// SPDX-License-Identifier: MIT
#include "tests/e2e/automation/transcript.h"

#include <cstdio>
#include <cstdlib>
#include <iterator>

#include "tests/e2e/automation/servers.h"
#include "tests/e2e/probe/answer.h"

namespace taviro::standin {

namespace {

constexpr DWORD BEHAVIOUR_BYTES = 64;
constexpr DWORD SHARE_ALL = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

std::wstring SharedFile(const wchar_t* strName) {
    wchar_t strFolder[MAX_PATH] = {};
    const DWORD nLength = GetEnvironmentVariableW(L"TAVIRO_AUTOMATION", strFolder, MAX_PATH);
    if (nLength == 0 || nLength >= MAX_PATH) return {};
    return std::wstring(strFolder) + L"\\" + strName;
}

std::string Escaped(const std::string& strText) {
    std::string strResult;
    for (const char cByte : strText) {
        if (cByte == '\\') strResult += "\\\\";
        if (cByte == '\n') strResult += "\\n";
        if (cByte == '\r') strResult += "\\r";
        if (cByte != '\\' && cByte != '\n' && cByte != '\r') strResult += cByte;
    }
    return strResult;
}

std::wstring DescribedText(const BSTR strText) {
    if (strText == nullptr) return L"bstr null";
    return L"bstr \"" + std::wstring(strText, SysStringLen(strText)) + L"\"";
}

std::wstring DescribedObject(IDispatch* pObject) {
    if (pObject == nullptr) return L"object null";
    return L"object " + NameOf(pObject);
}

std::wstring DescribedReference(const VARIANT& Value) {
    switch (Value.vt & ~VT_BYREF) {
        case VT_BSTR:
            return DescribedText(*Value.pbstrVal);
        case VT_I2:
            return L"i2 " + std::to_wstring(*Value.piVal);
        case VT_I4:
            return L"i4 " + std::to_wstring(*Value.plVal);
        case VT_VARIANT:
            return L"variant " + Described(*Value.pvarVal);
        default:
            return L"type " + std::to_wstring(Value.vt);
    }
}

}  // namespace

Answering ReadBehaviour() {
    const HANDLE hFile = CreateFileW(SharedFile(L"behaviour.txt").c_str(), GENERIC_READ, SHARE_ALL,
                                     nullptr, OPEN_EXISTING, 0, nullptr);
    if (hFile == INVALID_HANDLE_VALUE) return {};
    char strBytes[BEHAVIOUR_BYTES] = {};
    DWORD nRead = 0;
    const BOOL bRead = ReadFile(hFile, strBytes, BEHAVIOUR_BYTES - 1, &nRead, nullptr);
    CloseHandle(hFile);
    const std::string strText(strBytes, bRead ? nRead : 0);
    if (strText.starts_with("fail")) return {.nKind = Behaviour::Fail};
    if (strText.starts_with("throw")) return {.nKind = Behaviour::Throw};
    if (strText.starts_with("gone")) return {.nKind = Behaviour::Gone};
    if (!strText.starts_with("block ")) return {};
    return {.nKind = Behaviour::Block,
            .nMilliseconds = static_cast<DWORD>(std::strtoul(strBytes + 6, nullptr, 10))};
}

void Record(const std::wstring& strLine) {
    const HANDLE hFile = CreateFileW(SharedFile(L"calls.txt").c_str(), FILE_APPEND_DATA, SHARE_ALL,
                                     nullptr, OPEN_ALWAYS, 0, nullptr);
    if (hFile == INVALID_HANDLE_VALUE) return;
    const std::string strBytes = Escaped(probe::ToUtf8(strLine)) + "\n";
    DWORD nWritten = 0;
    WriteFile(hFile, strBytes.data(), static_cast<DWORD>(strBytes.size()), &nWritten, nullptr);
    CloseHandle(hFile);
}

std::wstring Described(const VARIANT& Value) {
    if ((Value.vt & VT_BYREF) != 0) return L"&" + DescribedReference(Value);
    switch (Value.vt) {
        case VT_EMPTY:
            return L"empty";
        case VT_BSTR:
            return DescribedText(Value.bstrVal);
        case VT_I2:
            return L"i2 " + std::to_wstring(Value.iVal);
        case VT_I4:
            return L"i4 " + std::to_wstring(Value.lVal);
        case VT_DISPATCH:
            return DescribedObject(Value.pdispVal);
        default:
            return L"type " + std::to_wstring(Value.vt);
    }
}

std::wstring Described(const DISPPARAMS& Parameters) {
    std::wstring strResult;
    for (UINT i = Parameters.cArgs; i > 0; --i) {
        if (!strResult.empty()) strResult += L", ";
        strResult += Described(Parameters.rgvarg[i - 1]);  // they come in reverse
    }
    return strResult;
}

std::wstring Hexadecimal(HRESULT nResult) {
    wchar_t strText[16] = {};
    swprintf(strText, std::size(strText), L"0x%08lX", static_cast<unsigned long>(nResult));
    return strText;
}

}  // namespace taviro::standin
