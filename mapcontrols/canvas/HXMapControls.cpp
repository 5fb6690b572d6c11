#include "HXMapControls.h"

HXMapControls::HXMapControls() = default;

HXMapControls& HXMapControls::operator=(const HXMapControls&) = default;
