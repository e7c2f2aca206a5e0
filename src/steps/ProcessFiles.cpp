#include "steps/ProcessFiles.h"

#include <utility>

#include "base/Convert.h"
#include "base/Error.h"
#include "base/Text.h"
#include "steps/StepTechnology.h"
#include "util/FrmProgress.h"

namespace pellmark {

namespace {

/// The asterisks behind "txt" and "prc" stand where users of the dialog know them.
constexpr const char* kSaveFilter =
    "Comma Separated Files (*.csv)|*.csv|Tab Delimited File (*.txt)|*.txt*|Process Files (*.prc*)|*.prc|";
/// From this size on, some hundred operations, a person waits long enough to want to see how far it is.
constexpr std::uint64_t kLargeFile = 100'000;

std::string folderOf(const std::string& path) {
    const std::size_t end = path.rfind('\\');
    return end == std::string::npos ? std::string() : path.substr(0, end);
}

std::string extensionOf(const std::string& path) {
    return lowerAscii(path.size() < 3 ? path : path.substr(path.size() - 3));
}

/// Showing every single one would take longer than storing it.
bool isWorthShowing(std::int32_t done) {
    return done % 20 == 0;
}

/// Operations of the host, of which the last one is let go first, however the work on them ends.
struct OperationsOfFile {
    OperationsOfFile() = default;
    OperationsOfFile(const OperationsOfFile&) = delete;
    OperationsOfFile& operator=(const OperationsOfFile&) = delete;
    ~OperationsOfFile() {
        while (!list.empty())
            list.pop_back();
    }
    TechnologyService::OperationList list;
};

}  // namespace

std::string ProcessFiles::askForFile(WindowHandle owner) {
    if (folder_.empty()) folder_ = services_.technology.defaultFolder();
    Texts& texts = services_.person.texts;
    FileDialogRequest request;
    request.title = texts.GetString("Open Prc File");
    request.filter = texts.GetString("Process Files") + " (*.prc)|*.prc|";
    request.initialFolder = folder_;
    request.owner = owner;
    if (!services_.dialogs.VBGetOpenFileName(request)) return {};
    folder_ = folderOf(request.fileName);
    return services_.fileIO.FileExists(request.fileName) ? request.fileName : std::string();
}

void ProcessFiles::import(const std::string& path, const std::string& processId, WindowHandle owner,
                          Import& outcome) {
    if (services_.files.size(path) < kLargeFile) {
        importWith([](std::int32_t, std::int32_t) { return true; }, path, processId, outcome);
        return;
    }
    FrmProgress progress(services_.person, services_.idle,
                         services_.person.texts.GetString("Process steps are being added"));
    progress.run(owner, [&] {
        importWith(
            [&](std::int32_t done, std::int32_t all) {
                if (isWorthShowing(done) && !progress.report(done, all)) outcome.cancelled = true;
                return !outcome.cancelled;
            },
            path, processId, outcome);
    });
}

void ProcessFiles::importWith(const Progress& progress, const std::string& path, const std::string& processId,
                              Import& outcome) {
    OperationsOfFile operations;
    try {
        operations.list = services_.technology.read(path, progress);
    } catch (...) {
        if (!outcome.cancelled) throw;
    }
    if (outcome.cancelled) return;  // what has been read by then is not the whole file
    outcome.all = static_cast<std::int32_t>(operations.list.size());
    for (const auto& operation : operations.list) {
        if (!progress(outcome.added, outcome.all)) break;
        const std::string id = addStep(*operation, processId);
        if (id.empty()) continue;  // the knowledge base has refused it
        if (outcome.firstStepId.empty()) outcome.firstStepId = id;
        ++outcome.added;
    }
}

std::string ProcessFiles::addStep(TechnologyObject& operation, const std::string& processId) {
    ProcessStepStore& store = services_.knowledgeBase.stepStore();
    std::string id = store.addStep({"", operation.operationName(), processId, store.nextPriority(processId),
                                    operation.cuttingCycleId()});
    if (id.empty()) return id;
    const std::int32_t count = operation.count();
    for (std::int32_t position = 1; position <= count; ++position) {
        // A value that cannot be stored must not keep the others out.
        trap(services_.person.operations(), "cProcessSteps::OpenPrc", [&] {
            TechnologyParameter& parameter = operation.parameter(position);
            const std::int16_t kind = parameter.kind();
            if (kind != TechnologyParameter::kKindInput && kind != TechnologyParameter::kKindKept) return;
            const Variant value = parameter.value();
            if (!isEmpty(value)) store.addValue({id, parameter.clCode(), toText(value)});
        });
    }
    trap(services_.person.operations(), "cProcessSteps::OpenPrc",
         [&] { services_.technology.stored(id, operation); });
    return id;
}

void ProcessFiles::save(const Grid& grid, const std::string& processId, const StepIds& stepIds,
                        WindowHandle owner) {
    FileDialogRequest request;
    request.title = "Save As";
    request.filter = kSaveFilter;
    request.defaultExtension = "csv";  // the dialog takes that of the chosen filter where it can
    request.initialFolder = folder_;
    request.owner = owner;
    if (!services_.dialogs.VBGetSaveFileName(request, true)) return;
    folder_ = folderOf(request.fileName);
    const std::string extension = extensionOf(request.fileName);
    if (extension == "prc") writeProcessFile(processId, stepIds, request.fileName);
    if (extension == "csv") saveTable(grid, request.fileName, ',', owner);
    if (extension == "txt") saveTable(grid, request.fileName, '\t', owner);
}

void ProcessFiles::writeProcessFile(const std::string& processId, const StepIds& stepIds,
                                    const std::string& path) {
    if (processId.empty()) {
        services_.person.operations().trace().record("cProcessSteps::Save",
                                                     "no process is selected: no process file is written");
        return;
    }
    bool written = false;
    trap(services_.person.operations(), "cProcessSteps::Save",
         [&] { written = services_.technology.write(path, operationsOf(processId, stepIds())); });
    if (written) return;
    services_.person.show(
        {services_.person.texts.GetString("Failed to save prc file!"), "", MessageIcon::Critical});
}

TechnologyService::OperationList ProcessFiles::operationsOf(const std::string& processId,
                                                            const std::vector<std::string>& stepIds) {
    ProcessStepStore& store = services_.knowledgeBase.stepStore();
    const ProcessRecord process = services_.knowledgeBase.processStore().process(processId);
    TechnologyService::OperationList operations;
    for (const std::string& id : stepIds) {
        const ProcessStepRecord step = store.step(id);
        auto operation = services_.technology.create(step.cuttingCycleId, process.Id);
        handOver(*operation, storedValues(*store.values(step.id)), Quotes::Keep);
        // Last: a name among the values is the one that the step had when they were stored.
        operation->setOperationName(step.name);
        operations.push_back(std::move(operation));
    }
    return operations;
}

void ProcessFiles::saveTable(const Grid& grid, const std::string& path, char separator, WindowHandle owner) {
    try {
        services_.gridOps.SaveGridAs(grid, path, separator, owner);
    } catch (const Error& error) {
        throw Error(
            error.number(), "Pellmark.cProcessSteps",
            services_.person.texts.GetString("The file could not be written:") + " " + error.description());
    }
}

}  // namespace pellmark
