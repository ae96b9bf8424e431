// How a command declares its arguments and options. The parser of command lines is known to few files only,
// as it takes long to compile.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
}  // namespace CLI

namespace zorvex::tool {

/// An argument, option or flag, and what more there is to say of it.
class DeclaredOption {
  public:
    explicit DeclaredOption(CLI::Option* option) : option_(option) {}

    DeclaredOption& Required();
    /// The help tells the value it has without the option.
    DeclaredOption& ShowDefault();
    DeclaredOption& OneOf(const std::vector<std::string>& values);
    DeclaredOption& Between(int lowest, int highest);
    DeclaredOption& NotNegative();
    /// The two cannot be given together.
    DeclaredOption& Excludes(const DeclaredOption& other);
    /// The heading in the help under which it stands.
    DeclaredOption& Group(const std::string& heading);
    DeclaredOption& Description(const std::string& text);

  private:
    CLI::Option* option_;
};

/// The arguments of one command. Names are those of the help: "game" for an argument by its place,
/// "-o,--output" for an option; the variable keeps its value when the option is not given.
class Declaration {
  public:
    explicit Declaration(CLI::App& command) : command_(command) {}

    DeclaredOption Option(const std::string& name, std::string& variable, const std::string& help);
    DeclaredOption Option(const std::string& name, std::vector<std::string>& variable,
                          const std::string& help);
    DeclaredOption Option(const std::string& name, int& variable, const std::string& help);
    DeclaredOption Option(const std::string& name, std::size_t& variable, const std::string& help);
    DeclaredOption Flag(const std::string& name, bool& variable, const std::string& help);
    /// One that is declared already.
    DeclaredOption Named(const std::string& name);

  private:
    CLI::App& command_;
};

}  // namespace zorvex::tool
