#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "knowledge/KnowledgeBaseService.h"

/// One suite for every knowledge base. A test program compiles the sources of the suite (this one's and those
/// of the stores) together with one of its own that defines contractFactories(); the suite then runs once for
/// each entry.
namespace pellmark::test {

/// A knowledge base under test, empty but for one user who may do everything, and the means to fill what the
/// interface only reads.
class ContractSubject {
  public:
    virtual ~ContractSubject() = default;
    virtual KnowledgeBaseService& service() = 0;
    /// Another way to the same data, a connection of its own where there are connections.
    virtual KnowledgeBaseService& secondService() = 0;

    // Fillers; those that return a text return the new id.
    virtual void restrictUser(bool mayEdit, bool mayAdd, bool mayDelete) = 0;
    virtual void protectProcess(const std::string& processId) = 0;
    virtual std::string addMaterialClass(const std::string& name) = 0;
    virtual std::string addMaterial(const std::string& name, const std::string& classId) = 0;
    virtual void addNvxFeatureType(std::int16_t id, const std::string& name) = 0;
    virtual std::string addPartType(const std::string& name) = 0;
    virtual std::string addFeatureType(const std::string& name, std::int16_t nvxFeatureType,
                                       const std::string& partTypeId, std::int16_t unitCode) = 0;
    virtual std::string addKey(const std::string& featureTypeId, const std::string& name) = 0;
    virtual std::string addKeyValue(const std::string& keyId, const std::string& name) = 0;
    /// What the host does when it has learnt where the technology of a step comes from.
    virtual void setTechnologySource(const std::string& stepId, TechnologySource source) = 0;
    virtual void addCuttingCycle(std::int16_t id, const std::string& name, int type) = 0;
};

struct ContractFactory {
    std::string name;  ///< letters and digits; part of the tests' names
    std::function<std::unique_ptr<ContractSubject>()> make;
};

inline void PrintTo(const ContractFactory& factory, std::ostream* out) {
    *out << factory.name;
}

/// Defined by the test program.
std::vector<ContractFactory> contractFactories();

}  // namespace pellmark::test
