#include "featurecases/FeatureCaseCreation.h"

namespace pellmark {

std::string FeatureCaseCreation::create(const FeatureCaseDescription& description) {
    FeatureCaseStore& store = knowledgeBase_.featureCaseStore();
    if (!unfinished_ || unfinished_->description != description) {
        unfinished_.reset();
        unfinished_ = Unfinished{store.createFeatureCase(description), description};
    }
    std::string id = unfinished_->id;
    for (const std::string& value : description.valueIds)
        store.addValue(value, id);
    unfinished_.reset();
    return id;
}

}  // namespace pellmark
