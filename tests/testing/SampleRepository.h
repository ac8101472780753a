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
#include <omu_Table.h>
#include <string>
#include <vector>

namespace sample
{
constexpr const char* SOURCE = "tests/testing/SampleRepository";

struct Part
{
    cow_String name;
    double width = 1;
    int copies = 1;
    cow_String comment;
};
using Point = std::array<double, 2>;
struct Model
{
    cow_String name;
    std::vector<std::shared_ptr<Part>> parts;
    std::vector<Point> vertices;
};
struct Database
{
    std::vector<std::shared_ptr<Model>> models;
};

template <class T>
int Find(const std::vector<std::shared_ptr<T>>& all, const cow_String& name)
{
    const auto found =
        std::find_if(all.begin(), all.end(), [&](const auto& one) { return one->name == name; });
    return found == all.end() ? -1 : static_cast<int>(found - all.begin());
}
template <class T>
cow_List<cow_String> NamesOf(const std::vector<std::shared_ptr<T>>& all)
{
    cow_List<cow_String> names;
    for (const auto& one : all)
        names.Append(one->name);
    return names;
}
template <class T>
const std::shared_ptr<T>& Named(const std::vector<std::shared_ptr<T>>& all, const cow_String& name)
{
    const int at = Find(all, name);
    if (at < 0)
        nex_Raise(omu_KeyErrorException(name), SOURCE, __LINE__);
    return all[static_cast<std::size_t>(at)];
}

/// A handle on a T that is stale when the T is gone.
template <class T>
class Handle : public omu_MemberIntObj
{
public:
    Handle(const omu_Shortcut& shortcut, const std::shared_ptr<T>& data)
        : omu_MemberIntObj(shortcut), data_(data)
    {}
    bool IsStale() const override { return omu_MemberIntObj::IsStale() || data_.expired(); }

protected:
    T& Data() const { return *data_.lock(); }

private:
    std::weak_ptr<T> data_;
};

/// Members: name (read-only), width, copies, comment (may be deleted), and the deprecated size for width.
class PartIntObj : public Handle<Part>
{
public:
    PartIntObj(const omu_Shortcut& shortcut, const std::shared_ptr<Part>& part) : Handle(shortcut, part)
    {
        SetTypeDesc(Description());
    }
    static const TypeDesc& Description()
    {
        static const methodTable METHODS[] = {{"setValues", Method<&PartIntObj::SetValues>},
                                              {"scale", Method<&PartIntObj::Scale>},
                                              {"area", Method<&PartIntObj::Area>, NOT_JOURNALLED},
                                              {}};
        static const memberTable MEMBERS[] = {
            {"name", Reader<&PartIntObj::Name>},
            {"width", Reader<&PartIntObj::Width>, PLAIN, Writer<&PartIntObj::SetWidth>},
            {"copies", Reader<&PartIntObj::Copies>, PLAIN, Writer<&PartIntObj::SetCopies>},
            {"comment", Reader<&PartIntObj::Comment>, NOT_FOR_QUERY, Writer<&PartIntObj::SetComment>},
            {}};
        static const deprecatedMethodTable OLD_METHODS[] = {
            {"resize", Method<&PartIntObj::Scale>, PLAIN, "scale"}, {}};
        static const deprecatedMemberTable OLD_MEMBERS[] = {{"size", nullptr, PLAIN, nullptr, "width"}, {}};
        static const TypeDesc description = DescribeType("Part", METHODS, MEMBERS, OLD_METHODS, OLD_MEMBERS);
        return description;
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

    template <class T>
    static T Only(omu_Arguments& value, const char* name)
    {
        T read{};
        value.Begin();
        value.Get(read, name);
        value.End();
        return read;
    }
    void SetWidth(omu_Arguments& value) const
    {
        const double width = Only<double>(value, "width");
        omu_RangeChecker::CheckGreaterThan("width", 0.0, false, width);
        Data().width = width;
    }
    void SetCopies(omu_Arguments& value) const
    {
        const int copies = Only<int>(value, "copies");
        omu_RangeChecker::CheckInRange("copies", 1, true, copies, 100, true);
        Data().copies = copies;
    }
    void SetComment(omu_Arguments& value) const { Data().comment = Only<cow_String>(value, "comment"); }

    /// setValues(width=, copies=, comment=): all optional; nothing changes when one is wrong.
    omu_Primitive* SetValues(omu_Arguments& arguments) const
    {
        Part changed = Data();
        arguments.Begin();
        arguments.Optional();
        if (arguments.Get(changed.width, "width"))
            omu_RangeChecker::CheckGreaterThan("width", 0.0, false, changed.width);
        if (arguments.Get(changed.copies, "copies"))
            omu_RangeChecker::CheckInRange("copies", 1, true, changed.copies, 100, true);
        arguments.Get(changed.comment, "comment");
        arguments.End();
        Data() = changed;
        return nullptr;
    }
    /// scale(factor, times=1): the new width.
    omu_Primitive* Scale(omu_Arguments& arguments) const
    {
        double factor = 1;
        int times = 1;
        arguments.Begin();
        arguments.Get(factor, "factor");
        arguments.Optional();
        arguments.Get(times, "times");
        arguments.End();
        omu_RangeChecker::CheckInRange("factor", 0.5, true, factor, 2.0, true);
        omu_RangeChecker::CheckInRange("times", 1, true, times, 10, true);
        for (int i = 0; i < times; ++i)
            Data().width *= factor;
        return new omu_PrimNumber(Data().width);
    }
};

/// model.parts: entries may be removed and renamed, not assigned.
class PartsIntObj : public omu_DictIntObjABC<cow_String>
{
public:
    PartsIntObj(const omu_Shortcut& shortcut, const std::shared_ptr<Model>& model)
        : omu_DictIntObjABC<cow_String>(shortcut), model_(model)
    {
        static const TypeDesc description =
            DescribeType("PartRepository", nullptr, nullptr, nullptr, nullptr, Description());
        SetTypeDesc(description);
    }
    PartsIntObj* Copy() const override { return new PartsIntObj(*this); }
    bool IsStale() const override { return omu_DictIntObj::IsStale() || model_.expired(); }
    int Length() const override { return static_cast<int>(Parts().size()); }
    cow_List<cow_String> Keys() const override { return NamesOf(Parts()); }
    bool HasKey(const cow_String& key) const override { return Find(Parts(), key) >= 0; }
    omu_Primitive* Subscript(const cow_String& key) const override
    {
        const int at = Find(Parts(), key);
        if (at < 0)
            return nullptr;
        return new PartIntObj(omu_SimpleDictShortcutImpl<cow_String>(BaseShortcut(), "", key),
                              Parts()[static_cast<std::size_t>(at)]);
    }
    void Remove(const cow_String& key) const override
    {
        Parts().erase(Parts().begin() + std::max(Find(Parts(), key), 0));
    }
    void ChangeKey(const cow_String& from, const cow_String& to) const override
    {
        Named(Parts(), from)->name = to;
    }
    omu_Primitive* Summary() const override
    {
        omu_Table table({"Name", "Type"});
        for (const cow_String& key : Keys())
        {
            const int row = table.AddRow();
            table.Put(row, 0, key);
            table.Put(row, 1, cow_String("Part"));
        }
        return new omu_PrimString(table.IsEmpty() ? cow_String("Empty Summary") : table.AsString());
    }

private:
    std::vector<std::shared_ptr<Part>>& Parts() const { return model_.lock()->parts; }

    std::weak_ptr<Model> model_;
};

/// model.vertices[i]: member coordinates. Vertices add and subtract.
class VertexIntObj : public Handle<Model>
{
public:
    VertexIntObj(const omu_Shortcut& shortcut, const std::shared_ptr<Model>& model, int place)
        : Handle(shortcut, model), place_(place)
    {
        static const memberTable MEMBERS[] = {{"coordinates", Reader<&VertexIntObj::Coordinates>, PLAIN},
                                              {"index", Reader<&VertexIntObj::Place>},
                                              {}};
        static const TypeDesc description = DescribeType("Vertex", nullptr, MEMBERS, nullptr, nullptr);
        SetTypeDesc(description);
    }
    VertexIntObj* Copy() const override { return new VertexIntObj(*this); }
    int Id() const override { return place_; }
    bool IsStale() const override
    {
        return Handle::IsStale() || place_ >= static_cast<int>(Data().vertices.size());
    }
    omu_Primitive* AddOperation(omu_InterfaceObj* other) const override { return Moved(other, 1); }
    omu_Primitive* SubOperation(omu_InterfaceObj* other) const override { return Moved(other, -1); }

private:
    const Point& At() const { return Data().vertices[static_cast<std::size_t>(place_)]; }
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
class VerticesIntObj : public omu_SeqIntObj
{
public:
    VerticesIntObj(const omu_Shortcut& shortcut, const std::shared_ptr<Model>& model)
        : omu_SeqIntObj(shortcut), model_(model)
    {
        static const TypeDesc description =
            DescribeType("VertexArray", nullptr, nullptr, nullptr, nullptr, Description());
        SetTypeDesc(description);
    }
    VerticesIntObj* Copy() const override { return new VerticesIntObj(*this); }
    bool IsStale() const override { return omu_SeqIntObj::IsStale() || model_.expired(); }
    int Length() const override { return static_cast<int>(model_.lock()->vertices.size()); }
    omu_Primitive* Index(int position) const override
    {
        return new VertexIntObj(omu_SimpleSeqShortcutImpl(BaseShortcut(), position, position), model_.lock(),
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
        model_.lock()->vertices[static_cast<std::size_t>(position)] = {numbers.Get(0), numbers.Get(1)};
        return nullptr;
    }
    omu_Primitive* Remove(int position) const override { return RemoveSlice(position, position + 1); }
    omu_Primitive* RemoveSlice(int from, int to) const override
    {
        std::vector<Point>& all = model_.lock()->vertices;
        all.erase(all.begin() + from, all.begin() + std::max(from, to));
        return nullptr;
    }

private:
    std::weak_ptr<Model> model_;
};

class ModelIntObj : public Handle<Model>
{
public:
    ModelIntObj(const omu_Shortcut& shortcut, const std::shared_ptr<Model>& model)
        : Handle(shortcut, model), model_(model)
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
    omu_Primitive* Name() const { return new omu_PrimString(Data().name); }
    omu_Primitive* Parts() const
    {
        return new PartsIntObj(omu_SimpleMemShortcutImpl(BaseShortcut(), "parts"), model_.lock());
    }
    omu_Primitive* Vertices() const
    {
        return new VerticesIntObj(omu_SimpleMemShortcutImpl(BaseShortcut(), "vertices"), model_.lock());
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
        auto& parts = Data().parts;
        if (const int at = Find(parts, part->name); at >= 0)
            parts[static_cast<std::size_t>(at)] = part;
        else
            parts.push_back(part);
        return std::unique_ptr<PartsIntObj>(static_cast<PartsIntObj*>(Parts()))->Subscript(part->name);
    }

    std::weak_ptr<Model> model_;
};

class ModelsIntObj : public omu_DictIntObjABC<cow_String>
{
public:
    ModelsIntObj(const omu_Shortcut& shortcut, const std::shared_ptr<Database>& database)
        : omu_DictIntObjABC<cow_String>(shortcut), database_(database)
    {}
    ModelsIntObj* Copy() const override { return new ModelsIntObj(*this); }
    int Length() const override { return static_cast<int>(database_->models.size()); }
    cow_List<cow_String> Keys() const override { return NamesOf(database_->models); }
    omu_Primitive* Subscript(const cow_String& key) const override
    {
        const int at = Find(database_->models, key);
        if (at < 0)
            return nullptr;
        return new ModelIntObj(omu_SimpleDictShortcutImpl<cow_String>(BaseShortcut(), "", key),
                               database_->models[static_cast<std::size_t>(at)]);
    }
    void Remove(const cow_String& key) const override
    {
        database_->models.erase(database_->models.begin() + std::max(Find(database_->models, key), 0));
    }

private:
    std::shared_ptr<Database> database_;
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
        return new ModelsIntObj(omu_SimpleMemShortcutImpl(BaseShortcut(), "models"), database_);
    }

    std::shared_ptr<Database> database_;
};

/// A model "M" with the parts "P1" and "it's" and the vertices (0, 0), (1, 0), (1, 2).
inline std::shared_ptr<Database> NewDatabase()
{
    auto model = std::make_shared<Model>(Model{"M", {}, {{0, 0}, {1, 0}, {1, 2}}});
    model->parts.push_back(std::make_shared<Part>(Part{"P1", 2, 1, ""}));
    model->parts.push_back(std::make_shared<Part>(Part{"it's", 1, 3, "odd"}));
    auto database = std::make_shared<Database>();
    database->models.push_back(model);
    return database;
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
        database->models.push_back(model);
        return nullptr;
    });
}
}
