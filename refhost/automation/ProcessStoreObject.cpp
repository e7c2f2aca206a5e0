#include "refhost/automation/ProcessStoreObject.h"

#include "base/Text.h"
#include "knowledge/PackedText.h"
#include "refhost/automation/Identifiers.h"
#include "refhost/automation/RecordSetObject.h"

namespace norvex {

using pellmark::ProcessRecord;
using pellmark::VariantArg;

namespace {

void pack(const ProcessRecord& record, pellmark::PackedTextWriter& writer) {
    writer.add(record.Id);
    writer.add(record.Name);
    writer.add(record.Id.empty() ? std::string() : std::to_string(record.Unit));
    writer.add(record.Description);
    writer.add(record.Rule);
}

}  // namespace

ProcessStoreObject::ProcessStoreObject(SharedSession session)
    : AutomationObject("Norvex.ProcessStore", kProcessStore), session_(std::move(session)) {
    addQueries();
    addChanges();
}

void ProcessStoreObject::addQueries() {
    method(1, L"Processes", 1, [this](const Arguments& call) {
        return makeObject<RecordSetObject>(store().processes(call.text(0)));
    });
    method(2, L"Process", 1, [this](const Arguments& call) {
        pellmark::PackedTextWriter writer;
        pack(store().process(call.text(0)), writer);
        return packedResult(writer.text());
    });
    method(3, L"ProcessRecords", 1, [this](const Arguments& call) { return processRecords(call); });
    property(4, L"OrphanProcesses",
             [this](const Arguments&) { return makeObject<RecordSetObject>(store().orphanProcesses()); });
    method(13, L"FindProcesses", 5, [this](const Arguments& call) { return findProcesses(call); });
    method(12, L"MaterialsOf", 1, [this](const Arguments& call) {
        return makeObject<RecordSetObject>(store().materialsOf(call.text(0)));
    });
}

void ProcessStoreObject::addChanges() {
    method(5, L"AddProcess", 4, [this](const Arguments& call) {
        return store().addProcess({"", call.text(0), call.int16(1), call.text(2), call.text(3)});
    });
    method(6, L"UpdateProcess", 5, [this](const Arguments& call) {
        store().updateProcess({call.text(0), call.text(1), call.int16(2), call.text(3), call.text(4)});
        return VariantArg();
    });
    method(7, L"DeleteProcess", 1,
           [this](const Arguments& call) { return store().deleteProcess(call.text(0)); });
    method(8, L"AttachProcess", 2, [this](const Arguments& call) {
        store().attach(call.text(0), call.text(1));
        return VariantArg();
    });
    method(9, L"DetachProcess", 2,
           [this](const Arguments& call) { return store().detach(call.text(0), call.text(1)); });
    method(10, L"AddMaterial", 2, [this](const Arguments& call) {
        store().addMaterial(call.text(0), call.text(1));
        return VariantArg();
    });
    method(11, L"RemoveMaterial", 2, [this](const Arguments& call) {
        store().removeMaterial(call.text(0), call.text(1));
        return VariantArg();
    });
}

VariantArg ProcessStoreObject::findProcesses(const Arguments& call) {
    pellmark::RowQuery query;
    query.text = call.text(0);
    for (std::string& field : pellmark::split(call.text(1), '|')) {
        if (!field.empty()) query.fields.push_back(std::move(field));
    }
    const std::vector<std::string> values = pellmark::unpackTexts(call.packedText(2));
    for (std::size_t at = 0; at + 1 < values.size(); at += 2)
        query.values.push_back({values[at], values[at + 1]});
    query.sortField = call.text(3);
    query.descending = call.int32(4) != 0;
    return makeObject<RecordSetObject>(store().findProcesses(query));
}

VariantArg ProcessStoreObject::processRecords(const Arguments& call) {
    pellmark::PackedTextWriter writer;
    for (const auto& record : store().processRecords(pellmark::unpackTexts(call.packedText(0)))) {
        pack(record.value_or(ProcessRecord()), writer);
    }
    return packedResult(writer.text());
}

}  // namespace norvex
