/**
 * @file
 * VELTOPROTOCOL_API marks what the library exports; everything else is hidden in the shared build.
 */
#ifndef VELTOPROTOCOL_EXPORT_H
#define VELTOPROTOCOL_EXPORT_H

#if defined(__GNUC__) || defined(__clang__)
#define VELTOPROTOCOL_API __attribute__((visibility("default")))
#else
#define VELTOPROTOCOL_API
#endif

#endif
