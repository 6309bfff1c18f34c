// SPDX-License-Identifier: MIT
#include "win32/com/access.h"

#include <windows.h>

#include <array>
#include <cstddef>
#include <objbase.h>

#include "win32/com/handles.h"

namespace taviro::com {

namespace {

constexpr DWORD LOCAL_CALLS = COM_RIGHTS_EXECUTE | COM_RIGHTS_EXECUTE_LOCAL;
constexpr LONG NO_OTHER_SERVICES = -1;  // the system's own choice of authentication

/// A security identifier with the record that the system puts before a user's.
struct Identifier {
    alignas(TOKEN_USER) std::array<std::byte, sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE> Bytes{};
    PSID pSid = nullptr;
};

bool FindUser(Identifier& User) {
    HANDLE hOpened = nullptr;
    if (OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &hOpened) == FALSE) return false;
    const UniqueHandle hToken(hOpened);
    DWORD nNeeded = 0;
    if (GetTokenInformation(hToken.get(), TokenUser, User.Bytes.data(),
                            static_cast<DWORD>(User.Bytes.size()), &nNeeded) == FALSE) {
        return false;
    }
    User.pSid = reinterpret_cast<TOKEN_USER*>(User.Bytes.data())->User.Sid;
    return true;
}

bool FindSystem(Identifier& System) {
    System.pSid = System.Bytes.data();
    auto nSize = static_cast<DWORD>(System.Bytes.size());
    return CreateWellKnownSid(WinLocalSystemSid, nullptr, System.pSid, &nSize) != FALSE;
}

}  // namespace

bool RestrictAccess() {
    Identifier User;
    Identifier System;
    if (!FindUser(User) || !FindSystem(System)) return false;
    constexpr size_t ENTRY_SIZE = sizeof(ACCESS_ALLOWED_ACE) + SECURITY_MAX_SID_SIZE;
    alignas(ACL) std::array<std::byte, sizeof(ACL) + 2 * ENTRY_SIZE> ListBytes{};
    auto* pList = reinterpret_cast<ACL*>(ListBytes.data());
    SECURITY_DESCRIPTOR Descriptor{};
    if (InitializeAcl(pList, static_cast<DWORD>(ListBytes.size()), ACL_REVISION) == FALSE ||
        AddAccessAllowedAce(pList, ACL_REVISION, LOCAL_CALLS, User.pSid) == FALSE ||
        AddAccessAllowedAce(pList, ACL_REVISION, LOCAL_CALLS, System.pSid) == FALSE ||
        InitializeSecurityDescriptor(&Descriptor, SECURITY_DESCRIPTOR_REVISION) == FALSE ||
        SetSecurityDescriptorOwner(&Descriptor, User.pSid, FALSE) == FALSE ||
        SetSecurityDescriptorGroup(&Descriptor, User.pSid, FALSE) == FALSE ||
        SetSecurityDescriptorDacl(&Descriptor, TRUE, pList, FALSE) == FALSE) {
        return false;
    }
    return SUCCEEDED(CoInitializeSecurity(&Descriptor, NO_OTHER_SERVICES, nullptr, nullptr,
                                          RPC_C_AUTHN_LEVEL_CONNECT, RPC_C_IMP_LEVEL_IDENTIFY,
                                          nullptr, EOAC_NONE, nullptr));
}

}  // namespace taviro::com
