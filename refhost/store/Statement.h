#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "base/Guid.h"
#include "refhost/store/Connection.h"

namespace norvex {

/// A prepared statement, taken from its connection's cache and given back at the end of the scope.
///
///     Statement find(connection, "SELECT name FROM process WHERE id = ?");
///     find.bind(id);
///     if (find.step()) return find.text(0);
class Statement {
  public:
    /// The text may be a temporary one.
    Statement(Connection& connection, std::string sql);
    ~Statement();
    Statement(const Statement&) = delete;
    Statement& operator=(const Statement&) = delete;

    /// Parameters in their order. Bound views must live until reset() or the end of the scope.
    Statement& bind(std::int64_t value);
    Statement& bind(double value);
    Statement& bind(std::string_view text);
    Statement& bind(const pellmark::Guid& id);
    Statement& bindNull();
    /// The id that the text names, or null when it names none.
    Statement& bindId(const std::string& id);

    /// True while there is a row; throws pellmark::Error.
    bool step();
    /// Runs a statement without a result.
    void run();
    /// Ready for new parameters.
    void reset();

    bool isNull(int column) const;
    std::int64_t integer(int column) const;
    double real(int column) const;
    /// Whatever the column holds as UTF-8 text; null is "". Valid until the next step.
    std::string_view view(int column) const;
    std::string text(int column) const { return std::string(view(column)); }
    /// A null or a blob of another size is the nil GUID.
    pellmark::Guid guid(int column) const;
    /// Registry form; "" for the nil GUID.
    std::string id(int column) const;

  private:
    void check(int result) const;

    Connection& connection_;
    std::string sql_;
    sqlite3_stmt* statement_ = nullptr;
    int next_ = 1;
};

}  // namespace norvex
