#pragma once

#include <annC_MapString2AnnotationCowImpl.h>
#include <cow_COW.h>

/// A copy-on-write handle to named annotations in stacking order; see annC_MapString2AnnotationCowImpl for
/// what each operation does. Copies share until one is written; an operation that finds nothing to change
/// leaves the share.
class OXU_EXPORT annC_MapString2AnnotationCow
{
public:
    annC_MapString2AnnotationCow() : body_(new annC_MapString2AnnotationCowImpl) {}
    // Moving shares too: a handle is never without a map.
    annC_MapString2AnnotationCow(const annC_MapString2AnnotationCow&) = default;
    annC_MapString2AnnotationCow& operator=(const annC_MapString2AnnotationCow&) = default;
    annC_MapString2AnnotationCow(const cls_ReadVisitor& reader, const cls_FieldHandle& field)
        : body_(new annC_MapString2AnnotationCowImpl(reader, field))
    {}

    void PushFront(const cow_String& name, const annC_AnnotationCow& annotation)
    {
        body_.Get().PushFront(name, annotation);
    }
    bool ChangeKey(const cow_String& from, const cow_String& to)
    {
        return IsMember(from) && (from == to || body_.Get().ChangeKey(from, to));
    }
    bool MoveBefore(const cow_String& name, const cow_String& other)
    {
        return IsMember(name) && IsMember(other) && (name == other || body_.Get().MoveBefore(name, other));
    }
    bool MoveAfter(const cow_String& name, const cow_String& other)
    {
        return IsMember(name) && IsMember(other) && (name == other || body_.Get().MoveAfter(name, other));
    }
    bool Remove(const cow_String& name) { return IsMember(name) && body_.Get().Remove(name); }
    void Clear() { body_ = cow_COW<annC_MapString2AnnotationCowImpl>(body_->EmptySuccessor()); }

    bool IsEmpty() const { return body_->IsEmpty(); }
    unsigned Size() const { return body_->Size(); }
    bool IsMember(int id) const { return body_->IsMember(id); }
    bool IsMember(const cow_String& name) const { return body_->IsMember(name); }
    int GetId(const cow_String& name) const { return body_->GetId(name); }
    cow_String GetKey(unsigned index) const { return body_->GetKey(index); }
    int IndexOf(const cow_String& name) const { return body_->IndexOf(name); }
    cow_List<cow_String> Keys() const { return body_->Keys(); }
    annC_Annotation* Get(int id) { return IsMember(id) ? body_.Get().Get(id) : nullptr; }
    annC_Annotation* Get(const cow_String& name) { return IsMember(name) ? body_.Get().Get(name) : nullptr; }
    const annC_Annotation* ConstGet(int id) const { return body_->ConstGet(id); }
    const annC_Annotation* ConstGet(const cow_String& name) const { return body_->ConstGet(name); }
    const annC_Annotation* ConstGetAt(unsigned index) const { return body_->ConstGetAt(index); }
    const cow_String* GetFirst() const { return body_->GetFirst(); }
    const cow_String* GetLast() const { return body_->GetLast(); }
    const cow_String* GetNext(const cow_String& name) const { return body_->GetNext(name); }
    const cow_String* GetPrevious(const cow_String& name) const { return body_->GetPrevious(name); }
    bool SharesWith(const annC_MapString2AnnotationCow& other) const { return body_.SharesWith(other.body_); }

    void DBWrite(const cls_WriteVisitor& writer, const cls_FieldHandle& field) const
    {
        body_->DBWrite(writer, field);
    }

private:
    cow_COW<annC_MapString2AnnotationCowImpl> body_;
};
