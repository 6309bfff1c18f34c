// SPDX-License-Identifier: MIT
// What the command line asks of the dictionary's server, and what its user reads about it. Unlike
// Taviro, whoever starts it by hand wants one of its orders: a word that it does not know is told.
#pragma once

#include <string>

#include "win32/com/registration.h"

namespace taviro::predictor {

using Scope = com::RegistrationScope;

enum class OrderKind {
    Explain,  ///< no word at all: the user gets to know what there is
    Serve,    ///< "-Embedding": the system starts the server because a client asks for it
    Register,
    Unregister,
    Forget,   ///< empties the learned words
    Unknown,  ///< anything else
};

struct Order {
    OrderKind nKind = OrderKind::Explain;
    Scope nScope = Scope::User;
    bool operator==(const Order&) const = default;
};

/// Reads the words behind the program's name: one of "/regserver", "/unregserver", both also with
/// ":machine", "/forget" or "/Embedding". "-" stands for "/", and the case does not count.
[[nodiscard]] Order ParseOrder(const std::wstring& strArguments);

/// The lines that name all orders, each ended by a line feed.
[[nodiscard]] std::wstring Usage();

/// What the user reads when the order failed for this reason.
[[nodiscard]] std::wstring FailureText(const Order& Failed, const std::wstring& strReason);

}  // namespace taviro::predictor
