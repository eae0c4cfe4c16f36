#pragma once

#include <QtGlobal>

#if defined(VEMO_CONTACT_LIBRARY)
#define VEMO_CONTACT_EXPORT Q_DECL_EXPORT
#else
#define VEMO_CONTACT_EXPORT Q_DECL_IMPORT
#endif
