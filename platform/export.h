#pragma once

// Marks what the shared library exports; everything else has hidden visibility.
#if defined(_WIN32)
#if defined(QDR_BUILDING_LIBRARY)
#define QDR_API __declspec(dllexport)
#else
#define QDR_API __declspec(dllimport)
#endif
#else
#define QDR_API __attribute__((visibility("default")))
#endif
