#pragma once

#include <QtGlobal>

#if defined(VCOMMON_LIBRARY)
#define VCOMMON_EXPORT Q_DECL_EXPORT
#else
#define VCOMMON_EXPORT Q_DECL_IMPORT
#endif
