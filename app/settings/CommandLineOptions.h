#pragma once

#include <map>
#include <string>
#include <vector>

namespace KOLT {

/// The command-line options by name, process-wide.
///
/// Unknown arguments are reported, kept and skipped. Test flags with isGiven(): the value of a flag
/// toggles with each occurrence.
class CommandLineOptions
{
public:
    static CommandLineOptions& instance();

    /// Both replace an existing option of that name.
    void addFlag(const std::string& name, const std::string& description);
    void addValueOption(const std::string& name, const std::string& description,
                        const std::string& defaultValue);

    /// False when there were unknown arguments; each is reported. A value option consumes the next
    /// argument, whatever it looks like.
    bool parse(int argc, const char* const* argv);

    bool isGiven(const std::string& name) const;

    /// Copies the given or default value and returns whether the option was given. Leaves `value`
    /// alone for an unknown name.
    bool getValue(const std::string& name, std::string& value) const;

    /// The unknown arguments in their order: some are paths to open.
    const std::vector<std::string>& unknown() const { return m_unknown; }

    /// Prints the options by name with their current values.
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
    std::vector<std::string> m_unknown;
    std::map<std::string, Option> m_options;
};

} // namespace KOLT
