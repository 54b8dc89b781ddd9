#include <exception>
#include <iostream>
#include <string>
#include <vector>

#include "cli/Cli.h"

int main(int argc, char** argv) {
  try {
    return kelmora::tools::Cli::run(std::vector<std::string>(argv + 1, argv + argc), std::cout,
                                    std::cerr);
  } catch (const std::exception& error) {
    // Whatever escaped the commands still ends with one line, not a trace.
    std::cerr << "kelmora: " << error.what() << '\n';
    return 1;
  }
}
