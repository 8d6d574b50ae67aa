#pragma once

#include <map>
#include <string>

namespace KOLT {

/// The program's command-line options by name, process-wide.
///
/// Unknown arguments are reported and skipped, never fatal. Test a flag with isGiven(): its value
/// toggles at each occurrence.
class CommandLineOptions
{
public:
    static CommandLineOptions& instance();

    /// Both insert the option or overwrite the one of that name.
    void addFlag(const std::string& name, const std::string& description);
    void addValueOption(const std::string& name, const std::string& description,
                        const std::string& defaultValue);

    /// False when an argument was unknown; each is reported. An option that takes a value consumes
    /// the next argument, whatever it looks like.
    bool parse(int argc, const char* const* argv);

    bool isGiven(const std::string& name) const;

    /// Copies the value, given or default, and returns whether the option was given. An unknown
    /// name leaves `value` alone.
    bool getValue(const std::string& name, std::string& value) const;

    /// Lists the options in name order with their current values.
    void printUsage() const;

private:
    struct Option
    {
        int kind = 0; ///< 0: flag, 1: takes a value
        bool given = false;
        std::string description;
        std::string value;
    };

    std::string m_programName;
    std::map<std::string, Option> m_options;
};

} // namespace KOLT
