#include "app/startup/Banner.h"

#include "base/Diagnostics.h"
#include "base/System.h"
#include "base/Version.h"

namespace KOLT {

void printBanner()
{
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
    Diagnostics::print("                CWD      : %s\n", System::workingDirectory().c_str());
    Diagnostics::print("-------------------------------------------------\n");
}

} // namespace KOLT
