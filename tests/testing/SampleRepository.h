#pragma once

// A small application behind interface objects: mdb.models['M'].parts['P'], mdb.models['M'].vertices[0].
// Handles look at the data and grow stale with them.

#include <algorithm>
#include <array>
#include <memory>
#include <nex_RaiseWith.h>
#include <omu_Arguments.h>
#include <omu_CommandTable.h>
#include <omu_DictIntObjABC.h>
#include <omu_KeyErrorException.h>
#include <omu_MemberIntObj.h>
#include <omu_PrimList.h>
#include <omu_PrimNumber.h>
#include <omu_PrimString.h>
#include <omu_RangeChecker.h>
#include <omu_SeqIntObj.h>
#include <omu_SimpleDictShortcutImpl.h>
#include <omu_SimpleMemShortcutImpl.h>
#include <omu_SimpleSeqShortcutImpl.h>
#include <omu_SimpleTermShortcutImpl.h>
#include <vector>

namespace sample
{
template <class T>
using Entries = std::vector<std::shared_ptr<T>>;
using Point = std::array<double, 2>;

struct Part
{
    static constexpr const char* REPOSITORY = "PartRepository";
    cow_String name;
    double width = 1;
    int copies = 1;
    cow_String comment;
};
struct Model
{
    static constexpr const char* REPOSITORY = "ModelRepository";
    cow_String name;
    Entries<Part> parts;
    std::vector<Point> vertices;
};
using Database = Entries<Model>;

/// A handle on a T that is stale when the T is gone.
template <class T, class Base = omu_MemberIntObj>
class Handle : public Base
{
public:
    Handle(const omu_Shortcut& shortcut, const std::shared_ptr<T>& data) : Base(shortcut), data_(data) {}
    bool IsStale() const override { return Base::IsStale() || data_.expired(); }

protected:
    std::shared_ptr<T> Shared() const { return data_.lock(); }
    T& Data() const { return *data_.lock(); }

private:
    std::weak_ptr<T> data_;
};

/// Members: name and copies (read-only), width, comment (may be deleted), and the deprecated size for width.
class PartIntObj : public Handle<Part>
{
public:
    PartIntObj(const omu_Shortcut& shortcut, const std::shared_ptr<Part>& part) : Handle(shortcut, part)
    {
        static const methodTable METHODS[] = {{"setValues", Method<&PartIntObj::SetValues>},
                                              {"scale", Method<&PartIntObj::Scale>},
                                              {"area", Method<&PartIntObj::Area>, NOT_JOURNALLED},
                                              {}};
        static const memberTable MEMBERS[] = {
            {"name", Reader<&PartIntObj::Name>},
            {"width", Reader<&PartIntObj::Width>, PLAIN, Writer<&PartIntObj::SetWidth>},
            {"copies", Reader<&PartIntObj::Copies>},
            {"comment", Reader<&PartIntObj::Comment>, NOT_FOR_QUERY, Writer<&PartIntObj::SetComment>},
            {}};
        static const deprecatedMethodTable OLD_METHODS[] = {
            {"resize", Method<&PartIntObj::Scale>, PLAIN, "scale"}, {}};
        static const deprecatedMemberTable OLD_MEMBERS[] = {{"size", nullptr, PLAIN, nullptr, "width"}, {}};
        static const TypeDesc description = DescribeType("Part", METHODS, MEMBERS, OLD_METHODS, OLD_MEMBERS);
        SetTypeDesc(description);
    }
    PartIntObj* Copy() const override { return new PartIntObj(*this); }
    void DeleteMember(const cow_String& name) const override
    {
        RequireLive();
        if (name == "comment")
            Data().comment = cow_String();
        else
            Handle::DeleteMember(name);
    }

private:
    omu_Primitive* Name() const { return new omu_PrimString(Data().name); }
    omu_Primitive* Width() const { return new omu_PrimNumber(Data().width); }
    omu_Primitive* Copies() const { return new omu_PrimNumber(Data().copies); }
    omu_Primitive* Comment() const { return new omu_PrimString(Data().comment); }
    omu_Primitive* Area(omu_Arguments& arguments) const
    {
        arguments.Begin();
        arguments.End();
        return new omu_PrimNumber(Data().width * Data().width * Data().copies);
    }

    /// Nothing changes when a value is out of range.
    void Become(const Part& changed) const
    {
        omu_RangeChecker::CheckGreaterThan("width", 0.0, false, changed.width);
        Data() = changed;
    }
    template <class T>
    void Set(T Part::*member, const char* name, omu_Arguments& value) const
    {
        Part changed = Data();
        value.Begin();
        value.Get(changed.*member, name);
        value.End();
        Become(changed);
    }
    void SetWidth(omu_Arguments& value) const { Set(&Part::width, "width", value); }
    void SetComment(omu_Arguments& value) const { Set(&Part::comment, "comment", value); }

    /// setValues(width=, comment=): all optional.
    omu_Primitive* SetValues(omu_Arguments& arguments) const
    {
        Part changed = Data();
        arguments.Begin();
        arguments.Optional();
        arguments.Get(changed.width, "width");
        arguments.Get(changed.comment, "comment");
        arguments.End();
        Become(changed);
        return nullptr;
    }
    /// scale(factor): the new width.
    omu_Primitive* Scale(omu_Arguments& arguments) const
    {
        double factor = 1;
        arguments.Begin();
        arguments.Get(factor, "factor");
        arguments.End();
        omu_RangeChecker::CheckInRange("factor", 0.5, true, factor, 2.0, true);
        Data().width *= factor;
        return Width();
    }
};

/// A dictionary of what has a name: entries may be removed and renamed, not assigned.
template <class T, class IntObj>
class EntriesIntObj : public Handle<Entries<T>, omu_DictIntObjABC<cow_String>>
{
    using Base = Handle<Entries<T>, omu_DictIntObjABC<cow_String>>;

public:
    EntriesIntObj(const omu_Shortcut& shortcut, const std::shared_ptr<Entries<T>>& entries)
        : Base(shortcut, entries)
    {
        static const omu_InterfaceObj::TypeDesc description =
            Base::DescribeType(T::REPOSITORY, nullptr, nullptr, nullptr, nullptr, Base::Description());
        this->SetTypeDesc(description);
    }
    EntriesIntObj* Copy() const override { return new EntriesIntObj(*this); }
    int Length() const override { return static_cast<int>(this->Data().size()); }
    cow_List<cow_String> Keys() const override
    {
        cow_List<cow_String> names;
        for (const auto& one : this->Data())
            names.Append(one->name);
        return names;
    }
    omu_Primitive* Subscript(const cow_String& key) const override
    {
        for (const auto& one : this->Data())
            if (one->name == key)
                return new IntObj(omu_SimpleDictShortcutImpl<cow_String>(this->BaseShortcut(), "", key), one);
        return nullptr;
    }
    void Remove(const cow_String& key) const override
    {
        std::erase_if(this->Data(), [&](const auto& one) { return one->name == key; });
    }
    void ChangeKey(const cow_String& from, const cow_String& to) const override
    {
        if (!this->HasKey(from))
            nex_Raise(omu_KeyErrorException(from), "tests/testing/SampleRepository", __LINE__);
        for (const auto& one : this->Data())
            if (one->name == from)
                one->name = to;
    }
};
using PartsIntObj = EntriesIntObj<Part, PartIntObj>;

/// model.vertices[i]: members coordinates and index. Vertices add and subtract.
class VertexIntObj : public Handle<std::vector<Point>>
{
public:
    VertexIntObj(const omu_Shortcut& shortcut, const std::shared_ptr<std::vector<Point>>& all, int place)
        : Handle(shortcut, all), place_(place)
    {
        static const memberTable MEMBERS[] = {
            {"coordinates", Reader<&VertexIntObj::Coordinates>}, {"index", Reader<&VertexIntObj::Place>}, {}};
        static const TypeDesc description = DescribeType("Vertex", nullptr, MEMBERS, nullptr, nullptr);
        SetTypeDesc(description);
    }
    VertexIntObj* Copy() const override { return new VertexIntObj(*this); }
    int Id() const override { return place_; }
    bool IsStale() const override { return Handle::IsStale() || place_ >= static_cast<int>(Data().size()); }
    omu_Primitive* AddOperation(omu_InterfaceObj* other) const override { return Moved(other, 1); }
    omu_Primitive* SubOperation(omu_InterfaceObj* other) const override { return Moved(other, -1); }

private:
    const Point& At() const { return Data()[static_cast<std::size_t>(place_)]; }
    omu_Primitive* Coordinates() const { return new omu_PrimTuple(cow_List<double>{At()[0], At()[1]}); }
    omu_Primitive* Place() const { return new omu_PrimNumber(place_); }
    omu_Primitive* Moved(omu_InterfaceObj* other, double sign) const
    {
        const auto* vertex = dynamic_cast<const VertexIntObj*>(other);
        if (vertex == nullptr)
            return Handle::AddOperation(other);
        return new omu_PrimTuple(
            cow_List<double>{At()[0] + sign * vertex->At()[0], At()[1] + sign * vertex->At()[1]});
    }

    int place_;
};

/// model.vertices: elements may be assigned (a tuple of two floats) and removed.
class VerticesIntObj : public Handle<std::vector<Point>, omu_SeqIntObj>
{
public:
    VerticesIntObj(const omu_Shortcut& shortcut, const std::shared_ptr<std::vector<Point>>& all)
        : Handle(shortcut, all)
    {
        static const TypeDesc description =
            DescribeType("VertexArray", nullptr, nullptr, nullptr, nullptr, Description());
        SetTypeDesc(description);
    }
    VerticesIntObj* Copy() const override { return new VerticesIntObj(*this); }
    int Length() const override { return static_cast<int>(Data().size()); }
    omu_Primitive* Index(int position) const override
    {
        return new VertexIntObj(omu_SimpleSeqShortcutImpl(BaseShortcut(), position, position), Shared(),
                                position);
    }
    omu_Primitive* Assign(int position, const omu_Primitive& value) const override
    {
        omu_PrimTuple argument;
        argument.Put(value.Copy());
        cow_List<double> numbers;
        argument.Begin();
        argument.Get(numbers);
        argument.End();
        omu_RangeChecker::CheckInRange("vertex", 2, true, numbers.Length(), 2, true);
        Data()[static_cast<std::size_t>(position)] = {numbers.Get(0), numbers.Get(1)};
        return nullptr;
    }
    omu_Primitive* Remove(int position) const override { return RemoveSlice(position, position + 1); }
    omu_Primitive* RemoveSlice(int from, int to) const override
    {
        Data().erase(Data().begin() + from, Data().begin() + std::max(from, to));
        return nullptr;
    }
};

class ModelIntObj : public Handle<Model>
{
public:
    ModelIntObj(const omu_Shortcut& shortcut, const std::shared_ptr<Model>& model) : Handle(shortcut, model)
    {
        static const methodTable METHODS[] = {{"Part", Method<&ModelIntObj::NewPart>}, {}};
        static const memberTable MEMBERS[] = {{"name", Reader<&ModelIntObj::Name>},
                                              {"parts", Reader<&ModelIntObj::Parts>},
                                              {"vertices", Reader<&ModelIntObj::Vertices>},
                                              {}};
        static const TypeDesc description = DescribeType("Model", METHODS, MEMBERS, nullptr, nullptr);
        SetTypeDesc(description);
    }
    ModelIntObj* Copy() const override { return new ModelIntObj(*this); }

private:
    /// A member's container, which lives as long as its model.
    template <class T>
    std::shared_ptr<T> Member(T Model::*member) const
    {
        return {Shared(), &(Data().*member)};
    }
    omu_Primitive* Name() const { return new omu_PrimString(Data().name); }
    omu_Primitive* Parts() const
    {
        return new PartsIntObj(omu_SimpleMemShortcutImpl(BaseShortcut(), "parts"), Member(&Model::parts));
    }
    omu_Primitive* Vertices() const
    {
        return new VerticesIntObj(omu_SimpleMemShortcutImpl(BaseShortcut(), "vertices"),
                                  Member(&Model::vertices));
    }
    /// Part(name, width=1.0): the new part; one of that name is replaced, and its handles are stale.
    omu_Primitive* NewPart(omu_Arguments& arguments) const
    {
        auto part = std::make_shared<Part>();
        arguments.Begin();
        arguments.Get(part->name, "name");
        arguments.Optional();
        arguments.Get(part->width, "width");
        arguments.End();
        omu_RangeChecker::CheckGreaterThan("width", 0.0, false, part->width);
        const std::unique_ptr<PartsIntObj> parts(static_cast<PartsIntObj*>(Parts()));
        parts->Remove(part->name);
        Data().parts.push_back(part);
        return parts->Subscript(part->name);
    }
};

/// The root "mdb".
class MdbIntObj : public omu_InterfaceObj
{
public:
    explicit MdbIntObj(const std::shared_ptr<Database>& database)
        : omu_InterfaceObj(omu_SimpleTermShortcutImpl("mdb", true)), database_(database)
    {
        static const memberTable MEMBERS[] = {{"models", Reader<&MdbIntObj::Models>}, {}};
        static const TypeDesc description = DescribeType("Mdb", nullptr, MEMBERS, nullptr, nullptr);
        SetTypeDesc(description);
    }
    MdbIntObj* Copy() const override { return new MdbIntObj(*this); }

private:
    omu_Primitive* Models() const
    {
        return new EntriesIntObj<Model, ModelIntObj>(omu_SimpleMemShortcutImpl(BaseShortcut(), "models"),
                                                     database_);
    }

    std::shared_ptr<Database> database_;
};

/// A model "M" with the parts "P1" and "it's" and the vertices (0, 0), (1, 0), (1, 2).
inline std::shared_ptr<Database> NewDatabase()
{
    auto model = std::make_shared<Model>(Model{"M", {}, {{0, 0}, {1, 0}, {1, 2}}});
    model->parts = {std::make_shared<Part>(Part{"P1", 2, 1, ""}),
                    std::make_shared<Part>(Part{"it's", 1, 3, "odd"})};
    return std::make_shared<Database>(1, model);
}

/// Puts the root "mdb" and the command Model(name) into the table.
inline void Install(omu_CommandTable& table, const std::shared_ptr<Database>& database)
{
    table.RegisterRoot("mdb", std::make_shared<MdbIntObj>(database));
    table.Register("Model", [database](omu_Arguments& arguments) -> omu_Primitive* {
        auto model = std::make_shared<Model>();
        arguments.Begin();
        arguments.Get(model->name, "name");
        arguments.End();
        database->push_back(model);
        return nullptr;
    });
}
}
