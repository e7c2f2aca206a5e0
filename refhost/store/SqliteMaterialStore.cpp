#include "refhost/store/SqliteMaterialStore.h"

#include <utility>

#include "knowledge/MemoryRecordSet.h"
#include "refhost/store/Statement.h"

namespace norvex {

namespace field = pellmark::field;

SqliteMaterialStore::SqliteMaterialStore(std::shared_ptr<KnowledgeBase> base) : base_(std::move(base)) {}

std::shared_ptr<pellmark::RecordSet> SqliteMaterialStore::materials() {
    auto records = std::make_shared<pellmark::MemoryRecordSet>(
        std::vector<std::string>{field::kId, field::kName, field::kPartMaterialGroupId});
    Statement list(base_->connection(),
                   "SELECT m.id, m.name, c.id FROM material m "
                   "LEFT JOIN material_class c ON c.row = m.material_class "
                   "ORDER BY m.name COLLATE NOCASE, m.id");
    while (list.step())
        records->addRow(list.guid(0), {list.view(1), list.id(2)});
    return records;
}

}  // namespace norvex
