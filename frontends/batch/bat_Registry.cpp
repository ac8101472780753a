#include <bat_ColorCommand.h>
#include <bat_MementoCommand.h>
#include <bat_Registry.h>
#include <bat_TravelCommand.h>

std::vector<std::unique_ptr<bat_Subcommand>> bat_Registry()
{
    std::vector<std::unique_ptr<bat_Subcommand>> commands;
    commands.push_back(std::make_unique<bat_TravelCommand>());
    commands.push_back(std::make_unique<bat_ColorCommand>());
    commands.push_back(std::make_unique<bat_MementoCommand>());
    return commands;
}
