#include "cli/comandi.h"

#include <iostream>

int main(int argc, char** argv) {
    std::ios::sync_with_stdio(false);
    return sortimetra::esegui_comando({argv + 1, argv + argc}, std::cout, std::cerr);
}
