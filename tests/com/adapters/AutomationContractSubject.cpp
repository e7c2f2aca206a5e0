// The contract of every knowledge base, over the whole boundary: the component's adapters, Norvex.dll's
// automation objects, and the SQLite store behind them.
#include "com/adapters/KnowledgeBaseAdapter.h"
#include "contract/KnowledgeBaseContract.h"
#include "contract/SqliteContractSubject.h"
#include "refhost/automation/NorvexLibrary.h"

namespace pellmark::test {

namespace {

class AutomationContractSubject : public SqliteContractSubject {
  public:
    KnowledgeBaseService& service() override { return first_; }
    KnowledgeBaseService& secondService() override { return second_; }

  private:
    DispatchObject make() {
        NorvexLibrary::useKnowledgeBase(path());
        return {library_.create(L"Norvex.KnowledgeBaseService"), "Norvex.KnowledgeBaseService"};
    }

    NorvexLibrary library_;
    KnowledgeBaseAdapter first_{make()};
    KnowledgeBaseAdapter second_{make()};
};

}  // namespace

std::vector<ContractFactory> contractFactories() {
    return {{"Automation", [] { return std::make_unique<AutomationContractSubject>(); }}};
}

}  // namespace pellmark::test
