#pragma once

#include <memory>
#include <string>
#include <vector>

#include "base/Geometry.h"
#include "base/Operations.h"

namespace pellmark {

class Form;
class FormPeer;

enum class MessageIcon { None, Information, Question, Critical };
enum class MessageButtons { Ok, OkCancel };
enum class MessageAnswer { Ok, Cancel };

/// A message box. An empty title shows the application's own default title.
struct MessageBox {
    std::string text;
    std::string title;
    MessageIcon icon = MessageIcon::None;
    MessageButtons buttons = MessageButtons::Ok;
    std::vector<std::string> names{};  ///< what it is about, shown below the text
    bool cancelIsDefault = false;      ///< so that a key pressed too soon does nothing that cannot be undone
};

/// The text with the names below it: the first ten, and how many more there are.
std::string wholeText(const MessageBox& message);

/// Everything that puts something on the screen and waits for a person. In tests a scripted user stands in
/// its place: an unexpected box or dialog fails the test.
class Desktop {
  public:
    explicit Desktop(const Operations& operations) : operations_(operations) {}
    virtual ~Desktop() = default;
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;

    /// The scopes of the component whose windows these are.
    const Operations& operations() const { return operations_; }

    /// Shows a message box over the active window of the component and waits for the answer; closing the
    /// box or Escape is Cancel where there is such a button.
    virtual MessageAnswer showMessage(const MessageBox& message) = 0;

    /// Creates the hidden window of a form. The form outlives its peer.
    virtual std::unique_ptr<FormPeer> createPeer(Form& form) = 0;

  private:
    Operations operations_;
};

}  // namespace pellmark
