#include <bat_Console.h>
#include <bat_Driver.h>

int main(int argc, char** argv)
{
    return static_cast<int>(bat_Driver::Run({argv + 1, argv + argc}, bat_Console::Standard()));
}
