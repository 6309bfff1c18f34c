// SPDX-License-Identifier: MIT
#include "forms/control.h"

#include <algorithm>
#include <utility>

#include "forms/form.h"

namespace taviro::forms {

Control::Control(Form& Parent, std::wstring strControlName, int32_t nControlId)
    : strName(std::move(strControlName)), nId(nControlId), m_Parent(Parent) {
    Parent.Add(*this);
}

void Control::Changed(Aspect nAspect) {
    m_Parent.ShowChange(*this, nAspect);
    RunHandler(nAspect);
}

void Label::Press(MouseButton nButton) {
    m_nPressed |= static_cast<uint32_t>(nButton);
}

void Label::Release(MouseButton nButton) {
    const auto nBit = static_cast<uint32_t>(nButton);
    const bool bPressedHere = (m_nPressed & nBit) != 0;
    m_nPressed &= ~nBit;
    if (bPressedHere && Enabled && OnMouseUp) OnMouseUp(nButton);
}

void TextBox::RunHandler(Aspect nAspect) {
    if (nAspect == Aspect::Text && OnChange) OnChange();
}

std::optional<std::wstring> TextBox::Insertion(size_t nFrom, size_t nTo,
                                               const std::wstring& strInserted) const {
    if (!Admit) return strInserted;
    const std::wstring& strText = Text;
    const std::wstring strBefore = strText.substr(0, std::min(nFrom, strText.size()));
    const std::wstring strBehind = strText.substr(std::min(nTo, strText.size()));
    const std::wstring strWhole = strBefore + strInserted + strBehind;
    const std::wstring strHeld = Admit(strWhole);
    const size_t nAround = strBefore.size() + strBehind.size();
    if (strHeld.size() >= nAround && strHeld.starts_with(strBefore) &&
        strHeld.ends_with(strBehind)) {
        return strHeld.substr(strBefore.size(), strHeld.size() - nAround);
    }
    // There is no room: the end of the text is not pushed out for it.
    if (strWhole.starts_with(strHeld)) return std::wstring{};
    return std::nullopt;
}

void TextBox::Receive(std::wstring strWritten) {
    m_Received.push_back(std::move(strWritten));
    if (m_bReceiving) return;
    struct Receiving {
        explicit Receiving(bool& bOn) : bReceiving(bOn) { bReceiving = true; }
        Receiving(const Receiving&) = delete;
        Receiving& operator=(const Receiving&) = delete;
        ~Receiving() { bReceiving = false; }
        bool& bReceiving;
    };
    const Receiving Mark(m_bReceiving);  // a handler may throw
    while (!m_Received.empty()) {
        const std::wstring strNext = std::move(m_Received.front());
        m_Received.pop_front();
        Text = strNext;
    }
}

void TextBox::Type(const std::wstring& strEntered) {
    Text = Admit ? Admit(strEntered) : strEntered;
}

void ListBox::Clear() {
    Items = std::vector<std::wstring>{};
    ListIndex = -1;
}

void ListBox::AddItem(const std::wstring& strItem) {
    auto Longer = Items.Get();
    Longer.push_back(strItem);
    Items = Longer;
}

int32_t ListBox::ListCount() const {
    return static_cast<int32_t>(Items.Get().size());
}

std::wstring ListBox::ItemText(int32_t nIndex) const {
    if (nIndex < 0 || nIndex >= ListCount()) return {};
    return Items.Get()[static_cast<size_t>(nIndex)];
}

bool ListBox::Select(int32_t nIndex) {
    const bool bInside = nIndex >= 0 && nIndex < ListCount();
    ListIndex = bInside ? nIndex : -1;
    return bInside;
}

bool ListBox::SelectText(const std::wstring& strItem) {
    int32_t nIndex = ListCount() - 1;
    while (nIndex >= 0 && ItemText(nIndex) != strItem)
        --nIndex;
    return Select(nIndex);
}

void ListBox::RunHandler(Aspect nAspect) {
    if (nAspect == Aspect::Selection && ListIndex >= 0 && OnClick) OnClick();
}

Timer::Timer(Form& Parent, std::wstring strControlName, int32_t nInterval)
    : Control(Parent, std::move(strControlName)) {
    Enabled = false;
    Interval = nInterval;
}

void Timer::Tick() {
    if (m_bRunning || !IsTicking() || !OnTimer) return;
    // However the handler ends, the timer ticks again.
    struct Running {
        explicit Running(bool& bFlag) : m_bFlag(bFlag) { m_bFlag = true; }
        ~Running() { m_bFlag = false; }
        bool& m_bFlag;
    } const Now(m_bRunning);
    OnTimer();
}

MenuEntry::MenuEntry(Form& Parent, std::wstring strControlName, const std::wstring& strCaption)
    : Control(Parent, std::move(strControlName)) {
    Caption = strCaption;
}

void MenuEntry::Click() {
    if (Enabled && OnClick) OnClick();
}

}  // namespace taviro::forms
