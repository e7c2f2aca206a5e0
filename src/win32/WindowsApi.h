#pragma once

#include <windows.h>

#include <commctrl.h>

// The system's headers rename whatever bears the name of one of its functions; these names are ours too.
#undef MessageBox
