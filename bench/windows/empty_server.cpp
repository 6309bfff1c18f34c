// SPDX-License-Identifier: MIT
// The yardstick for calls to the automation object: a server of the same interface whose methods do
// nothing, built the same way. Its class is the one that bench/gui_calls.py registers. It ends with
// its last client.
#include <windows.h>

#include <gui_interface.h>
#include <objbase.h>

#include "tests/e2e/windows/plain_window.h"
#include "win32/com/class_factory.h"
#include "win32/com/object.h"

namespace {

namespace com = taviro::com;

constexpr CLSID CLASS_ID = {
    0x5e8f2a61, 0x0c47, 0x4bd3, {0x9a, 0x1e, 0x7d, 0x52, 0x36, 0xb4, 0xc8, 0x01}};

class EmptyObject final : public com::LateBoundObject<IGUI, IDispatch> {
  public:
    EmptyObject() : LateBoundObject(0) {}

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID,
                                            DISPID*) noexcept override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) noexcept override {
        return DISP_E_MEMBERNOTFOUND;
    }
    HRESULT STDMETHODCALLTYPE ShowDebugWin() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE MinDebugWin() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE HideDebugWin() noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE SetCaption(BSTR) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE LogDebugWin(BSTR) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ClickOnWindow(BSTR, BSTR, LONG*) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE VBS_FindWindow(BSTR, BSTR, LONG*) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE VBS_GetTitle(LONG, BSTR*) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE VBS_UpdateWindow(LONG) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE VBS_UpdateFrame(LONG, LONG, LONG, LONG) noexcept override {
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE VBS_GetChildNum(LONG, LONG*) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE VBS_GetChild(LONG, BSTR, LONG*) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE KeyPress(LONG, LONG) noexcept override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Quit() noexcept override { return S_OK; }

  private:
    void OnLastRelease() noexcept override { PostQuitMessage(0); }
};

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    if (FAILED(CoInitialize(nullptr))) return 1;
    EmptyObject Object;
    com::ClassFactory Factory(
        [&](REFIID Wanted, void** ppMade) { return Object.QueryInterface(Wanted, ppMade); });
    if (FAILED(Factory.Offer(CLASS_ID))) return 1;
    taviro::tests::RunMessages();
    Factory.Withdraw();
    CoUninitialize();
    return 0;
}
