#pragma once

#include <cls_WriteVisitor.h>
#include <pybind11/pybind11.h>

/// Gives a Python exception the fields of one of the library's as attributes, by the names under which they
/// are stored: "m_NestingStr" becomes nestingStr. The texts that every exception has (message, source) are
/// left out. So a new exception class needs nothing here.
class scr_ExceptionFields : public cls_WriteVisitor
{
public:
    /// Sets attributes of `target`, which outlives this object.
    explicit scr_ExceptionFields(const pybind11::object& target) : target_(target) {}

    bool Announce(unsigned typeId, const cls_Uid& uid) const override;
    const cls_WriteVisitor& BaseWriter() const override { return *this; }

    void WriteBool(const cls_FieldHandle& field, bool value) const override;
    void WriteChar(const cls_FieldHandle& field, char value) const override;
    void WriteInt(const cls_FieldHandle& field, int value) const override;
    void WriteFloat(const cls_FieldHandle& field, float value) const override;
    void WriteDouble(const cls_FieldHandle& field, double value) const override;
    void WriteString(const cls_FieldHandle& field, const cow_String& value) const override;
    void WriteMessage(const cls_FieldHandle& field, const atr_String& value) const override;
    void WriteEnum(const cls_FieldHandle& field, const cow_String& name) const override;

protected:
    // No exception has fields of these kinds.
    void PutObject(const cls_FieldHandle&, const cls_ObjectSource&) const override {}
    void PutList(const cls_FieldHandle&, const cls_PrimSpan&, int) const override {}
    void PutObjectList(const cls_FieldHandle&, std::span<const cls_ObjectSource>) const override {}
    void PutMap(const cls_FieldHandle&, const cls_KeySpan&, const cls_PrimSpan&) const override {}
    void PutObjectMap(const cls_FieldHandle&, const cls_KeySpan&,
                      std::span<const cls_ObjectSource>) const override
    {}

private:
    void Set(const cls_FieldHandle& field, const pybind11::object& value) const;

    const pybind11::object& target_;
};
