// SPDX-License-Identifier: MIT
#include "automation/registration.h"

namespace taviro {

namespace {

// The identifiers of win32/gui.idl.
const std::wstring CLASS_ID = L"{2FD9A37F-041A-4411-9459-0F1763322AED}";
const std::wstring INTERFACE_ID = L"{41D2CFCF-2B23-4492-8BB6-A733D584BB64}";
const std::wstring LIBRARY_ID = L"{4AF1AFCC-843A-4FE1-9DAD-A1D0E331B552}";
const std::wstring LIBRARY_VERSION = L"1.0";
// The system's own carrier of calls, which reads the type library.
const std::wstring CARRIER_ID = L"{00020424-0000-0000-C000-000000000046}";

const com::ServerClass GUI_CLASS{
    .strId = CLASS_ID, .strName = L"Taviro.GUI", .strDescription = L"Taviro"};

}  // namespace

com::Registration GuiRegistration(const std::wstring& strProgramPath) {
    const std::wstring strClass = KeyOf(GUI_CLASS);
    const std::wstring strInterface = L"Interface\\" + INTERFACE_ID;
    const std::wstring strLibrary = L"TypeLib\\" + LIBRARY_ID + L"\\" + LIBRARY_VERSION;
    com::Registration All = RegistrationOf(GUI_CLASS, strProgramPath);
    All.Values.insert(All.Values.end(),
                      {
                          {strClass + L"\\TypeLib", L"", LIBRARY_ID},
                          {strClass + L"\\Version", L"", LIBRARY_VERSION},
                          {strInterface, L"", L"IGUI"},
                          {strInterface + L"\\ProxyStubClsid32", L"", CARRIER_ID},
                          {strInterface + L"\\TypeLib", L"", LIBRARY_ID},
                          {strInterface + L"\\TypeLib", L"Version", LIBRARY_VERSION},
                          {strLibrary, L"", GUI_CLASS.strDescription},
                          {strLibrary + L"\\FLAGS", L"", L"0"},
                          // The library reads the same from programs of both widths.
                          {strLibrary + L"\\0\\win32", L"", strProgramPath},
                          {strLibrary + L"\\0\\win64", L"", strProgramPath},
                      });
    All.Trees.insert(All.Trees.end(), {{L"Interface", INTERFACE_ID}, {L"TypeLib", LIBRARY_ID}});
    All.Parents = {L"CLSID", L"Interface", L"TypeLib", L"Wow6432Node", L""};
    return All;
}

std::wstring RegistrationFailure(const StartOrder& Order, const std::wstring& strReason) {
    const std::wstring strWhat = Order.nKind == StartKind::Register
                                     ? L"Objekt Taviro.GUI se nepodařilo zaregistrovat"
                                     : L"Registraci objektu Taviro.GUI se nepodařilo zrušit";
    const std::wstring strWhere = Order.nScope == RegistrationScope::Machine
                                      ? L" pro celý počítač (je k tomu třeba správce počítače)"
                                      : L"";
    return strWhat + strWhere + L": " + strReason;
}

}  // namespace taviro
