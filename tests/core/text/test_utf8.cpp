#include "text/utf8.h"

#include <gtest/gtest.h>

#include <array>
#include <random>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

using namespace std::string_view_literals;

std::vector<char32_t> lettere(std::string_view testo) {
    std::vector<char32_t> tutte;
    while (!testo.empty()) tutte.push_back(prendi_lettera(testo));
    return tutte;
}

TEST(Utf8, LettereDaUnoAQuattroByte) {
    EXPECT_EQ(lettere("aà€😀"), (std::vector<char32_t>{U'a', U'à', U'€', U'😀'}));
    EXPECT_EQ(prima_lettera("€5").byte, 3U);
    EXPECT_EQ(lettere("\0x"sv), (std::vector<char32_t>{U'\0', U'x'}));
}

TEST(Utf8, CioCheNonEUnaLetteraValeUnaIgnotaPerByte) {
    constexpr char32_t k = kLetteraIgnota;
    EXPECT_EQ(lettere("\x80z"), (std::vector<char32_t>{k, U'z'})) << "begins none";
    EXPECT_EQ(lettere("\xC3"), (std::vector<char32_t>{k})) << "cut short at the end";
    EXPECT_EQ(lettere("\xC3z"), (std::vector<char32_t>{k, U'z'})) << "cut short by another letter";
    EXPECT_EQ(lettere("\xC0\xAF"), (std::vector<char32_t>{k, k})) << "\"/\" in two bytes";
    EXPECT_EQ(lettere("\xE0\x80\xAF"), (std::vector<char32_t>{k, k, k})) << "\"/\" in three";
    EXPECT_EQ(lettere("\xF0\x82\x82\xAC"), (std::vector<char32_t>{k, k, k, k})) << "\"€\" in four";
    EXPECT_EQ(lettere("\xED\xA0\x80"), (std::vector<char32_t>{k, k, k})) << "half a pair";
    EXPECT_EQ(lettere("\xF4\x90\x80\x80"), (std::vector<char32_t>{k, k, k, k})) << "beyond the last";
    EXPECT_EQ(lettere("\xFF"), (std::vector<char32_t>{k}));
}

TEST(Utf8, OgniLetteraScrittaSiRilegge) {
    for (char32_t c = 0; c <= 0x10FFFF; c += c < 0x3000 ? 1 : 251) {
        if (c >= 0xD800 && c <= 0xDFFF) continue;
        std::string testo;
        aggiungi_lettera(testo, c);
        const Lettera letta = prima_lettera(testo);
        ASSERT_EQ(letta.codice, c);
        ASSERT_EQ(letta.byte, testo.size());
    }
    for (const char32_t nessuna : {char32_t{0xD800}, char32_t{0x110000}}) {
        std::string testo;
        aggiungi_lettera(testo, nessuna);
        EXPECT_EQ(testo, "\uFFFD");
    }
}

TEST(Utf8, TroncaSenzaSpezzareUnaLettera) {
    EXPECT_EQ(tronca_lettere("perché", 10), "perché");
    EXPECT_EQ(tronca_lettere("perché no", 7), "perché");
    EXPECT_EQ(tronca_lettere("perché no", 6), "perch") << "its second byte does not fit";
    EXPECT_EQ(tronca_lettere("5€", 3), "5");
    EXPECT_EQ(tronca_lettere("€", 2), "");
    EXPECT_EQ(tronca_lettere("abc", 0), "");
    EXPECT_EQ(tronca_lettere("\x80\x80\x80\x80\x80\x80", 5).size(), 5U) << "no letters to keep whole";
}

TEST(Utf8, ByteACasoSiLeggonoTutti) {
    for (unsigned seme = 0; seme < 300; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 dado{seme};
        constexpr std::array<unsigned char, 12> kByte{'a',  0x7F, 0x80, 0xBF, 0xC2, 0xC3,
                                                      0xE0, 0xED, 0xF0, 0xF4, 0xFF, 0};
        std::string testo(dado() % 40, '\0');
        for (char& c : testo) c = static_cast<char>(kByte.at(dado() % kByte.size()));
        std::string_view resto = testo;
        while (!resto.empty()) {
            const Lettera l = prima_lettera(resto);
            ASSERT_GE(l.byte, 1U);
            ASSERT_LE(l.byte, resto.size());
            std::string scritta;
            aggiungi_lettera(scritta, l.codice);
            ASSERT_EQ(scritta, l.codice == kLetteraIgnota ? "\uFFFD" : resto.substr(0, l.byte));
            resto.remove_prefix(l.byte);
        }
        for (std::size_t n = 0; n <= testo.size(); ++n) ASSERT_LE(tronca_lettere(testo, n).size(), n);
    }
}

}  // namespace
}  // namespace sortimetra
