#pragma once
// HX_EXPORT marks the classes and functions libHXMapControls offers to hosts; everything else in the
// library is built with hidden visibility. The library's own sources are compiled with
// HX_BUILDING_LIBRARY; a host that links a static build defines HX_STATIC, where nothing is exported.
#include <QtGlobal>

#if defined(HX_STATIC)
#define HX_EXPORT
#elif defined(HX_BUILDING_LIBRARY)
#define HX_EXPORT Q_DECL_EXPORT
#else
#define HX_EXPORT Q_DECL_IMPORT
#endif
