#include "draws/esame.h"
#include "files/file_sicuro.h"
#include "stores/apertura.h"
#include "stores/copia_compatta.h"
#include "stores/negozio_nativo.h"
#include "support/archivi.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <atomic>
#include <bit>
#include <chrono>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <memory>
#include <random>
#include <set>
#include <thread>

namespace sortimetra {
namespace {

using prove::archivio_casuale;
using prove::CartellaProva;
namespace fs = std::filesystem;

constexpr unsigned kDrawit = kTabellaLotto | kTabellaNazionale | kTabellaSuperEnalotto;
constexpr ModoApertura kConCopia{.copia = true};

/// The rows that an archive was packed from.
RigheArchivio righe_di(const TabelleArchivio& t) {
    RigheArchivio righe;
    for (std::size_t i = 0; i < t.lotto.concorso.size(); ++i)
        for (int w = 0; w < kRuote; ++w) {
            if ((t.lotto.presenti[i] >> w & 1) == 0) continue;
            RigaLotto r{.concorso = t.lotto.concorso[i], .data = t.lotto.data[i], .ruota = w};
            std::copy_n(t.lotto.numeri[i].begin() + w * kEstratti, kEstratti, r.numeri.begin());
            righe.lotto.push_back(r);
        }
    for (std::size_t i = 0; i < t.nazionale.concorso.size(); ++i)
        righe.nazionale.push_back({.concorso = t.nazionale.concorso[i],
                                   .data = t.nazionale.data[i],
                                   .ruota = kNazionale,
                                   .numeri = t.nazionale.numeri[i]});
    for (std::size_t i = 0; i < t.superenalotto.concorso.size(); ++i) {
        const auto& n = t.superenalotto.numeri[i];
        RigaSuperEnalotto r{.concorso = t.superenalotto.concorso[i],
                            .data = t.superenalotto.data[i],
                            .jolly = n[6],
                            .superstar = n[7]};
        std::copy_n(n.begin(), 6, r.numeri.begin());
        righe.superenalotto.push_back(r);
    }
    for (std::size_t i = 0; i < t.winforlife.concorso.size(); ++i)
        righe.winforlife.push_back({.concorso = t.winforlife.concorso[i],
                                    .data = t.winforlife.data[i],
                                    .ora = std::string{t.winforlife.ora[i]},
                                    .numeri = t.winforlife.numeri[i]});
    return righe;
}

void uguali(const TabelleArchivio& a, const TabelleArchivio& b, unsigned tabelle = kTutteLeTabelle) {
    if ((tabelle & kTabellaLotto) != 0) {
        EXPECT_TRUE(a.lotto.concorso == b.lotto.concorso && a.lotto.data == b.lotto.data);
        EXPECT_TRUE(a.lotto.presenti == b.lotto.presenti && a.lotto.numeri == b.lotto.numeri);
        EXPECT_EQ(a.lotto.righe, b.lotto.righe);
    }
    const auto comuni = [](const auto& x, const auto& y) {
        EXPECT_TRUE(x.concorso == y.concorso && x.data == y.data && x.numeri == y.numeri);
    };
    EXPECT_EQ(a.confini, b.confini);
    if ((tabelle & kTabellaNazionale) != 0) comuni(a.nazionale, b.nazionale);
    if ((tabelle & kTabellaSuperEnalotto) != 0) comuni(a.superenalotto, b.superenalotto);
    if ((tabelle & kTabellaWinForLife) != 0) {
        comuni(a.winforlife, b.winforlife);
        EXPECT_TRUE(a.winforlife.ora == b.winforlife.ora);
    }
}

/// One of a hundred archives of a seed: the first whose draws can be true, as a store's must.
ArchivioEstrazioni archivio_sano(std::uint32_t seme) {
    for (std::uint32_t k = 0; k < 100; ++k)
        if (auto archivio = archivio_casuale(seme * 100 + k);
            !primo_danno(archivio) && !archivio.lotto().concorso.empty())
            return archivio;
    ADD_FAILURE() << "no sound archive";
    return {};
}

const IdentitaNegozio kIdentita{
    .dispositivo = 1, .inode = 2, .grandezza = 3, .scritto = {4, 5}, .cambiato = {6, 7}, .inizio = 8};

/// Bytes where a file would be mapped: at a place of the machine's widest values, and not one more.
class Byte {
  public:
    explicit Byte(std::string_view byte)
        : memoria_{std::make_shared_for_overwrite<std::byte[]>(byte.size())}, quanti_{byte.size()} {
        std::memcpy(memoria_.get(), byte.data(), byte.size());
    }
    [[nodiscard]] std::span<const std::byte> tutti() const { return {memoria_.get(), quanti_}; }
    void metti_somma() {
        if (quanti_ < kPostoSomma + 8) return;
        const std::uint64_t somma = somma_copia(tutti());
        std::memcpy(memoria_.get() + kPostoSomma, &somma, sizeof somma);
    }
    [[nodiscard]] std::optional<ContenutoCopia> interpreta(const IdentitaNegozio& di = kIdentita) const {
        return interpreta_copia(tutti(), di, memoria_);
    }

  private:
    std::shared_ptr<std::byte[]> memoria_;
    std::size_t quanti_;
};

ContenutoCopia contenuto(const TabelleArchivio& tutte, unsigned tabelle, bool simulato = false) {
    ContenutoCopia c{.tabelle = tabelle, .simulato = simulato};
    if ((tabelle & kTabellaLotto) != 0) c.contenuto.lotto = tutte.lotto;
    if ((tabelle & kTabellaNazionale) != 0) c.contenuto.nazionale = tutte.nazionale;
    if ((tabelle & kTabellaSuperEnalotto) != 0) c.contenuto.superenalotto = tutte.superenalotto;
    if ((tabelle & kTabellaWinForLife) != 0) c.contenuto.winforlife = tutte.winforlife;
    if ((tabelle & kConfiniLotto) != 0)
        c.contenuto.confini = ArchivioEstrazioni{tutte, {}, {}}.confini_lotto();
    return c;
}

// ---- the bytes ----

TEST(CopiaCompatta, TornaCioCheSiScrive) {
    for (std::uint32_t seme = 0; seme < 60; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        for (unsigned tabelle = 0; tabelle <= (kTutteLeTabelle | kConfiniLotto); ++tabelle) {
            // Of the rows and where they end a copy has one.
            if ((tabelle & kConfiniLotto) != 0 && !solo_confini(tabelle)) continue;
            const auto scritta = contenuto(archivio.tabelle(), tabelle, seme % 2 == 1);
            const auto letta = Byte{byte_copia(kIdentita, scritta)}.interpreta();
            ASSERT_TRUE(letta) << tabelle;
            EXPECT_EQ(letta->tabelle, tabelle);
            EXPECT_EQ(letta->simulato, scritta.simulato);
            uguali(letta->contenuto, scritta.contenuto);
        }
    }
}

TEST(CopiaCompatta, SiLeggeAncheDopoCheIlSuoFileNonCEPiu) {
    const auto archivio = archivio_casuale(3);
    std::optional<ContenutoCopia> letta;
    {
        const Byte byte{byte_copia(kIdentita, contenuto(archivio.tabelle(), kTutteLeTabelle))};
        letta = byte.interpreta();
    }
    ASSERT_TRUE(letta);
    uguali(letta->contenuto, archivio.tabelle());
}

TEST(CopiaCompatta, OgniByteCambiatoLaToglieDiMezzo) {
    const auto archivio = archivio_casuale(9);
    ASSERT_FALSE(archivio.lotto().concorso.empty());
    ASSERT_FALSE(archivio.winforlife().concorso.empty());
    const std::string sana = byte_copia(kIdentita, contenuto(archivio.tabelle(), kTutteLeTabelle));
    std::mt19937 caso{1};
    for (std::size_t i = 0; i < sana.size(); ++i) {
        std::string rotta = sana;
        rotta[i] = static_cast<char>(rotta[i] ^ (1 + static_cast<int>(caso() % 255)));
        ASSERT_FALSE(Byte{rotta}.interpreta()) << i;
    }
}

TEST(CopiaCompatta, TroncataOAllungata) {
    const std::string sana = byte_copia(kIdentita, contenuto(archivio_casuale(9).tabelle(), kTutteLeTabelle));
    for (std::size_t n = 0; n < sana.size(); n += n < 512 ? 1 : 61) {
        ASSERT_FALSE(Byte{sana.substr(0, n)}.interpreta()) << n;
        Byte risommata{sana.substr(0, n)};
        risommata.metti_somma();
        ASSERT_FALSE(risommata.interpreta()) << n;
    }
    for (const std::size_t n : {1U, 63U, 64U, 4096U})
        ASSERT_FALSE(Byte{sana + std::string(n, '\0')}.interpreta()) << n;
    ASSERT_FALSE(Byte{sana + sana}.interpreta());
}

TEST(CopiaCompatta, OgniPuntoDellIdentitaConta) {
    const Byte byte{byte_copia(kIdentita, contenuto(archivio_casuale(2).tabelle(), kTutteLeTabelle))};
    ASSERT_TRUE(byte.interpreta());
    const std::vector<std::function<void(IdentitaNegozio&)>> cambi{
        [](auto& i) { ++i.dispositivo; }, [](auto& i) { ++i.inode; },      [](auto& i) { --i.grandezza; },
        [](auto& i) { ++i.scritto.s; },   [](auto& i) { ++i.scritto.ns; }, [](auto& i) { --i.cambiato.s; },
        [](auto& i) { --i.cambiato.ns; }, [](auto& i) { i.inizio ^= 1U; }};
    for (std::size_t k = 0; k < cambi.size(); ++k) {
        IdentitaNegozio altra = kIdentita;
        cambi[k](altra);
        EXPECT_FALSE(byte.interpreta(altra)) << k;
    }
}

/// Reads every value that a search could come to, and says whether they are all possible.
bool tutto_possibile(const TabelleArchivio& t) {
    bool bene = true;
    std::size_t righe = 0;
    const auto sale = [&](const auto& c, bool stretto) {
        for (std::size_t i = 0; i < c.size(); ++i) {
            bene = bene && c[i] >= 1 && c[i] <= kConcorsoMassimo;
            if (i > 0) bene = bene && (stretto ? c[i - 1] < c[i] : c[i - 1] <= c[i]);
        }
    };
    const auto numeri = [&](const auto& tutti, int massimo) {
        for (const auto& riga : tutti)
            for (const Numero n : riga) bene = bene && n <= massimo;
    };
    const auto date = [&](const auto& tutte, std::size_t quante) {
        bene = bene && tutte.size() == quante;
        for (const Data d : tutte) bene = bene && testo_data(d).size() == 10;
    };
    sale(t.lotto.concorso, true);
    sale(t.nazionale.concorso, true);
    sale(t.superenalotto.concorso, true);
    sale(t.winforlife.concorso, false);
    date(t.lotto.data, t.lotto.concorso.size());
    date(t.nazionale.data, t.nazionale.concorso.size());
    date(t.superenalotto.data, t.superenalotto.concorso.size());
    date(t.winforlife.data, t.winforlife.concorso.size());
    numeri(t.lotto.numeri, 90);
    numeri(t.nazionale.numeri, 90);
    numeri(t.superenalotto.numeri, 90);
    numeri(t.winforlife.numeri, 20);
    for (const std::uint16_t m : t.lotto.presenti) {
        bene = bene && m != 0 && m < 1U << kRuote;
        righe += static_cast<std::size_t>(std::popcount(m));
    }
    bene = bene && righe == t.lotto.righe && t.lotto.presenti.size() == t.lotto.concorso.size() &&
           t.lotto.numeri.size() == t.lotto.concorso.size() &&
           t.winforlife.ora.size() == t.winforlife.concorso.size();
    bene = bene && (!t.confini || possibili(*t.confini));
    std::size_t lettere = 0;
    for (std::size_t i = 0; i < t.winforlife.ora.size(); ++i)
        for (const char c : t.winforlife.ora[i]) lettere += c == ':' ? 1U : 0U;
    return bene && lettere <= t.winforlife.ora.size() * (std::size_t{1} << 20);
}

TEST(CopiaCompatta, ConLaSommaGiustaNienteDiImpossibile) {
    // Whoever writes the checksum himself may give other numbers, but none that a search would fall over.
    const auto archivio = archivio_casuale(9);
    const std::string sana = byte_copia(kIdentita, contenuto(archivio.tabelle(), kTutteLeTabelle));
    std::size_t accettate = 0;
    for (std::uint32_t seme = 0; seme < 6000; ++seme) {
        SCOPED_TRACE(seme);
        std::mt19937 caso{seme};
        std::string rotta = sana;
        // Half of the changes fall into the header, whose counts decide what is read from where.
        for (std::uint32_t k = 1 + caso() % 3; k > 0; --k) {
            const std::size_t fino = caso() % 2 == 0 ? 208 : rotta.size();
            rotta[caso() % fino] = static_cast<char>(caso() % 4 == 0 ? 0xFF : caso());
        }
        Byte byte{rotta};
        byte.metti_somma();
        const auto letta = byte.interpreta();
        if (!letta) continue;
        ++accettate;
        ASSERT_TRUE(tutto_possibile(letta->contenuto));
    }
    EXPECT_GT(accettate, 100U) << "the checks behind the checksum are reached, and let pass what may be";
}

// ---- the clock ----

TEST(AppenaCambiato, AncheColPassoDeiSecondiECoiTempiDelFuturo) {
    const auto di = [](Istante scritto, Istante cambiato) {
        return IdentitaNegozio{.scritto = scritto, .cambiato = cambiato};
    };
    const Istante ora{1000, 500'000'000};
    EXPECT_TRUE(appena_cambiato(di(ora, ora), ora));
    EXPECT_TRUE(appena_cambiato(di({1000, 490'000'000}, {1000, 490'000'000}), ora));
    EXPECT_FALSE(appena_cambiato(di({1000, 470'000'000}, {1000, 470'000'000}), ora));
    // No fractions of a second: two seconds are its step.
    EXPECT_TRUE(appena_cambiato(di({999, 0}, {999, 0}), ora));
    EXPECT_FALSE(appena_cambiato(di({998, 0}, {998, 0}), ora));
    // The time of the content may be anything, the time of the change only lies in the past.
    EXPECT_FALSE(appena_cambiato(di({4'070'908'800, 1}, {998, 1}), ora));
    EXPECT_TRUE(appena_cambiato(di({998, 1}, {1001, 1}), ora));
    EXPECT_TRUE(appena_cambiato(di({998, 1}, {4'070'908'800, 1}), ora));
    EXPECT_FALSE(appena_cambiato(di({-4'070'908'800, 1}, {-4'070'908'800, 1}), ora));
}

// ---- the files ----

/// A folder with an archive, and a cache folder of its own.
class CopieSuFile : public testing::Test {
  protected:
    CopieSuFile() {
        if (const char* prima = std::getenv("XDG_CACHE_HOME")) prima_ = prima;
        ::setenv("XDG_CACHE_HOME", cache_.percorso().c_str(), 1);
    }
    ~CopieSuFile() override {
        if (prima_)
            ::setenv("XDG_CACHE_HOME", prima_->c_str(), 1);
        else
            ::unsetenv("XDG_CACHE_HOME");
    }

    [[nodiscard]] fs::path drawit() const { return cartella_.percorso() / "drawit.db"; }
    [[nodiscard]] fs::path copia() const { return copia_accanto(drawit()); }

    /// Writes both stores, and waits until their times can tell the next change from this one.
    void scrivi(const RigheArchivio& righe, bool simulato = false) {
        ASSERT_TRUE(scrivi_drawit(drawit(), righe, simulato));
        ASSERT_TRUE(scrivi_drawit2(cartella_.percorso() / "drawit2.db", righe, simulato));
        invecchia();
    }
    void scrivi(std::uint32_t seme) { scrivi(righe_di(archivio_sano(seme).tabelle())); }
    void invecchia() const {
        for (const char* nome : {"drawit.db", "drawit2.db"})
            while (true) {
                const auto i = identita_negozio(cartella_.percorso() / nome);
                if (!i || !appena_cambiato(*i)) break;
                std::this_thread::sleep_for(std::chrono::milliseconds{2});
            }
    }
    [[nodiscard]] ArchivioEstrazioni apri(ModoApertura modo, unsigned tabelle = kTutteLeTabelle) const {
        auto a = apri_archivio(cartella_.percorso(), tabelle, modo);
        EXPECT_TRUE(a) << a.error().testo();
        return a ? std::move(*a) : ArchivioEstrazioni{};
    }
    /// With the copy or without: the same.
    void come_il_negozio(unsigned tabelle = kTutteLeTabelle) const {
        const auto dal_negozio = apri({}, tabelle);
        const auto con_copia = apri(kConCopia, tabelle);
        uguali(con_copia.tabelle(), dal_negozio.tabelle());
        EXPECT_EQ(con_copia.drawit().file, dal_negozio.drawit().file);
        EXPECT_EQ(con_copia.drawit().simulato, dal_negozio.drawit().simulato);
        EXPECT_EQ(con_copia.drawit2().simulato, dal_negozio.drawit2().simulato);
    }
    /// What the copy of drawit holds for the store as it is now; 0 where it does not fit.
    [[nodiscard]] unsigned nella_copia() const {
        const auto i = identita_negozio(drawit());
        const auto c = i ? leggi_copia(drawit(), *i, 0, Tenuta::propria) : std::nullopt;
        return c ? c->tabelle : 0;
    }
    /// Makes the copy of the store as it is now give other numbers than the store: who reads it is found out.
    void segna_copia() const {
        RigheArchivio righe;
        righe.lotto = {{.concorso = 77, .data = kPrimaData, .ruota = 3, .numeri = {1, 2, 3, 4, 5}}};
        const auto finto = ArchivioEstrazioni::componi(righe).value();
        ASSERT_TRUE(
            scrivi_copia(drawit(), identita_negozio(drawit()).value(), contenuto(finto.tabelle(), kDrawit)));
    }
    [[nodiscard]] bool legge_la_copia() const {
        const auto a = apri(kConCopia, kTabellaLotto);
        return a.ultimo_concorso() == 77 && a.lotto().concorso.size() == 1;
    }

    CartellaProva cartella_;
    CartellaProva cache_;

  private:
    std::optional<std::string> prima_;
};

TEST_F(CopieSuFile, LaSecondaVoltaNonSiLeggeIlNegozio) {
    scrivi(5);
    come_il_negozio();
    EXPECT_EQ(nella_copia(), kDrawit);
    come_il_negozio();
    segna_copia();
    EXPECT_TRUE(legge_la_copia());
    uguali(apri({}).tabelle(), archivio_sano(5).tabelle());
}

TEST_F(CopieSuFile, SenzaChiederlaNonSiFa) {
    scrivi(5);
    (void)apri({});
    EXPECT_FALSE(fs::exists(copia()));
    EXPECT_TRUE(fs::is_empty(cache_.percorso()));
}

TEST_F(CopieSuFile, InMemoriaPropriaOMappataUguale) {
    scrivi(8);
    (void)apri(kConCopia);
    const auto propria = apri({.copia = true, .tenuta = Tenuta::propria});
    const auto mappata = apri({.copia = true, .tenuta = Tenuta::mappata});
    uguali(propria.tabelle(), mappata.tabelle());
    // What is held of one's own stays, whatever becomes of the file.
    {
        std::ofstream{copia(), std::ios::trunc};
    }
    uguali(propria.tabelle(), archivio_sano(8).tabelle());
}

TEST_F(CopieSuFile, CresceConLeTabelleCheServono) {
    scrivi(5);
    come_il_negozio(kTabellaLotto);
    EXPECT_EQ(nella_copia(), unsigned{kTabellaLotto});
    come_il_negozio(kTabellaSuperEnalotto);
    EXPECT_EQ(nella_copia(), unsigned{kTabellaLotto | kTabellaSuperEnalotto});
    come_il_negozio(kTabellaLotto | kTabellaNazionale);
    EXPECT_EQ(nella_copia(), kDrawit);
    come_il_negozio();
    // What is there and not wanted is not handed out.
    EXPECT_TRUE(apri(kConCopia, kTabellaSuperEnalotto).lotto().concorso.empty());
}

TEST_F(CopieSuFile, DoveFinisceIlLottoSenzaLeSueRighe) {
    constexpr unsigned kAltroGioco = kTabellaSuperEnalotto | kConfiniLotto;
    for (const std::uint32_t seme : {5U, 6U, 11U}) {
        SCOPED_TRACE(seme);
        scrivi(seme);
        const ConfiniLotto attesi = archivio_sano(seme).confini_lotto();
        const auto come_attesi = [&] {
            come_il_negozio(kAltroGioco);
            for (const ModoApertura modo : {ModoApertura{}, kConCopia}) {
                const auto a = apri(modo, kAltroGioco);
                EXPECT_EQ(a.tabelle().confini, attesi);
                EXPECT_EQ(a.confini_lotto(), attesi);
                EXPECT_TRUE(a.lotto().concorso.empty()) << "what is there and not wanted";
                EXPECT_EQ(a.superenalotto().numeri, archivio_sano(seme).superenalotto().numeri);
            }
        };
        come_attesi();
        EXPECT_EQ(nella_copia(), kAltroGioco) << "nothing else was read";
        come_attesi();
        // The rows, once they are wanted, take the place of where they end.
        come_il_negozio(kTabellaLotto);
        EXPECT_EQ(nella_copia(), unsigned{kTabellaLotto | kTabellaSuperEnalotto});
        come_attesi();
        EXPECT_EQ(nella_copia(), unsigned{kTabellaLotto | kTabellaSuperEnalotto});
        EXPECT_FALSE(apri(kConCopia, kTabellaLotto | kConfiniLotto).tabelle().confini);
    }
}

TEST_F(CopieSuFile, IlNegozioRiscrittoLaRifa) {
    for (const std::uint32_t seme : {5U, 6U, 5U, 11U, 1U}) {
        SCOPED_TRACE(seme);
        scrivi(seme);
        come_il_negozio();
        uguali(apri(kConCopia).tabelle(), archivio_sano(seme).tabelle());
        EXPECT_EQ(nella_copia(), kDrawit);
    }
    scrivi(righe_di(archivio_sano(5).tabelle()), true);
    EXPECT_TRUE(apri(kConCopia).drawit().simulato);
    come_il_negozio();
}

TEST_F(CopieSuFile, CambiatoSulPostoEConLaDataRimessa) {
    RigheArchivio righe = righe_di(archivio_sano(5).tabelle());
    scrivi(righe);
    segna_copia();
    struct stat prima{};
    ASSERT_EQ(::stat(drawit().c_str(), &prima), 0);
    // Written over in its place: same size, same inode, and the date of the content set back.
    const std::string byte = leggi_file(drawit()).value();
    {
        std::fstream f{drawit(), std::ios::in | std::ios::out | std::ios::binary};
        f.seekp(0);
        f.write(byte.data(), 16);
    }
    const std::array<timespec, 2> tempi{prima.st_atim, prima.st_mtim};
    ASSERT_EQ(::utimensat(AT_FDCWD, drawit().c_str(), tempi.data(), 0), 0);
    EXPECT_FALSE(legge_la_copia());
    come_il_negozio();
}

TEST_F(CopieSuFile, QuellaCheNonVaSiRifaSenzaDirlo) {
    scrivi(5);
    (void)apri(kConCopia);
    const std::string sana = leggi_file(copia()).value();
    const auto con_byte = [&](std::size_t dove, char c) {
        std::string altra = sana;
        altra[dove] = c;
        return altra;
    };
    const std::vector<std::string> guaste{
        "",
        "x",
        std::string(sana.size(), '\0'),
        sana.substr(0, sana.size() - 1),
        sana.substr(0, 64),
        sana + "x",
        con_byte(0, 'X'),
        con_byte(8, '\x7F'),
        con_byte(sana.size() / 2, static_cast<char>(sana[sana.size() / 2] ^ 1)),
        leggi_file(drawit()).value(),
    };
    for (std::size_t k = 0; k < guaste.size(); ++k) {
        SCOPED_TRACE(k);
        ASSERT_TRUE(scrivi_file(copia(), guaste[k]));
        EXPECT_EQ(nella_copia(), 0U);
        come_il_negozio();
        EXPECT_EQ(nella_copia(), kDrawit);
        EXPECT_EQ(leggi_file(copia()).value(), sana);
    }
}

TEST_F(CopieSuFile, DoveAccantoNonSiScriveStaNellaCartellaDellUtente) {
    scrivi(5);
    // A folder of that name: nobody can put a file there, whatever rights he has.
    fs::create_directory(copia());
    come_il_negozio();
    EXPECT_TRUE(fs::is_directory(copia()));
    EXPECT_TRUE(fs::is_regular_file(copia_in_disparte(drawit())));
    EXPECT_EQ(nella_copia(), kDrawit);
    segna_copia();
    EXPECT_TRUE(legge_la_copia());
    // Another archive of the same name has its own.
    EXPECT_NE(copia_in_disparte(drawit()), copia_in_disparte("/altrove/drawit.db"));
    EXPECT_TRUE(copia_in_disparte(drawit()).string().starts_with(cache_.percorso().string()));
}

TEST_F(CopieSuFile, DoveNonSiScriveAffattoSiFaSenza) {
    scrivi(5);
    fs::create_directory(copia());
    ASSERT_TRUE(scrivi_file(cache_.percorso() / "sortimetra", "no folder"));
    come_il_negozio();
    EXPECT_EQ(nella_copia(), 0U);
}

TEST_F(CopieSuFile, NonSiSegueUnCollegamento) {
    scrivi(5);
    const auto altrui = cartella_.percorso() / "di un altro";
    ASSERT_TRUE(scrivi_file(altrui, "mio"));
    fs::create_symlink(altrui, copia());
    come_il_negozio();
    EXPECT_EQ(leggi_file(altrui).value(), "mio");
    EXPECT_TRUE(fs::is_symlink(copia()));
}

TEST_F(CopieSuFile, ConModificheAccantoLaCopiaNonVale) {
    scrivi(5);
    segna_copia();
    for (const char* coda : {"-journal", "-wal"}) {
        const fs::path accanto = drawit().string() + coda;
        ASSERT_TRUE(scrivi_file(accanto, std::string(512, '\0')));
        EXPECT_FALSE(identita_negozio(drawit())) << coda;
        fs::remove(accanto);
        EXPECT_TRUE(identita_negozio(drawit())) << coda;
    }
    EXPECT_TRUE(legge_la_copia());
}

TEST_F(CopieSuFile, UnNegozioCheNonSiLeggeRestaUnErrore) {
    scrivi(5);
    (void)apri(kConCopia);
    ASSERT_TRUE(scrivi_file(drawit(), "rotto"));
    EXPECT_FALSE(apri_archivio(cartella_.percorso(), kTabellaLotto, kConCopia));
    fs::remove(drawit());
    EXPECT_FALSE(apri_archivio(cartella_.percorso(), kTabellaLotto, kConCopia));
}

TEST_F(CopieSuFile, CioCheEDannoNonSiCopiaEResta) {
    // NAZIONALE a day away from the Lotto: damage of the two together, not of either alone.
    RigheArchivio righe;
    righe.lotto = {{.concorso = 1, .data = kPrimaData, .ruota = 0, .numeri = {1, 2, 3, 4, 5}}};
    righe.nazionale = {{.concorso = 1,
                        .data = kPrimaData + std::chrono::days{1},
                        .ruota = kNazionale,
                        .numeri = {1, 2, 3, 4, 5}}};
    scrivi(righe);
    for (int volta = 0; volta < 2; ++volta) {
        SCOPED_TRACE(volta);
        EXPECT_FALSE(apri_archivio(cartella_.percorso(), kTabellaLotto | kTabellaNazionale, kConCopia));
        EXPECT_TRUE(apri_archivio(cartella_.percorso(), kTabellaLotto, kConCopia));
        EXPECT_TRUE(apri_archivio(cartella_.percorso(), kTabellaNazionale, kConCopia));
        const auto lette = apri_archivio(cartella_.percorso(), kDrawit, {.copia = true, .esamina = false});
        EXPECT_TRUE(lette);
        EXPECT_EQ(nella_copia() & (kTabellaLotto | kTabellaNazionale), unsigned{kTabellaLotto});
    }
}

TEST(CopiaCompatta, QuelCheESanoInsiemeLoEAncheAParti) {
    // What lets the examination be left out for the tables of a copy.
    int sani = 0;
    for (std::uint32_t seme = 0; seme < 200; ++seme) {
        SCOPED_TRACE(seme);
        const auto archivio = archivio_casuale(seme);
        if (primo_danno(archivio)) continue;
        ++sani;
        for (unsigned tabelle = 0; tabelle <= kTutteLeTabelle; ++tabelle)
            EXPECT_FALSE(primo_danno({contenuto(archivio.tabelle(), tabelle).contenuto, {}, {}})) << tabelle;
    }
    EXPECT_GT(sani, 10);
}

TEST_F(CopieSuFile, PiuProgrammiInsieme) {
    // One writes the store anew again and again, others read it by the copy: always one of the two whole
    // archives, and the last one at the end.
    const std::array archivi{archivio_sano(5), archivio_sano(6)};
    const std::array righe{righe_di(archivi[0].tabelle()), righe_di(archivi[1].tabelle())};
    ASSERT_FALSE(archivi[0].lotto().numeri == archivi[1].lotto().numeri);
    ASSERT_TRUE(scrivi_drawit(drawit(), righe[0], false));
    std::atomic<bool> basta = false;
    std::atomic<int> strani = 0;
    std::vector<std::jthread> lettori;
    for (int k = 0; k < 3; ++k)
        lettori.emplace_back([&] {
            while (!basta) {
                const auto a = apri_archivio(cartella_.percorso(), kDrawit, kConCopia);
                const auto e = [&](std::size_t i) {
                    return a && a->lotto().numeri == archivi.at(i).lotto().numeri &&
                           a->superenalotto().numeri == archivi.at(i).superenalotto().numeri;
                };
                if (!e(0) && !e(1)) ++strani;
            }
        });
    for (std::size_t giro = 1; giro <= 20; ++giro) {
        ASSERT_TRUE(scrivi_drawit(drawit(), righe.at(giro % 2), false));
        if (giro % 4 == 0) invecchia();
    }
    basta = true;
    lettori.clear();
    EXPECT_EQ(strani, 0);
    invecchia();
    for (int volta = 0; volta < 2; ++volta)
        uguali(apri(kConCopia, kDrawit).tabelle(), archivi[0].tabelle(), kDrawit);
}

TEST_F(CopieSuFile, IVeriDalNativoEDalJetUguali) {
    const auto* vero = prove::archivio_vero();
    if (vero == nullptr) GTEST_SKIP() << "no real draws here";
    scrivi(righe_di(vero->tabelle()));
    come_il_negozio();
    come_il_negozio();
    uguali(apri(kConCopia).tabelle(), vero->tabelle());
    const CartellaProva jet;
    for (const char* nome : {"drawit.mdb", "drawit2.mdb"})
        fs::copy_file(*prove::cartella_condivisa() / "archivio" / nome, jet.percorso() / nome);
    const auto prima = apri_archivio(jet.percorso(), kTutteLeTabelle, kConCopia);
    ASSERT_TRUE(prima) << prima.error().testo();
    uguali(prima->tabelle(), vero->tabelle());
    const auto seconda = apri_archivio(jet.percorso(), kTutteLeTabelle, kConCopia);
    ASSERT_TRUE(seconda) << seconda.error().testo();
    uguali(seconda->tabelle(), vero->tabelle());
    EXPECT_EQ(seconda->drawit().file.filename(), "drawit.mdb");
}

TEST_F(CopieSuFile, DaArchiviACasoUgualiPerOgniInsiemeDiTabelle) {
    for (std::uint32_t seme = 100; seme < 120; ++seme) {
        SCOPED_TRACE(seme);
        scrivi(seme);
        std::mt19937 caso{seme};
        for (int volta = 0; volta < 4; ++volta) come_il_negozio(1 + caso() % kTutteLeTabelle);
    }
}

}  // namespace
}  // namespace sortimetra
