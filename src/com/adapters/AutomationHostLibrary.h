#pragma once

#include "ports/HostInterfaces.h"

namespace pellmark {

/// Creates the host's services by their ProgIDs, in-process. A class that is not registered, or that fails to
/// start, throws errors::kHostInterface with the ProgID in its text.
class AutomationHostLibrary : public HostLibrary {
  public:
    std::unique_ptr<KnowledgeBaseService> createKnowledgeBaseService() override;
    std::unique_ptr<TranslationService> createTranslationService() override;
    std::unique_ptr<LanguageConverter> createLanguageConverter() override;
    std::unique_ptr<TechnologyService> createTechnologyService() override;
};

}  // namespace pellmark
