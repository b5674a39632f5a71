#include "text/senza_controlli.h"

#include <gtest/gtest.h>

#include <ostream>
#include <random>
#include <sstream>
#include <string>

namespace sortimetra {
namespace {

TEST(SenzaControlli, RestaCioCheSiLegge) {
    EXPECT_EQ(senza_controlli(""), "");
    EXPECT_EQ(senza_controlli("1°estratto\tPerché, più — «€»\n"), "1°estratto\tPerché, più — «€»\n");
    EXPECT_EQ(senza_controlli("a;b\r\nc;d\r\n"), "a;b\r\nc;d\r\n");
    EXPECT_EQ(senza_controlli("\uFFFD"), "\uFFFD");
}

TEST(SenzaControlli, IlTerminaleNonObbedisce) {
    EXPECT_EQ(senza_controlli("\x1b]0;titolo\x07"), "\\x1b]0;titolo\\x07");
    EXPECT_EQ(senza_controlli("\x1b[2J"), "\\x1b[2J");
    EXPECT_EQ(senza_controlli("prima\rdopo\b\x7f"), "prima\\x0ddopo\\x08\\x7f");
    // The same commands in one character, as UTF-8 and as a bare byte.
    EXPECT_EQ(senza_controlli("\xc2\x9b"
                              "2J"),
              "\\x9b2J");
    EXPECT_EQ(senza_controlli("\x9b"
                              "2J"),
              "\\x9b2J");
    EXPECT_EQ(senza_controlli(std::string_view{"a\0b", 3}), "a\\x00b");
    // Bytes that begin a character and do not end it.
    EXPECT_EQ(senza_controlli("\xe2\x82"), "\\xe2\\x82");
}

TEST(SenzaControlli, APezziComeIntero) {
    // However a text is cut into writes.
    std::mt19937 caso{13};
    for (int seme = 0; seme < 300; ++seme) {
        SCOPED_TRACE(seme);
        const std::string pezzi[] = {"€",    "a",   "\x1b", "\r", "\n", "\xc2\x9b", "\xf0\x9f\x8e\xb2",
                                     "\xff", "\xe2"};
        std::string testo;
        for (int i = 0; i < 12; ++i) testo += pezzi[caso() % std::size(pezzi)];
        std::ostringstream visto;
        {
            BufferSenzaControlli filtro{visto.rdbuf()};
            std::ostream uscita{&filtro};
            for (std::size_t i = 0; i < testo.size();) {
                const std::size_t n = 1 + caso() % 4;
                if (n == 1)
                    uscita.put(testo[i]);
                else
                    uscita << testo.substr(i, n);
                i += n;
            }
        }
        EXPECT_EQ(visto.str(), senza_controlli(testo));
    }
}

TEST(SenzaControlli, UnaScritturaCheFallisceFallisce) {
    struct Pieno final : std::streambuf {
    } pieno;
    BufferSenzaControlli filtro{&pieno};
    std::ostream uscita{&filtro};
    uscita << "testo";
    EXPECT_FALSE(uscita.good());
}

}  // namespace
}  // namespace sortimetra
