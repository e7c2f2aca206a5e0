#include "processes/FrmEditProcessMaterials.h"

#include "base/OneLine.h"

namespace pellmark {

namespace {

constexpr Size kClient{9000, 5700};

}  // namespace

FrmEditProcessMaterials::FrmEditProcessMaterials(const UserInterface& person,
                                                 KnowledgeBaseService& knowledgeBase, std::string processId)
    : Dialog(person, "FrmEditProcessMaterials"),
      FrameMaterials(person, *this, "FrameMaterials"),
      knowledgeBase_(knowledgeBase),
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
    setCaption(GetString("Process Materials"));
    FrameMaterials.prepare();
    translateButtons(CmdOk, CmdCancel, CmdHelp);
    loadOrAbandon("FrmEditProcessMaterials::Form_Load", [this] {
        nameProcess();
        readLists();
    });
}

void FrmEditProcessMaterials::nameProcess() {
    constexpr std::size_t kMostUnits = 80;
    const std::string name = oneLine(knowledgeBase_.processStore().process(processId_).Name, kMostUnits);
    setCaption(GetString("Process Materials") + " - " + name);
}

void FrmEditProcessMaterials::RefreshNonMembers() {
    carryOut("FrmEditProcessMaterials::RefreshNonMembers", [this] { readLists(); });
}

void FrmEditProcessMaterials::readLists() {
    const std::vector<ListItem> all = itemsOf(*knowledgeBase_.materialStore().materials());
    const std::vector<ListItem> members = itemsOf(*knowledgeBase_.processStore().materialsOf(processId_));
    FrameMaterials.show(withoutMembers(all, members), members);
}

bool FrmEditProcessMaterials::takeOverChanges() {
    const std::vector<ListItem> all = itemsOf(*knowledgeBase_.materialStore().materials());
    const std::vector<ListItem> members = itemsOf(*knowledgeBase_.processStore().materialsOf(processId_));
    if (!FrameMaterials.takeOver(withoutMembers(all, members), members)) return false;
    tellChangedMeanwhile(person(), "");
    return true;
}

/// Every item is sent, moved or not: the lists say what is to be.
void FrmEditProcessMaterials::CmdOk_Click() {
    carryOut("FrmEditProcessMaterials::CmdOk_Click", [this] {
        if (takeOverChanges()) return;
        ProcessStore& processes = knowledgeBase_.processStore();
        const ListView& others = FrameMaterials.LV1;
        for (int i = 0; i < others.count(); ++i) {
            processes.removeMaterial(processId_, others.item(i).key);
            FrameMaterials.noteStored(others.item(i).key);
        }
        const ListView& members = FrameMaterials.LV2;
        for (int i = 0; i < members.count(); ++i) {
            processes.addMaterial(processId_, members.item(i).key);
            FrameMaterials.noteStored(members.item(i).key);
        }
        unload();
    });
}

}  // namespace pellmark
