#include <memory>
#include <omu_PrimVector.h>

namespace
{
constexpr std::size_t FIRST_ROOM = 4;
}

void omu_PrimVector::Reserve(int count)
{
    if (count <= 0)
        return;
    if (Packed* const packed = WritePacked())
        packed->numbers.reserve(static_cast<std::size_t>(count));
}

void omu_PrimVector::Append(omu_Primitive* owned)
{
    std::unique_ptr<omu_Primitive> guard(owned);
    WriteItems().Append(guard.release());
}

void omu_PrimVector::AppendNumber(double value, DataTypeEnm dataType)
{
    if (Packed* const packed = WritePacked())
    {
        // Points and the like come first time right.
        if (packed->numbers.capacity() == 0)
            packed->numbers.reserve(FIRST_ROOM);
        packed->numbers.push_back({value, dataType});
    }
    else
        m_Items.Append(new omu_PrimNumber(value, dataType));
}

void omu_PrimVector::AppendRange(const omu_PrimVector& other, int first, int last)
{
    if (first >= last)
        return;
    Packed* const packed = other.m_Packed ? WritePacked() : nullptr;
    if (packed != nullptr)
    {
        const std::vector<Number>& numbers = other.m_Packed->numbers;
        packed->numbers.insert(packed->numbers.end(), numbers.begin() + first, numbers.begin() + last);
        return;
    }
    Items& items = WriteItems();
    const Items& more = other.AsItems();
    for (int i = first; i < last; ++i)
        items.AppendFrom(more, i);
}

void omu_PrimVector::Set(int index, omu_Primitive* owned)
{
    std::unique_ptr<omu_Primitive> guard(owned);
    WriteItems().Set(index, guard.release());
}

void omu_PrimVector::Remove(int index)
{
    if (index < 0 || index >= Length())
        nex_RaiseRange(index, Length(), "KTLOxuOmu.m/src/omu_PrimVector", __LINE__);
    if (Packed* const packed = WritePacked())
        packed->numbers.erase(packed->numbers.begin() + index);
    else
        m_Items.Remove(index);
}

void omu_PrimVector::Clear() noexcept
{
    m_Packed = cow_Shared<Packed>();
    m_Items.Clear();
}

const omu_PrimVector::Items& omu_PrimVector::AsItems() const
{
    if (!m_Packed)
        return m_Items;
    if (const Items* known = m_Packed->objects.load(std::memory_order_acquire))
        return *known;
    auto made = std::make_unique<Items>();
    for (const Number& number : m_Packed->numbers)
        made->Append(new omu_PrimNumber(number.value, number.dataType));
    const Items* first = nullptr;
    // Of two threads that come here together, the second takes what the first has made.
    if (m_Packed->objects.compare_exchange_strong(first, made.get(), std::memory_order_acq_rel))
        return *made.release();
    return *first;
}

omu_PrimVector::Packed* omu_PrimVector::WritePacked()
{
    if (!m_Packed)
        return m_Items.IsEmpty() ? &m_Packed.Write() : nullptr;
    if (m_Packed->objects.load(std::memory_order_acquire) == nullptr)
        return &m_Packed.Write();
    // Somebody holds pointers to the objects: they are the items from now on.
    static_cast<void>(WriteItems());
    return nullptr;
}

omu_PrimVector::Items& omu_PrimVector::WriteItems()
{
    if (m_Packed)
    {
        m_Items = AsItems();
        m_Packed = cow_Shared<Packed>();
    }
    return m_Items;
}
