#include "featurecases/cFeatureCase.h"

namespace pellmark {

cFeatureCase::cFeatureCase(Component& component) : component_(component) {}
cFeatureCase::~cFeatureCase() = default;

}  // namespace pellmark
