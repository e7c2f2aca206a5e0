#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <vector>

#include "automation/DispatchObject.h"

namespace pellmark {

using HostRecord = std::vector<std::string>;

/// Reads the records that a member answered with, in any of the accepted forms: packed text, an array of
/// arrays, an array of values (one record, or as many as there are values when a record has one field), an
/// array of structures (VT_RECORD) or a record set, whose fields are found by name. Every record has the
/// given fields in the given order. Throws errors::kHostInterface for anything else.
std::vector<HostRecord> readRecords(const DispatchResult& result, std::initializer_list<const char*> fields);

/// The same where exactly one record is the only sensible answer.
HostRecord readRecord(const DispatchResult& result, std::initializer_list<const char*> fields);

/// The records of a packed text, each with so many fields; an answer that is no text must not come here.
/// Throws errors::kHostInterface with the member's name and the place where the text is malformed.
std::vector<HostRecord> unpackedRecords(const DispatchResult& result, std::size_t fields);

/// A number inside a record; 0 for the empty text. Throws errors::kHostInterface when it is none.
std::int16_t int16Of(const std::string& text, const DispatchResult& result);
std::int32_t int32Of(const std::string& text, const DispatchResult& result);

/// A flag inside a record: everything but "", "0" and "False" is true.
bool flagOf(const std::string& text);

/// An array of variants, which is what scripts can take apart.
VariantArg arrayOf(const std::vector<std::string>& texts);
VariantArg arrayOf(const std::vector<int>& numbers);
VariantArg arrayOf(const std::vector<ComPtr<IDispatch>>& objects);

/// A packed text as an argument.
VariantArg packedTexts(const std::vector<std::string>& texts);

}  // namespace pellmark
