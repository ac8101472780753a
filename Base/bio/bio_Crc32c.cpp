#include <array>
#include <bio_Crc32c.h>
#include <cstddef>
#include <cstring>

#if defined(__x86_64__)
#include <immintrin.h>
#endif

namespace
{
constexpr std::uint32_t POLYNOMIAL = 0x82F63B78u; // 0x1EDC6F41, lowest bit first
constexpr std::size_t STEP = 8;
using Table = std::array<std::uint32_t, 256>;

// TABLES[k][b]: the checksum of byte b followed by k zero bytes.
constexpr std::array<Table, STEP> TABLES = [] {
    std::array<Table, STEP> tables{};
    for (std::uint32_t byte = 0; byte < 256; ++byte)
    {
        std::uint32_t crc = byte;
        for (int bit = 0; bit < 8; ++bit)
            crc = (crc >> 1) ^ ((crc & 1u) != 0 ? POLYNOMIAL : 0u);
        tables[0][byte] = crc;
    }
    for (std::size_t k = 1; k < STEP; ++k)
        for (std::uint32_t byte = 0; byte < 256; ++byte)
            tables[k][byte] = (tables[k - 1][byte] >> 8) ^ tables[0][tables[k - 1][byte] & 0xFFu];
    return tables;
}();

#if defined(__x86_64__)
// Bytes of one of three streams that run side by side: the instruction takes three cycles and can begin in
// each.
constexpr std::size_t STREAM = 2048; // a power of two

// Four bits of a checksum moved on by STREAM zero bytes, as look-up: SHIFTS[k][n] is for the k-th four bits.
constexpr std::array<std::array<std::uint32_t, 16>, 8> SHIFTS = [] {
    // Where each bit goes: by one zero byte at first, then by twice as many each time.
    std::array<std::uint32_t, 32> moved{};
    for (std::size_t bit = 0; bit < 32; ++bit)
        moved[bit] = ((1u << bit) >> 8) ^ TABLES[0][(1u << bit) & 0xFFu];
    for (std::size_t bytes = 1; bytes < STREAM; bytes *= 2)
    {
        const std::array<std::uint32_t, 32> half = moved;
        for (std::uint32_t& crc : moved)
        {
            std::uint32_t twice = 0;
            for (std::size_t bit = 0; bit < 32; ++bit)
                twice ^= (crc >> bit & 1u) != 0 ? half[bit] : 0u;
            crc = twice;
        }
    }
    std::array<std::array<std::uint32_t, 16>, 8> shifts{};
    for (std::size_t k = 0; k < 8; ++k)
        for (std::size_t n = 1; n < 16; ++n)
            for (std::size_t bit = 0; bit < 4; ++bit)
                shifts[k][n] ^= (n >> bit & 1u) != 0 ? moved[4 * k + bit] : 0u;
    return shifts;
}();

std::uint32_t Shifted(std::uint64_t crc)
{
    std::uint32_t moved = 0;
    for (std::size_t k = 0; k < 8; ++k)
        moved ^= SHIFTS[k][(crc >> (4 * k)) & 0xFu];
    return moved;
}

std::uint64_t Load(const unsigned char* at)
{
    std::uint64_t word = 0;
    std::memcpy(&word, at, sizeof word);
    return word;
}

[[gnu::target("sse4.2")]] std::uint32_t ByInstruction(std::span<const unsigned char> bytes,
                                                      std::uint32_t before)
{
    const unsigned char* at = bytes.data();
    std::size_t left = bytes.size();
    std::uint64_t crc = ~before;
    for (; left >= 3 * STREAM; at += 3 * STREAM, left -= 3 * STREAM)
    {
        std::uint64_t second = 0;
        std::uint64_t third = 0;
        for (std::size_t i = 0; i < STREAM; i += sizeof(std::uint64_t))
        {
            crc = _mm_crc32_u64(crc, Load(at + i));
            second = _mm_crc32_u64(second, Load(at + STREAM + i));
            third = _mm_crc32_u64(third, Load(at + 2 * STREAM + i));
        }
        crc = Shifted(Shifted(crc) ^ second) ^ third;
    }
    for (; left >= sizeof(std::uint64_t); at += sizeof(std::uint64_t), left -= sizeof(std::uint64_t))
        crc = _mm_crc32_u64(crc, Load(at));
    auto last = static_cast<std::uint32_t>(crc);
    for (; left > 0; ++at, --left)
        last = _mm_crc32_u8(last, *at);
    return ~last;
}

// What one step of folding takes: four registers of 64 bytes. Shorter than two steps it does not pay.
constexpr std::size_t REGISTERS = 4;
constexpr std::size_t REGISTER_BYTES = 64;
constexpr std::size_t FOLD = REGISTERS * REGISTER_BYTES;

// x^exponent modulo the polynomial, lowest bit first.
constexpr std::uint32_t PowerOfX(std::size_t exponent)
{
    std::uint32_t power = 1u << 31;
    for (; exponent > 0; --exponent)
        power = (power >> 1) ^ ((power & 1u) != 0 ? POLYNOMIAL : 0u);
    return power;
}

// Folding (V. Gopal et al., "Fast CRC computation for generic polynomials using PCLMULQDQ instruction",
// Intel, 2009): sixteen bytes a, b count as a x^64 + b, and are moved ahead by FOLD bytes by a carry-less
// product of each half. A product of a half with a power lies 33 bits behind its place.
[[gnu::target("sse4.2,avx512f,vpclmulqdq")]] std::uint32_t ByFolding(std::span<const unsigned char> bytes,
                                                                     std::uint32_t before)
{
    constexpr long long FIRST = PowerOfX(8 * FOLD + 64 - 33);
    constexpr long long SECOND = PowerOfX(8 * FOLD - 33);
    const __m512i powers = _mm512_set_epi64(SECOND, FIRST, SECOND, FIRST, SECOND, FIRST, SECOND, FIRST);
    const unsigned char* at = bytes.data();
    __m512i folded[REGISTERS];
    for (std::size_t i = 0; i < REGISTERS; ++i)
        folded[i] = _mm512_loadu_si512(at + i * REGISTER_BYTES);
    folded[0] =
        _mm512_xor_si512(folded[0], _mm512_zextsi128_si512(_mm_cvtsi32_si128(static_cast<int>(~before))));
    at += FOLD;
    std::size_t left = bytes.size() - FOLD;
    for (; left >= FOLD; at += FOLD, left -= FOLD)
        for (std::size_t i = 0; i < REGISTERS; ++i)
        {
            const __m512i next = _mm512_loadu_si512(at + i * REGISTER_BYTES);
            const __m512i halves = _mm512_xor_si512(_mm512_clmulepi64_epi128(folded[i], powers, 0x00),
                                                    _mm512_clmulepi64_epi128(folded[i], powers, 0x11));
            folded[i] = _mm512_xor_si512(halves, next);
        }
    // What is left has the same checksum as all bytes so far.
    unsigned char rest[FOLD];
    std::memcpy(rest, folded, sizeof rest);
    std::uint64_t crc = 0;
    for (std::size_t i = 0; i < FOLD; i += sizeof(std::uint64_t))
        crc = _mm_crc32_u64(crc, Load(rest + i));
    // Wide registers left in use would slow down all that follows.
    _mm256_zeroupper();
    return ByInstruction({at, left}, ~static_cast<std::uint32_t>(crc));
}
#endif
}

std::uint32_t bio_Crc32cByTable(std::span<const unsigned char> bytes, std::uint32_t before) noexcept
{
    const unsigned char* at = bytes.data();
    std::size_t left = bytes.size();
    std::uint32_t crc = ~before;
    for (; left >= STEP; at += STEP, left -= STEP)
    {
        std::uint32_t next = 0;
        for (std::size_t i = 0; i < STEP; ++i)
        {
            const std::uint32_t carried = i < 4 ? (crc >> (8 * i)) & 0xFFu : 0u;
            next ^= TABLES[STEP - 1 - i][at[i] ^ carried];
        }
        crc = next;
    }
    for (; left > 0; ++at, --left)
        crc = (crc >> 8) ^ TABLES[0][(crc ^ *at) & 0xFFu];
    return ~crc;
}

bool bio_Crc32cHasInstruction() noexcept
{
#if defined(__x86_64__)
    static const bool hasInstruction = __builtin_cpu_supports("sse4.2") != 0;
    return hasInstruction;
#else
    return false;
#endif
}

std::uint32_t bio_Crc32c(std::span<const unsigned char> bytes, std::uint32_t before) noexcept
{
#if defined(__x86_64__)
    static const bool canFold = bio_Crc32cHasInstruction() && __builtin_cpu_supports("avx512f") != 0 &&
                                __builtin_cpu_supports("vpclmulqdq") != 0;
    if (canFold && bytes.size() >= 2 * FOLD)
        return ByFolding(bytes, before);
    if (bio_Crc32cHasInstruction())
        return ByInstruction(bytes, before);
#endif
    return bio_Crc32cByTable(bytes, before);
}
