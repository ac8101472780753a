#include <cow_HashIndex.h>

#include <utility>

void cow_HashIndex::Place(Slot slot) noexcept
{
    std::size_t i = slot.tag & mask_;
    while (slots_[i].position >= 0)
        i = (i + 1) & mask_;
    slots_[i] = slot;
}

void cow_HashIndex::Reserve(int count)
{
    const std::size_t wanted = 2 * static_cast<std::size_t>(count);
    if (wanted <= slots_.size())
        return;
    std::size_t size = 16;
    while (size < wanted)
        size *= 2;
    std::vector<Slot> former(size);
    former.swap(slots_);
    mask_ = size - 1;
    for (const Slot& slot : former)
        if (slot.position >= 0)
            Place(slot);
}

void cow_HashIndex::Add(std::size_t hash, int position) noexcept
{
    Place({Tag(hash), position});
}

void cow_HashIndex::Remove(std::size_t hash, int position) noexcept
{
    std::size_t hole = Tag(hash) & mask_;
    while (slots_[hole].position != position)
        hole = (hole + 1) & mask_;

    // Close the gap: a later slot of the run moves into the hole unless it would then stand before its home.
    for (std::size_t i = (hole + 1) & mask_; slots_[i].position >= 0; i = (i + 1) & mask_)
    {
        const std::size_t home = slots_[i].tag & mask_;
        if (((i - home) & mask_) >= ((i - hole) & mask_))
        {
            slots_[hole] = slots_[i];
            hole = i;
        }
    }
    slots_[hole] = Slot();

    for (Slot& slot : slots_)
        slot.position -= slot.position > position;
}
