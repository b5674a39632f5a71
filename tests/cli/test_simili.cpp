#include "cli/simili.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <string>

namespace sortimetra {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr std::array<std::string_view, 4> kFrutti{"mela", "pera", "banana", "melagrana"};

TEST(Distanza, ContaLeLettereDaCambiare) {
    EXPECT_EQ(distanza("csv", "csv"), 0);
    EXPECT_EQ(distanza("csv", "CSV"), 0);
    EXPECT_EQ(distanza("cvs", "csv"), 1) << "two neighbours swapped";
    EXPECT_EQ(distanza("cs", "csv"), 1);
    EXPECT_EQ(distanza("csvv", "csv"), 1);
    EXPECT_EQ(distanza("csw", "csv"), 1);
    EXPECT_EQ(distanza("", "csv"), 3);
    EXPECT_EQ(distanza("json", "csv"), 3) << "only the s stays";
}

TEST(Simili, UnaSvistaTrovaLaParola) {
    EXPECT_THAT(simili("mala", kFrutti), ElementsAre("mela"));
    EXPECT_THAT(simili("BANAAN", kFrutti), ElementsAre("banana"));
}

TEST(Simili, UnPezzoTrovaTuttoCioCheLoContiene) {
    EXPECT_THAT(simili("gran", kFrutti), ElementsAre("melagrana"));
    EXPECT_THAT(simili("mel", kFrutti, 3), ElementsAre("mela", "melagrana"));
}

TEST(Simili, NienteDiVicino) {
    EXPECT_THAT(simili("xyz", kFrutti), IsEmpty());
    EXPECT_THAT(simili("", kFrutti), IsEmpty());
    EXPECT_THAT(simili("  ", kFrutti), IsEmpty());
    EXPECT_THAT(simili(std::string(100000, 'm'), kFrutti), IsEmpty());
}

TEST(Simili, Frase) {
    EXPECT_EQ(volevi_dire("mala", kFrutti), " Volevi dire \"mela\"?");
    EXPECT_EQ(volevi_dire("mel", kFrutti, 2), " Volevi dire \"mela\" oppure \"melagrana\"?");
    EXPECT_EQ(volevi_dire("xyz", kFrutti), "");
}

}  // namespace
}  // namespace sortimetra
