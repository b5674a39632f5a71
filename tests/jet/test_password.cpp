#include "jet/password.h"

#include <gtest/gtest.h>

#include <array>
#include <string_view>

namespace sortimetra::jet {
namespace {

using Lettere = std::array<std::uint16_t, 20>;

Lettere lettere(std::u16string_view testo) {
    Lettere l{};
    for (std::size_t i = 0; i < testo.size(); ++i) l.at(i) = static_cast<std::uint16_t>(testo[i]);
    return l;
}

TEST(Password, SenzaENeConUna) {
    EXPECT_EQ(stato_password(lettere(u"")), StatoPassword::Nessuna);
    for (const std::u16string_view p :
         {u"a", u"segreta", u"con spazi", u"perché no", u"12345678901234567890", u"è"})
        EXPECT_EQ(stato_password(lettere(p)), StatoPassword::Impostata);
}

TEST(Password, UnDannoNonEUnaPassword) {
    Lettere dopo = lettere(u"");
    dopo[7] = 'x';
    EXPECT_EQ(stato_password(dopo), StatoPassword::Guasta) << "a letter behind the end";
    EXPECT_EQ(stato_password(lettere(u"ab\x01"
                                     u"c")),
              StatoPassword::Guasta);
    EXPECT_EQ(stato_password(lettere(u"ab\x7F")), StatoPassword::Guasta);
    // Every single bit of a file without a password.
    for (std::size_t i = 0; i < 20; ++i)
        for (unsigned bit = 0; bit < 16; ++bit) {
            Lettere l{};
            l[i] = static_cast<std::uint16_t>(1U << bit);
            EXPECT_EQ(stato_password(l), StatoPassword::Guasta) << i << ' ' << bit;
        }
    // The password is mixed with the date of the file, four bytes long: a wrong date shows twenty letters.
    Lettere data{};
    for (std::size_t i = 0; i < data.size(); ++i) data[i] = i % 2 == 0 ? u'a' : u'b';
    EXPECT_EQ(stato_password(data), StatoPassword::Guasta);
    for (std::size_t i = 1; i < data.size(); i += 2) data[i] = 0;
    EXPECT_EQ(stato_password(data), StatoPassword::Guasta);
}

}  // namespace
}  // namespace sortimetra::jet
