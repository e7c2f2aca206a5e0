#pragma once

#include <deque>
#include <functional>
#include <string>

namespace pellmark {

/// One line of a menu; a caption of "-" is a separator.
struct MenuItem {
    std::string name;
    std::string caption;
    std::function<void()> command;
    bool enabled = true;
    bool visible = true;
    std::string shortcut{};  ///< the key that does the same, as a person reads it; "" for none

    bool isSeparator() const { return caption == "-"; }
};

/// A pop-up menu. Items keep their address, so that a form may hold references to them.
class Menu {
  public:
    Menu(std::string name, std::string caption) : name_(std::move(name)), caption_(std::move(caption)) {}

    const std::string& name() const { return name_; }
    const std::string& caption() const { return caption_; }
    MenuItem& add(std::string name, std::string caption, std::function<void()> command = {}) {
        return items_.emplace_back(MenuItem{std::move(name), std::move(caption), std::move(command)});
    }
    const std::deque<MenuItem>& items() const { return items_; }
    std::deque<MenuItem>& items() { return items_; }

  private:
    std::string name_;
    std::string caption_;
    std::deque<MenuItem> items_;
};

}  // namespace pellmark
