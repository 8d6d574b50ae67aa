// Loads arbitrary bytes as a project. The selection must be what the file names of the profile's
// parameters, and survive writing and reading again.

#include "app/project/Project.h"
#include "fuzz/FuzzFile.h"
#include "profile/Profile.h"

#include <algorithm>

using namespace KOLT;

namespace {

Profile& profile()
{
    static Profile profile;
    if (profile.devices().empty()) {
        Fuzz::FuzzFile file("Profile.xml");
        const QByteArray xml = "<KorvanProfile><Device name='D'>"
                               "<Parameter name='v' id='1' dataType='FLOAT'/>"
                               "<Parameter name='' id='2' dataType='FLOAT'/>"
                               "<Parameter name='a/b &lt;c&gt;' id='3' dataType='SHORT'/>"
                               "</Device></KorvanProfile>";
        profile.loadProfil(file.set(reinterpret_cast<const std::uint8_t*>(xml.constData()),
                                    static_cast<std::size_t>(xml.size())),
                           {});
    }
    return profile;
}

std::vector<bool> selection()
{
    std::vector<bool> selected;
    for (const ProfileParameter& parameter : profile().parameters())
        selected.push_back(parameter.selected);
    return selected;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static Fuzz::FuzzFile file("Project.xml");
    const QString path = file.set(data, size);
    Project project;
    project.setProfile(&profile());
    project.clear();
    if (project.read(path) == 0)
        return 0;
    const std::vector<bool> selected = selection();
    if (static_cast<std::size_t>(std::ranges::count(selected, true)) > project.names().size())
        std::abort();
    project.write(path);
    project.clear();
    if (!project.lastWrite() || project.read(path) == 0 || selection() != selected)
        std::abort();
    return 0;
}
