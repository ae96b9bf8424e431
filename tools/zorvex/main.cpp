#include <CLI/CLI.hpp>

int main(int argc, char** argv) {
    CLI::App app("Opens, shows and edits AGI games.", "zorvex");
    CLI11_PARSE(app, argc, argv);
    return 0;
}
