#pragma once

#include <string>

#include "knowledge/KnowledgeBaseService.h"

namespace pellmark {

/// Stands in for the host's service where it could not be created: not connected, and every question throws
/// Error (knowledge base) with the reason.
class AbsentKnowledgeBase : public KnowledgeBaseService {
  public:
    explicit AbsentKnowledgeBase(std::string reason) : reason_(std::move(reason)) {}

    bool isConnected() override { return false; }
    UserRights& userRights() override { fail(); }
    ProcessStore& processStore() override { fail(); }
    FeatureCaseStore& featureCaseStore() override { fail(); }
    MaterialStore& materialStore() override { fail(); }
    ProcessStepStore& stepStore() override { fail(); }

  private:
    [[noreturn]] void fail() const;

    std::string reason_;
};

}  // namespace pellmark
