// SPDX-License-Identifier: MIT
// The stand-in objects: the speech engine with its voices, the external reader and the host
// program's relay. They are reached by member names only, as scripts reach the real ones.
#pragma once

#include <windows.h>

#include <ole2.h>
#include <span>
#include <string>

namespace taviro::standin {

/// A class that can be created: its ProgID and what makes an object of it.
struct ServerClass {
    CLSID Id;
    IDispatch* (*pCreate)();
};
std::span<const ServerClass> ServerClasses();

/// How many objects live; the library stays loaded for them.
LONG ObjectCount();

/// The name by which the transcript knows one of our objects; "foreign" for any other.
std::wstring NameOf(IDispatch* pObject);

}  // namespace taviro::standin
