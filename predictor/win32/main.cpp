// SPDX-License-Identifier: MIT
// The entry point of the dictionary's server: carries out the order of its command line.
#include <windows.h>

#include <cstdlib>

#include "predictor/order.h"
#include "predictor/registration.h"
#include "predictor/win32/server.h"
#include "predictor/win32/store_owner.h"
#include "win32/com/console.h"
#include "win32/com/program_path.h"
#include "win32/com/registry.h"

namespace {

using namespace taviro::predictor;
namespace com = taviro::com;

constexpr int WRONG_ARGUMENTS = 2;

int Finish(const Order& Done, const std::wstring& strReason) {
    if (strReason.empty()) return EXIT_SUCCESS;
    static_cast<void>(
        com::WriteToUser(FailureText(Done, strReason) + L"\n"));  // the exit code tells it too
    return EXIT_FAILURE;
}

// With a click there is no console to write to, and something must be seen.
int Explain() {
    if (!com::WriteToUser(Usage())) {
        static_cast<void>(MessageBoxW(nullptr, Usage().c_str(), L"Presager", MB_OK));
    }
    return EXIT_SUCCESS;
}

com::Registration Entries() {
    return DictionaryRegistration(com::ProgramPath());
}

int CarryOut(const Order& Given, const std::wstring& strArguments) {
    switch (Given.nKind) {
        case OrderKind::Explain:
            return Explain();
        case OrderKind::Serve:
            return Serve();
        case OrderKind::Register: {
            const long nResult = com::Register(Given.nScope, Entries());
            return Finish(Given, nResult == 0 ? L"" : com::ReasonOf(nResult));
        }
        case OrderKind::Unregister: {
            const long nResult = com::Unregister(Given.nScope, Entries());
            return Finish(Given, nResult == 0 ? L"" : com::ReasonOf(nResult));
        }
        case OrderKind::Forget: {
            std::wstring strReason;
            return Finish(Given, ForgetLearned(strReason) ? L"" : strReason);
        }
        case OrderKind::Unknown:
            break;
    }
    static_cast<void>(com::WriteToUser(L"Neznámý příkaz: " + strArguments + L"\n" + Usage()));
    return WRONG_ARGUMENTS;
}

}  // namespace

int WINAPI wWinMain(HINSTANCE /*hInstance*/, HINSTANCE /*hPrevious*/, PWSTR pCommandLine,
                    int /*nShowCommand*/) {
    try {
        return CarryOut(ParseOrder(pCommandLine), pCommandLine);
    } catch (...) {
        OutputDebugStringW(L"presager: An exception ended the program.\r\n");
        return EXIT_FAILURE;
    }
}
