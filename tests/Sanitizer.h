#pragma once

// SKYFRAME_TEST_ASAN: the address sanitizer is on, which has its own calloc and needs address space.
#if defined(__SANITIZE_ADDRESS__)
#define SKYFRAME_TEST_ASAN
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define SKYFRAME_TEST_ASAN
#endif
#endif
