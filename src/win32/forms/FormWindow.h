#pragma once

#include <functional>
#include <memory>
#include <optional>

#include "controls/Form.h"
#include "win32/controls/ContainerPeer.h"
#include "win32/forms/DialogKeys.h"
#include "win32/forms/FormKeyboard.h"
#include "win32/forms/FormScroll.h"
#include "win32/forms/ModalLoop.h"
#include "win32/forms/MovedPeers.h"
#include "win32/forms/Surroundings.h"
#include "win32/forms/ToolTips.h"

namespace pellmark {

/// The window of a form: a captioned window while it is shown modally, a borderless child while it is
/// embedded. It may outlive its form, see retire().
class FormWindow : public ContainerPeer {
  public:
    FormWindow(std::shared_ptr<Surroundings> surroundings, Form& form);
    ~FormWindow() override;

    /// Lets go of the form. The windows are hidden at once and destroyed as soon as nothing of the component
    /// runs any more, those of a modal form that has ended at once: nothing of theirs runs then.
    static void retire(std::unique_ptr<FormWindow> window);

    Surroundings& surroundings() const { return *surroundings_; }
    const Scale& currentScale() const { return scale_; }
    HFONT font() const { return font_.get(); }
    bool isEmbedded() const { return embedded_; }

    void embed(const EmbeddedPlace& place);
    std::optional<EmbeddedPlace> embeddedPlace() const;
    void runModal(HWND owner);
    void runWhile(HWND owner, const std::function<void()>& work);
    void endModal();
    void popUp(Menu& menu, Control& over, Point at);

    // --- for the peers within ----------------------------------------------------------------------------
    /// The model has moved: the window follows, at once or with all others of one layout.
    void moved(ControlPeer& peer);
    ToolTips& toolTips() { return toolTips_; }
    FormScroll& scroll() { return scroll_; }
    FormKeyboard& keyboard() { return keyboard_; }
    DialogKeys& keys() { return keys_; }

    void detach() override;
    void place() override;
    RECT placement() const override;
    void arrange() override;
    void rescale() override;

  protected:
    std::optional<LRESULT> message(UINT message, WPARAM wParam, LPARAM lParam) override;
    void controlChanged(ControlChange change) override;

  private:
    Form* model() const { return static_cast<Form*>(control()); }
    DWORD captionedStyle() const;
    DWORD captionedExStyle() const;
    void makeTopLevel(HWND owner);
    void showAbove(HWND owner, const std::function<void(ModalLoop&)>& run);
    /// A window of the host's bears the host's icon.
    void takeIcon(HWND owner) const;
    /// The person has chosen another message font for the system.
    void takeFont();
    /// Shows everything at the resolution that the window has now, at a place that the system wants for it.
    /// False when it is the one that is shown already.
    bool takeResolution(const RECT* wanted);
    /// A window has the resolution of the screen it is on: before it is measured it goes to where it will
    /// open.
    void goToScreenOf(HWND owner);
    void keepPlace();
    void limitSize(MINMAXINFO& limits) const;
    RECT outerRect(Size client) const;
    Scale screenScale() const;

    std::shared_ptr<Surroundings> surroundings_;
    Size opened_;  ///< what the form was laid out for when its window was made
    Scale scale_;
    FontHandle font_;
    FormScroll scroll_;
    FormKeyboard keyboard_;
    DialogKeys keys_;
    ToolTips toolTips_;
    MovedPeers moved_;
    std::shared_ptr<ModalLoop> modal_;
    bool embedded_ = false;
    bool settled_ = false;  ///< false while the windows are being created
    bool modalEnded_ = false;
    bool inMenu_ = false;
};

}  // namespace pellmark
