#pragma once

#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "automation/DispatchObject.h"
#include "knowledge/KnowledgeBaseService.h"

namespace norvex {

/// The automation objects of the host in this process: the host application and its knowledge base.
class HostSession {
  public:
    /// `mainWindow` is the area that embedded views are placed in.
    explicit HostSession(HWND mainWindow);

    /// Opens the knowledge base file, or the configured one for "". Throws pellmark::Error with a text for
    /// the user when that is impossible; the session is then without one.
    void open(const std::string& file);
    std::string knowledgeBaseFile();
    /// The knowledge base for the host's own dialogs; null when it could not be opened.
    pellmark::KnowledgeBaseService* knowledgeBase() { return knowledgeBase_.get(); }

    /// The knowledge base that is open can be looked at, but not changed.
    bool isReadOnly() const { return isReadOnly_; }

    std::vector<std::string> users();
    std::string user();
    void setUser(const std::string& name);
    std::int16_t language();
    void setLanguage(std::int16_t code);
    std::int16_t unit();
    void setUnit(std::int16_t code);

    /// What is handed to the component with each call.
    const pellmark::ComPtr<IDispatch>& application() const { return application_.pointer(); }

  private:
    pellmark::DispatchObject application_;
    std::unique_ptr<pellmark::DispatchObject> service_;
    std::unique_ptr<pellmark::KnowledgeBaseService> knowledgeBase_;
    bool isReadOnly_ = false;
};

/// A new object of a class, in-process. Throws pellmark::Error naming the class when that fails.
pellmark::DispatchObject createObject(const char* progId);

}  // namespace norvex
