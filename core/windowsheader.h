// The header of Windows, without the macros that rename functions of this program.
#pragma once

#include <windows.h>

#undef ReplaceFile
