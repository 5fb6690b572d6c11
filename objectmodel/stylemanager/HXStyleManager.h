#pragma once
// The style picker's entry point: opens HXStylePickerDialog modally for one kind of style.
#include "HOStyle.h"
#include "HXExport.h"

class QWidget;

// The style the user chose and edited, as a new style with no reference yet (take it into an
// HORefPtr); null when the user cancels. Without a parent the dialog sits over the active modal
// window, if any.
HX_EXPORT HXObjects::HOStyle* selectStyle(HXObjects::HOStyle::StyleType type, QWidget* parent = nullptr);
