// SPDX-License-Identifier: MIT
#include "predictor/registration.h"

namespace taviro::predictor {

namespace {

// The identifier of win32/server.cpp.
const std::wstring CLASS_ID = L"{8D9C41B6-2E57-4F0A-9B63-C1A4F2D7E850}";
const std::wstring NAME = L"Presager.Dict";
const std::wstring VERSIONED_NAME = L"Presager.Dict.1";
const std::wstring DESCRIPTION = L"Slovník programu Taviro";

}  // namespace

std::vector<RegistryValue> RegistrationValues(const std::wstring& strServerPath) {
    const std::wstring strClass = L"CLSID\\" + CLASS_ID;
    return {
        {NAME, DESCRIPTION},
        {NAME + L"\\CLSID", CLASS_ID},
        {NAME + L"\\CurVer", VERSIONED_NAME},
        {VERSIONED_NAME, DESCRIPTION},
        {VERSIONED_NAME + L"\\CLSID", CLASS_ID},
        {strClass, DESCRIPTION},
        // The system adds a word to it: without quotes a blank in the path would end the path.
        {strClass + L"\\LocalServer32", L"\"" + strServerPath + L"\""},
        {strClass + L"\\ProgID", VERSIONED_NAME},
        {strClass + L"\\VersionIndependentProgID", NAME},
        {strClass + L"\\Programmable", L""},
    };
}

std::vector<RegistryTree> RegistrationTrees() {
    return {{L"", NAME}, {L"", VERSIONED_NAME}, {L"CLSID", CLASS_ID}};
}

std::vector<std::wstring> RegistrationParents() {
    return {L"CLSID", L"Wow6432Node", L""};
}

}  // namespace taviro::predictor
