#pragma once

// g++ defines the first macro, clang++ has the feature.
#if defined(__SANITIZE_ADDRESS__)
#define ININ_SAMPLE_STEP 4
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define ININ_SAMPLE_STEP 4
#endif
#endif
#ifndef ININ_SAMPLE_STEP
#define ININ_SAMPLE_STEP 1
#endif

namespace inin {

/// One of so many inputs is tried: all of them, or under the sanitizers, where each takes several times as long, every
/// fourth.
inline constexpr int kSampleStep = ININ_SAMPLE_STEP;

/// How many of `all` inputs are tried.
[[nodiscard]] constexpr int sampleSize(int all)
{
    return (all + kSampleStep - 1) / kSampleStep;
}

} // namespace inin
