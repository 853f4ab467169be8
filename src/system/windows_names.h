#pragma once

// The header of Windows, without those macros of it that are the names of a port's operations.
#include <windows.h>

#undef GetPrivateProfileInt
#undef GetPrivateProfileString
#undef WritePrivateProfileString
