#include "app/settings/CommandLineOptions.h"

#include "base/Diagnostics.h"

namespace KOLT {

namespace {

constexpr int flagKind = 0;
constexpr int valueKind = 1;

} // namespace

CommandLineOptions& CommandLineOptions::instance()
{
    static CommandLineOptions options;
    return options;
}

void CommandLineOptions::addFlag(const std::string& name, const std::string& description)
{
    m_options[name] = {flagKind, false, description, "false"};
}

void CommandLineOptions::addValueOption(const std::string& name, const std::string& description,
                                        const std::string& defaultValue)
{
    m_options[name] = {valueKind, false, description, defaultValue};
}

bool CommandLineOptions::parse(int argc, const char* const* argv)
{
    if (argc > 0)
        m_programName = argv[0];
    m_unknown.clear();
    for (int i = 1; i < argc; ++i) {
        const auto found = m_options.find(argv[i]);
        if (found == m_options.end()) {
            Diagnostics::print("unknown option %s\n", argv[i]);
            m_unknown.emplace_back(argv[i]);
            continue;
        }
        Option& option = found->second;
        option.given = true;
        if (option.kind == flagKind)
            option.value = option.value == "true" ? "false" : "true";
        else if (i + 1 < argc)
            option.value = argv[++i];
    }
    return m_unknown.empty();
}

bool CommandLineOptions::isGiven(const std::string& name) const
{
    const auto found = m_options.find(name);
    return found != m_options.end() && found->second.given;
}

bool CommandLineOptions::getValue(const std::string& name, std::string& value) const
{
    const auto found = m_options.find(name);
    if (found == m_options.end())
        return false;
    value = found->second.value;
    return found->second.given;
}

void CommandLineOptions::printUsage() const
{
    Diagnostics::print("Usage of %s :\n", m_programName.c_str());
    for (const auto& [name, option] : m_options) {
        if (option.kind == flagKind)
            Diagnostics::print("%-8s %s\n", name.c_str(), option.description.c_str());
        else
            Diagnostics::print("%-8s [%s] default [%s]\n", name.c_str(), option.description.c_str(),
                               option.value.c_str());
    }
    Diagnostics::print("\n");
}

} // namespace KOLT
