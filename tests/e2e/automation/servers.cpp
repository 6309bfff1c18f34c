// SPDX-License-Identifier: MIT
#include "tests/e2e/automation/servers.h"

#include <windows.h>

#include <iterator>
#include <utility>

#include "tests/e2e/automation/transcript.h"
#include "win32/com/object.h"

namespace taviro::standin {

namespace {

// Asked of an object to tell ours from others; no interface of that id exists anywhere else.
constexpr IID IID_STANDIN = {
    0x5d0a1c67, 0x93e2, 0x4b7f, {0x8a, 0x11, 0x6e, 0x2f, 0xd4, 0x09, 0xc3, 0x70}};

LONG nObjects = 0;

/// A member: what it can be used for, and with how many arguments.
struct Member {
    const wchar_t* strName;
    WORD nKinds;
    UINT nLeast, nMost;
    bool bSpeaks;  ///< speaking is what fails, blocks or throws on request
};

HRESULT ReturnText(VARIANT* pResult, const wchar_t* strText) {
    if (pResult == nullptr) return S_OK;
    pResult->vt = VT_BSTR;
    pResult->bstrVal = SysAllocString(strText);
    return S_OK;
}

HRESULT ReturnNumber(VARIANT* pResult, LONG nNumber) {
    if (pResult == nullptr) return S_OK;
    pResult->vt = VT_I4;
    pResult->lVal = nNumber;
    return S_OK;
}

HRESULT ReturnObject(VARIANT* pResult, IDispatch* pObject) {
    if (pResult == nullptr) {
        pObject->Release();
        return S_OK;
    }
    pResult->vt = VT_DISPATCH;
    pResult->pdispVal = pObject;
    return S_OK;
}

void TellException(EXCEPINFO* pException) {
    if (pException == nullptr) return;
    *pException = {};
    pException->bstrSource = SysAllocString(L"stand-in");
    pException->bstrDescription = SysAllocString(L"no loudspeaker");
    pException->scode = E_UNEXPECTED;
}

/// What all the objects share: members found by name, each call recorded, failures on request.
class Object : public com::LateBoundObject<> {
  public:
    Object(std::wstring strName, std::span<const Member> Members)
        : LateBoundObject(1), m_strName(std::move(strName)), m_Members(Members) {
        InterlockedIncrement(&nObjects);
    }
    virtual ~Object() { InterlockedDecrement(&nObjects); }

    const std::wstring& Name() const { return m_strName; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID Wanted, void** ppFound) noexcept override {
        return LateBoundObject::QueryInterface(
            IsEqualIID(Wanted, IID_STANDIN) ? __uuidof(IDispatch) : Wanted, ppFound);
    }

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* pNames, UINT nCount, LCID,
                                            DISPID* pIds) noexcept override {
        if (ReadBehaviour().nKind == Behaviour::Gone) {
            Record(m_strName + L"." + pNames[0] + L" lost");
            return RPC_E_DISCONNECTED;
        }
        for (size_t i = 0; nCount == 1 && i < m_Members.size(); ++i) {
            if (lstrcmpiW(pNames[0], m_Members[i].strName) != 0) continue;
            pIds[0] = static_cast<DISPID>(i) + 1;
            return S_OK;
        }
        return DISP_E_UNKNOWNNAME;
    }

    HRESULT STDMETHODCALLTYPE Invoke(DISPID nId, REFIID, LCID, WORD nKind, DISPPARAMS* pParameters,
                                     VARIANT* pResult, EXCEPINFO* pException,
                                     UINT*) noexcept override {
        if (nId < 1 || static_cast<size_t>(nId) > m_Members.size()) return DISP_E_MEMBERNOTFOUND;
        const auto nIndex = static_cast<size_t>(nId) - 1;
        const HRESULT nAnswer = Answer(nIndex, nKind, *pParameters, pResult, pException);
        std::wstring strLine = CallText(m_Members[nIndex], nKind, *pParameters);
        if (FAILED(nAnswer)) strLine += L" failed " + Hexadecimal(nAnswer);
        Record(strLine);
        return nAnswer;
    }

  protected:
    /// Does what the member does.
    virtual HRESULT Do(size_t nMember, WORD nKind, const DISPPARAMS& Parameters,
                       VARIANT* pResult) = 0;

  private:
    static bool IsPut(WORD nKind) {
        return (nKind & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0;
    }

    std::wstring CallText(const Member& Called, WORD nKind, const DISPPARAMS& Parameters) const {
        const std::wstring strMember = m_strName + L"." + Called.strName;
        if (nKind == DISPATCH_PROPERTYPUT) return strMember + L" = " + Described(Parameters);
        if (nKind == DISPATCH_PROPERTYPUTREF) return strMember + L" = &" + Described(Parameters);
        if (nKind == DISPATCH_PROPERTYGET) return strMember;
        return strMember + L"(" + Described(Parameters) + L")";
    }

    HRESULT Answer(size_t nMember, WORD nKind, const DISPPARAMS& Parameters, VARIANT* pResult,
                   EXCEPINFO* pException) {
        const Member& Called = m_Members[nMember];
        if ((Called.nKinds & nKind) == 0) return DISP_E_MEMBERNOTFOUND;
        const bool bNamedValue =
            Parameters.cNamedArgs == 1 && Parameters.rgdispidNamedArgs[0] == DISPID_PROPERTYPUT;
        if (IsPut(nKind) && !bNamedValue) return DISP_E_PARAMNOTOPTIONAL;
        const UINT nValues = IsPut(nKind) ? 1 : 0;
        if (Parameters.cArgs < Called.nLeast + nValues ||
            Parameters.cArgs > Called.nMost + nValues) {
            return DISP_E_BADPARAMCOUNT;
        }
        const Answering Wanted = ReadBehaviour();
        if (Wanted.nKind == Behaviour::Gone) return RPC_E_DISCONNECTED;
        if (Called.bSpeaks && Wanted.nKind == Behaviour::Fail) return E_FAIL;
        if (Called.bSpeaks && Wanted.nKind == Behaviour::Throw) {
            TellException(pException);
            return DISP_E_EXCEPTION;
        }
        if (Called.bSpeaks && Wanted.nKind == Behaviour::Block) Sleep(Wanted.nMilliseconds);
        return Do(nMember, nKind, Parameters, pResult);
    }

    void OnLastRelease() noexcept override { delete this; }

    std::wstring m_strName;
    std::span<const Member> m_Members;
};

// The engine's own, then that of the system's newer store.
constexpr const wchar_t* VOICES[] = {L"Hlas první", L"Hlas druhý", L"Hlas třetí", L"Nový hlas"};
constexpr size_t OWN_VOICES = 3;

constexpr Member TOKEN_MEMBERS[] = {{L"GetDescription", DISPATCH_METHOD, 0, 1, false}};
class Token final : public Object {
  public:
    explicit Token(size_t nVoice)
        : Object(L"Voice" + std::to_wstring(nVoice), TOKEN_MEMBERS), m_nVoice(nVoice) {}

  protected:
    HRESULT Do(size_t, WORD, const DISPPARAMS&, VARIANT* pResult) override {
        return ReturnText(pResult, VOICES[m_nVoice]);
    }

  private:
    size_t m_nVoice;
};

constexpr Member VOICES_MEMBERS[] = {{L"Count", DISPATCH_PROPERTYGET, 0, 0, false},
                                     {L"Item", DISPATCH_METHOD, 1, 1, false}};
class VoiceList final : public Object {
  public:
    VoiceList(size_t nFirst, size_t nEnd)
        : Object(L"Voices", VOICES_MEMBERS), m_nFirst(nFirst), m_nCount(nEnd - nFirst) {}

  protected:
    HRESULT Do(size_t nMember, WORD, const DISPPARAMS& Parameters, VARIANT* pResult) override {
        if (nMember == 0) return ReturnNumber(pResult, static_cast<LONG>(m_nCount));
        const VARIANT& Index = Parameters.rgvarg[0];
        if (Index.vt != VT_I4) return DISP_E_TYPEMISMATCH;
        if (Index.lVal < 0 || static_cast<size_t>(Index.lVal) >= m_nCount) return E_INVALIDARG;
        return ReturnObject(pResult, new Token(m_nFirst + static_cast<size_t>(Index.lVal)));
    }

  private:
    size_t m_nFirst;
    size_t m_nCount;
};

constexpr Member CATEGORY_MEMBERS[] = {{L"SetId", DISPATCH_METHOD, 1, 2, false},
                                       {L"EnumerateTokens", DISPATCH_METHOD, 0, 2, false}};
class Category final : public Object {
  public:
    Category() : Object(L"SAPI.SpObjectTokenCategory", CATEGORY_MEMBERS) {}

  protected:
    HRESULT Do(size_t nMember, WORD, const DISPPARAMS&, VARIANT* pResult) override {
        if (nMember == 0) return S_OK;
        return ReturnObject(pResult, new VoiceList(OWN_VOICES, std::size(VOICES)));
    }
};

constexpr WORD GET_AND_PUT = DISPATCH_PROPERTYGET | DISPATCH_PROPERTYPUT;
constexpr Member ENGINE_MEMBERS[] = {
    {L"Speak", DISPATCH_METHOD, 1, 2, true},
    {L"GetVoices", DISPATCH_METHOD, 0, 2, false},
    {L"Voice", DISPATCH_PROPERTYGET | DISPATCH_PROPERTYPUTREF, 0, 0, false},
    {L"Rate", GET_AND_PUT, 0, 0, false},
    {L"Volume", GET_AND_PUT, 0, 0, false},
};
class Engine final : public Object {
  public:
    Engine() : Object(L"SAPI.SpVoice", ENGINE_MEMBERS), m_pVoice(new Token(0)) {}
    ~Engine() override { m_pVoice->Release(); }
    Engine(const Engine&) = delete;
    Engine& operator=(const Engine&) = delete;

  protected:
    HRESULT Do(size_t nMember, WORD nKind, const DISPPARAMS& Parameters,
               VARIANT* pResult) override {
        switch (nMember) {
            case 0:
                return ReturnNumber(pResult, ++m_nStream);
            case 1:
                return ReturnObject(pResult, new VoiceList(0, OWN_VOICES));
            case 2:
                return nKind == DISPATCH_PROPERTYGET ? GetVoice(pResult) : PutVoice(Parameters);
            default:
                return GetOrPut(nMember == 3 ? m_nRate : m_nVolume, nKind, Parameters, pResult);
        }
    }

  private:
    HRESULT GetVoice(VARIANT* pResult) {
        m_pVoice->AddRef();
        return ReturnObject(pResult, m_pVoice);
    }
    HRESULT PutVoice(const DISPPARAMS& Parameters) {
        const VARIANT& Value = Parameters.rgvarg[0];
        if (Value.vt != VT_DISPATCH || Value.pdispVal == nullptr) return DISP_E_TYPEMISMATCH;
        Value.pdispVal->AddRef();
        m_pVoice->Release();
        m_pVoice = Value.pdispVal;
        return S_OK;
    }
    static HRESULT GetOrPut(LONG& nNumber, WORD nKind, const DISPPARAMS& Parameters,
                            VARIANT* pResult) {
        if (nKind == DISPATCH_PROPERTYGET) return ReturnNumber(pResult, nNumber);
        if (Parameters.rgvarg[0].vt != VT_I4) return DISP_E_TYPEMISMATCH;
        nNumber = Parameters.rgvarg[0].lVal;
        return S_OK;
    }

    LONG m_nStream = 0;
    LONG m_nRate = 0;
    LONG m_nVolume = 100;
    IDispatch* m_pVoice;
};

/// A server whose methods return nothing; that they were called is all there is to see.
class Silent final : public Object {
  public:
    using Object::Object;

  protected:
    HRESULT Do(size_t, WORD, const DISPPARAMS&, VARIANT*) override { return S_OK; }
};

constexpr Member READER_MEMBERS[] = {
    {L"Sayit", DISPATCH_METHOD, 1, 1, true},      {L"WaitAndSayIt", DISPATCH_METHOD, 1, 1, true},
    {L"SetPitch", DISPATCH_METHOD, 1, 1, false},  {L"SetTempo", DISPATCH_METHOD, 1, 1, false},
    {L"SetVolume", DISPATCH_METHOD, 1, 1, false},
};
constexpr Member RELAY_MEMBERS[] = {{L"Voice", DISPATCH_METHOD, 3, 3, false}};

// The identifiers are those that automation.py registers.
constexpr ServerClass CLASSES[] = {
    {{0x6b1f2a30, 0x52c4, 0x4d0e, {0x9c, 0x37, 0x2f, 0x8e, 0x10, 0x5a, 0x7d, 0x01}},
     []() -> IDispatch* { return new Engine; }},
    {{0x6b1f2a30, 0x52c4, 0x4d0e, {0x9c, 0x37, 0x2f, 0x8e, 0x10, 0x5a, 0x7d, 0x02}},
     []() -> IDispatch* { return new Silent(L"Parlex.app", READER_MEMBERS); }},
    {{0x6b1f2a30, 0x52c4, 0x4d0e, {0x9c, 0x37, 0x2f, 0x8e, 0x10, 0x5a, 0x7d, 0x03}},
     []() -> IDispatch* { return new Silent(L"Relayer.Voice", RELAY_MEMBERS); }},
    {{0x6b1f2a30, 0x52c4, 0x4d0e, {0x9c, 0x37, 0x2f, 0x8e, 0x10, 0x5a, 0x7d, 0x04}},
     []() -> IDispatch* { return new Category; }},
};

}  // namespace

std::span<const ServerClass> ServerClasses() {
    return CLASSES;
}

LONG ObjectCount() {
    return nObjects;
}

std::wstring NameOf(IDispatch* pObject) {
    void* pFound = nullptr;
    if (FAILED(pObject->QueryInterface(IID_STANDIN, &pFound))) return L"foreign";
    auto* pOurs = static_cast<Object*>(pFound);
    const std::wstring strName = pOurs->Name();
    pOurs->Release();
    return strName;
}

}  // namespace taviro::standin
