#include <omu_Utf8.h>

namespace
{
// Length of the sequence that begins with this byte, 0 for none, and the bounds of its second byte, which
// keep out overlong forms, surrogates and what is beyond U+10FFFF.
struct Lead
{
    std::size_t length;
    unsigned char low;
    unsigned char high;
};

Lead LeadOf(unsigned char byte)
{
    if (byte < 0x80)
        return {1, 0, 0};
    if (byte < 0xC2)
        return {0, 0, 0};
    if (byte < 0xE0)
        return {2, 0x80, 0xBF};
    if (byte < 0xF0)
    {
        const unsigned char low = byte == 0xE0 ? 0xA0 : 0x80;
        const unsigned char high = byte == 0xED ? 0x9F : 0xBF;
        return {3, low, high};
    }
    if (byte < 0xF5)
    {
        const unsigned char low = byte == 0xF0 ? 0x90 : 0x80;
        const unsigned char high = byte == 0xF4 ? 0x8F : 0xBF;
        return {4, low, high};
    }
    return {0, 0, 0};
}
}

int omu_Utf8::CountCodePoints(std::string_view text) noexcept
{
    int count = 0;
    for (std::size_t at = 0; at < text.size(); ++count)
    {
        const Lead lead = LeadOf(static_cast<unsigned char>(text[at]));
        if (lead.length == 0 || text.size() - at < lead.length)
            return -1;
        for (std::size_t i = 1; i < lead.length; ++i)
        {
            const auto byte = static_cast<unsigned char>(text[at + i]);
            const unsigned char low = i == 1 ? lead.low : 0x80;
            const unsigned char high = i == 1 ? lead.high : 0xBF;
            if (byte < low || byte > high)
                return -1;
        }
        at += lead.length;
    }
    return count;
}
