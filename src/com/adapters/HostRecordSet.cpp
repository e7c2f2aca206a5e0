#include "com/adapters/HostRecordSet.h"

#include "com/adapters/ForwardRecordSet.h"
#include "com/adapters/PagedRecordSet.h"

namespace pellmark {

HostRecordSet::HostRecordSet(DispatchObject object)
    : object_(std::move(object)), fields_(split(object_.call("Fields").text(), '|')) {}

std::shared_ptr<RecordSet> adaptRecordSet(DispatchObject object) {
    if (object.has("Page")) return std::make_shared<PagedRecordSet>(std::move(object));
    return std::make_shared<ForwardRecordSet>(std::move(object));
}

std::u16string_view unitsOf(BSTR text) {
    if (text == nullptr) return {};
    return {reinterpret_cast<const char16_t*>(text), SysStringLen(text)};
}

}  // namespace pellmark
