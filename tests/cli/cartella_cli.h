#pragma once

#include "support/archivi.h"
#include "support/programma.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>
#include <vector>

namespace sortimetra::prove {

inline void scrivi(const std::filesystem::path& file, std::string_view testo) {
    std::ofstream{file, std::ios::binary} << testo;
}

inline std::string leggi(const std::filesystem::path& file) {
    std::ifstream flusso{file, std::ios::binary};
    return {std::istreambuf_iterator<char>{flusso}, {}};
}

/// Three draws of two wheels and of NAZIONALE, as a player could write them.
inline constexpr std::string_view kLotto =
    "2000/01/01\tBA\t90\t12\t33\t4\t5\n"
    "2000/01/01\tRM\t1\t2\t90\t3\t4\n"
    "2000/01/04\tBA\t7\t8\t9\t10\t11\n"
    "2000/01/04\tRM\t7\t21\t22\t23\t24\n"
    "2000/01/04\tRN\t50\t51\t52\t53\t54\n"
    "2000/01/08\tBA\t12\t13\t14\t15\t16\n"
    "2000/01/08\tRM\t61\t62\t63\t64\t\n"
    "2000/01/08\tRN\t50\t61\t62\t63\t64\n";

inline constexpr std::string_view kSuperEnalotto =
    "data;n1;n2;n3;n4;n5;n6;jolly;superstar\n"
    "2000-01-01;1;2;3;4;5;6;7;8\n"
    "2000-01-09;11;12;13;14;15;16;17;18\n"
    "2000-03-01;21;22;23;24;25;26;27;28\n";

inline constexpr std::string_view kWinForLife =
    "concorso;data;ora;n1;n2;n3;n4;n5;n6;n7;n8;n9;n10;numerone\n"
    "501;2000-01-01;08:00;1;2;3;4;5;6;7;8;9;10;3\n"
    "502;2000-01-01;09:00;11;12;13;14;15;16;17;18;19;20;5\n";

/// An empty folder in which the real program runs, as its users start it.
class ProgrammaTest : public ::testing::Test {
  protected:
    [[nodiscard]] Esito esegui(const std::vector<std::string>& argomenti) const {
        return esegui_programma("sortimetra-cli", argomenti, {.cartella = casa()});
    }
    [[nodiscard]] const std::filesystem::path& casa() const { return cartella_.percorso(); }

    /// The archive of the three draws in ./archivio.
    void importa() const {
        scrivi(casa() / "lotto.txt", kLotto);
        scrivi(casa() / "superenalotto.csv", kSuperEnalotto);
        scrivi(casa() / "winforlife.csv", kWinForLife);
        const Esito p = esegui({"importa", "--cartella", ".", "--tutto", "--lotto", "lotto.txt",
                                "--superenalotto", "superenalotto.csv", "--winforlife", "winforlife.csv"});
        ASSERT_EQ(p.codice, 0) << p.errori;
    }

  private:
    CartellaProva cartella_;
};

}  // namespace sortimetra::prove
