#pragma once

#include "knowledge/KnowledgeBaseService.h"
#include "ports/FileSystem.h"
#include "ports/Technology.h"
#include "settings/cQDLExtSettings.h"
#include "util/Rights.h"
#include "util/UserInterface.h"
#include "util/cCommonDialog.h"
#include "util/cFileIO.h"
#include "util/cVSGridOps.h"

namespace pellmark {

/// What the step list works with. All parts are borrowed and outlive it.
struct StepServices {
    UserInterface person;
    Rights& rights;
    KnowledgeBaseService& knowledgeBase;
    TechnologyService& technology;
    cQDLExtSettings& settings;
    cVSGridOps& gridOps;
    cCommonDialog& dialogs;
    cFileIO& fileIO;
    FileSystem& files;
    Idle& idle;
};

}  // namespace pellmark
