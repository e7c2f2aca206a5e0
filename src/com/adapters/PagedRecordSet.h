#pragma once

#include <cstddef>
#include <list>
#include <optional>
#include <string>
#include <vector>

#include "com/adapters/HostRecordSet.h"

namespace pellmark {

/// A record set of the host that answers in pages of packed text. What a list shows lies in one page or two,
/// so the number of calls follows the screen and never the number of records.
class PagedRecordSet : public HostRecordSet {
  public:
    static constexpr std::size_t kPageRecords = 256;
    static constexpr std::size_t kKeptPages = 16;

    explicit PagedRecordSet(DispatchObject object) : HostRecordSet(std::move(object)) {}

    std::size_t count() override;
    std::string text(std::size_t record, std::size_t field) override;
    std::optional<std::vector<Guid>> keys() override;

  private:
    struct Page {
        std::size_t number = 0;
        std::vector<std::vector<std::string>> records;
    };

    const Page& page(std::size_t number);

    std::optional<std::size_t> count_;
    std::list<Page> pages_;  ///< most recently used first
};

}  // namespace pellmark
