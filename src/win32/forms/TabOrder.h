#pragma once

#include <string>
#include <vector>

#include "win32/controls/ControlPeer.h"

namespace pellmark {

/// The controls of a form in the order in which the Tab key visits them, those included that it passes
/// over. The system's own dialog keys pass over a tab strip that holds its pages; these do not.
class TabOrder {
  public:
    /// `form` with everything in it that is shown.
    explicit TabOrder(ControlPeer& form) { form.collect(peers_); }

    ControlPeer* first() const { return next(nullptr, 1); }
    /// The first control of a kind; null when there is none.
    ControlPeer* first(Control::Kind kind) const;
    /// The next control that can take the keyboard, round the ends; with a negative step the one before.
    /// Null when there is none.
    ControlPeer* next(const ControlPeer* from, int step) const;
    /// The same among the controls of one container, for the arrow keys.
    ControlPeer* nextSibling(const ControlPeer& from, int step) const;
    /// The next bar that a person can move, round the ends; null when there is none.
    ControlPeer* nextSplitter(const ControlPeer* from, int step) const;
    /// The control whose caption has that access key, looked for from behind the focus and round.
    ControlPeer* withAccessKey(wchar_t key, const ControlPeer* from) const;

  private:
    template <class Accept>
    ControlPeer* walk(const ControlPeer* from, int step, Accept&& accept) const;

    std::vector<ControlPeer*> peers_;
};

/// The access key of a caption, in lower case; 0 when it has none. "&&" is one ampersand.
wchar_t accessKey(const std::wstring& caption);

}  // namespace pellmark
