// Runs a target on the files that are named on the command line, without a fuzzer.

#include <fstream>
#include <iostream>
#include <iterator>
#include <string>

#include "target.h"

int main(int argc, char* argv[])
{
    if (argc < 2)
    {
        std::cerr << "usage: " << argv[0] << " FILE...\n";
        return 2;
    }
    for (int i = 1; i < argc; ++i)
    {
        std::ifstream file(argv[i], std::ios::binary);
        if (!file)
        {
            std::cerr << "cannot read " << argv[i] << "\n";
            return 1;
        }
        const std::string input{std::istreambuf_iterator<char>(file), {}};
        fuzz::run(input);
    }
    std::cout << argc - 1 << " inputs: all holds.\n";
    return 0;
}
