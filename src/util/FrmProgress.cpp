#include "util/FrmProgress.h"

namespace pellmark {

namespace {
constexpr Size kClient{5400, 1500};
}

FrmProgress::FrmProgress(const UserInterface& person, Idle& idle, const std::string& what)
    : Form(person.desktop, "FrmProgress"), idle_(idle) {
    setClientSize(kClient);
    setCaption(person.texts.title());
    LblWhat.setCaption(what);
    LblWhat.place({150, 150, 5100, 255}, kClient, {});
    LblDone.place({150, 510, 5100, 255}, kClient, {});
    CmdCancel.setCaption(person.texts.GetString("Cancel"));
    CmdCancel.place({4035, 975, 1215, 375}, kClient, {});
    setCancelButton(&CmdCancel);
    cancelling_ = CmdCancel.clicked.subscribe([this] {
        cancelled_ = true;
        CmdCancel.setEnabled(false);
    });
}

bool FrmProgress::report(std::int32_t done, std::int32_t all) {
    LblDone.setCaption(std::to_string(done) + " / " + std::to_string(all));
    idle_.yield();
    return !cancelled_;
}

}  // namespace pellmark
