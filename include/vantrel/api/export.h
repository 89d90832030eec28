/* Export and linkage macros shared by every public header of the kit. */
#ifndef VANTREL_API_EXPORT_H
#define VANTREL_API_EXPORT_H

/* The library is built with hidden visibility; only what carries this
   macro (and matches the version script) is exported. */
#if defined(__GNUC__) || defined(__clang__)
#define VANTREL_DDK_API __attribute__((visibility("default")))
#else
#define VANTREL_DDK_API
#endif

#ifdef __cplusplus
#define VANTREL_DDK_BEGIN_C extern "C" {
#define VANTREL_DDK_END_C }
#else
#define VANTREL_DDK_BEGIN_C
#define VANTREL_DDK_END_C
#endif

/* Major version of the kit's binary interface. */
#define VANTREL_DDK_VERSION_MAJOR 1
#define VANTREL_DDK_VERSION_MINOR 0
#define VANTREL_DDK_VERSION_PATCH 0

#endif
