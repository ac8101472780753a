#pragma once

#include <annC_MapString2AnnotationCow.h>
#include <cow_List.h>
#include <mdl_Repository.h>
#include <omu_DeltaSource.h>

/// The annotations of a model, by name, in the order in which they are stacked: the first lies in front.
///
/// Every change is posted to the calling thread's omu_ChangeHistory: ("Modify", name), ("Insert", name,
/// index), ("Remove", name), ("Rename", old, new, index); a move is a Remove and an Insert. Indices count
/// from the front and are those after the change. An operation that finds no such annotation answers false
/// or null and posts nothing, save Get by name, which posts first. For the scripting thread.
class OXU_EXPORT annC_AnnotationContainer : public mdl_Repository
{
public:
    static constexpr unsigned TypeId() { return cls_MakeTypeId(0x350, 3); }
    static void InitializeMetadata(cls_ClassRegistrar& registrar);

    annC_AnnotationContainer() = default;
    explicit annC_AnnotationContainer(const cls_ReadVisitor& reader);

    annC_AnnotationContainer* Copy() const override;
    unsigned DynTypeId() const override;
    void DBWrite(const cls_WriteVisitor& writer) const override;
    void NewUid() override;
    virtual unsigned Size() const;

    /// Puts the annotation in front of all, taking it over; one of that name goes. False for null.
    bool Insert(const cow_String& name, annC_Annotation* owned);
    /// The same with a copy.
    bool Insert(const cow_String& name, const annC_Annotation& annotation);
    bool Remove(const cow_String& name);
    /// Renames an annotation, in its place; another one called `to` goes.
    bool ChangeKey(const cow_String& from, const cow_String& to);
    /// To right behind `other`, right in front of it.
    bool MoveAfter(const cow_String& name, const cow_String& other);
    bool MoveBefore(const cow_String& name, const cow_String& other);
    /// One place to the front, to the back; where it is there already, nothing is posted.
    bool BringForward(const cow_String& name);
    bool SendBackward(const cow_String& name);
    bool BringToFront(const cow_String& name);
    bool SendToBack(const cow_String& name);
    /// Without posting: who follows the changes has to look afresh.
    void Clear();

    /// For writing; the Modify is posted before the look-up.
    annC_Annotation* Get(const cow_String& name);
    annC_Annotation* Get(unsigned index);
    const annC_Annotation* ConstGet(const cow_String& name) const { return m_map.ConstGet(name); }
    const annC_Annotation* ConstGet(unsigned index) const { return m_map.ConstGetAt(index); }
    bool IsMember(const cow_String& name) const { return m_map.IsMember(name); }
    cow_List<cow_String> Keys() const { return m_map.Keys(); }
    /// The position from the front; -1 for an unknown name.
    int IndexOf(const cow_String& name) const { return m_map.IndexOf(name); }
    /// The entry's identifier, which no other entry ever has; -1 for an unknown name.
    int GetId(const cow_String& name) const { return m_map.GetId(name); }
    /// The container's own identity, beside those of its parts as repository and extension.
    const cls_Uid& Uid() const { return uid_; }
    /// Numbers what this container posts, so that a viewer knows whether it has heard of all its changes.
    const omu_DeltaSource& Changes() const { return changes_; }

private:
    bool Insert(const cow_String& name, const annC_AnnotationCow& annotation);
    void PostMove(const cow_String& name);

    annC_MapString2AnnotationCow m_map;
    cls_Uid uid_;
    omu_DeltaSource changes_;
};
