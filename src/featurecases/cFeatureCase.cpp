#include "featurecases/cFeatureCase.h"

namespace pellmark {

cFeatureCase::cFeatureCase(Component& component) : component_(component) {}
cFeatureCase::~cFeatureCase() = default;
void cFeatureCase::Init(FrmMain&) {}
std::int16_t cFeatureCase::GetFTUnit() {
    return unit::kNone;
}
std::string cFeatureCase::GetCurrentFeatureType() {
    return "-1";
}
FeatureCaseDescription cFeatureCase::description() {
    return {};
}
std::string cFeatureCase::existingOrNewFeatureCase() {
    return {};
}

}  // namespace pellmark
