#pragma once

#include <QtGlobal>

#if defined(VEMO_SAAS_LIBRARY)
#define VEMO_SAAS_EXPORT Q_DECL_EXPORT
#else
#define VEMO_SAAS_EXPORT Q_DECL_IMPORT
#endif
