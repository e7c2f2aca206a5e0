#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "refhost/store/SqliteKnowledgeBaseService.h"
#include "refhost/store/Statement.h"
#include "support/Measure.h"
#include "support/StepsHarness.h"

/// What the step list costs over the SQLite store, against SQLite alone: an import, a long list, and the way
/// through many processes.
namespace bench {
namespace {

using norvex::SqliteKnowledgeBaseService;
using norvex::Statement;
using norvex::Transaction;
using pellmark::Guid;
using pellmark::StepServices;
using pellmark::test::FakeTechnology;
using pellmark::test::StepsHarness;

constexpr int kRepetitions = 5;
constexpr int kOperations = 10000;
constexpr int kParameters = 20;
constexpr int kFirstCode = 1101;
constexpr std::int16_t kDrilling = 602;
constexpr int kProcesses = 1000;
constexpr int kStepsOfEach = 6;
constexpr const char* kPath = "C:\\Norvex\\large.prc";
constexpr const char* kAddStep =
    "INSERT INTO process_step (id, process, priority, name, cutting_cycle) VALUES (?, ?, ?, ?, ?)";
constexpr const char* kAddValue = "INSERT INTO step_value (step, code, value) VALUES (?, ?, ?)";
constexpr const char* kSteps =
    "SELECT s.id, p.id, s.priority, s.name, s.cutting_cycle FROM process p JOIN process_step s "
    "ON s.process = p.row WHERE p.id = ? ORDER BY s.priority, s.row";
constexpr const char* kSources =
    "SELECT s.id, s.source FROM process p JOIN process_step s ON s.process = p.row WHERE p.id = ?";

volatile std::size_t sink = 0;

/// A knowledge base in a file of its own, empty at first.
class Base {
  public:
    explicit Base(const std::string& path) : path_(path) {
        forget();
        norvex::OpenOptions options;
        options.seed = false;
        service_ = std::make_unique<SqliteKnowledgeBaseService>(path, options);
    }
    ~Base() {
        service_.reset();
        forget();
    }
    Base(const Base&) = delete;
    Base& operator=(const Base&) = delete;

    SqliteKnowledgeBaseService& service() { return *service_; }
    norvex::Connection& connection() { return service_->base()->connection(); }
    std::string addProcess(const std::string& name) {
        pellmark::ProcessRecord process;
        process.Name = name;
        process.Unit = pellmark::unit::kMetric;
        return service_->processStore().addProcess(process);
    }
    void empty() { connection().execute("DELETE FROM process_step"); }

  private:
    void forget() {
        for (const char* end : {"", "-wal", "-shm"})
            std::filesystem::remove(path_ + end);
    }

    std::string path_;
    std::unique_ptr<SqliteKnowledgeBaseService> service_;
};

/// The step list over that knowledge base; all other ports are in memory.
struct View {
    explicit View(SqliteKnowledgeBaseService& service) {
        const StepServices faked = ports.services();
        services = std::make_unique<StepServices>(
            StepServices{faked.person, faked.rights, service, faked.technology, faked.settings, faked.gridOps,
                         faked.dialogs, faked.fileIO, faked.files, faked.idle});
        steps = std::make_unique<pellmark::cProcessSteps>(*services, &ports.processGrid);
        ports.processGrid.bind(service.processStore().processes(""));
        ports.gridOps.SetRowDataToIds(ports.processGrid);
        ports.processGrid.select(1, 0);
        steps->Init(ports.grid);
    }
    void readScreen() {
        for (int row = 1; row < std::min(ports.grid.rows(), 41); ++row) {
            for (int col = 0; col < ports.grid.cols(); ++col)
                sink = sink + ports.grid.displayText(row, col).size();
        }
    }

    StepsHarness ports;
    std::unique_ptr<StepServices> services;
    std::unique_ptr<pellmark::cProcessSteps> steps;
};

std::string figure(int parameter) {
    return std::to_string(parameter) + ".25";
}

void addStep(norvex::Connection& connection, std::int64_t process, int number) {
    Statement add(connection, kAddStep);
    add.bind(Guid::random()).bind(process).bind(std::int64_t{number}).bind("Operation");
    add.bind(std::int64_t{kDrilling}).run();
}

/// The same rows by prepared statements alone, in one transaction or each in one of its own.
void bareInserts(norvex::Connection& connection, bool atOnce) {
    std::unique_ptr<Transaction> all;
    if (atOnce) all = std::make_unique<Transaction>(connection, Transaction::Kind::Write);
    for (int operation = 0; operation < kOperations; ++operation) {
        addStep(connection, 1, operation);
        const std::int64_t step = connection.lastRow();
        for (int parameter = 0; parameter < kParameters; ++parameter) {
            const std::string value = figure(parameter);
            Statement add(connection, kAddValue);
            add.bind(step).bind(std::int64_t{kFirstCode + parameter}).bind(value).run();
        }
    }
    if (all) all->commit();
}

std::vector<FakeTechnology> operations() {
    std::vector<FakeTechnology> all;
    for (int operation = 0; operation < kOperations; ++operation) {
        FakeTechnology& technology = all.emplace_back(kDrilling, "Operation");
        for (int parameter = 0; parameter < kParameters; ++parameter)
            technology.add(kFirstCode + parameter, parameter + 0.25);
    }
    return all;
}

void imports(Table& table, const std::string& folder) {
    Base imported(folder + "/import.nkb");
    const std::string process = imported.addProcess("Many");
    View view(imported.service());
    view.ports.technology.putFile(kPath, operations());
    view.ports.files.makeFile(kPath);
    Base bare(folder + "/bare.nkb");
    bare.addProcess("Many");
    const auto import = [&] {
        imported.empty();
        pellmark::ProcessFiles files(*view.services);
        pellmark::ProcessFiles::Import outcome;
        files.import(kPath, process, 0, outcome);
        if (outcome.added != kOperations) throw std::runtime_error("not everything was imported");
    };
    for (const bool atOnce : {true, false}) {
        const Comparison compared = compare(kRepetitions, import, [&] {
            bare.empty();
            bareInserts(bare.connection(), atOnce);
        });
        table.add({std::to_string(kOperations) + " operations of " + std::to_string(kParameters) +
                       " parameters imported, against inserts " +
                       (atOnce ? "in one transaction" : "that are each on disk when they return"),
                   number(compared.measured) + " ms", number(compared.baseline) + " ms",
                   number(compared.ratio, 2)});
    }
}

/// Every row of the two queries that the list is made of.
void bareQueries(norvex::Connection& connection, const Guid& process) {
    std::size_t bytes = 0;
    for (const auto& [sql, columns] : {std::pair{kSteps, 5}, {kSources, 2}}) {
        Statement list(connection, sql);
        list.bind(process);
        while (list.step()) {
            for (int column = 0; column < columns; ++column)
                bytes += list.view(column).size();
        }
    }
    sink = sink + bytes;
}

void longList(Table& table, const std::string& folder) {
    Base base(folder + "/long.nkb");
    const Guid process = *Guid::parse(base.addProcess("Long"));
    {
        Transaction all(base.connection(), Transaction::Kind::Write);
        for (int step = 0; step < kOperations; ++step)
            addStep(base.connection(), 1, step);
        all.commit();
    }
    View view(base.service());
    const Comparison compared = compare(
        kRepetitions,
        [&] {
            view.steps->RefreshList("");
            view.readScreen();
        },
        [&] { bareQueries(base.connection(), process); });
    table.add({std::to_string(kOperations) + " steps of one process listed and coloured",
               number(compared.measured) + " ms", number(compared.baseline) + " ms",
               number(compared.ratio, 2)});
}

void throughTheProcesses(Table& table, const std::string& folder) {
    Base base(folder + "/many.nkb");
    std::vector<Guid> processes;
    {
        Transaction all(base.connection(), Transaction::Kind::Write);
        for (int number = 0; number < kProcesses; ++number) {
            processes.push_back(*Guid::parse(base.addProcess("Process " + std::to_string(10000 + number))));
            for (int step = 0; step < kStepsOfEach; ++step)
                addStep(base.connection(), number + 1, step);
        }
        all.commit();
    }
    View view(base.service());
    const Comparison compared = compare(
        kRepetitions,
        [&] {
            for (int row = 1; row <= kProcesses; ++row) {
                view.ports.processGrid.select(row, 0);
                view.steps->FollowProcess();
                view.readScreen();
            }
        },
        [&] {
            for (const Guid& process : processes)
                bareQueries(base.connection(), process);
        });
    table.add({"the arrow key through " + std::to_string(kProcesses) + " processes of " +
                   std::to_string(kStepsOfEach) + " steps, each list shown",
               number(compared.measured) + " ms", number(compared.baseline) + " ms",
               number(compared.ratio, 2)});
}

void run(const std::string& folder) {
    std::filesystem::create_directories(folder);
    Table table({"what", "measured", "bare SQLite", "ratio"});
    imports(table, folder);
    longList(table, folder);
    throughTheProcesses(table, folder);
    table.print();
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
    try {
        bench::run(argc > 1 ? argv[1] : "bench-data");
    } catch (const std::exception& error) {
        std::printf("not measured: %s\n", error.what());
    }
    return 0;
}
