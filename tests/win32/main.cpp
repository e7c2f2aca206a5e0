#include "support/win32/Watchdog.h"

int main(int argc, char** argv) {
    return pellmark::test::runTestsUnderWatchdog(argc, argv);
}
