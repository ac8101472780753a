#pragma once

#include <any>
#include <cls_ReadVisitor.h>
#include <testing/MemoryStore.h>

/// What the readers of one reading share: each object's handle, and which objects are under construction.
struct MemoryReading
{
    explicit MemoryReading(const MemoryStore& from);

    const MemoryStore& store;
    std::vector<std::any> shared;
    std::vector<bool> open;
};

/// Reads one part of an object of a MemoryStore.
class MemoryReader : public cls_ReadVisitor
{
public:
    /// A reader of the first `depth` parts of the object: of part depth - 1, and of nothing where that is -1.
    MemoryReader(std::shared_ptr<MemoryReading> reading, int number, int depth);

    unsigned TypeId() const override;
    unsigned Version() const override;
    cls_Uid Uid() const override;
    const cls_ReadVisitor& BaseReader() const override;

    bool ReadBool(const cls_FieldHandle& field, bool& value) const override;
    bool ReadChar(const cls_FieldHandle& field, char& value) const override;
    bool ReadInt(const cls_FieldHandle& field, int& value) const override;
    bool ReadFloat(const cls_FieldHandle& field, float& value) const override;
    bool ReadDouble(const cls_FieldHandle& field, double& value) const override;
    bool ReadString(const cls_FieldHandle& field, cow_String& value) const override;
    bool ReadMessage(const cls_FieldHandle& field, atr_String& value) const override;
    bool ReadEnum(const cls_FieldHandle& field, cow_String& name) const override;

    /// Creates the object by its type id through the registered adapter, or through `fallback` where the
    /// class is not registered.
    static std::unique_ptr<cls_Persistent> Create(const std::shared_ptr<MemoryReading>& reading, int number,
                                                  const cls_AdapterBase* fallback);

protected:
    bool GetObject(const cls_FieldHandle& field, cls_ObjectSink& sink) const override;
    bool GetList(const cls_FieldHandle& field, const cls_PrimSink& elements, int& columns) const override;
    bool GetObjectList(const cls_FieldHandle& field, cls_ObjectSink& sink) const override;
    bool GetMap(const cls_FieldHandle& field, const cls_KeySink& keys,
                const cls_PrimSink& values) const override;
    bool GetObjectMap(const cls_FieldHandle& field, const cls_KeySink& keys,
                      cls_ObjectSink& sink) const override;

private:
    const MemoryAttribute* Find(const cls_FieldHandle& field, cls_AttributeType type,
                                cls_CollectionType collection) const;
    template <class T>
    bool Get(const cls_FieldHandle& field, cls_AttributeType type, T& value) const;
    void Take(int number, cls_ObjectSink& sink) const;

    std::shared_ptr<MemoryReading> reading_;
    int number_;
    int depth_;
    const MemoryPart* part_ = nullptr;
    mutable std::unique_ptr<MemoryReader> base_;
};
