// SPDX-License-Identifier: MIT
// The dictionary's object, called as late-bound clients call it: every form of the argument, names,
// wrong calls, and how long the server is held.
#include "predictor/win32/dictionary_object.h"

#include <windows.h>

#include <array>
#include <fstream>
#include <gtest/gtest.h>
#include <oleauto.h>

#include "predictor/model_build.h"
#include "predictor/win32/prefix_argument.h"
#include "tests/win32/test_support.h"
#include "win32/com/owners.h"

namespace taviro::predictor {
namespace {

constexpr DISPID GET_PREDICTION = 1;
constexpr VARTYPE TEXT_REFERENCE = VT_BYREF | VT_BSTR;
constexpr VARTYPE VARIANT_REFERENCE = VT_BYREF | VT_VARIANT;

using com::TextOf;

BSTR NewText(const std::wstring& strText) {
    return com::NewText(strText).release();
}

VARIANT TextVariant(const std::wstring& strText) {
    VARIANT Text{};
    Text.vt = VT_BSTR;
    Text.bstrVal = NewText(strText);
    return Text;
}

VARIANT ReferenceTo(VARIANT& Target) {
    VARIANT Reference{};
    Reference.vt = VARIANT_REFERENCE;
    Reference.pvarVal = &Target;
    return Reference;
}

VARIANT ReferenceTo(BSTR& strTarget) {
    VARIANT Reference{};
    Reference.vt = TEXT_REFERENCE;
    Reference.pbstrVal = &strTarget;
    return Reference;
}

class DictionaryObjectTest : public ::testing::Test {
  protected:
    DictionaryObjectTest() {
        Tables From;
        From.Words = {{L"dobře", -1}, {L"dobrý", -1.2}, {L"den", -0.8}, {L"druhý", -1.5}};
        std::string strError;
        const std::string Bytes = BuildModel(From, strError);
        const ServiceFiles Files{.Dictionary = m_Folder / L"words.dict",
                                 .Options = m_Folder / L"presager.ini",
                                 .Learned = m_Folder / L"learned.txt"};
        std::ofstream(Files.Dictionary, std::ios::binary) << Bytes;
        EXPECT_TRUE(m_Shared.Open(Files, L"").empty()) << strError;
        m_pObject = new DictionaryObject(m_Shared, m_Server);
    }
    ~DictionaryObjectTest() override {
        if (m_pObject != nullptr) m_pObject->Release();
        EXPECT_FALSE(m_Server.IsHeld());
    }

    HRESULT Invoke(DISPPARAMS& Parameters, WORD nKind = DISPATCH_METHOD,
                   DISPID nMember = GET_PREDICTION) {
        VARIANT Result{};
        m_nFaulty = 99;
        const HRESULT nResult = m_pObject->Invoke(nMember, IID_NULL, 0, nKind, &Parameters, &Result,
                                                  nullptr, &m_nFaulty);
        m_strList = Result.vt == VT_BSTR ? TextOf(Result.bstrVal) : L"(none)";
        VariantClear(&Result);
        return nResult;
    }
    /// Asks with one argument.
    HRESULT Ask(VARIANT& Given, WORD nKind = DISPATCH_METHOD) {
        DISPPARAMS Parameters{&Given, nullptr, 1, 0};
        return Invoke(Parameters, nKind);
    }

    tests::TestFolder m_Folder;
    Service m_Shared;
    Lifetime m_Server;
    DictionaryObject* m_pObject = nullptr;
    std::wstring m_strList;
    UINT m_nFaulty = 0;
};

TEST_F(DictionaryObjectTest, Text_IsTakenByValueAndByReference_AndCorrectedWhereItCameFrom) {
    const std::wstring strTyped = L"x\bdobr";
    VARIANT Value = TextVariant(strTyped);
    EXPECT_EQ(Ask(Value), S_OK);
    EXPECT_NE(m_strList.find(L";dobrý"), std::wstring::npos);
    EXPECT_EQ(TextOf(Value.bstrVal), strTyped) << "by value there is no way back";
    VariantClear(&Value);

    BSTR strText = NewText(strTyped);
    VARIANT ToText = ReferenceTo(strText);
    EXPECT_EQ(Ask(ToText), S_OK);
    EXPECT_EQ(TextOf(strText), L"dobr");

    VARIANT Held = TextVariant(strTyped);
    VARIANT ToHeld = ReferenceTo(Held);
    EXPECT_EQ(Ask(ToHeld), S_OK);
    EXPECT_EQ(Held.vt, VT_BSTR);
    EXPECT_EQ(TextOf(Held.bstrVal), L"dobr");

    SysReAllocStringLen(&strText, strTyped.data(), static_cast<UINT>(strTyped.size()));
    VARIANT ToVariantToText = ReferenceTo(ToText);
    EXPECT_EQ(Ask(ToVariantToText), S_OK);
    EXPECT_EQ(TextOf(strText), L"dobr");
    EXPECT_EQ(ToText.vt, TEXT_REFERENCE);

    SysReAllocStringLen(&Held.bstrVal, strTyped.data(), static_cast<UINT>(strTyped.size()));
    VARIANT ToVariantToHeld = ReferenceTo(ToHeld);
    EXPECT_EQ(Ask(ToVariantToHeld), S_OK);
    EXPECT_EQ(TextOf(Held.bstrVal), L"dobr");

    BSTR strSame = strText;
    EXPECT_EQ(Ask(ToText), S_OK);
    EXPECT_EQ(strText, strSame) << "an unchanged text is left alone";
    SysFreeString(strText);
    VariantClear(&Held);
}

TEST_F(DictionaryObjectTest, UnknownLetters_ComeThroughInBothDirections) {
    const std::wstring strTyped(L"x\b\0obr", 6);
    BSTR strText = NewText(strTyped);
    VARIANT Given = ReferenceTo(strText);
    EXPECT_EQ(Ask(Given), S_OK);
    EXPECT_NE(m_strList.find(L";Dobrý"), std::wstring::npos) << "taken for a capital";
    EXPECT_EQ(TextOf(strText), std::wstring(L"\0obr", 4));
    SysFreeString(strText);
}

TEST_F(DictionaryObjectTest, NothingAndNumbers_AreTextsToo) {
    VARIANT Given{};
    BSTR strNull = nullptr;
    const VARIANT ToNull = ReferenceTo(strNull);
    VARIANT Empty{};
    const std::array<VARIANT, 5> Nothings = [&] {
        std::array<VARIANT, 5> All{};
        All[1].vt = VT_NULL;
        All[2].vt = VT_BSTR;  // a null text
        All[3] = ToNull;
        All[4] = ReferenceTo(Empty);
        return All;
    }();
    for (VARIANT Nothing : Nothings) {
        EXPECT_EQ(Ask(Nothing), S_OK) << Nothing.vt;
        EXPECT_EQ(m_strList, L"") << Nothing.vt;
    }
    EXPECT_EQ(strNull, nullptr);
    EXPECT_EQ(Empty.vt, VT_EMPTY);

    Given.vt = VT_I4;
    Given.lVal = -12;
    std::wstring strPrefix;
    EXPECT_EQ(ReadPrefix(Given, strPrefix), S_OK);
    EXPECT_EQ(strPrefix, L"-12");
    double dNumber = 3;
    Given.vt = VT_BYREF | VT_R8;
    Given.pdblVal = &dNumber;
    EXPECT_EQ(ReadPrefix(Given, strPrefix), S_OK);
    EXPECT_EQ(strPrefix, L"3");
    EXPECT_EQ(WritePrefix(Given, L"x"), S_OK);
    EXPECT_EQ(dNumber, 3) << "takes no text";
    Given.vt = VT_BOOL;
    Given.boolVal = VARIANT_TRUE;
    EXPECT_EQ(ReadPrefix(Given, strPrefix), S_OK);
    EXPECT_EQ(Ask(Given), S_OK);
}

TEST_F(DictionaryObjectTest, WrongKinds_AreRefused) {
    VARIANT Object{};
    Object.vt = VT_DISPATCH;
    Object.pdispVal = m_pObject;
    VARIANT Array{};
    Array.vt = VT_ARRAY | VT_BSTR;
    VARIANT Error{};
    Error.vt = VT_ERROR;
    Error.scode = E_FAIL;
    VARIANT Nowhere{};
    Nowhere.vt = VARIANT_REFERENCE;
    VARIANT NoText{};
    NoText.vt = TEXT_REFERENCE;
    VARIANT NoNumber{};
    NoNumber.vt = VT_BYREF | VT_I4;
    VARIANT Circle{};
    Circle.vt = VARIANT_REFERENCE;
    Circle.pvarVal = &Circle;
    for (VARIANT* pGiven : {&Object, &Array, &Error, &Nowhere, &NoText, &NoNumber, &Circle}) {
        EXPECT_EQ(Ask(*pGiven), DISP_E_TYPEMISMATCH) << pGiven->vt;
        EXPECT_EQ(m_nFaulty, 0U);
        EXPECT_EQ(m_strList, L"(none)");
    }
    VARIANT Missing{};
    Missing.vt = VT_ERROR;
    Missing.scode = DISP_E_PARAMNOTFOUND;
    EXPECT_EQ(Ask(Missing), DISP_E_PARAMNOTOPTIONAL);
}

TEST_F(DictionaryObjectTest, NamesAndKindsOfCalls_AreThoseOfScripts) {
    std::array<wchar_t, 16> Method{L"getPREDICTION"};
    std::array<wchar_t, 16> Argument{L"Prefix"};
    std::array<wchar_t, 16> Wrong{L"Predict"};
    std::array<LPOLESTR, 2> Names{Method.data(), Argument.data()};
    std::array<DISPID, 2> Ids{};
    EXPECT_EQ(m_pObject->GetIDsOfNames(IID_NULL, Names.data(), 2, 0, Ids.data()), S_OK);
    EXPECT_EQ(Ids, (std::array<DISPID, 2>{GET_PREDICTION, 0}));
    Names[1] = Wrong.data();
    EXPECT_EQ(m_pObject->GetIDsOfNames(IID_NULL, Names.data(), 2, 0, Ids.data()),
              DISP_E_UNKNOWNNAME);
    EXPECT_EQ(Ids, (std::array<DISPID, 2>{GET_PREDICTION, DISPID_UNKNOWN}));
    Names[0] = Wrong.data();
    EXPECT_EQ(m_pObject->GetIDsOfNames(IID_NULL, Names.data(), 1, 0, Ids.data()),
              DISP_E_UNKNOWNNAME);

    VARIANT Given = TextVariant(L"dobr");
    constexpr WORD BOTH = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
    for (const WORD nKind : {WORD{DISPATCH_METHOD}, WORD{DISPATCH_PROPERTYGET}, BOTH}) {
        EXPECT_EQ(Ask(Given, nKind), S_OK) << nKind;
    }
    EXPECT_EQ(Ask(Given, DISPATCH_PROPERTYPUT), DISP_E_MEMBERNOTFOUND);
    DISPID nPrefix = 0;
    DISPPARAMS Named{&Given, &nPrefix, 1, 1};
    EXPECT_EQ(Invoke(Named), S_OK);
    nPrefix = 7;
    EXPECT_EQ(Invoke(Named), DISP_E_PARAMNOTFOUND);
    DISPPARAMS Plain{&Given, nullptr, 1, 0};
    EXPECT_EQ(Invoke(Plain, DISPATCH_METHOD, 2), DISP_E_MEMBERNOTFOUND);
    DISPPARAMS None{};
    EXPECT_EQ(Invoke(None), DISP_E_BADPARAMCOUNT);
    std::array<VARIANT, 2> Two{Given, Given};
    DISPPARAMS TwoGiven{Two.data(), nullptr, 2, 0};
    EXPECT_EQ(Invoke(TwoGiven), DISP_E_BADPARAMCOUNT);
    // Scripts that call it as a statement take no result.
    EXPECT_EQ(m_pObject->Invoke(GET_PREDICTION, IID_NULL, 0, DISPATCH_METHOD, &Plain, nullptr,
                                nullptr, nullptr),
              S_OK);
    VariantClear(&Given);
}

TEST_F(DictionaryObjectTest, Server_IsHeldUntilTheLastReferenceGoes) {
    void* pFound = nullptr;
    EXPECT_EQ(m_pObject->QueryInterface(IID_IDispatch, &pFound), S_OK);
    EXPECT_EQ(m_pObject->QueryInterface(IID_IClassFactory, &pFound), E_NOINTERFACE);
    EXPECT_EQ(pFound, nullptr);
    EXPECT_EQ(m_pObject->Release(), 1U);
    EXPECT_TRUE(m_Server.IsHeld());
    EXPECT_EQ(m_pObject->Release(), 0U);
    m_pObject = nullptr;
    EXPECT_FALSE(m_Server.IsHeld());
    EXPECT_EQ(WaitForSingleObject(m_Server.Idle(), 0), WAIT_OBJECT_0);
}

TEST_F(DictionaryObjectTest, LearnedWord_IsToBeSaved) {
    for (const wchar_t* szWord : {L"plkuj", L"den", L"plkuj", L"den", L"plkuj", L"den"}) {
        const std::wstring strWord = szWord;
        for (size_t n = 1; n <= strWord.size(); ++n) {
            VARIANT Given = TextVariant(strWord.substr(0, n));
            EXPECT_EQ(Ask(Given), S_OK);
            VariantClear(&Given);
        }
    }
    EXPECT_EQ(WaitForSingleObject(m_Server.SaveWanted(), 0), WAIT_OBJECT_0);
}

}  // namespace
}  // namespace taviro::predictor
