#pragma once

// Persistent objects written into memory and read back, to test DBWrite, reading constructors and metadata
// without a memento stream.
//
//     MemoryStore store;
//     const int number = store.Write(point);        // DBWrite of the object and all that it refers to
//     EXPECT_EQ(store.Faults(), "");                // what was written against what was declared
//     EXPECT_EQ(store.Describe(number), "gsl_Point\n  x DOUBLE 1\n ...");   // the persisted shape
//     const auto back = store.Read<gsl_Point>(number);   // the constructor from a cls_ReadVisitor
//     auto any = store.Create(number);              // by type id, through the registered adapter
//
// Data of another layout is made by editing what was written:
//
//     store.LastPart(number).Drop("y");             // an absent attribute
//     store.LastPart(number).version = 203;         // an older release
//     store.Part(number, gsl_Point::TypeId()).Set("type", cls_AttributeType::CHAR, 'f');
//
// Rules as for mementos: objects are numbered from 1, 0 is null; a shared body is written once and read once,
// and all references share it; a value is written each time; attributes are found by name; a part's own
// attributes stand apart from those of its base. Wrong data throws nex_PrimException "MemoryReader: ...".
// Classes that are referred to through another class, or created by type id, must be registered.

#include <cls_AttributeType.h>
#include <cls_Persistent.h>
#include <cls_ReadVisitor.h>
#include <cls_WriteVisitor.h>

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <variant>
#include <vector>

/// One object, by number.
struct MemoryReference
{
    int number = 0;
};
using MemoryKeys = std::variant<cow_List<int>, cow_List<cow_String>>;
/// A list of primitives or objects; with keys, a map to them.
struct MemoryList
{
    std::variant<cow_List<bool>, cow_List<int>, cow_List<unsigned>, cow_List<float>, cow_List<double>,
                 cow_List<cow_String>, std::vector<MemoryReference>>
        elements;
    int columns = 1;
    std::optional<MemoryKeys> keys = {};
};
using MemoryValue = std::variant<bool, char, int, float, double, cow_String, MemoryReference, MemoryList>;

struct MemoryAttribute
{
    std::string name;
    cls_AttributeType type = {};
    cls_CollectionType collection = {};
    MemoryValue value;
};

/// What one class of an object wrote.
struct MemoryPart
{
    unsigned typeId = 0;
    unsigned version = 0; ///< the registered one where the class is registered
    cls_Uid uid = cls_Uid::Null();
    std::vector<MemoryAttribute> attributes; ///< in the order in which they were written

    /// Null where there is none.
    MemoryAttribute* Find(const std::string& name);
    const MemoryAttribute* Find(const std::string& name) const
    {
        return const_cast<MemoryPart*>(this)->Find(name);
    }
    /// Throws where there is none.
    void Drop(const std::string& name);
    /// Replaces the attribute, or appends it.
    void Set(const std::string& name, cls_AttributeType type, MemoryValue value,
             cls_CollectionType collection = cls_CollectionType::SINGLE);
    /// The names in order, blanks between.
    std::string Names() const;
};

class MemoryStore
{
public:
    struct Object
    {
        std::vector<MemoryPart> parts; ///< base first, the object's own class last
    };

    /// Writes an object and everything that it refers to; the number is new.
    template <class T>
    int Write(const T& object)
    {
        return WriteSource(cls_ObjectSource::ByValue(object));
    }
    /// Writes the body of a handle or pointer; one written before keeps its number, null is 0.
    template <class H>
    int WriteShared(const H& handleOrPointer)
    {
        return WriteSource(cls_ObjectSource::Of(handleOrPointer));
    }
    int WriteSource(const cls_ObjectSource& source);

    int Count() const { return static_cast<int>(objects_.size()); }
    Object& At(int number) const { return *objects_.at(static_cast<std::size_t>(number) - 1); }
    MemoryPart& LastPart(int number) const { return At(number).parts.back(); }
    /// The part of that class; throws where the object has none.
    MemoryPart& Part(int number, unsigned typeId) const;

    /// The object read by T's constructor from a cls_ReadVisitor.
    template <class T>
    T Read(int number) const
    {
        return T(*Reader(number));
    }
    /// The object created by its type id through the registrar.
    std::unique_ptr<cls_Persistent> Create(int number) const;
    /// A reader of the object; further objects that it meets are each built once. Outlived by the store.
    std::unique_ptr<const cls_ReadVisitor> Reader(int number) const;

    /// Where what was written disagrees with the registered metadata, one line each: attributes not declared,
    /// of another type or collection, or out of the declared order; references to another class; base parts
    /// that are not the registered parent. Classes without metadata are not held against anything. Empty when
    /// all agrees.
    std::string Faults() const { return faults_; }
    /// The object's parts, base first: a line with the class name, then a line for each attribute in order
    /// with name, type (and collection code where it is not 0) and value: "  m_Keyword STRING 'depth'",
    /// "  items OBJECT/54 [1, 2] columns 1", "  m_map OBJECT/2 {'a': #3}". Objects are shown as #number.
    std::string Describe(int number) const;

private:
    void Check(const MemoryPart& part, const MemoryPart* base);

    std::vector<std::unique_ptr<Object>> objects_;
    std::map<const void*, int> written_;
    std::vector<std::shared_ptr<const void>> kept_;
    std::string faults_;
};
