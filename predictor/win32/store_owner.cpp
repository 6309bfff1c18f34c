// SPDX-License-Identifier: MIT
#include "predictor/win32/store_owner.h"

#include <windows.h>

#include <system_error>

#include "predictor/win32/places.h"

namespace taviro::predictor {

namespace {

// Names within the user's session.
constexpr const wchar_t* WANTED_NAME = L"Local\\Presager.Forget";
constexpr const wchar_t* DONE_NAME = L"Local\\Presager.Forgotten";

constexpr DWORD HOLDER_ENDS_MS = 2000;  // how long a server may take to end
constexpr DWORD LOOK_AGAIN_MS = 20;
constexpr DWORD SERVER_ANSWERS_MS = 5000;

// Returns false when no server runs, or when it does not answer.
bool ServerForgets() {
    const com::UniqueHandle hWanted(OpenEventW(EVENT_MODIFY_STATE, FALSE, WANTED_NAME));
    const com::UniqueHandle hDone(OpenEventW(SYNCHRONIZE, FALSE, DONE_NAME));
    if (hWanted == nullptr || hDone == nullptr) return false;
    // An answer that came too late for an earlier order would be taken for that to this one.
    static_cast<void>(WaitForSingleObject(hDone.get(), 0));
    if (SetEvent(hWanted.get()) == FALSE) return false;
    return WaitForSingleObject(hDone.get(), SERVER_ANSWERS_MS) == WAIT_OBJECT_0;
}

}  // namespace

com::UniqueHandle HoldStore(const std::filesystem::path& Folder) {
    std::error_code Ignored;  // the file tells whether the folder is there
    std::filesystem::create_directories(Folder, Ignored);
    const std::filesystem::path File = Folder / L"presager.lock";
    const DWORD nStart = GetTickCount();
    for (;;) {
        com::UniqueHandle hHeld = com::OwnUnlessInvalid(CreateFileW(
            File.c_str(), GENERIC_WRITE, 0, nullptr, OPEN_ALWAYS,
            FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr));
        const DWORD nError = GetLastError();
        const bool bBusy = nError == ERROR_SHARING_VIOLATION || nError == ERROR_ACCESS_DENIED;
        if (hHeld != nullptr || !bBusy || GetTickCount() - nStart > HOLDER_ENDS_MS) return hHeld;
        Sleep(LOOK_AGAIN_MS);  // the system tells nobody when a file is closed
    }
}

ForgetSignals OfferForgetting() {
    return {.hWanted = com::UniqueHandle(CreateEventW(nullptr, FALSE, FALSE, WANTED_NAME)),
            .hDone = com::UniqueHandle(CreateEventW(nullptr, FALSE, FALSE, DONE_NAME))};
}

bool ForgetLearned(std::wstring& strReason) {
    if (ServerForgets()) return true;
    const std::filesystem::path Folder = UserFolder();
    std::error_code Error;
    if (!std::filesystem::exists(Folder, Error) && !Error) return true;
    // A server that was just ending when it was asked has ended by now.
    const com::UniqueHandle hStore = HoldStore(Folder);
    if (hStore == nullptr) {
        strReason = L"drží je jiný spuštěný slovník, který neodpovídá.";
        return false;
    }
    std::string strError;
    if (RemoveLearned(FilesOfUser().Learned, strError)) return true;
    strReason = L"soubor nelze smazat.";
    return false;
}

}  // namespace taviro::predictor
