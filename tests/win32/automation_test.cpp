// SPDX-License-Identifier: MIT
// Late-bound calls: what arrives at the object is asserted on an object of our own.
#include "platform/automation.h"

#include <windows.h>

#include <gtest/gtest.h>
#include <vector>

#include "platform/win32/variant.h"
#include "win32/com/object.h"

namespace taviro::platform {
namespace {

/// What an argument looked like when it arrived.
struct Arrived {
    VARTYPE nType;
    bool bNullText;
};

/// An object with one member, "Member" (number 7), that records its calls and changes what it gets
/// by reference.
class RecordingObject final : public com::LateBoundObject<> {
  public:
    RecordingObject() : LateBoundObject(1) {}

    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID /*iid*/, LPOLESTR* ppNames, UINT /*nNames*/,
                                            LCID /*lcid*/, DISPID* pMembers) noexcept override {
        if (std::wstring(*ppNames) != L"Member") return DISP_E_UNKNOWNNAME;
        *pMembers = 7;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE Invoke(DISPID nMember, REFIID /*iid*/, LCID /*lcid*/, WORD nKind,
                                     DISPPARAMS* pParameters, VARIANT* pResult, EXCEPINFO* pInfo,
                                     UINT* /*pWrong*/) noexcept override {
        EXPECT_EQ(nMember, 7);
        nLastKind = nKind;
        nNamedArguments = pParameters->cNamedArgs;
        for (UINT i = 0; i < pParameters->cArgs; ++i)
            Take(pParameters->rgvarg[i]);
        if (bFails) {
            pInfo->bstrDescription = SysAllocString(L"refused");
            return DISP_E_EXCEPTION;
        }
        if (pResult != nullptr) *pResult = Answer;
        return S_OK;
    }

    /// How many references are held.
    ULONG References() {
        AddRef();
        return Release();
    }

    std::vector<Arrived> Calls;  ///< in the order of arrival: last argument first
    VARIANT Answer{};
    bool bFails = false;
    WORD nLastKind = 0;
    UINT nNamedArguments = 0;

  private:
    void Take(VARIANT& Argument) {
        Calls.push_back({Argument.vt, Argument.vt == VT_BSTR && Argument.bstrVal == nullptr});
        if (Argument.vt == (VT_BYREF | VT_I4)) *Argument.plVal += 1;
        if (Argument.vt == (VT_BYREF | VT_VARIANT)) {
            Argument.pvarVal->vt = VT_I2;
            Argument.pvarVal->iVal = 5;
        }
        if (Argument.vt == (VT_BYREF | VT_BSTR)) {
            SysFreeString(*Argument.pbstrVal);
            *Argument.pbstrVal = SysAllocString(L"změněno");
        }
    }
};

class AutomationTest : public testing::Test {
  protected:
    RecordingObject Recorder;
    AutomationObject Object = std::make_shared<AutomationServer>(&Recorder);
    AutomationValue Result = std::wstring(L"earlier");
};

TEST_F(AutomationTest, CallMethod_PassesEveryKind_WhenByValue) {
    Recorder.Answer.vt = VT_I4;
    Recorder.Answer.lVal = 42;
    std::vector<AutomationArgument> Arguments{{NullString{}},   {int16_t{1}}, {int32_t{2}},
                                              {std::wstring{}}, {},           {AutomationObject{}}};
    ASSERT_TRUE(CallMethod(Object, L"Member", Arguments, Result));
    EXPECT_EQ(Recorder.nLastKind, DISPATCH_METHOD);
    EXPECT_EQ(Result, AutomationValue(int32_t{42}));
    std::vector<VARTYPE> Types;
    for (const Arrived& Call : Recorder.Calls)
        Types.push_back(Call.nType);
    EXPECT_EQ(Types, (std::vector<VARTYPE>{VT_DISPATCH, VT_EMPTY, VT_BSTR, VT_I4, VT_I2, VT_BSTR}));
    EXPECT_TRUE(Recorder.Calls[5].bNullText);
    EXPECT_FALSE(Recorder.Calls[2].bNullText) << "an empty text is not a null one";
}

TEST_F(AutomationTest, CallMethod_StoresBack_WhenByReference) {
    std::vector<AutomationArgument> Arguments{{int32_t{10}, true},
                                              {std::wstring(L"slovo"), true},
                                              {{}, true},
                                              {NullString{}, true},
                                              {int32_t{10}, false}};
    ASSERT_TRUE(CallMethod(Object, L"Member", Arguments, Result));
    EXPECT_EQ(Arguments[0].Value, AutomationValue(int32_t{11}));
    EXPECT_EQ(Arguments[1].Value, AutomationValue(std::wstring(L"změněno")));
    EXPECT_EQ(Arguments[2].Value, AutomationValue(int16_t{5}));
    EXPECT_EQ(Arguments[3].Value, AutomationValue(std::wstring(L"změněno")));
    EXPECT_EQ(Arguments[4].Value, AutomationValue(int32_t{10}));
    EXPECT_EQ(Result, AutomationValue{}) << "a method without a result";
}

TEST_F(AutomationTest, Everything_FailsAndLeavesTheResult_WhenTheMemberIsMissing) {
    EXPECT_FALSE(CallMethod(Object, L"Missing", {}, Result));
    EXPECT_FALSE(GetProperty(Object, L"Missing", {}, Result));
    EXPECT_FALSE(PutProperty(Object, L"Missing", int32_t{1}));
    EXPECT_EQ(Result, AutomationValue(std::wstring(L"earlier")));
    EXPECT_TRUE(Recorder.Calls.empty());
}

TEST_F(AutomationTest, Everything_FailsAndLeavesTheResult_WhenTheObjectRefuses) {
    Recorder.bFails = true;
    EXPECT_FALSE(CallMethod(Object, L"Member", {}, Result));
    EXPECT_FALSE(GetProperty(Object, L"Member", {}, Result));
    EXPECT_FALSE(PutProperty(Object, L"Member", int32_t{1}));
    EXPECT_EQ(Result, AutomationValue(std::wstring(L"earlier")));
}

TEST_F(AutomationTest, Everything_Fails_WhenThereIsNoObject) {
    EXPECT_FALSE(CallMethod(nullptr, L"Member", {}, Result));
    EXPECT_FALSE(GetProperty(nullptr, L"Member", {}, Result));
    EXPECT_FALSE(PutProperty(nullptr, L"Member", int32_t{1}));
}

TEST_F(AutomationTest, PutProperty_IsByReference_WhenTheValueIsAnObject) {
    ASSERT_TRUE(PutProperty(Object, L"Member", Object));
    EXPECT_EQ(Recorder.nLastKind, DISPATCH_PROPERTYPUTREF);
    EXPECT_EQ(Recorder.nNamedArguments, 1U);
    EXPECT_EQ(Recorder.References(), 1U) << "the reference that was passed is released";
    ASSERT_TRUE(PutProperty(Object, L"Member", int32_t{3}));
    EXPECT_EQ(Recorder.nLastKind, DISPATCH_PROPERTYPUT);
}

TEST_F(AutomationTest, Object_IsReleased_WhenTheLastCopyGoes) {
    AutomationObject Copy = Object;
    Object.reset();
    EXPECT_EQ(Recorder.References(), 1U);
    Copy.reset();
    EXPECT_EQ(Recorder.References(), 0U);
}

TEST_F(AutomationTest, Result_BecomesANumber_WhenOfAnotherNumericKind) {
    Recorder.Answer.vt = VT_BOOL;
    Recorder.Answer.boolVal = VARIANT_TRUE;
    ASSERT_TRUE(GetProperty(Object, L"Member", {}, Result));
    EXPECT_EQ(Recorder.nLastKind, DISPATCH_PROPERTYGET);
    EXPECT_EQ(Result, AutomationValue(int32_t{-1}));
}

TEST(Create_FailsAndEmptiesTheObject, WhenTheClassIsUnknown) {
    RecordingObject Recorder;
    AutomationObject Object = std::make_shared<AutomationServer>(&Recorder);
    EXPECT_FALSE(CreateAutomationObject(L"Taviro.NoSuchClass", Object));
    EXPECT_EQ(Object, nullptr);
}

TEST(Create_GivesAWorkingObject, WhenTheClassIsRegistered) {
    AutomationObject Dictionary;
    ASSERT_TRUE(CreateAutomationObject(L"Scripting.Dictionary", Dictionary));
    AutomationValue Result;
    std::vector<AutomationArgument> Entry{{std::wstring(L"kůň")}, {std::wstring(L"žlutý")}};
    ASSERT_TRUE(CallMethod(Dictionary, L"Add", Entry, Result));
    EXPECT_FALSE(CallMethod(Dictionary, L"Add", Entry, Result)) << "the key is there already";
    ASSERT_TRUE(GetProperty(Dictionary, L"Count", {}, Result));
    EXPECT_EQ(Result, AutomationValue(int32_t{1}));
    std::vector<AutomationArgument> Key{{std::wstring(L"kůň")}};
    ASSERT_TRUE(GetProperty(Dictionary, L"Item", Key, Result));
    EXPECT_EQ(Result, AutomationValue(std::wstring(L"žlutý")));
}

}  // namespace
}  // namespace taviro::platform
