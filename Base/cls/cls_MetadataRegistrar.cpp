#include <algorithm>
#include <cls_MetadataRegistrar.h>

#include <string>

cls_MetadataRegistrar::cls_MetadataRegistrar() = default;
cls_MetadataRegistrar::~cls_MetadataRegistrar() = default;

void cls_MetadataRegistrar::initClassMetadata(cls_MetadataFunction function, unsigned phase)
{
    if (std::find(done_.begin(), done_.end(), function) != done_.end())
        return;
    const int declarations = registrar_.Declarations();
    function(registrar_);
    cls_MetadataLogEntry entry = {static_cast<int>(log_.size()) + 1, phase, cow_String(), 0};
    if (registrar_.Declarations() != declarations)
    {
        entry.name = registrar_.LastDeclared()->Name();
        entry.typeId = registrar_.LastDeclared()->TypeId();
    }
    log_.reserve(log_.size() + 1);
    done_.push_back(function);
    log_.push_back(entry);
}

cow_String cls_MetadataRegistrar::LogText() const
{
    std::string text;
    for (const cls_MetadataLogEntry& entry : log_)
        text.append(std::to_string(entry.sequence))
            .append(" phase ")
            .append(std::to_string(entry.phase))
            .append(" ")
            .append(entry.name.View())
            .append("\n");
    return cow_String(std::string_view(text));
}
