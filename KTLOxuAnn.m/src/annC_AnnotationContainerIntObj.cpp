#include <annC_AnnotationClient.h>
#include <annC_AnnotationContainerIntObj.h>
#include <annC_ArrowIntObj.h>
#include <annC_ContainerShortcutImpl.h>
#include <annC_TextIntObj.h>
#include <atr_translate.h>
#include <nex_RaiseWith.h>
#include <omu_AccessErrorException.h>
#include <omu_Arguments.h>
#include <omu_KeyErrorException.h>
#include <omu_PrimString.h>
#include <omu_SimpleDictShortcutImpl.h>
#include <omu_Table.h>

namespace
{
constexpr const char* SOURCE = "KTLOxuAnn.m/src/annC_AnnotationContainerIntObj";
}

annC_AnnotationContainerIntObj::annC_AnnotationContainerIntObj(const omu_Shortcut& shortcut)
    : omu_DictIntObjABC(shortcut)
{
    static const TypeDesc type =
        DescribeType("AnnotationRepository", nullptr, nullptr, nullptr, nullptr, Description());
    SetTypeDesc(type);
}

annC_AnnotationContainerIntObj* annC_AnnotationContainerIntObj::Copy() const
{
    return new annC_AnnotationContainerIntObj(*this);
}

bool annC_AnnotationContainerIntObj::IsStale() const
{
    return omu_DictIntObjABC::IsStale() ||
           annC_ContainerShortcutImpl::ContainerOf(BaseShortcutGetABC()) == nullptr;
}

int annC_AnnotationContainerIntObj::Length() const
{
    return static_cast<int>(Container()->Size());
}

cow_List<cow_String> annC_AnnotationContainerIntObj::Keys() const
{
    return Container()->Keys();
}

omu_Primitive* annC_AnnotationContainerIntObj::Subscript(const cow_String& key) const
{
    return GetIntObj(key);
}

bool annC_AnnotationContainerIntObj::HasKey(const cow_String& key) const
{
    return Container()->IsMember(key);
}

void annC_AnnotationContainerIntObj::Assign(const cow_String&, const omu_Primitive&) const {}

void annC_AnnotationContainerIntObj::Remove(const cow_String& key) const
{
    const auto container = Container();
    const int id = container->GetId(key);
    if (container->Remove(key))
        TellDeleted(id);
}

void annC_AnnotationContainerIntObj::ChangeKey(const cow_String& from, const cow_String& to) const
{
    const auto container = Container();
    // The client hears of the one that goes before it is sure that there is one to take its place.
    if (from != to && container->IsMember(to))
        TellDeleted(container->GetId(to));
    if (!container->ChangeKey(from, to))
        nex_Raise(omu_KeyErrorException(from), SOURCE, __LINE__);
}

omu_Primitive* annC_AnnotationContainerIntObj::Summary() const
{
    const auto container = Container();
    omu_Table table(cow_List<cow_String>{"", ""});
    for (const cow_String& name : container->Keys())
    {
        const int row = table.AddRow();
        table.Put(row, 0, name);
        table.Put(row, 1, annTypeName(*container->ConstGet(name)));
    }
    return new omu_PrimString(table.IsEmpty() ? cow_String("Empty Summary") : table.AsString());
}

annC_AnnotationIntObj* annC_AnnotationContainerIntObj::GetIntObj(const cow_String& key) const
{
    const annC_Annotation* annotation = Container()->ConstGet(key);
    if (annotation == nullptr)
        return nullptr;
    const omu_SimpleDictShortcutImpl<cow_String> entry(BaseShortcut(), "", key);
    if (dynamic_cast<const annC_Arrow*>(annotation) != nullptr)
        return new annC_ArrowIntObj(entry);
    if (dynamic_cast<const annC_Text*>(annotation) != nullptr)
        return new annC_TextIntObj(entry);
    return new annC_AnnotationIntObj(entry);
}

annC_AnnotationIntObj* annC_AnnotationContainerIntObj::Arrow(omu_Arguments& arguments) const
{
    return Construct<annC_ArrowIntObj>(arguments);
}

annC_AnnotationIntObj* annC_AnnotationContainerIntObj::Text(omu_Arguments& arguments) const
{
    return Construct<annC_TextIntObj>(arguments);
}

cow_String annC_AnnotationContainerIntObj::annTypeName(const annC_Annotation& annotation)
{
    if (dynamic_cast<const annC_Text*>(&annotation) != nullptr)
        return atr_translate("Text");
    if (dynamic_cast<const annC_Arrow*>(&annotation) != nullptr)
        return atr_translate("Arrow");
    return "UNKNOWN TYPE";
}

std::shared_ptr<annC_AnnotationContainer> annC_AnnotationContainerIntObj::Container() const
{
    auto container = annC_ContainerShortcutImpl::ContainerOf(BaseShortcutGetABC());
    if (container == nullptr)
        nex_Raise(omu_AccessErrorException(PathOrDefault()), SOURCE, __LINE__);
    return container;
}

void annC_AnnotationContainerIntObj::TellDeleted(int id) const
{
    annC_AnnotationClient::Instance().AnnotationDeleted(BaseShortcut().Path(), static_cast<unsigned>(id));
}

template <class Handle>
annC_AnnotationIntObj* annC_AnnotationContainerIntObj::Construct(omu_Arguments& arguments) const
{
    cow_String name;
    auto annotation = std::make_unique<typename Handle::Object>();
    arguments.Begin();
    arguments.Get(name, "name");
    arguments.Optional();
    Handle::ReadAttributeArguments(arguments, *annotation);
    arguments.End();
    const auto container = Container();
    const int replaced = container->GetId(name);
    container->Insert(name, annotation.release());
    if (replaced >= 0)
        TellDeleted(replaced);
    return GetIntObj(name);
}
