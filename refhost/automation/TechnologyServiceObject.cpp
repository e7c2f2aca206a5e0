#include "refhost/automation/TechnologyServiceObject.h"

#include "automation/ArrayReader.h"
#include "automation/Coercion.h"
#include "refhost/automation/HostConfiguration.h"
#include "refhost/automation/Identifiers.h"
#include "refhost/automation/ProcessFileObject.h"
#include "refhost/store/CuttingData.h"
#include "refhost/technology/ProcessFileWriter.h"

namespace norvex {

using pellmark::ComPtr;
using pellmark::VariantArg;

namespace {

constexpr std::int32_t kAccepted = 1;
constexpr std::int32_t kCancelled = 0;

HWND windowFrom(std::int32_t handle) {
    return reinterpret_cast<HWND>(static_cast<std::intptr_t>(handle));
}

/// The objects of an array.
std::vector<VariantArg> elementsOf(const VARIANT& argument) {
    const pellmark::ArrayReader array(pellmark::innermost(argument));
    std::vector<VariantArg> elements;
    for (std::size_t at = 0; at < array.size(); ++at)
        elements.push_back(VariantArg::dereferenced(array[at]));
    return elements;
}

}  // namespace

TechnologyServiceObject::TechnologyServiceObject()
    : AutomationObject("Norvex.TechnologyService", kTechnologyService),
      session_(configuration::knowledgeBaseFile()) {
    method(1, L"Create", 2, [this](const Arguments& call) { return create(call); });
    method(2, L"Edit", 2, [this](const Arguments& call) {
        const bool isAccepted =
            show(TechnologyWindow::Style::Editor, TechnologyObject::from(call.value(0)), call.int32(1));
        return VariantArg(isAccepted ? kAccepted : kCancelled);
    });
    method(3, L"RunStepWizard", 2, [this](const Arguments& call) {
        TechnologyObject& technology = TechnologyObject::from(call.value(0));
        const bool isFinished = show(TechnologyWindow::Style::Wizard, technology, call.int32(1));
        if (isFinished) technology.operation().takeAsStep();
        return VariantArg(isFinished);
    });
    method(4, L"OpenFile", 1,
           [](const Arguments& call) { return makeObject<ProcessFileObject>(call.text(0)); });
    method(5, L"WriteFile", 2, [this](const Arguments& call) { return write(call); });
    property(6, L"DefaultFolder", [](const Arguments&) { return configuration::processFolder(); });
    method(7, L"StepStored", 2, [this](const Arguments& call) {
        stepStored(call);
        return VariantArg();
    });
}

VariantArg TechnologyServiceObject::create(const Arguments& call) {
    const std::string processId = call.text(1);
    std::int16_t unitCode = configuration::currentUnit();
    char materialClass = 0;
    if (!processId.empty()) {
        unitCode = session_.service().processStore().process(processId).Unit;
        materialClass = materialClassOf(processId);
    }
    return makeObject<TechnologyObject>(Operation::withDefaults(call.int16(0), unitCode), materialClass);
}

char TechnologyServiceObject::materialClassOf(const std::string& processId) {
    const auto materials = session_.service().processStore().materialsOf(processId);
    if (materials->count() == 0) return 0;
    const std::string wanted = materials->text(0, materials->fieldIndex("_PartMaterialGroupId").value());
    const auto classes = session_.service().featureCaseStore().materialClasses();
    for (std::size_t at = 0; at < classes->count(); ++at) {
        const std::string name = classes->text(at, 1);
        if (classes->text(at, 0) == wanted && !name.empty()) return name.front();
    }
    return 0;
}

bool TechnologyServiceObject::show(TechnologyWindow::Style style, TechnologyObject& technology,
                                   std::int32_t owner) {
    // The person may let go of the last reference from the host's own windows meanwhile.
    const ComPtr<IDispatch> alive(&technology);
    OperationEditor editor(
        technology.operation(), readCuttingData(session_.service().base()->connection()),
        [texts = configuration::texts()](const std::string& english) { return texts.of(english); });
    TechnologyWindow window(style, std::move(editor), technology.materialClass());
    if (!window.show(windowFrom(owner))) return false;
    technology.operation() = window.operation();
    return true;
}

bool TechnologyServiceObject::write(const Arguments& call) {
    const auto elements = elementsOf(call.value(1));
    std::vector<const Operation*> operations;
    operations.reserve(elements.size());
    for (const VariantArg& element : elements)
        operations.push_back(&TechnologyObject::from(element.get()).operation());
    return saveProcessFile(call.text(0), operations);
}

void TechnologyServiceObject::stepStored(const Arguments& call) {
    const Operation& operation = TechnologyObject::from(call.value(1)).operation();
    session_.service().stepStore().setTechnologySource(call.text(0), operation.source());
}

}  // namespace norvex
