// jbcb: the command-line host. For now it reports its version; commands arrive with the DXF and
// module layers.
#include <CLI/CLI.hpp>

#include <iostream>

int main(int argc, char** argv) {
  CLI::App app{"jbcb: open, edit, check and render drawings with customizable blocks"};
  app.set_version_flag("--version", std::string("jbcb ") + JBCB_VERSION);
  CLI11_PARSE(app, argc, argv);
  std::cout << app.help();
  return 0;
}
