#include <bat_ClassesCommand.h>
#include <bat_ColorCommand.h>
#include <bat_CompletionCommand.h>
#include <bat_DoctorCommand.h>
#include <bat_MementoCommand.h>
#include <bat_MeshCommand.h>
#include <bat_PathCommand.h>
#include <bat_Registry.h>
#include <bat_TravelCommand.h>

std::vector<std::unique_ptr<bat_Subcommand>> bat_Registry()
{
    std::vector<std::unique_ptr<bat_Subcommand>> commands;
    commands.push_back(std::make_unique<bat_TravelCommand>());
    commands.push_back(std::make_unique<bat_MeshCommand>());
    commands.push_back(std::make_unique<bat_ColorCommand>());
    commands.push_back(std::make_unique<bat_MementoCommand>());
    commands.push_back(std::make_unique<bat_PathCommand>());
    commands.push_back(std::make_unique<bat_ClassesCommand>());
    commands.push_back(std::make_unique<bat_DoctorCommand>());
    commands.push_back(std::make_unique<bat_CompletionCommand>());
    return commands;
}
