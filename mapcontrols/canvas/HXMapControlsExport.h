#pragma once
// The canvas's name for the library's export macro (see HXExport.h).
#include "HXExport.h"

#define HXMAPCONTROLS_EXPORT HX_EXPORT
