#include "processes/CaseProcesses.h"

#include <set>
#include <string>
#include <utility>

#include "base/Text.h"

namespace pellmark {

std::vector<pNode> processesOfCase(KnowledgeBaseService& knowledgeBase,
                                   const FeatureCaseDescription& description, int style) {
    if (description.valueIds.empty() || (style != 0 && style != 1)) return {};
    const std::vector<pNode> found = knowledgeBase.featureCaseStore().processesOfValues(description, style);
    std::vector<std::string> ids;
    for (const pNode& node : found)
        ids.push_back(node.id);
    const auto current = knowledgeBase.processStore().processRecords(ids);

    std::vector<pNode> ordered;
    std::set<std::string> listed;
    for (const bool exact : {true, false}) {
        for (std::size_t i = 0; i < found.size(); ++i) {
            if (exact && !found[i].ExactMatch) continue;
            if (i >= current.size() || !current[i]) continue;
            if (!listed.insert(lowerAscii(found[i].id)).second) continue;
            pNode node = found[i];
            node.Name = current[i]->Name;
            node.unit = current[i]->Unit;
            node.Rule = current[i]->Rule;
            node.Description = current[i]->Description;
            ordered.push_back(std::move(node));
        }
    }
    return ordered;
}

}  // namespace pellmark
