// zeapi: the library from a command line.
#include <iostream>

#include "program.h"

int main(int argc, char** argv) { return tool::RunProgram(argc, argv, std::cout, std::cerr); }
