#pragma once

#include <QtGlobal>

#if defined(FILESCENTER_LIBRARY)
#define FILESCENTER_EXPORT Q_DECL_EXPORT
#else
#define FILESCENTER_EXPORT Q_DECL_IMPORT
#endif
