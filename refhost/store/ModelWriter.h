#pragma once

#include <cstdint>
#include <string>

#include "refhost/store/Connection.h"

namespace norvex {

/// Fills the parts of a knowledge base that its users do not edit: accounts, materials, feature types with
/// their keys and values, cutting cycles. Ids are GUID text; adders without an id argument return a new one.
class ModelWriter {
  public:
    explicit ModelWriter(Connection& connection) : connection_(connection) {}

    void addUser(const std::string& name, bool mayEdit, bool mayAdd, bool mayDelete);
    std::string addMaterialClass(const std::string& name);
    std::string addMaterial(const std::string& name, const std::string& classId);
    void addNvxFeatureType(std::int16_t id, const std::string& name);
    std::string addPartType(const std::string& name);
    /// An empty part type and a negative unit fit every one.
    std::string addFeatureType(const std::string& name, std::int16_t nvxFeatureType,
                               const std::string& partTypeId, std::int16_t unitCode);
    std::string addKey(const std::string& featureTypeId, const std::string& name);
    std::string addValue(const std::string& keyId, const std::string& name);
    void addCuttingCycle(std::int16_t id, const std::string& name, int type);
    /// A protected process is not deleted.
    void protectProcess(const std::string& processId);

  private:
    std::string addNamed(const std::string& table, const std::string& name);
    std::string addOwned(const std::string& table, const std::string& name, const std::string& ownerColumn,
                         std::int64_t ownerRow);

    Connection& connection_;
};

}  // namespace norvex
