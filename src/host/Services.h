#pragma once

#include <memory>
#include <string>

#include "featurecases/FeatureCaseCreation.h"
#include "host/CurrentHost.h"
#include "host/HTMLHelp.h"
#include "host/Platform.h"
#include "host/ViewServices.h"
#include "settings/cQDLExtSettings.h"
#include "settings/cRegDefaults.h"
#include "util/Rights.h"
#include "util/Texts.h"
#include "util/UserInterface.h"
#include "util/cCommonDialog.h"
#include "util/cFileIO.h"
#include "util/cVSGridOps.h"

namespace pellmark {

/// The objects that live once per Application. It hands them, one by one, to whoever works with them.
class Services {
  public:
    explicit Services(const Platform& platform);
    Services(const Services&) = delete;
    Services& operator=(const Services&) = delete;

    /// What every public call sets anew: the language, the title (in English) and the table of texts.
    void configureTexts(HostApplication& host, const std::string& englishTitle);
    /// The host object of the call, and the help file that belongs to it.
    void take(const std::shared_ptr<HostApplication>& host);
    /// False also when the host's service could not be created.
    bool isConnected();
    /// Why the host's knowledge-base service could not be created at all; "" when it was.
    const std::string& missingKnowledgeBase() const { return missingKnowledgeBase_; }

    ViewServices forViews();

  private:
    std::string helpFileOf(HostApplication& host);
    std::unique_ptr<KnowledgeBaseService> createKnowledgeBase();
    std::unique_ptr<TechnologyService> createTechnology();

    Platform platform_;
    std::string missingKnowledgeBase_;
    std::unique_ptr<KnowledgeBaseService> knowledgeBase_;
    std::unique_ptr<TechnologyService> technology_;
    std::unique_ptr<LanguageConverter> languages_;

  public:
    cFileIO files;
    cQDLExtSettings settings;
    cRegDefaults layouts;
    cCommonDialog dialogs;
    Texts texts;
    HTMLHelp help;
    UserInterface person;
    cVSGridOps gridOps;
    Rights rights;
    CurrentHost host;
    FeatureCaseCreation creation;
};

}  // namespace pellmark
