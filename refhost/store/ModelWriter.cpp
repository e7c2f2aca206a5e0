#include "refhost/store/ModelWriter.h"

#include "base/Guid.h"
#include "refhost/store/Rows.h"
#include "refhost/store/Statement.h"

namespace norvex {

using pellmark::Guid;

void ModelWriter::addUser(const std::string& name, bool mayEdit, bool mayAdd, bool mayDelete) {
    Statement add(connection_, "INSERT INTO user_account VALUES (?, ?, ?, ?)");
    add.bind(name).bind(std::int64_t{mayEdit}).bind(std::int64_t{mayAdd}).bind(std::int64_t{mayDelete}).run();
}

std::string ModelWriter::addMaterialClass(const std::string& name) {
    return addNamed("material_class", name);
}

std::string ModelWriter::addMaterial(const std::string& name, const std::string& classId) {
    return addOwned("material", name, "material_class",
                    requireRow(connection_, kind::kMaterialClass, classId));
}

void ModelWriter::addNvxFeatureType(std::int16_t id, const std::string& name) {
    Statement add(connection_, "INSERT INTO nvx_feature_type VALUES (?, ?)");
    add.bind(std::int64_t{id}).bind(name).run();
}

std::string ModelWriter::addPartType(const std::string& name) {
    return addNamed("part_type", name);
}

std::string ModelWriter::addFeatureType(const std::string& name, std::int16_t nvxFeatureType,
                                        const std::string& partTypeId, std::int16_t unitCode) {
    const Guid id = Guid::random();
    Statement add(connection_,
                  "INSERT INTO feature_type (id, name, nvx_feature_type, part_type, unit) "
                  "VALUES (?, ?, ?, (SELECT row FROM part_type WHERE id = ?), ?)");
    add.bind(id).bind(name).bind(std::int64_t{nvxFeatureType}).bindId(partTypeId);
    if (unitCode < 0) {
        add.bindNull();
    } else {
        add.bind(std::int64_t{unitCode});
    }
    add.run();
    return id.text();
}

std::string ModelWriter::addKey(const std::string& featureTypeId, const std::string& name) {
    return addOwned("feature_key", name, "feature_type",
                    requireRow(connection_, kind::kFeatureType, featureTypeId));
}

std::string ModelWriter::addValue(const std::string& keyId, const std::string& name) {
    return addOwned("feature_value", name, "feature_key", requireRow(connection_, kind::kKey, keyId));
}

void ModelWriter::addCuttingCycle(std::int16_t id, const std::string& name, int type) {
    Statement add(connection_, "INSERT INTO cutting_cycle VALUES (?, ?, ?)");
    add.bind(std::int64_t{id}).bind(name).bind(std::int64_t{type}).run();
}

void ModelWriter::protectProcess(const std::string& processId) {
    Statement protect(connection_, "UPDATE process SET protected = 1 WHERE row = ?");
    protect.bind(requireRow(connection_, kind::kProcess, processId)).run();
}

std::string ModelWriter::addNamed(const std::string& table, const std::string& name) {
    const Guid id = Guid::random();
    Statement add(connection_, "INSERT INTO " + table + " (id, name) VALUES (?, ?)");
    add.bind(id).bind(name).run();
    return id.text();
}

std::string ModelWriter::addOwned(const std::string& table, const std::string& name,
                                  const std::string& ownerColumn, std::int64_t ownerRow) {
    const Guid id = Guid::random();
    Statement add(connection_, "INSERT INTO " + table + " (id, name, " + ownerColumn + ") VALUES (?, ?, ?)");
    add.bind(id).bind(name).bind(ownerRow).run();
    return id.text();
}

}  // namespace norvex
