#pragma once

#include "refhost/automation/AutomationObject.h"
#include "refhost/automation/KnowledgeBaseSession.h"
#include "refhost/automation/TechnologyObject.h"
#include "refhost/automation/TechnologyWindow.h"

namespace norvex {

/// "Norvex.TechnologyService": technology objects, the windows in which people change them, and process
/// files.
class TechnologyServiceObject : public AutomationObject {
  public:
    TechnologyServiceObject();

  private:
    pellmark::VariantArg create(const Arguments& arguments);
    bool show(TechnologyWindow::Style style, TechnologyObject& technology, std::int32_t owner);
    bool write(const Arguments& arguments);
    void stepStored(const Arguments& arguments);
    /// Letter of the class of the process's first material; 0 when it has none.
    char materialClassOf(const std::string& processId);

    KnowledgeBaseSession session_;
};

}  // namespace norvex
