// SPDX-License-Identifier: Apache-2.0
#pragma once

#include <cstddef>
#include <cstring>
#include <string_view>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace skipnest::linuxdesktop {

// Bytes after the end of a pool that PairScan may read, never uses.
constexpr std::size_t scanMargin = 16;

// Finds a short text in a large pool of names. Both its first and its last byte are compared at
// sixteen places at once, so that hardly any place is left for the byte by byte comparison;
// memmem(3) takes a byte at a time for texts of two letters, the ones typed most.
class PairScan {
public:
    // `text` is not empty and outlives the scan.
    explicit PairScan(std::string_view text) : text_(text) {}

    // The first place in [from, end) where the whole text stands; null where there is none.
    [[nodiscard]] const char* find(const char* from, const char* end) const {
        const std::size_t length = text_.size();
        if (static_cast<std::size_t>(end - from) < length)
            return nullptr;
        const char* const behind = end - length + 1; // the first place where it no longer fits
#if defined(__SSE2__)
        const __m128i first = _mm_set1_epi8(text_.front());
        const __m128i last = _mm_set1_epi8(text_.back());
        for (const char* at = from; at < behind; at += 16) {
            const __m128i heads = _mm_cmpeq_epi8(load(at), first);
            const __m128i tails = _mm_cmpeq_epi8(load(at + length - 1), last);
            auto places = static_cast<unsigned>(_mm_movemask_epi8(_mm_and_si128(heads, tails)));
            for (; places != 0; places &= places - 1) {
                const char* const place = at + __builtin_ctz(places);
                if (place >= behind)
                    return nullptr;
                if (std::memcmp(place, text_.data(), length) == 0)
                    return place;
            }
        }
        return nullptr;
#else
        const std::string_view pool(from, static_cast<std::size_t>(end - from));
        const std::size_t place = pool.find(text_);
        return place == std::string_view::npos || from + place >= behind ? nullptr : from + place;
#endif
    }

private:
#if defined(__SSE2__)
    static __m128i load(const char* at) {
        return _mm_loadu_si128(reinterpret_cast<const __m128i*>(at));
    }
#endif
    std::string_view text_;
};

} // namespace skipnest::linuxdesktop
