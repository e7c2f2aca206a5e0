#include "store/FindBench.h"

#include <algorithm>
#include <memory>
#include <string>

#include "knowledge/Records.h"
#include "knowledge/RowQuery.h"

namespace bench {

namespace {

namespace field = pellmark::field;
using pellmark::RowQuery;

constexpr int kRepetitions = 7;
constexpr std::size_t kScreen = 40;
volatile std::size_t sink = 0;

RowQuery looking(const std::string& text, const std::string& sortField = {}) {
    RowQuery query;
    query.text = text;
    query.fields = {field::kName, field::kRule, field::kDescription};
    query.sortField = sortField;
    return query;
}

void readScreen(pellmark::RecordSet& records) {
    for (std::size_t row = 0; row < std::min(records.count(), kScreen); ++row) {
        for (std::size_t at = 0; at < records.fields().size(); ++at)
            sink = sink + records.text(row, at).size();
    }
}

}  // namespace

void findAndSort(Table& table, norvex::SqliteKnowledgeBaseService& service, std::size_t count) {
    auto& store = service.processStore();
    const std::string among = " among " + std::to_string(count);
    const auto shown = store.processes("");
    shown->keys();
    const auto measure = [&](const std::string& what, const RowQuery& query, const char* budget) {
        std::size_t found = 0;
        std::string more;
        const double time = medianMilliseconds(kRepetitions, [&] {
            const auto answer = store.findProcesses(query);
            readScreen(*answer);
            found = answer->count();
            more = answer->hasMore() ? "+" : "";
        });
        table.add({what + among + ": " + std::to_string(found) + more, number(time) + " ms", "", "", budget});
    };
    for (const char* text : {"no. 9912", "M10", "titanium", "drill", "ill", "m", "99", "zq"})
        measure("\"" + std::string(text) + "\"", looking(text), "100 ms");
    measure("sorted by name", looking("", field::kName), "");
    // The order that the list on the screen has is known.
    const auto sorted = store.findProcesses(looking("", field::kName));
    measure("\"drill\" in a list sorted by name", looking("drill", field::kName), "100 ms");
    measure("\"m\" in a list sorted by name", looking("m", field::kName), "100 ms");
}

}  // namespace bench
