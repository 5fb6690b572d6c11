#pragma once
#include <QtGlobal>

#if defined(HXMAPCONTROLS_LIBRARY)
#define HXMAPCONTROLS_EXPORT Q_DECL_EXPORT
#else
#define HXMAPCONTROLS_EXPORT Q_DECL_IMPORT
#endif
