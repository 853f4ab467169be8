#pragma once

// Includes <windows.h> and undefines its macros that have the names of port operations.
#include <windows.h>

#undef GetPrivateProfileInt
#undef GetPrivateProfileString
#undef WritePrivateProfileString
