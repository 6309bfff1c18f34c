// SPDX-License-Identifier: MIT
#include "automation/win32/late_call.h"

#include <array>

namespace taviro::automation {

namespace {

using Arguments = CallArguments;

/// A member: how many arguments it takes, and what it does with them.
struct Member {
    UINT nArguments;
    CallOutcome (*pCall)(const GUI& Object, Arguments& Given);
};

/// Calls with results read all arguments first: nothing is done when one of them is wrong.
template <class Result, class Call>
CallOutcome WithResult(Arguments& Given, UINT nPosition, const Call& Made) {
    if (Given.IsFaulty()) return CallOutcome::Done;
    Result Value{};
    const CallOutcome nOutcome = Made(Value);
    Given.Return(nPosition, Value);
    return nOutcome;
}

template <class Call>
CallOutcome WithoutResult(const Arguments& Given, const Call& Made) {
    return Given.IsFaulty() ? CallOutcome::Done : Made();
}

CallOutcome ClickOnWindow(const GUI& Object, Arguments& Given) {
    const std::wstring strTitle = Given.Text(0);
    const std::wstring strChildName = Given.Text(1);
    return WithResult<int32_t>(Given, 2, [&](int32_t& nResult) {
        return Object.ClickOnWindow(strTitle, strChildName, nResult);
    });
}

CallOutcome FindWindowOf(const GUI& Object, Arguments& Given) {
    const std::wstring strTitle = Given.Text(0);
    const std::wstring strClass = Given.Text(1);
    return WithResult<int32_t>(Given, 2, [&](int32_t& hResult) {
        return Object.VBS_FindWindow(strTitle, strClass, hResult);
    });
}

CallOutcome GetTitle(const GUI& Object, Arguments& Given) {
    const int32_t hWindow = Given.Number(0);
    return WithResult<std::wstring>(
        Given, 1, [&](std::wstring& strResult) { return Object.VBS_GetTitle(hWindow, strResult); });
}

CallOutcome UpdateFrame(const GUI& Object, Arguments& Given) {
    const std::array<int32_t, 4> Edges{Given.Number(0), Given.Number(1), Given.Number(2),
                                       Given.Number(3)};
    return WithoutResult(
        Given, [&] { return Object.VBS_UpdateFrame(Edges[0], Edges[1], Edges[2], Edges[3]); });
}

CallOutcome GetChildNum(const GUI& Object, Arguments& Given) {
    const int32_t hWindow = Given.Number(0);
    return WithResult<int32_t>(
        Given, 1, [&](int32_t& nResult) { return Object.VBS_GetChildNum(hWindow, nResult); });
}

CallOutcome GetChild(const GUI& Object, Arguments& Given) {
    const int32_t hWindow = Given.Number(0);
    const std::wstring strName = Given.Text(1);
    return WithResult<int32_t>(
        Given, 2, [&](int32_t& hResult) { return Object.VBS_GetChild(hWindow, strName, hResult); });
}

CallOutcome KeyPress(const GUI& Object, Arguments& Given) {
    const int32_t nScanCode = Given.Number(0);
    const int32_t nModifier = Given.Number(1);
    return WithoutResult(Given, [&] { return Object.KeyPress(nScanCode, nModifier); });
}

/// By their numbers, counted from 1.
constexpr std::array<Member, 14> MEMBERS{{
    {0, [](const GUI& Object, Arguments&) { return Object.ShowDebugWin(); }},
    {0, [](const GUI& Object, Arguments&) { return Object.MinDebugWin(); }},
    {0, [](const GUI& Object, Arguments&) { return Object.HideDebugWin(); }},
    {1,
     [](const GUI& Object, Arguments& Given) {
         const std::wstring strText = Given.Text(0);
         return WithoutResult(Given, [&] { return Object.SetCaption(strText); });
     }},
    {1,
     [](const GUI& Object, Arguments& Given) {
         const std::wstring strText = Given.Text(0);
         return WithoutResult(Given, [&] { return Object.LogDebugWin(strText); });
     }},
    {3, ClickOnWindow},
    {3, FindWindowOf},
    {2, GetTitle},
    {1,
     [](const GUI& Object, Arguments& Given) {
         const int32_t hWindow = Given.Number(0);
         return WithoutResult(Given, [&] { return Object.VBS_UpdateWindow(hWindow); });
     }},
    {4, UpdateFrame},
    {2, GetChildNum},
    {3, GetChild},
    {2, KeyPress},
    {0, [](const GUI& Object, Arguments&) { return Object.Quit(); }},
}};

const HRESULT BUSY = HRESULT_FROM_WIN32(ERROR_BUSY);
const HRESULT ENDED = CO_E_SERVER_STOPPING;

}  // namespace

HRESULT ToResult(CallOutcome nOutcome) {
    switch (nOutcome) {
        case CallOutcome::Done:
            return S_OK;
        case CallOutcome::Busy:
            return BUSY;
        case CallOutcome::Ended:
            return ENDED;
    }
    return E_UNEXPECTED;
}

const wchar_t* Explanation(HRESULT nResult) {
    if (nResult == BUSY) return L"Taviro právě něco dělá, zkuste to za chvíli znovu.";
    if (nResult == ENDED) return L"Taviro končí.";
    return L"";
}

HRESULT CallMember(const GUI& Object, DISPID nMember, DISPPARAMS& Parameters, UINT& nFaulty) {
    if (nMember < 1 || static_cast<size_t>(nMember) > MEMBERS.size()) return DISP_E_MEMBERNOTFOUND;
    const Member& Called = MEMBERS[static_cast<size_t>(nMember) - 1];
    Arguments Given(Parameters, Called.nArguments);
    if (Given.IsFaulty()) return Given.Fault();
    const HRESULT nResult = ToResult(Called.pCall(Object, Given));
    nFaulty = Given.FaultyIndex();
    return Given.IsFaulty() ? Given.Fault() : nResult;
}

}  // namespace taviro::automation
