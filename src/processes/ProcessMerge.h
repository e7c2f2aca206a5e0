#pragma once

#include <string>
#include <vector>

#include "knowledge/Records.h"

namespace pellmark {

/// A field that two people have changed, each to something else.
struct ContestedField {
    const char* label;   ///< its caption in English
    std::string theirs;  ///< as it is shown
};

struct MergedProcess {
    ProcessRecord record;
    std::vector<ContestedField> contested;  ///< those in which `record` holds what the person wants
};

/// What a person has made of a process, over what somebody else has made of it meanwhile: both began with
/// `before`. A field that only one of them has changed holds that change.
MergedProcess mergedProcess(const ProcessRecord& before, const ProcessRecord& mine,
                            const ProcessRecord& theirs);

}  // namespace pellmark
