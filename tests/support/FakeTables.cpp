#include "support/FakeTables.h"

#include <algorithm>

#include "base/Text.h"

namespace pellmark::test {

namespace {

template <class Record>
Record* findById(std::vector<Record>& records, const std::string& id) {
    const auto guid = Guid::parse(id);
    if (!guid) return nullptr;
    const auto at = std::find_if(records.begin(), records.end(),
                                 [&](const Record& record) { return record.id == *guid; });
    return at == records.end() ? nullptr : &*at;
}

template <class Record>
Record& requireById(std::vector<Record>& records, const std::string& id, const std::string& what) {
    Record* record = findById(records, id);
    if (!record) throwNotFound(what, id);
    return *record;
}

}  // namespace

Guid FakeTables::newId() {
    Guid id{{0x0E, 0x57, 0xFA, 0x0E, 0x00, 0x00, 0x00, 0x40, 0x80, 0x00, 0x00, 0x00, 0, 0, 0, 0}};
    ++lastId_;
    for (std::size_t i = 0; i < 4; ++i)
        id.bytes[15 - i] = static_cast<std::uint8_t>(lastId_ >> (8 * i));
    return id;
}

void FakeTables::called(const std::string& operation, const std::string& first, const std::string& second) {
    std::string call = operation;
    if (!first.empty()) call += " " + first;
    if (!second.empty()) call += " " + second;
    calls.push_back(call);
    if (onCall) onCall(operation);
    const auto failure = failures.find(operation);
    if (failure != failures.end()) throw failure->second;
}

bool FakeTables::refuses(const std::string& id) const {
    return std::any_of(refused.begin(), refused.end(), [&](const std::string& refusedId) {
        return canonicalId(refusedId) == canonicalId(id);
    });
}

FakeTables::Process* FakeTables::findProcess(const std::string& id) {
    return findById(processes, id);
}
FakeTables::FeatureCase* FakeTables::findFeatureCase(const std::string& id) {
    return findById(featureCases, id);
}
FakeTables::Step* FakeTables::findStep(const std::string& id) {
    return findById(steps, id);
}

FakeTables::Process& FakeTables::requireProcess(const std::string& id) {
    return requireById(processes, id, "process");
}
FakeTables::FeatureCase& FakeTables::requireFeatureCase(const std::string& id) {
    return requireById(featureCases, id, "feature case");
}
FakeTables::Step& FakeTables::requireStep(const std::string& id) {
    return requireById(steps, id, "process step");
}

std::string canonicalId(const std::string& id) {
    const auto guid = Guid::parse(id);
    return guid ? guid->text() : id;
}

bool beforeByName(const std::string& leftName, const std::string& leftId, const std::string& rightName,
                  const std::string& rightId) {
    const int order = lowerAscii(leftName).compare(lowerAscii(rightName));
    if (order != 0) return order < 0;
    const auto left = Guid::parse(leftId);
    const auto right = Guid::parse(rightId);
    return left && right && left->bytes < right->bytes;
}

const FakeTables::Named* findNamed(const std::vector<FakeTables::Named>& list, const std::string& id) {
    const auto at = std::find_if(list.begin(), list.end(), [&](const FakeTables::Named& named) {
        return canonicalId(named.id) == canonicalId(id);
    });
    return at == list.end() ? nullptr : &*at;
}

const FakeTables::Named& requireNamed(const std::vector<FakeTables::Named>& list, const std::string& id,
                                      const std::string& what) {
    const FakeTables::Named* named = findNamed(list, id);
    if (!named) throwNotFound(what, id);
    return *named;
}

void throwNotFound(const std::string& what, const std::string& id) {
    throw Error(errors::kNotFound, "KnowledgeBase", "The " + what + " " + id + " does not exist.");
}

}  // namespace pellmark::test
