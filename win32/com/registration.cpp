// SPDX-License-Identifier: MIT
#include "win32/com/registration.h"

namespace taviro::com {

std::wstring KeyOf(const ServerClass& Class) {
    return L"CLSID\\" + Class.strId;
}

Registration RegistrationOf(const ServerClass& Class, const std::wstring& strServerPath) {
    const std::wstring& strName = Class.strName;
    const std::wstring strVersionedName = strName + L".1";
    const std::wstring strClass = KeyOf(Class);
    return {
        .Values =
            {
                {strName, L"", Class.strDescription},
                {strName + L"\\CLSID", L"", Class.strId},
                {strName + L"\\CurVer", L"", strVersionedName},
                {strVersionedName, L"", Class.strDescription},
                {strVersionedName + L"\\CLSID", L"", Class.strId},
                {strClass, L"", Class.strDescription},
                // The system adds words to it: without quotes a blank in the path would end it.
                {strClass + L"\\LocalServer32", L"", L"\"" + strServerPath + L"\""},
                {strClass + L"\\ProgID", L"", strVersionedName},
                {strClass + L"\\VersionIndependentProgID", L"", strName},
                {strClass + L"\\Programmable", L"", L""},
            },
        .Trees = {{L"", strName}, {L"", strVersionedName}, {L"CLSID", Class.strId}},
        .Parents = {L"CLSID", L"Wow6432Node", L""},
    };
}

}  // namespace taviro::com
