#pragma once

#include <string>
#include <utility>
#include <vector>

namespace pellmark {

/// The line of panels at the lower edge of a form, as text.
class StatusBar {
  public:
    explicit StatusBar(std::size_t panels) : panels_(panels) {}

    std::size_t panels() const { return panels_.size(); }
    const std::string& panel(std::size_t index) const { return panels_.at(index); }
    /// A panel that the bar lacks is left alone.
    void setPanel(std::size_t index, std::string text) {
        if (index < panels_.size()) panels_[index] = std::move(text);
    }

  private:
    std::vector<std::string> panels_;
};

}  // namespace pellmark
