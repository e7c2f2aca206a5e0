#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/Guid.h"

namespace pellmark {

/// The answer to a query: a fixed number of records with named fields, read a cell at a time and only where
/// somebody looks. It shows the records as they were when the query ran; a record that has been deleted
/// since may read as empty texts.
class RecordSet {
  public:
    virtual ~RecordSet() = default;

    /// Field names in order; looked up without case (see fieldIndex).
    virtual const std::vector<std::string>& fields() const = 0;
    virtual std::size_t count() = 0;

    /// One field of one record as UTF-8 text; numbers in decimal, null as "". Implementations over a
    /// store read whole pages and keep the last few.
    virtual std::string text(std::size_t record, std::size_t field) = 0;
    /// Appends the same to a text; where the text is held anyway, without making a string of it first.
    virtual void appendText(std::size_t record, std::size_t field, std::string& out) {
        out += text(record, field);
    }

    /// The `_Id` of every record, in order, in one block. Nothing when there is no such field or an id is
    /// not a GUID: the caller then asks record by record. May be costly; called once at most.
    virtual std::optional<std::vector<Guid>> keys() = 0;

    /// True where the answer ends early: more records belong to it, but finding them all would take too long.
    virtual bool hasMore() { return false; }

    /// Position of a field by its name, case ignored; nothing when there is no such field.
    std::optional<std::size_t> fieldIndex(std::string_view name) const;

    /// The same of a field that must be there. Throws errors::kHostInterface, which names the field and the
    /// record set: another field in its place would show, or store, what nobody meant.
    std::size_t requireField(std::string_view name) const;

    /// What errors call the record set: where a host answered with it.
    virtual std::string origin() const { return "RecordSet"; }
};

}  // namespace pellmark
