#pragma once

#include <QtGlobal>

#if defined(VMS_SDK_LIBRARY)
#define VMS_SDK_EXPORT Q_DECL_EXPORT
#else
#define VMS_SDK_EXPORT Q_DECL_IMPORT
#endif
