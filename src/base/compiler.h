// What some compilers can check and others cannot.
#pragma once

// The function takes a printf format as argument number `text` and its values from number `first` on.
#if defined(__GNUC__)
#define ZEAPI_PRINTF_LIKE(text, first) __attribute__((format(printf, text, first)))
#else
#define ZEAPI_PRINTF_LIKE(text, first)
#endif
