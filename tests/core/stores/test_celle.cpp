#include "stores/apertura.h"
#include "stores/celle.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

namespace sortimetra {
namespace {

using testing::HasSubstr;
using Tipo = Cella::Tipo;

Cella testo(std::string_view t) {
    return {.tipo = Tipo::Testo, .intero = 0, .reale = 0, .testo = t};
}
Cella intero(std::int64_t n) {
    return {.tipo = Tipo::Intero, .intero = n, .reale = 0, .testo = {}};
}
Cella reale(double n) {
    return {.tipo = Tipo::Reale, .intero = 0, .reale = n, .testo = {}};
}
Cella momento(double giorni) {
    return {.tipo = Tipo::Momento, .intero = 0, .reale = giorni, .testo = {}};
}
Cella vuota() {
    return {.tipo = Tipo::Vuota, .intero = 0, .reale = 0, .testo = {}};
}

const FormaTabella& forma(Tabelle bit) {
    for (const auto& tabelle : {tabelle_drawit(), tabelle_drawit2()})
        for (const FormaTabella& f : tabelle)
            if (f.bit == bit) return f;
    ADD_FAILURE() << "no form";
    return tabelle_drawit().front();
}

/// A row of the Lotto as sound as can be, but for the cell at `posto`.
std::vector<Cella> riga_lotto(std::size_t posto, const Cella& cella) {
    std::vector<Cella> celle{testo("2000-01-01"), testo("BA"), intero(1), intero(2),
                             intero(3),           intero(4),   intero(5), intero(7)};
    celle.at(posto) = cella;
    return celle;
}

/// What becomes of such a row: why it cannot be true, or "".
std::string esito(std::size_t posto, const Cella& cella, RigheArchivio& righe) {
    LettoreRighe lettore{righe};
    return lettore.aggiungi(forma(kTabellaLotto), riga_lotto(posto, cella)).value_or("");
}
std::string esito(std::size_t posto, const Cella& cella) {
    RigheArchivio righe;
    return esito(posto, cella, righe);
}
RigaLotto letta(std::size_t posto, const Cella& cella) {
    RigheArchivio righe;
    EXPECT_EQ(esito(posto, cella, righe), "");
    return righe.lotto.empty() ? RigaLotto{} : righe.lotto.front();
}

TEST(Celle, LeFormeHannoLeColonneDelLettore) {
    EXPECT_EQ(forma(kTabellaLotto).colonne.size(), 8U) << "date, wheel, five numbers, concorso";
    EXPECT_EQ(forma(kTabellaNazionale).colonne.size(), 8U);
    EXPECT_EQ(forma(kTabellaSuperEnalotto).colonne.size(), 10U);
    EXPECT_EQ(forma(kTabellaWinForLife).colonne.size(), 13U);
    for (const auto& tabelle : {tabelle_drawit(), tabelle_drawit2()})
        for (const FormaTabella& f : tabelle) EXPECT_LE(f.colonne.size(), kColonneMassime);
}

TEST(Celle, UnNumeroInOgniForma) {
    for (const Cella& c : {intero(44), testo("44"), testo(" 44 "), reale(44.0), testo("44 e poi")})
        EXPECT_EQ(letta(4, c).numeri[2], 44);
    for (const Cella& c : {vuota(), testo(""), testo("  "), intero(0), testo("0")})
        EXPECT_EQ(letta(4, c).numeri[2], 0);
    EXPECT_EQ(esito(4, intero(91)),
              "tabella archivio, concorso 7: trovato il numero \"91\", atteso da 1 a 90");
    for (const Cella& c : {intero(-1), intero(INT64_MIN), intero(INT64_MAX), testo("-1"), testo("910"),
                           reale(1e300), reale(-5.0)})
        EXPECT_THAT(esito(4, c), HasSubstr("atteso da 1 a 90"));
}

TEST(Celle, CioCheNonENumeroNonEVuoto) {
    // What a column of another type would give: never a row without its number.
    for (const Cella& c : {reale(44.5), reale(6e-320), momento(44), reale(0.1)})
        EXPECT_THAT(esito(4, c), HasSubstr("atteso da 1 a 90"));
    for (const Cella& c : {reale(6e-320), momento(7), reale(7.5)})
        EXPECT_THAT(esito(7, c), HasSubstr("atteso un numero da 1 in su"));
}

TEST(Celle, UnaCellaCheNonSiLegge) {
    const Cella guasta{.tipo = Tipo::Guasta, .intero = 0, .reale = 0, .testo = {}};
    EXPECT_EQ(esito(4, guasta),
              "tabella archivio, concorso 7: la cella \"3°estratto\" non si legge, il file è danneggiato");
    EXPECT_EQ(esito(7, guasta),
              "tabella archivio: la cella \"concorso\" non si legge, il file è danneggiato");
    for (const std::size_t posto : {0U, 1U, 2U, 6U})
        EXPECT_THAT(esito(posto, guasta), HasSubstr("non si legge"));
    RigheArchivio righe;
    LettoreRighe lettore{righe};
    std::vector<Cella> celle{intero(1), testo("2023-10-08"), guasta};
    for (int n = 1; n <= 10; ++n) celle.push_back(intero(n));
    EXPECT_EQ(lettore.aggiungi(forma(kTabellaWinForLife), celle),
              "tabella archivio, concorso 1: la cella \"ora\" non si legge, il file è danneggiato");
    EXPECT_TRUE(righe.winforlife.empty());
}

TEST(Celle, IlConcorso) {
    EXPECT_EQ(letta(7, testo("4655")).concorso, 4655);
    EXPECT_EQ(letta(7, reale(4655)).concorso, 4655);
    for (const Cella& c : {vuota(), intero(0), intero(-1), intero(1LL << 40), testo("x")})
        EXPECT_THAT(esito(7, c), HasSubstr("atteso un numero da 1 in su"));
}

TEST(Celle, LaDataInOgniForma) {
    const Data attesa = leggi_data_iso("1997-12-03").value();
    for (const Cella& c :
         {testo("1997-12-03"), testo("03/12/1997"), testo(" 1997-12-03 "), testo("1997-12-03 00:00:00"),
          testo("03/12/1997 8:00"), momento(35767), momento(35767.75), intero(35767)})
        EXPECT_EQ(letta(0, c).data, attesa);
    EXPECT_EQ(letta(0, momento(-1.25)).data, leggi_data_iso("1899-12-29").value())
        << "before day 0 the fraction counts away from it";
    for (const Cella& c :
         {vuota(), testo(""), testo("oggi"), testo("1997-13-03"), testo("1799-12-31"), testo("3000-01-01"),
          momento(1e9), momento(-40001), testo(std::string_view{"\0\0\0\0\0\0\0\0\0\0", 10})})
        EXPECT_THAT(esito(0, c), HasSubstr("attesa la data dell'estrazione"));
}

TEST(Celle, LaDataDellaRigaPrimaNonResta) {
    // A lettore remembers the last date: one of another text, or of none, must not get it.
    RigheArchivio righe;
    LettoreRighe lettore{righe};
    const auto& f = forma(kTabellaLotto);
    EXPECT_FALSE(lettore.aggiungi(f, riga_lotto(0, testo("1997-12-03"))));
    EXPECT_FALSE(lettore.aggiungi(f, riga_lotto(0, testo("1997-12-06"))));
    EXPECT_FALSE(lettore.aggiungi(f, riga_lotto(0, momento(35767))));
    EXPECT_FALSE(lettore.aggiungi(f, riga_lotto(0, testo("1997-12-06"))));
    EXPECT_TRUE(lettore.aggiungi(f, riga_lotto(0, testo("1997-12-66"))));
    EXPECT_TRUE(lettore.aggiungi(f, riga_lotto(0, vuota())));
    ASSERT_EQ(righe.lotto.size(), 4U);
    EXPECT_EQ(testo_data(righe.lotto[0].data), "03/12/1997");
    EXPECT_EQ(testo_data(righe.lotto[1].data), "06/12/1997");
    EXPECT_EQ(testo_data(righe.lotto[2].data), "03/12/1997");
    EXPECT_EQ(testo_data(righe.lotto[3].data), "06/12/1997");
}

TEST(Celle, LaRuota) {
    EXPECT_EQ(letta(1, testo("ve")).ruota, 9);
    EXPECT_EQ(letta(1, testo(" RM ")).ruota, 7);
    for (const Cella& c : {testo("XX"), testo(""), vuota(), intero(3), testo("NAZIONALE"), testo("RN"),
                           testo("una ruota lunga")})
        EXPECT_THAT(esito(1, c), HasSubstr("trovata la ruota"));
}

TEST(Celle, LaNazionaleSoloNellaSuaTabella) {
    RigheArchivio righe;
    LettoreRighe lettore{righe};
    for (const std::string_view nome : {"NAZIONALE", "nazionale", "RN"})
        EXPECT_FALSE(lettore.aggiungi(forma(kTabellaNazionale), riga_lotto(1, testo(nome)))) << nome;
    EXPECT_EQ(righe.nazionale.size(), 3U);
    EXPECT_TRUE(lettore.aggiungi(forma(kTabellaNazionale), riga_lotto(1, testo("BA"))));
    EXPECT_TRUE(righe.lotto.empty());
}

TEST(Celle, LOraComeTestoOComeMomento) {
    RigheArchivio righe;
    LettoreRighe lettore{righe};
    const auto con_ora = [&](const Cella& ora) {
        std::vector<Cella> celle{intero(1), testo("2023-10-08"), ora};
        for (int n = 1; n <= 10; ++n) celle.push_back(intero(n));
        EXPECT_FALSE(lettore.aggiungi(forma(kTabellaWinForLife), celle));
        return righe.winforlife.back().ora;
    };
    EXPECT_EQ(con_ora(testo(" 08:00")), " 08:00") << "as it stands";
    EXPECT_EQ(con_ora(momento(8.0 / 24)), "8:00");
    EXPECT_EQ(con_ora(momento(40000 + 21.5 / 24)), "21:30");
    EXPECT_EQ(con_ora(reale(0.999999)), "0:00") << "a minute that the fraction rounds up to";
}

TEST(Celle, UnMessaggioMostraSoloCioCheSiPuoMostrare) {
    EXPECT_THAT(esito(1, testo("\x01\n" + std::string(100, 'x'))),
                HasSubstr("\"??" + std::string(38, 'x') + "\""));
}

}  // namespace
}  // namespace sortimetra
