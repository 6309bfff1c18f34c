// SPDX-License-Identifier: MIT
#include "platform/win32/visual_styles.h"

#include "platform/unneeded.h"
#include "platform/win32/failure.h"
#include "platform/win32/resource_ids.h"

namespace taviro::platform::win32 {

namespace {

/// Made by the first dialog, and kept for the windows that live by it.
struct ContextState {
    HANDLE hContext = INVALID_HANDLE_VALUE;
    bool bAsked = false;
};
ContextState Context;

HANDLE ContextOfDialogs() {
    if (Context.bAsked) return Context.hContext;
    Context.bAsked = true;
    wchar_t strProgram[MAX_PATH] = {};  // a name is wanted although the module is given
    Unneeded(GetModuleFileNameW(nullptr, strProgram, MAX_PATH));
    ACTCTXW Wanted{};
    Wanted.cbSize = sizeof(Wanted);
    Wanted.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
    Wanted.lpSource = strProgram;
    Wanted.lpResourceName = MAKEINTRESOURCEW(MANIFEST_OF_DIALOGS);
    Wanted.hModule = GetModuleHandleW(nullptr);
    Context.hContext = CreateActCtxW(&Wanted);
    OrReport(Context.hContext != INVALID_HANDLE_VALUE, "CreateActCtx");
    return Context.hContext;
}

}  // namespace

VisualStyles::VisualStyles() {
    const HANDLE hContext = ContextOfDialogs();
    m_bActive = hContext != INVALID_HANDLE_VALUE &&
                OrReport(ActivateActCtx(hContext, &m_nCookie) != FALSE, "ActivateActCtx");
}

VisualStyles::~VisualStyles() {
    if (m_bActive) OrReport(DeactivateActCtx(0, m_nCookie) != FALSE, "DeactivateActCtx");
}

}  // namespace taviro::platform::win32
