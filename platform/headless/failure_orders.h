// SPDX-License-Identifier: MIT
// Which calls of the virtual desktop are to fail. Every procedure of the contracts that can fail
// asks here, by its own name, before it does anything: a test lets any one of them fail, and
// nothing else.
#pragma once

#include <cstddef>
#include <limits>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace taviro::platform::headless {

inline constexpr size_t ALL_CALLS = std::numeric_limits<size_t>::max();

/// What a test orders.
struct FailureOrder {
    std::string strCall{};      ///< the procedure's name; empty: any procedure
    std::wstring strSubject{};  ///< only calls about this path, class, member or timer; empty: any
    size_t nFrom = 1;           ///< the first that fails, counted from the order on: 1 is the next
    size_t nCount = 1;          ///< how many fail from there on
    size_t nDone = 0;           ///< how much is done all the same, where a part can be: records
    bool bPowerCut = false;     ///< the power goes instead: PowerCut is thrown
};

/// Thrown at the call that an order with bPowerCut names.
struct PowerCut {};

/// Every procedure that can fail, and "SetTimer" and "CreateDialog", which stand for what the
/// system refuses to a form's timer and to a dialog's window.
std::span<const std::string_view> FallibleCalls();

class FailureOrders {
  public:
    /// Throws std::invalid_argument for a name that no fallible call has: a misspelt order would
    /// never be carried out.
    void Add(FailureOrder New);
    /// The next call fails, or the next nCount.
    void Next(std::string_view strCall, size_t nCount = 1);
    /// Every call fails, or every one about the subject.
    void Always(std::string_view strCall, std::wstring_view strSubject = {});
    /// Nothing fails any more.
    void Clear();

    /// How many calls have asked so far.
    size_t Asked() const { return m_nAsked; }

    /// For the desktop: counts the call and tells whether it fails. nDone, where it is given, is
    /// set to how much is done all the same.
    bool Fails(std::string_view strCall, std::wstring_view strSubject, size_t* pDone = nullptr);

  private:
    struct Standing {
        FailureOrder Order;
        size_t nMatched = 0;  ///< calls since the order that it is about
    };
    std::vector<Standing> m_Orders;
    size_t m_nAsked = 0;
};

}  // namespace taviro::platform::headless
