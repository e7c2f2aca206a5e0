#include "com/adapters/PagedRecordSet.h"

#include <algorithm>
#include <cstring>

#include "knowledge/PackedText.h"

namespace pellmark {

namespace {

constexpr std::size_t kKeyBytes = sizeof(Guid::bytes);

std::vector<Guid> keysFromBytes(const void* bytes, std::size_t size) {
    std::vector<Guid> keys(size / kKeyBytes);
    if (!keys.empty()) std::memcpy(keys.data(), bytes, keys.size() * kKeyBytes);
    return keys;
}

std::vector<Guid> keysFromArray(const DispatchResult& result) {
    SAFEARRAY* array = result.value().get().parray;
    if (array == nullptr || SafeArrayGetDim(array) != 1)
        result.failBecause("did not answer with an array of bytes.");
    LONG lower = 0;
    LONG upper = -1;
    SafeArrayGetLBound(array, 1, &lower);
    SafeArrayGetUBound(array, 1, &upper);
    void* bytes = nullptr;
    if (FAILED(SafeArrayAccessData(array, &bytes))) result.failBecause("gave an array that cannot be read.");
    auto keys = keysFromBytes(bytes, static_cast<std::size_t>(upper - lower + 1));
    SafeArrayUnaccessData(array);
    return keys;
}

}  // namespace

std::size_t PagedRecordSet::count() {
    if (!count_) {
        const DispatchResult result = object_.call("Count");
        const std::int32_t records = result.int32();
        if (records < 0) result.failBecause("answered with a negative number.");
        count_ = static_cast<std::size_t>(records);
    }
    return *count_;
}

std::string PagedRecordSet::text(std::size_t record, std::size_t field) {
    if (record >= count() || field >= fields().size()) return {};
    const Page& holding = page(record / kPageRecords);
    const std::size_t row = record % kPageRecords;
    return row < holding.records.size() ? holding.records[row][field] : std::string();
}

const PagedRecordSet::Page& PagedRecordSet::page(std::size_t number) {
    const auto kept =
        std::find_if(pages_.begin(), pages_.end(), [&](const Page& each) { return each.number == number; });
    if (kept != pages_.end()) {
        pages_.splice(pages_.begin(), pages_, kept);
        return pages_.front();
    }
    const std::size_t first = number * kPageRecords;
    const std::size_t records = std::min(kPageRecords, count() - first);
    const DispatchResult result = object_.call("Page", {VariantArg(static_cast<std::int32_t>(first)),
                                                        VariantArg(static_cast<std::int32_t>(records))});
    if (result.value().type() != VT_BSTR) result.failBecause("did not answer with a packed text.");
    Page fresh{number, unpackRecords(unitsOf(result.value().get().bstrVal), fields().size())};
    pages_.push_front(std::move(fresh));
    if (pages_.size() > kKeptPages) pages_.pop_back();
    return pages_.front();
}

std::optional<std::vector<Guid>> PagedRecordSet::keys() {
    if (!object_.has("Keys")) return std::nullopt;
    const DispatchResult result = object_.call("Keys");
    std::optional<std::vector<Guid>> keys;
    if (result.value().type() == VT_BSTR) {
        const BSTR bytes = result.value().get().bstrVal;
        keys = keysFromBytes(bytes, SysStringByteLen(bytes));
    } else if (result.value().type() == (VT_ARRAY | VT_UI1)) {
        keys = keysFromArray(result);
    } else if (result.value().type() != VT_EMPTY && result.value().type() != VT_NULL) {
        result.failBecause("did not answer with an array of bytes.");
    }
    if (keys && keys->size() != count()) result.failBecause("did not answer with one key per record.");
    return keys;
}

}  // namespace pellmark
