#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "com/ApplicationObject.h"
#include "com/RecordingCalls.h"
#include "com/TestObject.h"

namespace pellmark {

/// The object under test, a host, and a late-bound caller.
class ApplicationObjectFixture : public testing::Test {
  protected:
    HRESULT invoke(Member member, std::vector<VariantArg> arguments, WORD flags = DISPATCH_METHOD,
                   std::vector<DISPID> names = {}) {
        std::vector<VARIANT> reversed;
        for (auto each = arguments.rbegin(); each != arguments.rend(); ++each) {
            reversed.push_back(each->get());
        }
        DISPPARAMS parameters{reversed.data(), names.data(), static_cast<UINT>(reversed.size()),
                              static_cast<UINT>(names.size())};
        badArgument_ = 99;
        exception_ = EXCEPINFO{};
        const HRESULT code =
            object_->Invoke(static_cast<DISPID>(member), IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                            result_.receive(), &exception_, &badArgument_);
        exceptionText_ = Bstr::adopt(exception_.bstrDescription).utf8();
        exceptionSource_ = Bstr::adopt(exception_.bstrSource).utf8();
        return code;
    }
    const RecordedCall& onlyCall() const {
        if (log_.calls.size() != 1) throw std::runtime_error("not one call");
        return log_.calls.front();
    }
    static void dispatchMessages() {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageW(&message);
    }
    VariantArg host() const { return ComPtr<IDispatch>(host_.get()); }
    static VariantArg nothing() { return ComPtr<IDispatch>(); }

    CallLog log_;
    ComPtr<TestObject> host_ = TestObject::make();
    ComPtr<_Application> object_ =
        ComPtr<_Application>::adopt(new ApplicationObject(std::make_unique<RecordingCalls>(log_)));
    VariantArg result_;
    EXCEPINFO exception_{};
    std::string exceptionText_;
    std::string exceptionSource_;
    UINT badArgument_ = 99;
};

}  // namespace pellmark
