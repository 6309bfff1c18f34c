// SPDX-License-Identifier: MIT
// What the stand-in automation servers share with a test: a folder, named by the environment
// variable TAVIRO_AUTOMATION. The servers append a line for each call to "calls.txt" there and read
// from "behaviour.txt" how to answer; without the file they answer as they should.
#pragma once

#include <windows.h>

#include <ole2.h>
#include <string>

namespace taviro::standin {

/// How a server answers: the first word of behaviour.txt, read anew at each call.
enum class Behaviour {
    Proper,
    Fail,   ///< "fail": speaking returns an error
    Throw,  ///< "throw": speaking raises an exception that tells about itself
    Gone,   ///< "gone": every call finds the server's process dead
    Block,  ///< "block N": speaking takes N milliseconds
};
struct Answering {
    Behaviour nKind = Behaviour::Proper;
    DWORD nMilliseconds = 0;
};
Answering ReadBehaviour();

/// Appends a line in UTF-8; line feeds, carriage returns and backslashes in it are escaped.
void Record(const std::wstring& strLine);

/// A value with its type, as in: i4 11, bstr "text", &bstr "by reference", bstr null.
std::wstring Described(const VARIANT& Value);

/// A call's arguments, described, in the order in which the caller wrote them.
std::wstring Described(const DISPPARAMS& Parameters);

/// "0x80004005"
std::wstring Hexadecimal(HRESULT nResult);

}  // namespace taviro::standin
