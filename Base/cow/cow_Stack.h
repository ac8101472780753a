#pragma once

#include <cow_Shared.h>
#include <cow_Vector.h>
#include <nex_Raise.h>

#include <cstddef>
#include <utility>

/// Copy-on-write stack whose storage comes in blocks of 16 entries, so that pushing never moves an entry:
/// a reference from WriteTop holds until its entry is popped or the stack is copied.
///
/// A copy shares, the first write detaches, reading never does. Over a vector of vectors. Top and Pop of
/// an empty stack raise nex_RangeException (index -1). A write that throws leaves the stack as it was.
template <class T>
class cow_Stack
{
public:
    static constexpr int BlockSize = 16;

    void Push(const T& entry)
    {
        store_.template Change<true>([&](Store& store) { store.Push(entry); });
    }
    void Pop()
    {
        RequireIndex(Depth() - 1);
        store_.Write().Pop();
    }
    void Clear() noexcept { store_ = cow_Shared<Store>(); }

    /// The top entry for writing.
    T& WriteTop()
    {
        RequireIndex(Depth() - 1);
        return store_.Write().blocks.back().back();
    }

    int Depth() const noexcept { return store_ ? store_->depth : 0; }
    bool IsEmpty() const noexcept { return Depth() == 0; }
    const T& Top() const { return At(Depth() - 1); }
    /// The entry at `level`, 0 at the bottom.
    const T& At(int level) const
    {
        RequireIndex(level);
        const std::size_t i = static_cast<std::size_t>(level);
        return store_->blocks[i / BlockSize][i % BlockSize];
    }
    bool SharesWith(const cow_Stack& other) const noexcept { return store_.SharesWith(other.store_); }

    friend bool operator==(const cow_Stack& a, const cow_Stack& b)
    {
        if (a.Depth() != b.Depth())
            return false;
        for (int level = 0; level < a.Depth(); ++level)
            if (!(a.At(level) == b.At(level)))
                return false;
        return true;
    }

private:
    struct Store
    {
        using Block = cow_Vector<T>;

        Store() = default;
        // Blocks are copied with their full capacity: only then does pushing not move entries.
        Store(const Store& other) : depth(other.depth)
        {
            blocks.reserve(other.blocks.size());
            for (const Block& block : other.blocks)
            {
                Block& copy = NewBlock();
                for (const T& entry : block)
                    copy.push_back(entry);
            }
        }
        Store(Store&&) noexcept = default;

        Block& NewBlock()
        {
            Block block;
            block.reserve(BlockSize);
            blocks.push_back(std::move(block));
            return blocks.back();
        }
        void Push(const T& entry)
        {
            if (!blocks.empty() && blocks.back().size() < BlockSize)
                blocks.back().push_back(entry);
            else
            {
                Block block;
                block.reserve(BlockSize);
                block.push_back(entry);
                blocks.push_back(std::move(block));
            }
            ++depth;
        }
        void Pop()
        {
            blocks.back().pop_back();
            if (blocks.back().empty())
                blocks.pop_back();
            --depth;
        }

        std::vector<Block> blocks; // none of them empty
        int depth = 0;
    };

    void RequireIndex(int level) const
    {
        if (level < 0 || level >= Depth())
            nex_RaiseRange(level, Depth());
    }

    cow_Shared<Store> store_;
};
