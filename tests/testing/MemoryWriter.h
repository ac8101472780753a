#pragma once

#include <cls_WriteVisitor.h>
#include <testing/MemoryStore.h>

/// Fills one object of a MemoryStore; each part has a writer of its own.
class MemoryWriter : public cls_WriteVisitor
{
public:
    /// The writer of the object's own class.
    MemoryWriter(MemoryStore& store, std::vector<MemoryPart>& parts);

    bool Announce(unsigned typeId, const cls_Uid& uid) const override;
    const cls_WriteVisitor& BaseWriter() const override;

    void WriteBool(const cls_FieldHandle& field, bool value) const override;
    void WriteChar(const cls_FieldHandle& field, char value) const override;
    void WriteInt(const cls_FieldHandle& field, int value) const override;
    void WriteFloat(const cls_FieldHandle& field, float value) const override;
    void WriteDouble(const cls_FieldHandle& field, double value) const override;
    void WriteString(const cls_FieldHandle& field, const cow_String& value) const override;
    void WriteMessage(const cls_FieldHandle& field, const atr_String& value) const override;
    void WriteEnum(const cls_FieldHandle& field, const cow_String& name) const override;

    /// Appends this part behind the parts of its bases; call it when DBWrite has returned.
    void Finish() const;

protected:
    void PutObject(const cls_FieldHandle& field, const cls_ObjectSource& object) const override;
    void PutList(const cls_FieldHandle& field, const cls_PrimSpan& elements, int columns) const override;
    void PutObjectList(const cls_FieldHandle& field,
                       std::span<const cls_ObjectSource> objects) const override;
    void PutMap(const cls_FieldHandle& field, const cls_KeySpan& keys,
                const cls_PrimSpan& values) const override;
    void PutObjectMap(const cls_FieldHandle& field, const cls_KeySpan& keys,
                      std::span<const cls_ObjectSource> objects) const override;

private:
    void Add(const cls_FieldHandle& field, cls_AttributeType type, MemoryValue value,
             cls_CollectionType collection = cls_CollectionType::SINGLE) const;
    std::vector<int> Numbers(std::span<const cls_ObjectSource> objects) const;

    MemoryStore& store_;
    std::vector<MemoryPart>& parts_;
    mutable bool announced_ = false;
    mutable MemoryPart part_;
    mutable std::unique_ptr<MemoryWriter> base_;
};
