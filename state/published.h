// SPDX-License-Identifier: MIT
// A value that the program's one thread sets and the keyboard hook's thread reads, or the other way
// round. Each reading and each setting is whole; nothing is said about two values together.
#pragma once

#include <atomic>

namespace taviro {

template <class T>
class Published {
  public:
    Published(T Value = T{}) : m_Value(Value) {}
    Published(const Published& Other) : m_Value(Other.m_Value.load()) {}
    Published& operator=(const Published& Other) { return *this = Other.m_Value.load(); }
    Published& operator=(T Value) {
        m_Value = Value;
        return *this;
    }
    ~Published() = default;
    operator T() const { return m_Value; }

  private:
    std::atomic<T> m_Value;
};

}  // namespace taviro
