#include "processes/FrmAddExistingProcess.h"

#include "base/Error.h"
#include "base/Text.h"
#include "util/ManyCalls.h"

namespace pellmark {

namespace {

constexpr Size kClient{10500, 6600};
constexpr const char* kSource = "Pellmark.FrmAddExistingProcess";

std::set<std::string> idsOf(const std::vector<pNode>& nodes) {
    std::set<std::string> ids;
    for (const pNode& node : nodes)
        ids.insert(lowerAscii(node.id));
    return ids;
}

}  // namespace

FrmAddExistingProcess::FrmAddExistingProcess(const UserInterface& person, Idle& idle,
                                             KnowledgeBaseService& knowledgeBase, cFeatureCase& featureCase,
                                             const Grid& listed, std::string featureCaseUnit)
    : Dialog(person, "FrmAddExistingProcess"),
      FrameProcesses(person, *this, "FrameProcesses"),
      idle_(idle),
      knowledgeBase_(knowledgeBase),
      featureCase_(featureCase),
      listed_(listed),
      unit_(std::move(featureCaseUnit)) {
    setBorderStyle(BorderStyle::Sizable);
    setClientSize(kClient);
    setMinimumSize({6600, 4500});
    FrameProcesses.place({150, 120, 10200, 5805}, kClient, {true, true, true, true});
    addButtons(kClient, CmdOk, CmdCancel, CmdHelp);
    on(FrameProcesses.Cmdrefresh.clicked.subscribe([this] { RefreshNonMembers(); }));
}

void FrmAddExistingProcess::Form_Load() {
    setCaption(GetString("Process Members"));
    FrameProcesses.setCaption(GetString("Processes"));
    FrameProcesses.prepare();
    translateButtons(CmdOk, CmdCancel, CmdHelp);
    loadOrAbandon("FrmAddExistingProcess::Form_Load", [this] { readLists(); });
}

void FrmAddExistingProcess::RefreshNonMembers() {
    carryOut("FrmAddExistingProcess::RefreshNonMembers", [this] { readLists(); });
}

void FrmAddExistingProcess::readLists() {
    Members initial;
    const std::vector<pNode> attached = attachedToCase();
    const std::vector<ListItem> members = membersOf(attached, initial);
    FrameProcesses.show(withoutMembers(processesOfUnit(), members), members);
    initialMembers_ = std::move(initial);
    attached_ = idsOf(attached);
}

std::vector<pNode> FrmAddExistingProcess::attachedToCase() {
    const std::string exact = featureCase_.existingFeatureCase();
    if (exact.empty()) return {};
    // By its values alone: the filters of the view narrow what is listed, not what is attached.
    FeatureCaseDescription attached;
    attached.featureTypeId = featureCase_.GetCurrentFeatureType();
    attached.valueIds = featureCase_.GetCurrentValueIds();
    std::vector<pNode> nodes = knowledgeBase_.featureCaseStore().processesOfValues(attached, 0);
    std::erase_if(nodes, [&](const pNode& node) { return !equalNoCase(node.FeatureCaseId, exact); });
    return nodes;
}

std::vector<ListItem> FrmAddExistingProcess::membersOf(const std::vector<pNode>& attached,
                                                       Members& members) const {
    const std::set<std::string> ids = idsOf(attached);
    std::vector<ListItem> items;
    const auto add = [&](const std::string& id, const std::string& name, const std::string& featureCaseId) {
        if (members.emplace(lowerAscii(id), featureCaseId).second) items.push_back({id, name, {}});
    };
    for (int row = listed_.fixedRows(); row < listed_.rows(); ++row) {
        const std::string id = lowerAscii(listed_.rowData(row));
        // The list is as old as its last refresh: what was attached and is no longer has been detached since.
        if (attached_.contains(id) && !ids.contains(id)) continue;
        add(listed_.rowData(row), listed_.text(row, field::kName), listed_.text(row, field::kFeatureCaseId));
    }
    for (const pNode& node : attached)
        add(node.id, node.Name, node.FeatureCaseId);
    return items;
}

/// Two people may set the members of one case, and the second OK must not undo the first one unseen.
bool FrmAddExistingProcess::takeOverChanges() {
    const std::vector<pNode> attached = attachedToCase();
    std::set<std::string> ids = idsOf(attached);
    if (ids == attached_) return false;
    Members initial;
    const std::vector<ListItem> members = membersOf(attached, initial);
    FrameProcesses.takeOver(withoutMembers(processesOfUnit(), members), members);
    initialMembers_ = std::move(initial);
    attached_ = std::move(ids);
    tellChangedMeanwhile(person(), "");
    return true;
}

std::vector<ListItem> FrmAddExistingProcess::processesOfUnit() const {
    const auto records = knowledgeBase_.processStore().processes("");
    const std::size_t id = records->requireField(field::kId);
    const std::size_t name = records->requireField(field::kName);
    const std::size_t unitField = records->requireField(field::kUnit);
    std::vector<ListItem> items;
    for (std::size_t i = 0; i < records->count(); ++i) {
        if (unit_ != kNoUnit && records->text(i, unitField) != unit_) continue;
        items.push_back({records->text(i, id), records->text(i, name), {}});
    }
    return items;
}

void FrmAddExistingProcess::CmdOk_Click() {
    carryOut("FrmAddExistingProcess::CmdOk_Click", [this] {
        if (takeOverChanges()) return;
        const std::string id =
            unit_ == kNoUnit ? featureCase_.existingFeatureCase() : featureCase_.existingOrNewFeatureCase();
        if (id.empty() && isChanged()) {
            throw Error(errors::kNotFound, kSource,
                        GetString("The feature case is not stored yet. Choose its unit first."));
        }
        if (!id.empty()) {
            if (!store(id)) return;
            tellWhatStays(id);
        }
        completed.raise();
        unload();
    });
}

bool FrmAddExistingProcess::isChanged() const {
    const ListView& members = FrameProcesses.LV2;
    for (int i = 0; i < members.count(); ++i) {
        if (!initialMembers_.contains(lowerAscii(members.item(i).key))) return true;
    }
    return static_cast<std::size_t>(members.count()) != initialMembers_.size();
}

std::vector<std::string> FrmAddExistingProcess::newMembers() const {
    const ListView& members = FrameProcesses.LV2;
    std::vector<std::string> ids;
    for (int i = 0; i < members.count(); ++i) {
        const std::string& id = members.item(i).key;
        if (!initialMembers_.contains(lowerAscii(id))) ids.push_back(id);
    }
    return ids;
}

/// Candidates that were never attached are sent, too: the store may have attached them meanwhile. False when
/// the person has ended it: what has been stored by then stays stored.
bool FrmAddExistingProcess::store(const std::string& featureCaseId) {
    const std::vector<std::string> added = newMembers();
    const ListView& candidates = FrameProcesses.LV1;
    return makeCalls(person(), idle_, GetString("The processes of the feature case are being stored"),
                     handle(), added.size() + static_cast<std::size_t>(candidates.count()),
                     [&](std::size_t i) {
                         if (i < added.size()) {
                             attach(added[i], featureCaseId);
                         } else {
                             detach(candidates.item(static_cast<int>(i - added.size())).key, featureCaseId);
                         }
                     });
}

void FrmAddExistingProcess::attach(const std::string& id, const std::string& featureCaseId) {
    knowledgeBase_.processStore().attach(id, featureCaseId);
    initialMembers_.emplace(lowerAscii(id), featureCaseId);
    attached_.insert(lowerAscii(id));
}

void FrmAddExistingProcess::detach(const std::string& id, const std::string& featureCaseId) {
    if (knowledgeBase_.processStore().detach(featureCaseId, id)) {
        attached_.erase(lowerAscii(id));
        return;
    }
    person().operations().trace().record("FrmAddExistingProcess::CmdOk_Click",
                                         "the knowledge base keeps " + id + " attached");
}

/// A process that is listed because another case shares a value stays attached to that one.
void FrmAddExistingProcess::tellWhatStays(const std::string& featureCaseId) {
    const ListView& candidates = FrameProcesses.LV1;
    std::string names;
    for (int i = 0; i < candidates.count(); ++i) {
        const auto member = initialMembers_.find(lowerAscii(candidates.item(i).key));
        if (member == initialMembers_.end() || equalNoCase(member->second, featureCaseId)) continue;
        names += "\r\n" + candidates.text(i, 0);
    }
    if (names.empty()) return;
    person().show({GetString("These processes belong to another feature case and stay in the list:") + names,
                   "", MessageIcon::Information});
}

}  // namespace pellmark
