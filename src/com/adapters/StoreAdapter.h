#pragma once

#include <memory>

#include "automation/DispatchObject.h"
#include "com/adapters/HostRecordSet.h"

namespace pellmark {

/// One part of the host's knowledge base service: the object, fetched from the service by the first call that
/// needs it. A service that is not connected need not offer its parts.
class StoreAdapter {
  public:
    StoreAdapter(std::shared_ptr<DispatchObject> service, const char* member)
        : service_(std::move(service)), member_(member) {}

  protected:
    DispatchResult call(std::string_view member, std::initializer_list<VariantArg> arguments = {}) {
        return store().call(member, arguments);
    }
    std::shared_ptr<RecordSet> query(std::string_view member,
                                     std::initializer_list<VariantArg> arguments = {}) {
        return adaptRecordSet(store().call(member, arguments).object());
    }
    DispatchObject& store() {
        if (!store_) store_ = std::make_unique<DispatchObject>(service_->call(member_).object());
        return *store_;
    }

  private:
    std::shared_ptr<DispatchObject> service_;
    const char* member_;
    std::unique_ptr<DispatchObject> store_;
};

}  // namespace pellmark
