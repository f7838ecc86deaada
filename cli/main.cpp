#include "Find.h"

#include <iostream>

int main(int argc, char **argv) {
    const std::vector<std::string> arguments(argv + (argc > 0 ? 1 : 0), argv + argc);
    return quorvel::RunFind(arguments, std::cout, std::cerr);
}
