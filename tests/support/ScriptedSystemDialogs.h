#pragma once

#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "ports/SystemDialogs.h"

namespace pellmark::test {

/// A person at the dialogs for colours, fonts and printing, scripted: each must have been announced, in
/// order. The script changes the choice and says whether it is confirmed. An unexpected dialog fails the
/// test, and so does one that never came.
class ScriptedSystemDialogs : public SystemDialogs {
  public:
    struct Shown {
        std::string kind;
        WindowHandle owner;
        std::uint32_t flags;
    };

    ~ScriptedSystemDialogs() override;

    void expectColor(std::function<bool(ColorChoice&)> script) { colors_.push_back(std::move(script)); }
    void expectFont(std::function<bool(FontChoice&)> script) { fonts_.push_back(std::move(script)); }
    void expectPrint(std::function<bool(PrinterSettings&)> script) {
        prints_.push_back(
            [script = std::move(script)](PrintChoice& choice) { return script(choice.settings); });
    }
    void expectPrintChoice(std::function<bool(PrintChoice&)> script) { prints_.push_back(std::move(script)); }
    void expectPageSetup(std::function<bool(PageChoice&)> script) { pages_.push_back(std::move(script)); }
    /// The person says OK to the print dialog, or Cancel.
    void expectPrintConfirmed() {
        expectPrint([](PrinterSettings&) { return true; });
    }
    void expectPrintOf(const PageRange& pages) {
        expectPrintChoice([pages](PrintChoice& choice) {
            choice.pages = pages;
            return true;
        });
    }
    void expectPrintCancelled() {
        expectPrint([](PrinterSettings&) { return false; });
    }
    /// The next dialog cannot be shown, for this reason.
    void failNext(std::uint32_t extendedError) { failure_ = extendedError; }

    std::vector<Shown> shown;

    DialogResult<ColorChoice> chooseColor(const ColorChoice& first, WindowHandle owner,
                                          std::uint32_t flags) override {
        return show("colour", colors_, first, owner, flags);
    }
    DialogResult<FontChoice> chooseFont(const FontChoice& first, WindowHandle owner,
                                        std::uint32_t flags) override {
        return show("font", fonts_, first, owner, flags);
    }
    DialogResult<PrintChoice> print(const PrintChoice& first, WindowHandle owner,
                                    std::uint32_t flags) override {
        return show("print", prints_, first, owner, flags);
    }
    DialogResult<PageChoice> pageSetup(const PageChoice& first, WindowHandle owner,
                                       std::uint32_t flags) override {
        return show("page setup", pages_, first, owner, flags);
    }

  private:
    template <class Choice>
    using Scripts = std::deque<std::function<bool(Choice&)>>;

    template <class Choice>
    DialogResult<Choice> show(const char* kind, Scripts<Choice>& scripts, const Choice& first,
                              WindowHandle owner, std::uint32_t flags) {
        shown.push_back({kind, owner, flags});
        DialogResult<Choice> result{false, first, std::exchange(failure_, 0)};
        if (result.extendedError != 0) return result;
        if (scripts.empty()) {
            unexpected(kind);
            return result;
        }
        const auto script = std::move(scripts.front());
        scripts.pop_front();
        result.confirmed = script(result.chosen);
        return result;
    }
    static void unexpected(const std::string& kind);

    Scripts<ColorChoice> colors_;
    Scripts<FontChoice> fonts_;
    Scripts<PrintChoice> prints_;
    Scripts<PageChoice> pages_;
    std::uint32_t failure_ = 0;
};

}  // namespace pellmark::test
