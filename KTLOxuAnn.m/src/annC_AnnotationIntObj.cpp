#include <algorithm>
#include <annC_AnnotationClient.h>
#include <annC_AnnotationIntObj.h>
#include <annC_ContainerShortcutImpl.h>
#include <annC_NamedAnchor.h>
#include <annC_Point3DAnchor.h>
#include <annC_ViewportAnchor.h>
#include <iterator>
#include <nex_RaiseWith.h>
#include <omu_AccessErrorException.h>
#include <omu_Arguments.h>
#include <omu_KeyErrorException.h>
#include <omu_PrimString.h>
#include <omu_SimpleDictShortcutImpl.h>
#include <string_view>

namespace
{
constexpr const char* SOURCE = "KTLOxuAnn.m/src/annC_AnnotationIntObj";

// They name the entry that is gone, where other methods name its path.
constexpr std::string_view MOVES[] = {"moveAfter",    "moveBefore",   "bringForward",
                                      "sendBackward", "bringToFront", "sendToBack"};
}

const omu_InterfaceObj::TypeDesc& annC_AnnotationIntObj::Type()
{
    using This = annC_AnnotationIntObj;
    static const methodTable METHODS[] = {
        {"moveAfter", Method<&This::MoveAfter>},       {"moveBefore", Method<&This::MoveBefore>},
        {"bringForward", Method<&This::BringForward>}, {"sendBackward", Method<&This::SendBackward>},
        {"bringToFront", Method<&This::BringToFront>}, {"sendToBack", Method<&This::SendToBack>},
        {"translate", Method<&This::Translate>},       {}};
    static const TypeDesc type = DescribeType("Annotation", METHODS, nullptr, nullptr, nullptr);
    return type;
}

annC_AnnotationIntObj::annC_AnnotationIntObj(const omu_Shortcut& shortcut) : omu_MemberIntObj(shortcut)
{
    SetTypeDesc(Type());
}

annC_AnnotationIntObj* annC_AnnotationIntObj::Copy() const
{
    return new annC_AnnotationIntObj(*this);
}

bool annC_AnnotationIntObj::IsStale() const
{
    return omu_MemberIntObj::IsStale() || Find() == nullptr;
}

omu_Primitive* annC_AnnotationIntObj::CallMethod(const char* name, const char* path, omu_Arguments& arguments,
                                                 bool& found) const
{
    if (name == nullptr || omu_MemberIntObj::IsStale() ||
        std::find(std::begin(MOVES), std::end(MOVES), name) == std::end(MOVES))
        return omu_MemberIntObj::CallMethod(name, path, arguments, found);
    found = true;
    return Description().FindMethod(name)->handler(*this, arguments);
}

const omu_PrimWrapper* annC_AnnotationIntObj::ConstGetWrapper() const
{
    const annC_Annotation* annotation = Find();
    if (annotation == nullptr)
        return nullptr;
    omu_PrimWrapper::Members members;
    members.Put("name", new omu_PrimString(Name()));
    wrapper_ = omu_PrimWrapper(static_cast<int>(annotation->DynTypeId()), this, members);
    return &wrapper_;
}

int annC_AnnotationIntObj::Id() const
{
    return IsStale() ? -1 : Container()->GetId(Name());
}

cow_String annC_AnnotationIntObj::Name() const
{
    const auto* entry = dynamic_cast<const omu_SimpleDictShortcutImpl<cow_String>*>(BaseShortcutGetABC());
    return entry != nullptr ? entry->Key() : cow_String();
}

omu_Primitive* annC_AnnotationIntObj::AnchorToPrim(const annC_Anchor& anchor)
{
    if (const auto* named = dynamic_cast<const annC_NamedAnchor*>(&anchor))
        return new omu_PrimEnum<annC_RelativePositionEnm, 1>(named->position);
    if (const auto* onViewport = dynamic_cast<const annC_ViewportAnchor*>(&anchor))
        return new omu_PrimTuple(cow_List<double>{onViewport->positionX, onViewport->positionY});
    if (const auto* inModel = dynamic_cast<const annC_Point3DAnchor*>(&anchor))
        return new omu_PrimTuple(
            cow_List<double>{inModel->positionX, inModel->positionY, inModel->positionZ});
    return nullptr;
}

std::shared_ptr<annC_AnnotationContainer> annC_AnnotationIntObj::Container() const
{
    const omu_ShortcutImpl* entry = BaseShortcutGetABC();
    return entry != nullptr ? annC_ContainerShortcutImpl::ContainerOf(entry->Base()) : nullptr;
}

void annC_AnnotationIntObj::GetShift(omu_Arguments& arguments, double& x, double& y)
{
    arguments.Begin();
    arguments.Optional();
    arguments.Get(x, "x");
    arguments.Get(y, "y");
    arguments.End();
}

const annC_Annotation* annC_AnnotationIntObj::Find() const
{
    const auto container = Container();
    return container != nullptr ? container->ConstGet(Name()) : nullptr;
}

annC_Annotation& annC_AnnotationIntObj::Take() const
{
    return *Container()->Get(Name());
}

void annC_AnnotationIntObj::TellModified() const
{
    annC_AnnotationClient::Instance().AnnotationModified(BaseShortcut().Path(), static_cast<unsigned>(Id()));
}

void annC_AnnotationIntObj::RaiseGone() const
{
    nex_Raise(omu_AccessErrorException(PathOrDefault()), SOURCE, __LINE__);
}

annC_AnnotationContainer& annC_AnnotationIntObj::RequireEntry() const
{
    const auto container = Container();
    if (container == nullptr || !container->IsMember(Name()))
        nex_Raise(omu_KeyErrorException(Name()), SOURCE, __LINE__);
    return *container;
}

void annC_AnnotationIntObj::MoveBy(omu_Arguments& arguments,
                                   bool (annC_AnnotationContainer::*move)(const cow_String&)) const
{
    arguments.Begin();
    arguments.End();
    (RequireEntry().*move)(Name());
}

void annC_AnnotationIntObj::MoveTo(omu_Arguments& arguments,
                                   bool (annC_AnnotationContainer::*move)(const cow_String&,
                                                                          const cow_String&)) const
{
    cow_String other;
    arguments.Begin();
    arguments.Get(other, "name");
    arguments.End();
    if (!(RequireEntry().*move)(Name(), other))
        nex_Raise(omu_KeyErrorException(other), SOURCE, __LINE__);
}

omu_Primitive* annC_AnnotationIntObj::MoveAfter(omu_Arguments& arguments) const
{
    MoveTo(arguments, &annC_AnnotationContainer::MoveAfter);
    return nullptr;
}

omu_Primitive* annC_AnnotationIntObj::MoveBefore(omu_Arguments& arguments) const
{
    MoveTo(arguments, &annC_AnnotationContainer::MoveBefore);
    return nullptr;
}

omu_Primitive* annC_AnnotationIntObj::BringForward(omu_Arguments& arguments) const
{
    MoveBy(arguments, &annC_AnnotationContainer::BringForward);
    return nullptr;
}

omu_Primitive* annC_AnnotationIntObj::SendBackward(omu_Arguments& arguments) const
{
    MoveBy(arguments, &annC_AnnotationContainer::SendBackward);
    return nullptr;
}

omu_Primitive* annC_AnnotationIntObj::BringToFront(omu_Arguments& arguments) const
{
    MoveBy(arguments, &annC_AnnotationContainer::BringToFront);
    return nullptr;
}

omu_Primitive* annC_AnnotationIntObj::SendToBack(omu_Arguments& arguments) const
{
    MoveBy(arguments, &annC_AnnotationContainer::SendToBack);
    return nullptr;
}

omu_Primitive* annC_AnnotationIntObj::Translate(omu_Arguments& arguments) const
{
    double x = 0.0;
    double y = 0.0;
    GetShift(arguments, x, y);
    Change<annC_Annotation>([x, y](annC_Annotation& annotation) { annotation.Translate(x, y); });
    return nullptr;
}
