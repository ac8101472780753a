#include <bio_Crc32c.h>

#include <random>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace
{
using Bytes = std::vector<unsigned char>;

Bytes Of(std::string_view text)
{
    return Bytes(text.begin(), text.end());
}

// Bit by bit, as the polynomial says.
std::uint32_t BitByBit(const Bytes& bytes)
{
    std::uint32_t crc = ~0u;
    for (const unsigned char byte : bytes)
        for (int bit = 0; bit < 8; ++bit)
        {
            const bool odd = ((crc ^ (static_cast<unsigned>(byte) >> bit)) & 1u) != 0;
            crc = (crc >> 1) ^ (odd ? 0x82F63B78u : 0u);
        }
    return ~crc;
}

// RFC 3720, appendix B.4, and the check value of the catalogues.
TEST(Crc32c, PublishedValues)
{
    Bytes rising(32);
    for (unsigned char i = 0; i < 32; ++i)
        rising[i] = i;
    for (const auto crc : {&bio_Crc32c, &bio_Crc32cByTable})
    {
        EXPECT_EQ(crc(Of("123456789"), 0), 0xE3069283u);
        EXPECT_EQ(crc(Bytes(32, 0), 0), 0x8A9136AAu);
        EXPECT_EQ(crc(Bytes(32, 0xFF), 0), 0x62A8AB43u);
        EXPECT_EQ(crc(rising, 0), 0x46DD794Eu);
        EXPECT_EQ(crc({}, 0), 0u);
    }
}

// Lengths on both sides of all steps, from any address, in one piece or in two.
TEST(Crc32c, InstructionAndTableAgreeWithThePolynomial)
{
    std::mt19937 random(20);
    for (const std::size_t length : {1, 7, 8, 9, 63, 511, 512, 769, 6143, 6144, 6145, 12288, 20011})
    {
        Bytes bytes(length);
        for (unsigned char& byte : bytes)
            byte = static_cast<unsigned char>(random());
        const std::uint32_t wanted = BitByBit(bytes);
        const std::span<const unsigned char> all(bytes);
        const std::size_t cut = random() % length;
        EXPECT_EQ(bio_Crc32c(all), wanted) << length;
        EXPECT_EQ(bio_Crc32cByTable(all), wanted) << length;
        EXPECT_EQ(bio_Crc32c(all.subspan(cut), bio_Crc32c(all.first(cut))), wanted) << length << ' ' << cut;
        EXPECT_EQ(bio_Crc32cByTable(all.subspan(cut), bio_Crc32cByTable(all.first(cut))), wanted);
    }
}
}
