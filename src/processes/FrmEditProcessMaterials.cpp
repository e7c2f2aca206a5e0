#include "processes/FrmEditProcessMaterials.h"

namespace pellmark {

namespace {

constexpr Size kClient{9000, 5700};

}  // namespace

FrmEditProcessMaterials::FrmEditProcessMaterials(Component& component, std::string processId)
    : ProcessDialog(component, "FrmEditProcessMaterials"),
      FrameMaterials(component, *this, "FrameMaterials"),
      processId_(std::move(processId)) {
    setBorderStyle(BorderStyle::Sizable);
    setClientSize(kClient);
    setMinimumSize({6300, 4200});
    FrameMaterials.setBordered(false);
    FrameMaterials.place({150, 150, 8700, 4875}, kClient, {true, true, true, true});
    addButtons(kClient, CmdOk, CmdCancel, CmdHelp);
    on(FrameMaterials.Cmdrefresh.clicked.subscribe([this] { RefreshNonMembers(); }));
}

void FrmEditProcessMaterials::Form_Load() {
    setCaption(component().GetString("Process Materials"));
    FrameMaterials.prepare();
    translateButtons(CmdOk, CmdCancel, CmdHelp);
    RefreshNonMembers();
}

void FrmEditProcessMaterials::RefreshNonMembers() {
    report("FrmEditProcessMaterials::RefreshNonMembers", [this] {
        KnowledgeBaseService& base = component().knowledgeBase();
        const std::vector<ListItem> all = itemsOf(*base.materialStore().materials());
        const std::vector<ListItem> members = itemsOf(*base.processStore().materialsOf(processId_));
        FrameMaterials.show(withoutMembers(all, members), members);
    });
}

/// Every item is sent, moved or not: the lists say what is to be, whatever has changed in the store
/// meanwhile.
void FrmEditProcessMaterials::CmdOk_Click() {
    report("FrmEditProcessMaterials::CmdOk_Click", [this] {
        ProcessStore& processes = component().knowledgeBase().processStore();
        const ListView& others = FrameMaterials.LV1;
        for (int i = 0; i < others.count(); ++i)
            processes.removeMaterial(processId_, others.item(i).key);
        const ListView& members = FrameMaterials.LV2;
        for (int i = 0; i < members.count(); ++i)
            processes.addMaterial(processId_, members.item(i).key);
        unload();
    });
}

}  // namespace pellmark
