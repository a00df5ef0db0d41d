#include "wire/checksum.h"

#include <cstring>
#include <zlib.h>

#if defined(__x86_64__) && defined(__GNUC__)
#define WIRE_FOLDED_CRC 1
#include <immintrin.h>
#endif

namespace wire {

namespace {

quint32 plainCrc(quint32 crc, const char *data, int size)
{
    return static_cast<quint32>(
        ::crc32(crc, reinterpret_cast<const Bytef *>(data), static_cast<uInt>(size)));
}

#ifdef WIRE_FOLDED_CRC

constexpr int kLane = 16; // bytes of one register
constexpr int kLanes = 4;
constexpr int kBlock = kLanes * kLane;
constexpr int kLeast = 4;

// The polynomial of CRC-32 and x^64 divided by it, both with their 33 bits reversed.
constexpr long long kPolynomial = 0x1db710641;
constexpr long long kQuotient = 0x1f7011641;

/// x to the power of `n`, modulo the polynomial of CRC-32, bits reversed as its registers have them
/// and shifted by the one bit that a product of reversed numbers is short of.
constexpr long long power(int n)
{
    quint32 value = 0x80000000u;
    for (int i = 0; i < n; ++i)
        value = (value >> 1) ^ (value & 1u ? 0xedb88320u : 0u);
    return static_cast<long long>(value) << 1;
}

constexpr long long kByBlock[] = {power(kBlock * 8 + 32), power(kBlock * 8 - 32)};
constexpr long long kByHalf = power(64);
constexpr long long kByLane[] = {power(kLane * 8 + 32), power(kLane * 8 - 32)};

__attribute__((target("pclmul,sse2"))) inline __m128i load(const char *data)
{
    return _mm_loadu_si128(reinterpret_cast<const __m128i *>(data));
}

/// Moves a lane forward in the message by the distance that `factors` stand for, onto `next`.
__attribute__((target("pclmul,sse2"))) inline __m128i fold(__m128i lane, __m128i factors,
                                                           __m128i next)
{
    const __m128i low = _mm_clmulepi64_si128(lane, factors, 0x00);
    const __m128i high = _mm_clmulepi64_si128(lane, factors, 0x11);
    return _mm_xor_si128(_mm_xor_si128(low, high), next);
}

/// What is left of one lane when it is divided by the polynomial (after Barrett).
__attribute__((target("pclmul,sse2"))) quint32 remainder(__m128i lane)
{
    const __m128i lowWords = _mm_setr_epi32(-1, 0, -1, 0);
    const __m128i byLane = _mm_set_epi64x(kByLane[1], kByLane[0]);
    const __m128i byHalf = _mm_set_epi64x(0, kByHalf);
    const __m128i polynomial = _mm_set_epi64x(kQuotient, kPolynomial);

    __m128i x = _mm_xor_si128(_mm_srli_si128(lane, 8), _mm_clmulepi64_si128(lane, byLane, 0x10));
    x = _mm_xor_si128(_mm_srli_si128(x, 4),
                      _mm_clmulepi64_si128(_mm_and_si128(x, lowWords), byHalf, 0x00));
    __m128i y = _mm_clmulepi64_si128(_mm_and_si128(x, lowWords), polynomial, 0x10);
    y = _mm_clmulepi64_si128(_mm_and_si128(y, lowWords), polynomial, 0x00);
    x = _mm_srli_si128(_mm_xor_si128(x, y), 4);
    return static_cast<quint32>(_mm_cvtsi128_si32(x));
}

/// A message has the same checksum as a shorter one that leaves the same remainder: lane after lane
/// is folded onto the next until one is left. Zeros before a message leave its remainder as it is,
/// so that they fill up a first lane that is not whole. At least kLeast bytes.
__attribute__((target("pclmul,sse2"))) quint32 foldedCrc(quint32 crc, const char *data, int size)
{
    const __m128i byBlock = _mm_set_epi64x(kByBlock[1], kByBlock[0]);
    const __m128i byLane = _mm_set_epi64x(kByLane[1], kByLane[0]);

    // The checksum so far is added to the first four bytes, which are to lie beside one another.
    const int odd = size % kLane;
    const int begin = odd >= kLeast ? odd : odd + kLane;
    char first[2 * kLane] = {};
    char *start = first + 2 * kLane - begin;
    std::memcpy(start, data, static_cast<size_t>(begin));
    quint32 head = 0;
    std::memcpy(&head, start, sizeof head);
    head ^= ~crc;
    std::memcpy(start, &head, sizeof head);
    __m128i a = fold(load(first), byLane, load(first + kLane));
    data += begin;
    size -= begin;

    if (size >= kBlock) {
        __m128i b = load(data);
        __m128i c = load(data + kLane);
        __m128i d = load(data + 2 * kLane);
        data += kBlock - kLane;
        size -= kBlock - kLane;
        for (; size >= kBlock; data += kBlock, size -= kBlock) {
            a = fold(a, byBlock, load(data));
            b = fold(b, byBlock, load(data + kLane));
            c = fold(c, byBlock, load(data + 2 * kLane));
            d = fold(d, byBlock, load(data + 3 * kLane));
        }
        a = fold(fold(fold(a, byLane, b), byLane, c), byLane, d);
    }
    for (; size >= kLane; data += kLane, size -= kLane)
        a = fold(a, byLane, load(data));
    return ~remainder(a);
}

bool canFold()
{
    static const bool can = __builtin_cpu_supports("pclmul") != 0;
    return can;
}

#endif

} // namespace

quint32 crc32(quint32 crc, const char *data, int size)
{
#ifdef WIRE_FOLDED_CRC
    if (size >= kLeast && canFold())
        return foldedCrc(crc, data, size);
#endif
    return plainCrc(crc, data, size);
}

} // namespace wire
