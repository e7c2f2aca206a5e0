#include "support/FakeHost.h"

namespace pellmark::test {

namespace {

class Counted {
  public:
    explicit Counted(int& alive) : alive_(alive) { ++alive_; }
    ~Counted() { --alive_; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

  private:
    int& alive_;
};

class ServiceReference : public KnowledgeBaseService, Counted {
  public:
    ServiceReference(KnowledgeBaseService& target, int& alive) : Counted(alive), target_(target) {}
    bool isConnected() override { return target_.isConnected(); }
    UserRights& userRights() override { return target_.userRights(); }
    ProcessStore& processStore() override { return target_.processStore(); }
    FeatureCaseStore& featureCaseStore() override { return target_.featureCaseStore(); }
    MaterialStore& materialStore() override { return target_.materialStore(); }
    ProcessStepStore& stepStore() override { return target_.stepStore(); }

  private:
    KnowledgeBaseService& target_;
};

class Translation : public TranslationService, Counted {
  public:
    Translation(FakeHostLibrary& library) : Counted(library.alive), library_(library) {}
    void setCallingApplication(const std::string& title) override { note("CallingApplication " + title); }
    void setResourceFile(const std::string& path) override { note("ResourceFile " + path); }
    void setOutputLanguage(std::int16_t code) override { note("OutputLanguage " + std::to_string(code)); }
    std::string GetString(const std::string& english) override {
        if (library_.onCall) library_.onCall("GetString");
        const auto found = library_.translations.find(english);
        return found == library_.translations.end() ? english : found->second;
    }

  private:
    void note(const std::string& call) {
        if (library_.onCall) library_.onCall(call.substr(0, call.find(' ')));
        library_.translationCalls.push_back(call);
    }
    FakeHostLibrary& library_;
};

class Languages : public LanguageConverter, Counted {
  public:
    explicit Languages(FakeHostLibrary& library) : Counted(library.alive), library_(library) {}
    std::int32_t localeOf(std::int16_t) override {
        if (library_.onCall) library_.onCall("LocaleOf");
        return library_.locale;
    }

  private:
    FakeHostLibrary& library_;
};

class TechnologyReference : public TechnologyService, Counted {
  public:
    explicit TechnologyReference(FakeHostLibrary& library)
        : Counted(library.alive), target_(library.technology) {}
    std::unique_ptr<TechnologyObject> create(std::int16_t cuttingCycleId,
                                             const std::string& processId) override {
        return target_.create(cuttingCycleId, processId);
    }
    int edit(TechnologyObject& technology, WindowHandle owner) override {
        return target_.edit(technology, owner);
    }
    bool runStepWizard(TechnologyObject& technology, WindowHandle owner) override {
        return target_.runStepWizard(technology, owner);
    }
    OperationList read(const std::string& path, const Progress& progress) override {
        return target_.read(path, progress);
    }
    bool write(const std::string& path, const OperationList& operations) override {
        return target_.write(path, operations);
    }
    std::string defaultFolder() override { return target_.defaultFolder(); }
    void stored(const std::string& stepId, TechnologyObject& technology) override {
        target_.stored(stepId, technology);
    }

  private:
    FakeTechnologyService& target_;
};

void failWhenMissing(bool missing) {
    if (missing) throw Error(errors::kHostInterface, "Norvex", "The host's library is not registered");
}

}  // namespace

std::unique_ptr<KnowledgeBaseService> FakeHostLibrary::createKnowledgeBaseService() {
    failWhenMissing(missing);
    return std::make_unique<ServiceReference>(knowledgeBase_, alive);
}

std::unique_ptr<TranslationService> FakeHostLibrary::createTranslationService() {
    failWhenMissing(missing);
    return std::make_unique<Translation>(*this);
}

std::unique_ptr<LanguageConverter> FakeHostLibrary::createLanguageConverter() {
    failWhenMissing(missing);
    return std::make_unique<Languages>(*this);
}

std::unique_ptr<TechnologyService> FakeHostLibrary::createTechnologyService() {
    failWhenMissing(missing);
    return std::make_unique<TechnologyReference>(*this);
}

}  // namespace pellmark::test
