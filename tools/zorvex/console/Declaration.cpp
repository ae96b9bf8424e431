#include "tools/zorvex/console/Declaration.h"

#include <CLI/CLI.hpp>

namespace zorvex::tool {

DeclaredOption& DeclaredOption::Required() {
    option_->required();
    return *this;
}

DeclaredOption& DeclaredOption::ShowDefault() {
    option_->capture_default_str();
    return *this;
}

DeclaredOption& DeclaredOption::OneOf(const std::vector<std::string>& values) {
    option_->check(CLI::IsMember(values));
    return *this;
}

DeclaredOption& DeclaredOption::Between(int lowest, int highest) {
    option_->check(CLI::Range(lowest, highest));
    return *this;
}

DeclaredOption& DeclaredOption::NotNegative() {
    const auto tellNegative = [](const std::string& text) {
        return std::string(text.starts_with('-') ? "must not be negative" : "");
    };
    option_->check(tellNegative, "NONNEGATIVE");
    return *this;
}

DeclaredOption& DeclaredOption::Excludes(const DeclaredOption& other) {
    option_->excludes(other.option_);
    return *this;
}

DeclaredOption& DeclaredOption::Group(const std::string& heading) {
    option_->group(heading);
    return *this;
}

DeclaredOption& DeclaredOption::Description(const std::string& text) {
    option_->description(text);
    return *this;
}

DeclaredOption Declaration::Option(const std::string& name, std::string& variable, const std::string& help) {
    return DeclaredOption(command_.add_option(name, variable, help));
}

DeclaredOption Declaration::Option(const std::string& name, std::vector<std::string>& variable,
                                   const std::string& help) {
    return DeclaredOption(command_.add_option(name, variable, help));
}

DeclaredOption Declaration::Option(const std::string& name, int& variable, const std::string& help) {
    return DeclaredOption(command_.add_option(name, variable, help));
}

DeclaredOption Declaration::Option(const std::string& name, std::size_t& variable, const std::string& help) {
    return DeclaredOption(command_.add_option(name, variable, help));
}

DeclaredOption Declaration::Flag(const std::string& name, bool& variable, const std::string& help) {
    return DeclaredOption(command_.add_flag(name, variable, help));
}

DeclaredOption Declaration::Named(const std::string& name) {
    return DeclaredOption(command_.get_option(name));
}

}  // namespace zorvex::tool
