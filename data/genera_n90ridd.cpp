// Writes n90ridd.rid, the list of the "cinquine dei 90", to standard output.

#include "statistics/cinquine_dei_90.h"

#include <cstdio>

int main() {
    const std::string testo = sortimetra::testo_cinquine_dei_90();
    return std::fputs(testo.c_str(), stdout) >= 0 && std::fflush(stdout) == 0 ? 0 : 1;
}
