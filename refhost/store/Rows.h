#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "refhost/store/Connection.h"

namespace norvex {

/// Records of one kind: their table, and what a person is told when one of them is gone. An id says nothing
/// to a person, so the text has none.
struct RecordKind {
    const char* table;
    const char* gone;
};

namespace kind {
inline constexpr RecordKind kProcess{"process", sentence("The process no longer exists.")};
inline constexpr RecordKind kStep{"process_step", sentence("The process step no longer exists.")};
inline constexpr RecordKind kFeatureCase{"feature_case", sentence("The feature case no longer exists.")};
inline constexpr RecordKind kFeatureType{"feature_type", sentence("The feature type no longer exists.")};
inline constexpr RecordKind kKey{"feature_key", sentence("The key no longer exists.")};
inline constexpr RecordKind kValue{"feature_value", sentence("The value no longer exists.")};
inline constexpr RecordKind kMaterial{"material", sentence("The material no longer exists.")};
inline constexpr RecordKind kMaterialClass{"material_class",
                                           sentence("The material class no longer exists.")};
}  // namespace kind

/// The row number behind a record's id; nothing when there is no such record. The table must have the columns
/// row and id.
std::optional<std::int64_t> findRow(Connection& connection, const std::string& table, const std::string& id);

/// As findRow, but throws pellmark::Error (kNotFound) when there is none.
std::int64_t requireRow(Connection& connection, const RecordKind& kind, const std::string& id);

/// `gone` says which record it is; what to do about it is added.
[[noreturn]] void throwNotFound(Sentence gone);

}  // namespace norvex
