// SPDX-License-Identifier: MIT
// The controls of a form as data with behaviour, without a window: a property set by code reports
// to the form's view and runs the same handlers as a user's act. Positions and sizes are pixels
// within the form.
#pragma once

#include <cstdint>
#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "forms/property.h"

namespace taviro::forms {

class Form;

/// What a control is. A view that tells controls apart does so by a switch over all of these, so
/// that the compiler finds the one that forgets a new kind.
enum class ControlKind {
    Form,  ///< the form's own control
    Label,
    TextBox,
    ListBox,
    Timer,
    MenuEntry,
    // Only dialogs have these.
    CheckBox,
    OptionGroup,
    ComboBox,
    ScrollBar,
    Button,
    GroupFrame,
};

/// What every control has.
class Control {
  public:
    /// nControlId is the control's number in its dialog's layout; 0 for controls without one.
    Control(Form& Parent, std::wstring strControlName, int32_t nControlId = 0);
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    virtual ~Control() = default;

    /// The class of the object: a control of this kind can be cast to the class of that name.
    [[nodiscard]] virtual ControlKind Kind() const = 0;

    const std::wstring strName;
    const int32_t nId;
    Property<int32_t> Left{*this, Aspect::Geometry};
    Property<int32_t> Top{*this, Aspect::Geometry};
    Property<int32_t> Width{*this, Aspect::Geometry};
    Property<int32_t> Height{*this, Aspect::Geometry};
    Property<bool> Visible{*this, Aspect::Visibility, true};
    Property<bool> Enabled{*this, Aspect::Enabled, true};

    /// Called by the properties: runs the control's own handlers, then tells the form's view.
    void Changed(Aspect nAspect);

  protected:
    /// Runs the handler that this change stands for, if any.
    virtual void RunHandler(Aspect /*nAspect*/) {}

  private:
    Form& m_Parent;
};

template <class T>
void Property<T>::Report() {
    m_Owner.Changed(m_nAspect);
}

/// The font of a label. Sizes are points.
struct Font {
    std::wstring strName = L"MS Sans Serif";
    int32_t nSize = 8;
    bool bBold = false;
    bool bItalic = false;
    bool bUnderline = false;
    bool bStrikeOut = false;
    bool operator==(const Font&) const = default;
};

enum class Alignment { Left, Centre };

inline constexpr uint32_t COLOUR_BLACK = 0x000000;
inline constexpr uint32_t COLOUR_WHITE = 0xFFFFFF;
inline constexpr uint32_t COLOUR_SYSTEM = 0xFFFFFFFF;  ///< the system's colour for the purpose

/// A mouse button, by the numbers that its handlers get; each has a bit of its own.
enum class MouseButton : int32_t { Left = 1, Right = 2 };

/// A text that the user cannot change.
class Label : public Control {
  public:
    using Control::Control;
    [[nodiscard]] ControlKind Kind() const override { return ControlKind::Label; }
    Property<std::wstring> Caption{*this, Aspect::Text};
    Property<uint32_t> BackColour{*this, Aspect::Look, COLOUR_SYSTEM};  ///< 0xBBGGRR
    Property<uint32_t> TextColour{*this, Aspect::Look, COLOUR_SYSTEM};
    Property<Alignment> TextAlignment{*this, Aspect::Look, Alignment::Left};
    Property<Font> TextFont{*this, Aspect::Look};
    std::function<void(MouseButton)> OnMouseUp;  ///< a button was released over the label

    /// The user pressed or released a button over the label. A release runs the handler when the
    /// button was pressed there, while the label is enabled; the end of a press made elsewhere, as
    /// that of a menu's, is no click.
    void Press(MouseButton nButton);
    void Release(MouseButton nButton);
    /// The pointer is over the label with no button down: what was pressed was released elsewhere.
    void ForgetPress() { m_nPressed = 0; }

  private:
    uint32_t m_nPressed = 0;  // a bit for each button, by its number
};

/// A text that the user, or another program, can change.
class TextBox : public Control {
  public:
    using Control::Control;
    [[nodiscard]] ControlKind Kind() const override { return ControlKind::TextBox; }
    Property<std::wstring> Text{*this, Aspect::Text};
    std::function<void()> OnChange;
    std::function<void()> OnGotFocus;
    std::function<void()> OnLostFocus;
    /// What becomes of a text that the user enters, where not every text is allowed.
    std::function<std::wstring(const std::wstring&)> Admit;

    /// What the user's insertion in place of the characters from nFrom on and before nTo puts
    /// there: less than it, or something else, where not all of it is admitted. Nothing when the
    /// insertion would change the rest of the text as well.
    [[nodiscard]] std::optional<std::wstring> Insertion(size_t nFrom, size_t nTo,
                                                        const std::wstring& strInserted) const;

    /// Another program put this text in place of the text. Texts that come while the handler of an
    /// earlier one still runs wait for its end, so each of them is handled, in order.
    void Receive(std::wstring strWritten);

    /// The user changed the whole text to this one; what is not admitted does not get in.
    void Type(const std::wstring& strEntered);

  protected:
    void RunHandler(Aspect nAspect) override;

  private:
    std::deque<std::wstring> m_Received;
    bool m_bReceiving = false;
};

/// A list of which one entry can be selected; -1 is no selection.
class ListBox : public Control {
  public:
    using Control::Control;
    [[nodiscard]] ControlKind Kind() const override { return ControlKind::ListBox; }
    Property<std::vector<std::wstring>> Items{*this, Aspect::Items};
    Property<int32_t> ListIndex{*this, Aspect::Selection, -1};
    std::function<void()> OnClick;
    std::function<void()> OnDblClick;

    void Clear();
    void AddItem(const std::wstring& strItem);
    int32_t ListCount() const;
    /// Selects an entry; a position outside the list selects nothing and gives false.
    bool Select(int32_t nIndex);
    /// Selects the last entry of this very text; without one nothing is selected. Gives whether.
    bool SelectText(const std::wstring& strItem);
    /// The selected entry's text, empty without a selection.
    std::wstring SelectedText() const { return ItemText(ListIndex); }
    /// Text of an entry, empty when the position is outside the list.
    std::wstring ItemText(int32_t nIndex) const;

  protected:
    void RunHandler(Aspect nAspect) override;
};

/// A timer. While enabled it ticks every Interval milliseconds, counted from the end of the last
/// tick's handler; an interval of 0 never ticks.
class Timer : public Control {
  public:
    Timer(Form& Parent, std::wstring strControlName, int32_t nInterval);
    [[nodiscard]] ControlKind Kind() const override { return ControlKind::Timer; }
    Property<int32_t> Interval{*this, Aspect::Timing};
    std::function<void()> OnTimer;

    bool IsTicking() const { return Enabled && Interval > 0; }
    bool IsRunning() const { return m_bRunning; }
    /// One tick, called by the platform. Does nothing while a tick of this timer still runs: a wait
    /// inside a handler may let messages through, and must not run the handler a second time.
    void Tick();

  private:
    bool m_bRunning = false;
};

/// An entry of the menu bar or of one of its menus. "&" before a letter marks its mnemonic.
class MenuEntry : public Control {
  public:
    MenuEntry(Form& Parent, std::wstring strControlName, const std::wstring& strCaption);
    [[nodiscard]] ControlKind Kind() const override { return ControlKind::MenuEntry; }
    Property<std::wstring> Caption{*this, Aspect::Text};
    Property<bool> Checked{*this, Aspect::Checked};
    std::vector<MenuEntry*> Entries;  ///< a group's entries, in their order
    std::function<void()> OnClick;

    /// What a user's choice does; nothing while disabled.
    void Click();
};

}  // namespace taviro::forms
