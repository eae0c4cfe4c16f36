#pragma once

#include <QtGlobal>

#if defined(VEMO_WORKER_LIBRARY)
#define VEMO_WORKER_EXPORT Q_DECL_EXPORT
#else
#define VEMO_WORKER_EXPORT Q_DECL_IMPORT
#endif
