#include <cow_HashIndex.h>

void cow_HashIndex::Reserve(int count)
{
    table_.Reserve(static_cast<std::size_t>(count));
}

void cow_HashIndex::Add(std::size_t hash, int position) noexcept
{
    table_.Add(hash, position);
}

void cow_HashIndex::Remove(std::size_t hash, int position) noexcept
{
    table_.Remove(hash, position);
    table_.Each([position](int& later) { later -= later > position; });
}
