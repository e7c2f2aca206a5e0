#pragma once

#include "base/Trace.h"
#include "win32/WindowsApi.h"

namespace pellmark {

/// The themed control library, whatever the host's own manifest says: made from the manifest that is bound
/// into the component. Without it (recorded once in the trace) windows get the host's look.
class ActivationContext {
  public:
    /// `component` is the module that carries the manifest as resource 2 of type RT_MANIFEST.
    ActivationContext(HINSTANCE component, Trace& trace);
    ~ActivationContext();
    ActivationContext(const ActivationContext&) = delete;
    ActivationContext& operator=(const ActivationContext&) = delete;

    bool isThere() const { return context_ != INVALID_HANDLE_VALUE; }

    /// Windows created while one of these lives come from the themed library.
    class [[nodiscard]] Active {
      public:
        explicit Active(const ActivationContext& context);
        ~Active();
        Active(const Active&) = delete;
        Active& operator=(const Active&) = delete;

      private:
        ULONG_PTR cookie_ = 0;  // before the flag, whose initialiser sets both
        bool active_;
    };

  private:
    HANDLE context_ = INVALID_HANDLE_VALUE;
};

}  // namespace pellmark
