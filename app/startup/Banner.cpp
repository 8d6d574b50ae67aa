#include "app/startup/Banner.h"

#include "base/Diagnostics.h"
#include "base/Version.h"

#include <array>
#include <unistd.h>

namespace KOLT {

void printBanner()
{
    std::array<char, 256> directory{};
    const char* const workingDirectory =
        getcwd(directory.data(), directory.size()) != nullptr ? directory.data() : "";
    Diagnostics::print("%s", "-------------------------------------------------\n"
                             "\n"
                             "        ##  ##   ######   ##       ########\n"
                             "        ## ##   ##    ##  ##          ##\n"
                             "        ####    ##    ##  ##          ##\n"
                             "        ## ##   ##    ##  ##          ##\n"
                             "        ##  ##   ######   #######     ##\n"
                             "\n");
    Diagnostics::print("                Version  : %s\n", versionText);
    Diagnostics::print("                Compiled : %s %s\n", __DATE__, __TIME__);
    Diagnostics::print("                CWD      : %s\n", workingDirectory);
    Diagnostics::print("-------------------------------------------------\n");
}

} // namespace KOLT
