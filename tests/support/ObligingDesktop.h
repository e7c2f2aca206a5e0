#pragma once

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "controls/Form.h"
#include "controls/Menu.h"
#include "ports/Desktop.h"

namespace pellmark::test {

/// A person who says OK to every question, works every dialog by a script of its name, and takes the named
/// item of every menu. Each appearance is told first, while it stands open: anything may happen then.
class ObligingDesktop : public Desktop {
  public:
    explicit ObligingDesktop(const Operations& operations) : Desktop(operations) {}

    std::function<void(const std::string& what)> onShown;
    std::map<std::string, std::function<void(Form&)>> scripts;  ///< by the form's name; closed without one
    std::string menuItem;                                       ///< taken from every menu that has it

    /// The form of that name whose window exists now, null when there is none.
    Form* loaded(const std::string& name) const;
    const std::vector<Form*>& allLoaded() const { return loaded_; }

    MessageAnswer showMessage(const MessageBox& message) override;
    std::unique_ptr<FormPeer> createPeer(Form& form) override;

  private:
    class Peer;
    void shown(const std::string& what);

    std::vector<Form*> loaded_;
};

}  // namespace pellmark::test
