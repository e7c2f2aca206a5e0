#include "com/adapters/HostRecords.h"

#include <charconv>

#include "automation/ArrayReader.h"
#include "automation/Guard.h"
#include "base/Error.h"
#include "com/adapters/HostRecordSet.h"
#include "knowledge/PackedText.h"

namespace pellmark {

namespace {

using FieldNames = std::initializer_list<const char*>;

HostRecord recordFrom(const ArrayReader& values, std::size_t fields, const DispatchResult& result) {
    if (values.size() != fields) {
        result.failBecause("answered with a record of " + std::to_string(values.size()) +
                           " values instead of " + std::to_string(fields) + ".");
    }
    HostRecord record;
    for (std::size_t at = 0; at < fields; ++at) {
        const VARIANT value = values[at];
        if (isArray(value)) result.failBecause("mixed records and values in one array.");
        record.push_back(DispatchResult(VariantArg::dereferenced(value), result.member()).text());
    }
    return record;
}

HostRecord recordFromStructure(const ArrayReader& structures, std::size_t at, const FieldNames& fields,
                               const DispatchResult& result) {
    HostRecord record;
    for (const char* name : fields) {
        VariantArg value = structures.field(at, toWide(name).c_str());
        record.push_back(DispatchResult(std::move(value), result.member()).text());
    }
    return record;
}

std::vector<HostRecord> recordsFrom(const ArrayReader& array, const FieldNames& fields,
                                    const DispatchResult& result) {
    std::vector<HostRecord> records;
    if (array.size() == 0) return records;
    const bool plain = array.type() != VT_RECORD && !isArray(array[0]);
    if (plain && fields.size() == 1) {
        // records of one field need no array each
        for (std::size_t at = 0; at < array.size(); ++at) {
            const VARIANT value = array[at];
            if (isArray(value)) result.failBecause("mixed records and values in one array.");
            records.push_back({DispatchResult(VariantArg::dereferenced(value), result.member()).text()});
        }
        return records;
    }
    if (plain) {
        records.push_back(recordFrom(array, fields.size(), result));
        return records;
    }
    for (std::size_t at = 0; at < array.size(); ++at) {
        if (array.type() == VT_RECORD) {
            records.push_back(recordFromStructure(array, at, fields, result));
            continue;
        }
        const VARIANT element = array[at];
        if (!isArray(element)) result.failBecause("mixed records and values in one array.");
        records.push_back(recordFrom(ArrayReader(element), fields.size(), result));
    }
    return records;
}

std::vector<HostRecord> recordsFromArray(const DispatchResult& result, const FieldNames& fields) {
    try {
        return recordsFrom(ArrayReader(result.value().get()), fields, result);
    } catch (const CallError& error) {
        result.failBecause(std::string("answered with an array that ") + error.what() + ".");
    }
}

std::vector<HostRecord> recordsFromSet(RecordSet& set, const FieldNames& fields) {
    std::vector<std::size_t> positions;
    for (const char* name : fields)
        positions.push_back(set.requireField(name));
    std::vector<HostRecord> records(set.count());
    for (std::size_t at = 0; at < records.size(); ++at) {
        for (const std::size_t position : positions)
            records[at].push_back(set.text(at, position));
    }
    return records;
}

template <class Element>
VariantArg arrayOfVariants(const std::vector<Element>& elements) {
    SAFEARRAY* array = SafeArrayCreateVector(VT_VARIANT, 0, static_cast<ULONG>(elements.size()));
    if (array == nullptr) throw std::bad_alloc();
    VariantArg owner;
    owner.get().vt = VT_ARRAY | VT_VARIANT;
    owner.get().parray = array;
    LONG at = 0;
    for (const auto& element : elements) {
        VariantArg value(element);
        if (FAILED(SafeArrayPutElement(array, &at, &value.get()))) throw std::bad_alloc();
        ++at;
    }
    return owner;
}

template <class Number>
Number numberOf(const std::string& text, const DispatchResult& result) {
    Number number = 0;
    if (text.empty()) return number;
    const auto [end, code] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (code != std::errc() || end != text.data() + text.size()) {
        result.failBecause("answered with \"" + text + "\" where a " + std::to_string(8 * sizeof(Number)) +
                           "-bit number belongs.");
    }
    return number;
}

}  // namespace

std::vector<HostRecord> readRecords(const DispatchResult& result, std::initializer_list<const char*> fields) {
    if (result.value().type() == VT_BSTR) return unpackedRecords(result, fields.size());
    if (isArray(result.value().get())) return recordsFromArray(result, fields);
    if (result.value().type() != VT_DISPATCH) result.failAsNo("records");
    return recordsFromSet(*adaptRecordSet(result.object()), fields);
}

HostRecord readRecord(const DispatchResult& result, std::initializer_list<const char*> fields) {
    auto records = readRecords(result, fields);
    if (records.size() != 1) {
        result.failBecause("did not answer with one record, but with " + std::to_string(records.size()) +
                           ".");
    }
    return std::move(records.front());
}

std::vector<HostRecord> unpackedRecords(const DispatchResult& result, std::size_t fields) {
    try {
        return unpackRecords(Bstr::units(result.value().get().bstrVal), fields);
    } catch (const Error& error) {
        result.failBecause("answered with a packed text that cannot be read. " + error.description());
    }
}

std::int16_t int16Of(const std::string& text, const DispatchResult& result) {
    return numberOf<std::int16_t>(text, result);
}

std::int32_t int32Of(const std::string& text, const DispatchResult& result) {
    return numberOf<std::int32_t>(text, result);
}

bool flagOf(const std::string& text) {
    return !text.empty() && text != "0" && !equalNoCase(text, "false");
}

VariantArg arrayOf(const std::vector<std::string>& texts) {
    return arrayOfVariants(texts);
}

VariantArg arrayOf(const std::vector<int>& numbers) {
    return arrayOfVariants(std::vector<std::int32_t>(numbers.begin(), numbers.end()));
}

VariantArg arrayOf(const std::vector<ComPtr<IDispatch>>& objects) {
    return arrayOfVariants(objects);
}

VariantArg packedTexts(const std::vector<std::string>& texts) {
    PackedTextWriter writer;
    for (const auto& text : texts)
        writer.add(text);
    return Bstr::ofUnits(writer.text());
}

}  // namespace pellmark
