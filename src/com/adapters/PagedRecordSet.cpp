#include "com/adapters/PagedRecordSet.h"

#include <algorithm>
#include <cstring>

#include "automation/ArrayReader.h"
#include "automation/Guard.h"
#include "base/Error.h"
#include "com/adapters/HostRecords.h"

namespace pellmark {

namespace {

constexpr std::size_t kKeyBytes = sizeof(Guid::bytes);

std::vector<Guid> keysFromBytes(const void* bytes, std::size_t size, const DispatchResult& result) {
    if (size % kKeyBytes != 0) result.failBecause("did not answer with one key per record.");
    std::vector<Guid> keys(size / kKeyBytes);
    if (!keys.empty()) std::memcpy(keys.data(), bytes, size);
    return keys;
}

std::vector<Guid> keysFromArray(const DispatchResult& result) {
    try {
        const ArrayReader array(result.value().get());
        if (array.type() != VT_UI1) result.failAsNo("an array of bytes");
        return keysFromBytes(array.bytes().data(), array.bytes().size(), result);
    } catch (const CallError& error) {
        result.failBecause(std::string("answered with an array that ") + error.what() + ".");
    }
}

}  // namespace

std::size_t PagedRecordSet::count() {
    const auto held = alive();
    if (!count_) count_ = askCount();
    return *count_;
}

std::string PagedRecordSet::text(std::size_t record, std::size_t field) {
    std::string cell;
    appendText(record, field, cell);
    return cell;
}

void PagedRecordSet::appendText(std::size_t record, std::size_t field, std::string& out) {
    if (record >= count() || field >= fields().size()) return;
    const auto held = alive();
    const Page& holding = page(record / kPageRecords);
    if (holding.failure) std::rethrow_exception(holding.failure);
    const std::size_t row = record % kPageRecords;
    if (row < holding.records.size()) out += holding.records[row][field];
}

const PagedRecordSet::Page& PagedRecordSet::page(std::size_t number) {
    const auto kept =
        std::find_if(pages_.begin(), pages_.end(), [&](const Page& each) { return each.number == number; });
    if (kept != pages_.end()) {
        pages_.splice(pages_.begin(), pages_, kept);
        return pages_.front();
    }
    if (std::find(fetching_.begin(), fetching_.end(), number) != fetching_.end()) refuseReentry();
    fetching_.push_back(number);
    Page fresh{number, {}, nullptr};
    try {
        fresh = fetch(number);
    } catch (const Error&) {
        fresh.failure = std::current_exception();
    } catch (...) {
        std::erase(fetching_, number);
        throw;
    }
    std::erase(fetching_, number);
    pages_.push_front(std::move(fresh));
    if (pages_.size() > kKeptPages) pages_.pop_back();
    return pages_.front();
}

PagedRecordSet::Page PagedRecordSet::fetch(std::size_t number) {
    const std::size_t first = number * kPageRecords;
    const std::size_t records = std::min(kPageRecords, count() - first);
    const DispatchResult result = object_.call("Page", {VariantArg(static_cast<std::int32_t>(first)),
                                                        VariantArg(static_cast<std::int32_t>(records))});
    if (result.value().type() != VT_BSTR) result.failAsNo("a packed text");
    return {number, unpackedRecords(result, fields().size()), nullptr};
}

std::optional<std::vector<Guid>> PagedRecordSet::keys() {
    const auto held = alive();
    if (!object_.has("Keys")) return std::nullopt;
    const DispatchResult result = object_.call("Keys");
    std::optional<std::vector<Guid>> keys;
    if (result.value().type() == VT_BSTR) {
        const BSTR bytes = result.value().get().bstrVal;
        keys = keysFromBytes(bytes, SysStringByteLen(bytes), result);
    } else if (isArray(result.value().get())) {
        keys = keysFromArray(result);
    } else if (result.value().type() != VT_EMPTY && result.value().type() != VT_NULL) {
        result.failAsNo("an array of bytes");
    }
    if (keys && keys->size() != count()) result.failBecause("did not answer with one key per record.");
    return keys;
}

}  // namespace pellmark
