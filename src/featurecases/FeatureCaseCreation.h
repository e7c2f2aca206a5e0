#pragma once

#include <optional>
#include <string>

#include "knowledge/KnowledgeBaseService.h"

namespace pellmark {

/// Creates feature cases, value by value, as the knowledge base takes them. A case whose values could not all
/// be added is remembered: the next attempt at the same case completes it instead of making another. One per
/// Application object.
class FeatureCaseCreation {
  public:
    explicit FeatureCaseCreation(KnowledgeBaseService& knowledgeBase) : knowledgeBase_(knowledgeBase) {}

    /// The id of the new feature case, with all its values. Throws what the knowledge base throws.
    std::string create(const FeatureCaseDescription& description);

  private:
    struct Unfinished {
        std::string id;
        FeatureCaseDescription description;
    };

    KnowledgeBaseService& knowledgeBase_;
    std::optional<Unfinished> unfinished_;
};

}  // namespace pellmark
