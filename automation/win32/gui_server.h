// SPDX-License-Identifier: MIT
// Offers the automation object to the user's other programs while this one runs.
#pragma once

namespace taviro::automation {

/// To be called before any object of another program is used, and only by the one instance that
/// runs: the system sends every client to it. Returns false when the system refuses; the program
/// goes without scripts then.
bool OpenGuiServer();

/// Withdraws the offer and cuts off the clients, once the answers to their last calls had time to
/// leave. Nothing happens when nothing was offered.
void CloseGuiServer();

}  // namespace taviro::automation
