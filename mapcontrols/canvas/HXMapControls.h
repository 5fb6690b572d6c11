#pragma once
// HXMapControls: the library's marker class. It has no behaviour.
#include "HXMapControlsExport.h"

class HXMAPCONTROLS_EXPORT HXMapControls {
public:
    HXMapControls();
    HXMapControls& operator=(const HXMapControls&);
};
