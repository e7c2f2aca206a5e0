#pragma once

#include "win32/WindowsApi.h"

#include <oleauto.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace pellmark {

/// A call that cannot be carried out as it was made: the result code that says so, a text for the person who
/// wrote the call and, where one argument is to blame, its index in the dispatch call's list.
class CallError : public std::runtime_error {
  public:
    CallError(HRESULT code, const std::string& text, std::optional<UINT> argument = std::nullopt)
        : std::runtime_error(text), code_(code), argument_(argument) {}

    HRESULT code() const { return code_; }
    std::optional<UINT> argument() const { return argument_; }

  private:
    HRESULT code_;
    std::optional<UINT> argument_;
};

/// What a caller across the boundary is told about an exception.
struct Failure {
    HRESULT code = E_FAIL;
    std::string source;
    std::string description;
    std::optional<UINT> argument;
    /// True for a mistake in the call itself, which the code names by itself.
    bool isCallError = false;
};

/// Describes the exception in flight. `source` names the object where the exception does not name one. Call
/// only inside a catch block.
Failure describeFailure(std::string_view source);

/// Leaves the failure behind as the thread's error information and returns its code. Never throws: without
/// memory the code is E_OUTOFMEMORY and there is no text.
HRESULT reportCurrentFailure(std::string_view source) noexcept;

/// Sets the thread's error information.
void setErrorInformation(const Failure& failure);

/// What a dispatch call answers to the exception in flight: a mistake in the call is named by the code itself
/// and the index of its argument, anything else is DISP_E_EXCEPTION with its details.
HRESULT answerFailedInvoke(std::string_view source, EXCEPINFO* exception, UINT* argument) noexcept;

/// One of the traps, see base/Trace.h for the quiet one. Runs the body of a method that automation clients
/// call. Nothing is thrown across: S_OK, or the code of the failure with its text as the thread's error
/// information.
template <class Body>
HRESULT trapAsResult(std::string_view source, Body&& body) noexcept {
    // text of an earlier failure must not be taken for this call's
    ::SetErrorInfo(0, nullptr);
    try {
        std::forward<Body>(body)();
        return S_OK;
    } catch (...) {
        return reportCurrentFailure(source);
    }
}

/// The same for IDispatch::Invoke, whose callers get the details of a failure in a place of their own.
template <class Body>
HRESULT trapAsResult(std::string_view source, EXCEPINFO* exception, UINT* argument, Body&& body) noexcept {
    ::SetErrorInfo(0, nullptr);
    try {
        std::forward<Body>(body)();
        return S_OK;
    } catch (...) {
        return answerFailedInvoke(source, exception, argument);
    }
}

/// The text of the exception in flight as a person is told it.
std::string textOfCurrentFailure() noexcept;

/// The trap for what a person is waiting for: a failure's text is handed to `tell`. Nothing is thrown across,
/// neither by the body nor by `tell`. Returns true when the body ran to its end.
template <class Tell, class Body>
bool trapAndTell(Tell&& tell, Body&& body) noexcept {
    try {
        std::forward<Body>(body)();
        return true;
    } catch (...) {
        const std::string text = textOfCurrentFailure();
        try {
            std::forward<Tell>(tell)(text);
        } catch (...) {
            // without a way to a person the debugger is what is left
            ::OutputDebugStringA(text.c_str());
        }
        return false;
    }
}

}  // namespace pellmark
