#include "refhost/automation/KnowledgeBaseServiceObject.h"

#include "base/Error.h"
#include "refhost/automation/FeatureCaseStoreObject.h"
#include "refhost/automation/HostConfiguration.h"
#include "refhost/automation/Identifiers.h"
#include "refhost/automation/ProcessStepStoreObject.h"
#include "refhost/automation/ProcessStoreObject.h"
#include "refhost/automation/RecordSetObject.h"

namespace norvex {

using pellmark::VariantArg;

namespace {

class UserRightsObject : public AutomationObject {
  public:
    explicit UserRightsObject(SharedSession session) : AutomationObject("Norvex.UserRights", kUserRights) {
        method(1, L"IsAllowed", 1,
               [session](const Arguments& call) { return session->isAllowed(call.int32(0)); });
    }
};

class MaterialStoreObject : public AutomationObject {
  public:
    explicit MaterialStoreObject(SharedSession session)
        : AutomationObject("Norvex.MaterialStore", kMaterialStore) {
        property(1, L"Materials", [session](const Arguments&) {
            return makeObject<RecordSetObject>(session->service().materialStore().materials());
        });
    }
};

}  // namespace

KnowledgeBaseServiceObject::KnowledgeBaseServiceObject()
    : AutomationObject("Norvex.KnowledgeBaseService", kKnowledgeBaseService),
      session_(std::make_shared<KnowledgeBaseSession>(configuration::knowledgeBaseFile())) {
    property(1, L"IsConnected", [this](const Arguments&) { return isConnected(); });
    property(2, L"UserRights", [this](const Arguments&) { return makeObject<UserRightsObject>(session_); });
    property(3, L"ProcessStore",
             [this](const Arguments&) { return makeObject<ProcessStoreObject>(session_); });
    property(4, L"FeatureCaseStore",
             [this](const Arguments&) { return makeObject<FeatureCaseStoreObject>(session_); });
    property(5, L"MaterialStore",
             [this](const Arguments&) { return makeObject<MaterialStoreObject>(session_); });
    property(6, L"ProcessStepStore",
             [this](const Arguments&) { return makeObject<ProcessStepStoreObject>(session_); });
    method(7, L"Connect", 0, [this](const Arguments&) {
        session_->service();
        return VariantArg();
    });
    property(8, L"Users", [this](const Arguments&) {
        std::string names;
        for (const auto& name : session_->service().userRights().users())
            names += names.empty() ? name : "|" + name;
        return VariantArg(names);
    });
    property(9, L"IsReadOnly", [this](const Arguments&) { return session_->service().base()->isReadOnly(); });
}

bool KnowledgeBaseServiceObject::isConnected() {
    try {
        return session_->service().isConnected();
    } catch (const pellmark::Error&) {
        return false;  // Connect says why
    }
}

}  // namespace norvex
