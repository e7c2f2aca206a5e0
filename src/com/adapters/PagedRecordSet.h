#pragma once

#include <cstddef>
#include <exception>
#include <list>
#include <optional>
#include <string>
#include <vector>

#include "com/adapters/HostRecordSet.h"

namespace pellmark {

/// A record set of the host that answers in pages of packed text. What a list shows lies in one page or two,
/// so the number of calls follows the screen and never the number of records. A page that failed is kept like
/// any other and throws the same error again: a list that is painted over and over must not knock at a host
/// that is in trouble each time, and an export must not take empty cells for the host's.
class PagedRecordSet : public HostRecordSet {
  public:
    static constexpr std::size_t kPageRecords = 256;
    static constexpr std::size_t kKeptPages = 16;

    explicit PagedRecordSet(DispatchObject object) : HostRecordSet(std::move(object)) {}

    std::size_t count() override;
    std::string text(std::size_t record, std::size_t field) override;
    void appendText(std::size_t record, std::size_t field, std::string& out) override;
    std::optional<std::vector<Guid>> keys() override;

  private:
    struct Page {
        std::size_t number = 0;
        std::vector<std::vector<std::string>> records;
        std::exception_ptr failure;
    };

    const Page& page(std::size_t number);
    Page fetch(std::size_t number);

    std::optional<std::size_t> count_;
    std::list<Page> pages_;              ///< most recently used first
    std::vector<std::size_t> fetching_;  ///< pages that the host is being asked for
};

}  // namespace pellmark
