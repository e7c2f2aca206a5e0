#include "automation/Guard.h"

#include <new>

#include "automation/Automation.h"
#include "base/Error.h"

namespace pellmark {

namespace {

/// Script languages show the low word of a control error as the error's number.
HRESULT codeOf(const Error& error) {
    constexpr std::int32_t kGreatestNumber = 0xFFFF;
    if (error.number() <= 0 || error.number() > kGreatestNumber) return E_FAIL;
    return MAKE_HRESULT(SEVERITY_ERROR, FACILITY_CONTROL, error.number());
}

}  // namespace

Failure describeFailure(std::string_view source) {
    Failure failure;
    failure.source = source;
    try {
        throw;
    } catch (const CallError& error) {
        failure.code = error.code();
        failure.description = error.what();
        failure.argument = error.argument();
        failure.isCallError = true;
    } catch (const Error& error) {
        failure.code = codeOf(error);
        failure.description = error.description();
        if (!error.source().empty()) failure.source = error.source();
    } catch (const std::bad_alloc&) {
        failure.code = E_OUTOFMEMORY;
        failure.description = "Out of memory";
        failure.isCallError = true;
    } catch (const std::exception& error) {
        failure.description = error.what();
    } catch (...) {
        failure.description = "Unexpected failure";
    }
    return failure;
}

void setErrorInformation(const Failure& failure) {
    ComPtr<ICreateErrorInfo> info;
    if (FAILED(::CreateErrorInfo(info.receive()))) return;
    info->SetSource(Bstr(failure.source).get());
    info->SetDescription(Bstr(failure.description).get());
    if (const ComPtr<IErrorInfo> readable = info.query<IErrorInfo>()) ::SetErrorInfo(0, readable.get());
}

namespace {

void fillException(EXCEPINFO& exception, const Failure& failure) {
    Bstr source(failure.source);
    Bstr description(failure.description);
    exception = EXCEPINFO{};
    exception.scode = failure.code;
    exception.bstrSource = source.release();
    exception.bstrDescription = description.release();
}

}  // namespace

HRESULT answerFailedInvoke(std::string_view source, EXCEPINFO* exception, UINT* argument) noexcept {
    try {
        const Failure failure = describeFailure(source);
        setErrorInformation(failure);
        if (failure.argument && argument != nullptr) *argument = *failure.argument;
        if (failure.isCallError) return failure.code;
        if (exception != nullptr) fillException(*exception, failure);
        return DISP_E_EXCEPTION;
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

std::string textOfCurrentFailure() noexcept {
    try {
        return describeFailure("").description;
    } catch (...) {
        return {};
    }
}

HRESULT reportCurrentFailure(std::string_view source) noexcept {
    try {
        const Failure failure = describeFailure(source);
        setErrorInformation(failure);
        return failure.code;
    } catch (...) {
        return E_OUTOFMEMORY;
    }
}

}  // namespace pellmark
