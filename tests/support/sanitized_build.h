#pragma once
// Whether this build runs under AddressSanitizer or UndefinedBehaviorSanitizer:
// tests that solve many random waters take fewer of them there.

namespace tormel::test {

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kSanitizedBuild = true;
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(undefined_behavior_sanitizer)
constexpr bool kSanitizedBuild = true;
#else
constexpr bool kSanitizedBuild = false;
#endif
#else
constexpr bool kSanitizedBuild = false;
#endif

}  // namespace tormel::test
