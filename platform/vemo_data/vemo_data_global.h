#pragma once

#include <QtGlobal>

#if defined(VEMO_DATA_LIBRARY)
#define VEMO_DATA_EXPORT Q_DECL_EXPORT
#else
#define VEMO_DATA_EXPORT Q_DECL_IMPORT
#endif
