// SPDX-License-Identifier: MIT
// An observable property of a control: reads like a variable, tells its control when it really
// changes.
#pragma once

#include <utility>

namespace taviro::forms {

/// What about a control changed, as its view needs to know it.
enum class Aspect {
    Text,
    Geometry,
    Look,
    Visibility,
    Enabled,
    Items,
    Selection,
    Timing,
    Checked,
    State,
    Unloaded,  ///< a form that was hidden already is gone
};

class Control;

/// A value of a control. Assigning an equal value changes and reports nothing.
template <class T>
class Property {
  public:
    Property(Control& Owner, Aspect nAspect, T Initial = T{})
        : m_Owner(Owner), m_nAspect(nAspect), m_Value(std::move(Initial)) {}
    Property(const Property&) = delete;
    Property& operator=(const Property&) = delete;
    ~Property() = default;

    Property& operator=(const T& Value) {
        if (Value == m_Value) return *this;
        m_Value = Value;
        Report();
        return *this;
    }
    operator const T&() const { return m_Value; }
    const T& Get() const { return m_Value; }

  private:
    void Report();

    Control& m_Owner;
    Aspect m_nAspect;
    T m_Value;
};

}  // namespace taviro::forms
