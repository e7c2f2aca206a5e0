#pragma once

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <vector>

#include "knowledge/MemoryRecordSet.h"
#include "refhost/store/KnowledgeBase.h"
#include "refhost/store/ProcessOrders.h"
#include "refhost/store/Statement.h"

namespace norvex {

/// All processes by name, read where somebody looks. Count and order are those of the moment of the query: a
/// read transaction on a connection of its own holds them until keys() has been delivered, after which
/// pages are read by row number, four bytes per process. Until then they are read by position. Processes
/// that were found, or sorted, have their row numbers from the start.
class ProcessRecordSet : public pellmark::RecordSet {
  public:
    /// Some processes in an order of their own, known by their row numbers.
    struct Arranged {
        ProcessRows order;  ///< of all; held so that it need not be read again while the list is looked at
        ProcessRows rows;
        std::shared_ptr<Connection> reader;
        bool hasMore = false;
    };

    /// `orders` learns the order of the list once it is known.
    ProcessRecordSet(std::shared_ptr<KnowledgeBase> base, std::shared_ptr<ProcessOrders> orders);
    ProcessRecordSet(std::shared_ptr<KnowledgeBase> base, Arranged arranged);
    ~ProcessRecordSet() override;

    const std::vector<std::string>& fields() const override;
    std::size_t count() override { return count_; }
    std::string text(std::size_t record, std::size_t field) override;
    void appendText(std::size_t record, std::size_t field, std::string& out) override;
    std::optional<std::vector<pellmark::Guid>> keys() override;
    bool hasMore() override { return arranged_.hasMore; }

  private:
    struct Page {
        std::size_t number;
        pellmark::MemoryRecordSet records;
    };
    std::vector<pellmark::Guid> listedKeys();
    std::vector<pellmark::Guid> arrangedKeys();
    void readKeysAlongIndex(std::vector<pellmark::Guid>& ids);
    bool isListed() const { return orders_ != nullptr; }
    pellmark::MemoryRecordSet& page(std::size_t number);
    std::list<Page>::iterator findPage(std::size_t number);
    void readByPosition(Page& page);
    void readByRow(Page& page);
    /// Reads records `at` to `end` in the order of the list as long as it is still the order of the query;
    /// where that ends.
    std::size_t readFollowing(Page& page, pellmark::MemoryRecordSet& before, std::size_t at, std::size_t end);

    std::shared_ptr<KnowledgeBase> base_;
    std::shared_ptr<Connection> reader_;
    std::unique_ptr<Transaction> view_;      ///< until keys() has been delivered
    std::shared_ptr<ProcessOrders> orders_;  ///< null where the processes are arranged
    std::size_t count_ = 0;
    std::int64_t state_ = 0;  ///< of the list, when the query ran
    Arranged arranged_;       ///< its rows are null until they are known
    std::list<Page> pages_;   ///< last used first
};

}  // namespace norvex
