#pragma once

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

#include "knowledge/KnowledgeBaseService.h"
#include "knowledge/Records.h"
#include "refhost/windows/HostTexts.h"

namespace norvex {

/// Lets the user describe a feature case from what the knowledge base offers: the arguments of the
/// component's calls that take one.
class CaseDialog {
  public:
    /// Borrows both.
    CaseDialog(pellmark::KnowledgeBaseService& knowledgeBase, const HostTexts& texts)
        : knowledgeBase_(knowledgeBase), texts_(texts) {}

    /// Nothing after a cancel. Throws pellmark::Error when the knowledge base fails.
    std::optional<pellmark::CaseDescription> show(HWND owner);

  private:
    static INT_PTR CALLBACK procedure(HWND dialog, UINT message, WPARAM wide, LPARAM data);
    INT_PTR handle(UINT message, WPARAM wide);
    INT_PTR command(int control, int notification);
    void fill();
    void fillFeatureTypes();
    void fillValues();
    void take();

    using Ids = std::vector<std::string>;
    void fillCombo(int control, pellmark::RecordSet& records, const char* none, Ids& ids);
    void fillUnits(int control);
    std::string chosen(int control, const Ids& ids) const;
    std::int16_t chosenUnit(int control) const;
    std::int16_t chosenNvxType() const;

    pellmark::KnowledgeBaseService& knowledgeBase_;
    const HostTexts& texts_;
    HWND dialog_ = nullptr;
    std::exception_ptr failure_;
    pellmark::CaseDescription description_;
    Ids nvxTypes_;
    Ids partTypes_;
    Ids featureTypes_;
    Ids materialClasses_;
    Ids values_;
    Ids processes_;
};

}  // namespace norvex
