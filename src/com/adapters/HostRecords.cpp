#include "com/adapters/HostRecords.h"

#include <charconv>

#include "com/adapters/HostRecordSet.h"
#include "knowledge/PackedText.h"

namespace pellmark {

namespace {

bool isArray(const VariantArg& value) {
    return (value.type() & VT_ARRAY) != 0;
}

/// The elements of a one-dimensional array of any element type.
std::vector<VariantArg> elementsOf(const VariantArg& value, const DispatchResult& result) {
    SAFEARRAY* array = value.get().parray;
    std::vector<VariantArg> elements;
    if (array == nullptr) return elements;
    const VARTYPE type = value.type() & VT_TYPEMASK;
    if (SafeArrayGetDim(array) != 1) result.failBecause("answered with an array of several dimensions.");
    if (type == VT_RECORD) result.failBecause("answered with structures, which cannot be read by name.");
    LONG lower = 0;
    LONG upper = -1;
    SafeArrayGetLBound(array, 1, &lower);
    SafeArrayGetUBound(array, 1, &upper);
    for (LONG at = lower; at <= upper; ++at) {
        VariantArg element;
        HRESULT code = S_OK;
        if (type == VT_VARIANT) {
            code = SafeArrayGetElement(array, &at, &element.get());
        } else {
            code = SafeArrayGetElement(array, &at, &element.get().byref);
            if (SUCCEEDED(code)) element.get().vt = type;
        }
        if (FAILED(code)) result.failBecause("answered with an array that cannot be read.");
        elements.push_back(VariantArg::dereferenced(element.get()));
    }
    return elements;
}

HostRecord recordFrom(const std::vector<VariantArg>& values, std::size_t fields,
                      const DispatchResult& result) {
    if (values.size() != fields) {
        result.failBecause("answered with a record of " + std::to_string(values.size()) +
                           " values instead of " + std::to_string(fields) + ".");
    }
    HostRecord record;
    for (const auto& value : values)
        record.push_back(DispatchResult(value, result.member()).text());
    return record;
}

std::vector<HostRecord> recordsFromArray(const DispatchResult& result, std::size_t fields) {
    const auto elements = elementsOf(result.value(), result);
    std::vector<HostRecord> records;
    if (elements.empty()) return records;
    if (!isArray(elements.front()) && fields == 1) {
        // records of one field need no array each
        for (const auto& element : elements)
            records.push_back(recordFrom({element}, fields, result));
        return records;
    }
    if (!isArray(elements.front())) {
        records.push_back(recordFrom(elements, fields, result));
        return records;
    }
    for (const auto& element : elements) {
        if (!isArray(element)) result.failBecause("mixed records and values in one array.");
        records.push_back(recordFrom(elementsOf(element, result), fields, result));
    }
    return records;
}

std::vector<HostRecord> recordsFromSet(RecordSet& set, const DispatchResult& result,
                                       std::initializer_list<const char*> fields) {
    std::vector<std::size_t> positions;
    for (const char* name : fields) {
        const auto position = set.fieldIndex(name);
        if (!position)
            result.failBecause(std::string("answered with a record set that lacks the field ") + name + ".");
        positions.push_back(*position);
    }
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
    if (result.value().type() == VT_BSTR)
        return unpackRecords(unitsOf(result.value().get().bstrVal), fields.size());
    if (isArray(result.value())) return recordsFromArray(result, fields.size());
    if (result.value().type() != VT_DISPATCH) result.failBecause("did not answer with records.");
    return recordsFromSet(*adaptRecordSet(result.object()), result, fields);
}

HostRecord readRecord(const DispatchResult& result, std::initializer_list<const char*> fields) {
    auto records = readRecords(result, fields);
    if (records.size() != 1) result.failBecause("did not answer with one record.");
    return std::move(records.front());
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
    const std::u16string& packed = writer.text();
    BSTR units =
        SysAllocStringLen(reinterpret_cast<const wchar_t*>(packed.data()), static_cast<UINT>(packed.size()));
    if (units == nullptr) throw std::bad_alloc();
    return Bstr::adopt(units);
}

}  // namespace pellmark
