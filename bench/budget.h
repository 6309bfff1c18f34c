// SPDX-License-Identifier: MIT
// What a case may cost. The program fails when a budget is missed, and when its case did not run.
#pragma once

#include <initializer_list>
#include <string>
#include <vector>

namespace taviro::bench {

struct Budget {
    std::string strCase;
    double dYardsticks;        ///< what the cost is at most divided by Yardstick()
    std::string strCounter{};  ///< empty: the processor time of an iteration
};

/// All of them, in no order.
inline std::vector<Budget> Budgets;

/// A table of budgets beside the cases that it is about.
struct BudgetTable {
    BudgetTable(std::initializer_list<Budget> Rows) {
        Budgets.insert(Budgets.end(), Rows.begin(), Rows.end());
    }
};

}  // namespace taviro::bench
