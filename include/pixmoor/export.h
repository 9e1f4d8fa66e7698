/* Export and linkage macros shared by every public header. */
#ifndef PIXMOOR_EXPORT_H
#define PIXMOOR_EXPORT_H

#if defined(_WIN32)
#  if defined(PIXMOOR_BUILDING)
#    define PIXMOOR_API __declspec(dllexport)
#  else
#    define PIXMOOR_API
#  endif
#else
#  define PIXMOOR_API __attribute__((visibility("default")))
#endif

#ifdef __cplusplus
#  define PIXMOOR_EXTERN_C_BEGIN extern "C" {
#  define PIXMOOR_EXTERN_C_END }
/* Enumerations have a fixed 32-bit underlying type in C++, so that any 32-bit
   value can be passed where a member defines what other values do. */
#  define PIXMOOR_ENUM(name) enum name : int32_t
#else
#  define PIXMOOR_EXTERN_C_BEGIN
#  define PIXMOOR_EXTERN_C_END
#  define PIXMOOR_ENUM(name) enum name
#endif

#endif
