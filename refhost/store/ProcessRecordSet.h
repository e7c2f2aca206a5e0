#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "knowledge/MemoryRecordSet.h"
#include "refhost/store/KnowledgeBase.h"
#include "refhost/store/Statement.h"

namespace norvex {

/// All processes by name, read where somebody looks. Count and order are those of the moment of the query: a
/// read transaction on a connection of its own holds them until keys() has been delivered, after which
/// pages are read by row number, four bytes per process. Until then they are read by position.
class ProcessRecordSet : public pellmark::RecordSet {
  public:
    explicit ProcessRecordSet(std::shared_ptr<KnowledgeBase> base);
    ~ProcessRecordSet() override;

    const std::vector<std::string>& fields() const override;
    std::size_t count() override { return count_; }
    std::string text(std::size_t record, std::size_t field) override;
    std::optional<std::vector<pellmark::Guid>> keys() override;

  private:
    struct Page {
        std::size_t number;
        pellmark::MemoryRecordSet records;
    };
    void readKeys(std::vector<pellmark::Guid>& ids);
    pellmark::MemoryRecordSet& page(std::size_t number);
    std::list<Page>::iterator findPage(std::size_t number);
    void readByPosition(Page& page);
    void readByRow(Page& page);
    /// Reads records `at` to `end` in the order of the list as long as it is still the order of the query;
    /// where that ends.
    std::size_t readFollowing(Page& page, pellmark::MemoryRecordSet& before, std::size_t at, std::size_t end);

    std::shared_ptr<KnowledgeBase> base_;
    std::shared_ptr<Connection> reader_;
    std::unique_ptr<Transaction> view_;  ///< until keys() has been delivered
    std::size_t count_ = 0;
    std::vector<std::uint32_t> rows_;  ///< the row number of each process, once they are known
    std::list<Page> pages_;            ///< last used first
};

}  // namespace norvex
