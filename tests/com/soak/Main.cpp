#include <chrono>
#include <cstdlib>
#include <iostream>

#include "com/soak/WorkingDay.h"

/// soak TURNS [EACH]: works with the component for so many turns, and says after each EACH of them what the
/// process holds more than after the first ones. The host's library must be registered.
int main(int argc, char** argv) {
    using namespace pellmark;
    const int turns = argc > 1 ? std::atoi(argv[1]) : 1000;
    const int each = argc > 2 ? std::atoi(argv[2]) : 50;
    SetEnvironmentVariableW(L"NORVEX_KNOWLEDGE_BASE", (programFolder() + L"\\soak.db").c_str());
    try {
        WorkingDay day;
        Holdings first;
        auto start = std::chrono::steady_clock::now();
        for (int turn = 1; turn <= turns; ++turn) {
            day.turn();
            if (turn % each != 0) continue;
            const Holdings now = day.holdings();
            if (turn == each) first = now;
            const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
            std::cout << turn << " turns, " << day.windowsSeen() << " windows, " << took.count() / each
                      << " s a turn: " << now - first << std::endl;
            start = std::chrono::steady_clock::now();
        }
    } catch (const std::exception& error) {
        std::cerr << error.what() << std::endl;
        return 1;
    }
    return 0;
}
