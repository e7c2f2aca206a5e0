#include "refhost/automation/RecordSetObject.h"

#include <algorithm>
#include <cstring>

#include "base/Error.h"
#include "knowledge/PackedText.h"
#include "refhost/automation/Identifiers.h"

namespace norvex {

using pellmark::VariantArg;

VariantArg packedResult(const std::u16string& packed) {
    return pellmark::Bstr::ofUnits(packed);
}

RecordSetObject::RecordSetObject(std::shared_ptr<pellmark::RecordSet> records)
    : AutomationObject("Norvex.RecordSet", kRecordSet), records_(std::move(records)) {
    property(1, L"Count", [this](const Arguments&) { return static_cast<std::int32_t>(records_->count()); });
    property(2, L"Fields", [this](const Arguments&) { return fields(); });
    method(3, L"Page", 2, [this](const Arguments& arguments) { return page(arguments); });
    property(4, L"Keys", [this](const Arguments&) { return keys(); });
    property(5, L"EOF", [this](const Arguments&) { return cursor_ >= records_->count(); });
    method(6, L"MoveNext", 0, [this](const Arguments&) {
        if (cursor_ < records_->count()) ++cursor_;
        return VariantArg();
    });
    method(7, L"Field", 1, [this](const Arguments& arguments) { return field(arguments); });
    property(9, L"HasMore", [this](const Arguments&) { return records_->hasMore(); });
    method(8, L"MoveFirst", 0, [this](const Arguments&) {
        cursor_ = 0;
        return VariantArg();
    });
}

VariantArg RecordSetObject::fields() const {
    std::string names;
    for (const auto& name : records_->fields()) {
        if (!names.empty()) names += '|';
        names += name;
    }
    return names;
}

VariantArg RecordSetObject::page(const Arguments& arguments) {
    const auto first = static_cast<std::size_t>(std::max(arguments.int32(0), 0));
    const auto wanted = static_cast<std::size_t>(std::max(arguments.int32(1), 0));
    const std::size_t total = records_->count();
    const std::size_t begin = std::min(first, total);
    const std::size_t end = begin + std::min(wanted, total - begin);
    const std::size_t width = records_->fields().size();
    pellmark::PackedTextWriter writer;
    for (std::size_t record = begin; record < end; ++record) {
        for (std::size_t at = 0; at < width; ++at)
            writer.add(records_->text(record, at));
    }
    return packedResult(writer.text());
}

VariantArg RecordSetObject::keys() {
    const auto keys = records_->keys();
    if (!keys) return {};
    const std::size_t size = keys->size() * sizeof(pellmark::Guid::bytes);
    SAFEARRAY* array = SafeArrayCreateVector(VT_UI1, 0, static_cast<ULONG>(size));
    if (array == nullptr) throw std::bad_alloc();
    VariantArg result;
    result.get().vt = VT_ARRAY | VT_UI1;
    result.get().parray = array;
    if (size != 0) std::memcpy(array->pvData, keys->data(), size);
    return result;
}

VariantArg RecordSetObject::field(const Arguments& arguments) {
    const std::string name = arguments.text(0);
    const auto index = records_->fieldIndex(name);
    if (!index) {
        throw pellmark::Error(pellmark::errors::kInvalidArgument, "Norvex.RecordSet",
                              "There is no field \"" + name + "\" in this record set.");
    }
    if (cursor_ >= records_->count()) {
        throw pellmark::Error(pellmark::errors::kNotFound, "Norvex.RecordSet", "There is no current record.");
    }
    return records_->text(cursor_, *index);
}

}  // namespace norvex
