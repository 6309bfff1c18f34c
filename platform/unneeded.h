// SPDX-License-Identifier: MIT
// For a result that is dropped on purpose; the line says why.
#pragma once

namespace taviro {

template <class Result>
constexpr void Unneeded(const Result& /*Dropped*/) noexcept {}

}  // namespace taviro
