// An object for scripts: its members and methods, its path, and what a handle does when the data is gone.
#include <iostream>
#include <memory>
#include <omu_AccessErrorException.h>
#include <omu_Arguments.h>
#include <omu_MemberIntObj.h>
#include <omu_PathString.h>
#include <omu_PrimNumber.h>
#include <omu_SimpleDictShortcutImpl.h>
#include <omu_SimpleMemShortcutImpl.h>
#include <omu_SimpleTermShortcutImpl.h>

class PartIntObj : public omu_MemberIntObj
{
public:
    PartIntObj(const omu_Shortcut& place, const std::shared_ptr<double>& width)
        : omu_MemberIntObj(place), width_(width)
    {
        static const memberTable MEMBERS[] = {
            {"width", Reader<&PartIntObj::Width>, PLAIN, Writer<&PartIntObj::SetWidth>}, {}};
        static const TypeDesc description = DescribeType("Part", nullptr, MEMBERS, nullptr, nullptr);
        SetTypeDesc(description);
    }
    PartIntObj* Copy() const override { return new PartIntObj(*this); }
    bool IsStale() const override { return omu_MemberIntObj::IsStale() || width_.expired(); }

private:
    omu_Primitive* Width() const { return new omu_PrimNumber(*width_.lock()); }
    void SetWidth(omu_Arguments& value) const
    {
        double width = 0;
        value.Begin();
        value.Get(width, "width");
        value.End();
        *width_.lock() = width;
    }
    std::weak_ptr<double> width_; // the application's own
};

int main()
{
    auto width = std::make_shared<double>(2.5);
    const omu_Shortcut parts = omu_SimpleMemShortcutImpl(omu_SimpleTermShortcutImpl("mdb", true), "parts");
    const PartIntObj part(omu_SimpleDictShortcutImpl<cow_String>(parts, "", "rib"), width);

    bool found = false;
    const std::unique_ptr<omu_Primitive> value(part.GetMember("width", found));
    std::cout << part.AsRepr().View() << " has the width " << value->AsRepr().View() << '\n';
    std::cout << omu_PathString("mdb.parts['rib'].width").AsGenericString().View() << '\n';

    width.reset(); // the application drops the part
    try
    {
        delete part.GetMember("width", found);
    }
    catch (const omu_AccessErrorException& gone)
    {
        std::cout << gone.AsString().View() << '\n';
    }
}
