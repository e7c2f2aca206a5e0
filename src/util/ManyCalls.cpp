#include "util/ManyCalls.h"

#include <algorithm>

#include "util/FrmProgress.h"

namespace pellmark {

namespace {

/// Fewer are made before a person would have read what is going on.
constexpr std::size_t kMany = 200;
constexpr std::size_t kLeastToAReport = 20;
/// What a window shows costs more than a call.
constexpr std::size_t kMostReports = 50;

}  // namespace

bool makeCalls(const UserInterface& person, Idle& idle, const std::string& what, WindowHandle owner,
               std::size_t count, const std::function<void(std::size_t)>& each) {
    const std::size_t toAReport = std::max(kLeastToAReport, count / kMostReports);
    bool goesOn = true;
    const auto makeAll = [&](const std::function<bool(std::size_t)>& mayGoOn) {
        for (std::size_t i = 0; i < count; ++i) {
            if (i % toAReport == 0) goesOn = mayGoOn(i);
            if (!goesOn) return;
            each(i);
        }
    };
    if (count < kMany) {
        makeAll([](std::size_t) { return true; });
        return true;
    }
    FrmProgress progress(person, idle, what);
    progress.run(owner, [&] {
        makeAll([&](std::size_t done) {
            return progress.report(static_cast<std::int32_t>(done), static_cast<std::int32_t>(count));
        });
    });
    return goesOn;
}

}  // namespace pellmark
