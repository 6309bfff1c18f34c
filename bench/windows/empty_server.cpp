// SPDX-License-Identifier: MIT
// The yardstick for calls to the automation object: a server of the same interface whose methods do
// nothing, built the same way. Its class is the one that bench/gui_calls.py registers. It ends with
// its last client.
#include <windows.h>

#include <gui_interface.h>
#include <objbase.h>

#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

namespace {

constexpr CLSID CLASS_ID = {
    0x5e8f2a61, 0x0c47, 0x4bd3, {0x9a, 0x1e, 0x7d, 0x52, 0x36, 0xb4, 0xc8, 0x01}};

class EmptyObject final : public IGUI {
  public:
    EmptyObject() = default;
    EmptyObject(const EmptyObject&) = delete;
    EmptyObject& operator=(const EmptyObject&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID Wanted, void** ppFound) override {
        const bool bKnown = IsEqualIID(Wanted, __uuidof(IUnknown)) ||
                            IsEqualIID(Wanted, __uuidof(IDispatch)) ||
                            IsEqualIID(Wanted, __uuidof(IGUI));
        *ppFound = bKnown ? this : nullptr;
        if (bKnown) AddRef();
        return bKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override {
        return static_cast<ULONG>(InterlockedIncrement(&m_nReferences));
    }
    ULONG STDMETHODCALLTYPE Release() override {
        const LONG nLeft = InterlockedDecrement(&m_nReferences);
        if (nLeft == 0) PostQuitMessage(0);
        return static_cast<ULONG>(nLeft);
    }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* pCount) override { return *pCount = 0, S_OK; }
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) override {
        return DISP_E_UNKNOWNNAME;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID, REFIID, LCID, WORD, DISPPARAMS*, VARIANT*, EXCEPINFO*,
                                     UINT*) override {
        return DISP_E_MEMBERNOTFOUND;
    }
    HRESULT STDMETHODCALLTYPE ShowDebugWin() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE MinDebugWin() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE HideDebugWin() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE SetCaption(BSTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE LogDebugWin(BSTR) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE ClickOnWindow(BSTR, BSTR, LONG*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE VBS_FindWindow(BSTR, BSTR, LONG*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE VBS_GetTitle(LONG, BSTR*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE VBS_UpdateWindow(LONG) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE VBS_UpdateFrame(LONG, LONG, LONG, LONG) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE VBS_GetChildNum(LONG, LONG*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE VBS_GetChild(LONG, BSTR, LONG*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE KeyPress(LONG, LONG) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE Quit() override { return S_OK; }

  private:
    LONG m_nReferences = 0;
};

EmptyObject Object;

class Factory final : public IClassFactory {
  public:
    Factory() = default;
    Factory(const Factory&) = delete;
    Factory& operator=(const Factory&) = delete;

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID Wanted, void** ppFound) override {
        const bool bKnown =
            IsEqualIID(Wanted, __uuidof(IUnknown)) || IsEqualIID(Wanted, __uuidof(IClassFactory));
        *ppFound = bKnown ? this : nullptr;
        return bKnown ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE CreateInstance(IUnknown*, REFIID Wanted, void** ppMade) override {
        return Object.QueryInterface(Wanted, ppMade);
    }
    HRESULT STDMETHODCALLTYPE LockServer(BOOL) override { return S_OK; }
};

}  // namespace

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
    if (FAILED(CoInitialize(nullptr))) return 1;
    Factory Maker;
    DWORD nOffer = 0;
    if (FAILED(CoRegisterClassObject(CLASS_ID, &Maker, CLSCTX_LOCAL_SERVER, REGCLS_MULTIPLEUSE,
                                     &nOffer))) {
        return 1;
    }
    MSG Message{};
    while (GetMessageW(&Message, nullptr, 0, 0) > 0) {
        TranslateMessage(&Message);
        DispatchMessageW(&Message);
    }
    CoRevokeClassObject(nOffer);
    CoUninitialize();
    return 0;
}
