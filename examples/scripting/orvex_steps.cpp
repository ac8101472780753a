// An application for Python whose object changes from analysis step to analysis step: a load, the root
// orvex.load. Its settings are propagating attributes: what a script gives in one step is carried into the
// next ones until the script changes or frees it.

#include <mdl_PropAttributeGet.h>
#include <memory>
#include <omu_CommandTable.h>
#include <omu_InterfaceObj.h>
#include <omu_PrimNumber.h>
#include <omu_SimpleTermShortcutImpl.h>
#include <pybind11/pybind11.h>

namespace
{
struct Load
{
    int step = 1;
    mdl_PropDouble magnitude;
    mdl_PropString amplitude;
    mdl_PropListInt nodes;
};

/// Members: step, the settings (None where one is free), and the states of all three.
class LoadIntObj : public omu_InterfaceObj
{
public:
    explicit LoadIntObj(const std::shared_ptr<Load>& load)
        : omu_InterfaceObj(omu_SimpleTermShortcutImpl("load", true)), load_(load)
    {
        static const methodTable METHODS[] = {
            {"setValues", Method<&LoadIntObj::SetValues>}, {"nextStep", Method<&LoadIntObj::NextStep>}, {}};
        static const memberTable MEMBERS[] = {{"step", Reader<&LoadIntObj::Step>},
                                              {"magnitude", Reader<&LoadIntObj::Setting<&Load::magnitude>>},
                                              {"amplitude", Reader<&LoadIntObj::Setting<&Load::amplitude>>},
                                              {"nodes", Reader<&LoadIntObj::Setting<&Load::nodes>>},
                                              {"states", Reader<&LoadIntObj::States>},
                                              {}};
        static const TypeDesc description = DescribeType("Load", METHODS, MEMBERS, nullptr, nullptr);
        SetTypeDesc(description);
    }
    LoadIntObj* Copy() const override { return new LoadIntObj(*this); }

private:
    using StateConstant = omu_PrimEnum<mdl_PropAttributeStateEnm, 1>;

    omu_Primitive* Step() const { return new omu_PrimNumber(load_->step); }
    template <auto MEMBER>
    omu_Primitive* Setting() const
    {
        const auto& setting = (*load_).*MEMBER;
        if (setting.IsFree())
            return nullptr;
        omu_PrimTuple value;
        value.Put(setting.ConstGet());
        return value.Index(0);
    }
    omu_Primitive* States() const
    {
        auto states = std::make_unique<omu_PrimTuple>();
        states->Put(StateConstant(load_->magnitude.State()));
        states->Put(StateConstant(load_->amplitude.State()));
        states->Put(StateConstant(load_->nodes.State()));
        return states.release();
    }

    template <class T>
    static void Read(omu_Arguments& arguments, mdl_PropAttr<T>& setting, const char* keyword,
                     bool isFirstStep)
    {
        mdl_PropAttributeGet<T>::Get(arguments, setting, keyword, isFirstStep, true);
    }
    /// setValues(magnitude=, amplitude=, nodes=), all optional. Each takes a value, a status or None. In the
    /// first step there is nothing before that could be freed: a setting may be UNSET there, FREED later.
    omu_Primitive* SetValues(omu_Arguments& arguments) const
    {
        Load changed = *load_;
        const bool isFirstStep = changed.step == 1;
        arguments.Begin();
        arguments.Optional();
        Read(arguments, changed.magnitude, "magnitude", isFirstStep);
        Read(arguments, changed.amplitude, "amplitude", isFirstStep);
        Read(arguments, changed.nodes, "nodes", isFirstStep);
        arguments.End();
        *load_ = changed;
        return nullptr;
    }
    omu_Primitive* NextStep(omu_Arguments& arguments) const
    {
        arguments.Begin();
        arguments.End();
        ++load_->step;
        load_->magnitude.Propagate();
        load_->amplitude.Propagate();
        load_->nodes.Propagate();
        return nullptr;
    }

    std::shared_ptr<Load> load_;
};
}

PYBIND11_MODULE(orvex_steps, module)
{
    module.doc() = "A sample application: importing it registers the root load.";
    // Starts the library, whose command table this is.
    pybind11::module_::import("orvex");
    omu_CommandTable::Instance().RegisterRoot("load", std::make_shared<LoadIntObj>(std::make_shared<Load>()));
}
