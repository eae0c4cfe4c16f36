#pragma once

#include <QtGlobal>

#if defined(VEMO_BASE_LIBRARY)
#define VEMO_BASE_EXPORT Q_DECL_EXPORT
#else
#define VEMO_BASE_EXPORT Q_DECL_IMPORT
#endif
