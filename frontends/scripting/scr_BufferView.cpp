#include <bit>
#include <scr_BufferView.h>

std::optional<scr_BufferView::Item> scr_BufferView::ItemFormat() const
{
    constexpr std::string_view FOREIGN = std::endian::native == std::endian::little ? ">!" : "<";
    std::string_view format = Format();
    const auto beginsWithOneOf = [&format](std::string_view letters) {
        return !format.empty() && letters.find(format.front()) != std::string_view::npos;
    };
    const auto bytes = static_cast<std::size_t>(buffer_.itemsize);
    const bool foreign = bytes > 1 && beginsWithOneOf(FOREIGN);
    if (beginsWithOneOf("@=<>!"))
        format.remove_prefix(1);
    if (format.size() != 1 || bytes < 1)
        return std::nullopt;
    if (beginsWithOneOf("efdg"))
        return Item{Kind::FLOATING, bytes, foreign};
    if (!std::has_single_bit(bytes) || bytes > 8)
        return std::nullopt;
    if (beginsWithOneOf("bhilqn"))
        return Item{Kind::SIGNED, bytes, foreign};
    if (beginsWithOneOf("BHILQN"))
        return Item{Kind::UNSIGNED, bytes, foreign};
    return std::nullopt;
}
