// SPDX-License-Identifier: MIT
// Offers the dictionary to the user's programs: one process for all of them, which starts when the
// system starts it for the first client and ends some seconds after the last one has let go.
#pragma once

namespace taviro::predictor {

/// Runs until no client is left; returns the process's exit code.
int Serve();

}  // namespace taviro::predictor
