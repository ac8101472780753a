#pragma once

#include <concepts>
#include <memory>
#include <type_traits>
#include <utility>

class cls_WriteVisitor;

/// A handle class over shared bodies: copyable, with a const operator-> (cow_COW<T>, cow_CountedHld<T>).
template <class H>
concept cls_Handle = std::copy_constructible<H> && requires(const H& handle)
{
    *handle.operator->();
};

/// The class that a handle points to, without const.
template <cls_Handle H>
using cls_PointeeOf = std::remove_cvref_t<decltype(*std::declval<const H&>().operator->())>;

/// One object on its way into a writer, whatever its class and however it is held.
///
/// A view: it looks at the object (or at the handle), which must outlive it. What it points to needs
/// `void DBWrite(const cls_WriteVisitor&) const` and a `TypeId()`, or a `DynTypeId()` where the class is
/// met through a base.
class cls_ObjectSource
{
public:
    /// The null reference.
    cls_ObjectSource() = default;

    /// An object that its owner holds by value. It has no identity of its own: its address may be that of
    /// its owner, so the writer writes it each time.
    template <class T>
    static cls_ObjectSource ByValue(const T& object)
    {
        cls_ObjectSource source(object, T::TypeId());
        source.byValue_ = true;
        return source;
    }

    /// A shared object, or null. Its owner keeps it alive and unchanged until the writer ends.
    template <class T>
    static cls_ObjectSource Of(const T* object)
    {
        return object != nullptr ? cls_ObjectSource(*object, DynamicTypeId(*object)) : cls_ObjectSource();
    }

    /// An object, or null, that lies in `holder`: Keep() copies the holder, which must share the object then,
    /// as cow_ArrayCOW does with its slots.
    template <class T, std::copy_constructible Holder>
    static cls_ObjectSource Of(const T* object, const Holder& holder)
    {
        cls_ObjectSource source = Of(object);
        if (object == nullptr)
            return source;
        source.holder_ = &holder;
        source.keep_ = [](const void* kept) -> std::shared_ptr<const void> {
            return std::make_shared<const Holder>(*static_cast<const Holder*>(kept));
        };
        return source;
    }

    /// The body of a handle, or null. Keep() shares it.
    template <cls_Handle H>
    static cls_ObjectSource Of(const H& handle)
    {
        if constexpr (requires { handle.IsNull(); })
            if (handle.IsNull())
                return {};
        const cls_PointeeOf<H>* object = handle.operator->();
        return Of(object, handle);
    }

    bool IsNull() const { return object_ == nullptr; }
    bool IsByValue() const { return byValue_; }
    /// Identity of the body: the address of the most derived object. Two sources with one body are one
    /// object, unless held by value.
    const void* Body() const { return body_; }
    /// Type id of the most derived class; 0 for null.
    unsigned TypeId() const { return typeId_; }
    /// Calls the object's DBWrite.
    void Write(const cls_WriteVisitor& writer) const { write_(object_, writer); }
    /// A share of the body, so that a later edit of the original detaches and leaves the body alone. Empty
    /// for null, for values and for plain pointers.
    std::shared_ptr<const void> Keep() const
    {
        return keep_ != nullptr ? keep_(holder_) : std::shared_ptr<const void>();
    }

private:
    template <class T>
    cls_ObjectSource(const T& object, unsigned typeId)
        : object_(&object),
          body_(MostDerived(object)),
          typeId_(typeId),
          write_([](const void* self, const cls_WriteVisitor& writer) {
              static_cast<const T*>(self)->DBWrite(writer);
          })
    {}

    template <class T>
    static const void* MostDerived(const T& object)
    {
        if constexpr (std::is_polymorphic_v<T>)
            return dynamic_cast<const void*>(&object);
        else
            return &object;
    }

    template <class T>
    static unsigned DynamicTypeId(const T& object)
    {
        if constexpr (requires { object.DynTypeId(); })
            return object.DynTypeId();
        else
            return T::TypeId();
    }

    const void* object_ = nullptr;
    const void* body_ = nullptr;
    unsigned typeId_ = 0;
    bool byValue_ = false;
    void (*write_)(const void*, const cls_WriteVisitor&) = nullptr;
    const void* holder_ = nullptr;
    std::shared_ptr<const void> (*keep_)(const void*) = nullptr;
};
