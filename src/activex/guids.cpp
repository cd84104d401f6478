// Defines the identifiers that the other files only declare.
#include <windows.h>

#include <initguid.h>

#include "activex/guids.h"
