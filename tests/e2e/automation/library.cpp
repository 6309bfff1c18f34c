// SPDX-License-Identifier: MIT
// The door of the library through which the system makes the stand-in objects.
#include <windows.h>

#include "tests/e2e/automation/servers.h"
#include "win32/com/class_factory.h"
#include "win32/com/owners.h"

namespace {

using taviro::com::ClassFactory;
using taviro::standin::ServerClass;
using taviro::standin::ServerClasses;

/// One for each class; they live as long as the library.
ClassFactory FactoryOf(const ServerClass& Made) {
    return ClassFactory([&Made](REFIID Wanted, void** ppMade) {
        const taviro::com::UniqueObject<IDispatch> Object(Made.pCreate());
        return Object->QueryInterface(Wanted, ppMade);
    });
}

}  // namespace

STDAPI DllGetClassObject(REFCLSID Wanted, REFIID Interface, void** ppFound) {
    static ClassFactory Factories[] = {FactoryOf(ServerClasses()[0]), FactoryOf(ServerClasses()[1]),
                                       FactoryOf(ServerClasses()[2]),
                                       FactoryOf(ServerClasses()[3])};
    *ppFound = nullptr;
    for (size_t i = 0; i < ServerClasses().size(); ++i) {
        if (IsEqualCLSID(Wanted, ServerClasses()[i].Id)) {
            return Factories[i].QueryInterface(Interface, ppFound);
        }
    }
    return CLASS_E_CLASSNOTAVAILABLE;
}

STDAPI DllCanUnloadNow() {
    return taviro::standin::ObjectCount() == 0 ? S_OK : S_FALSE;
}
