#include "files/file_sicuro.h"
#include "stores/apertura.h"
#include "stores/cambio.h"
#include "stores/importa.h"
#include "stores/negozio_nativo.h"
#include "support/archivi.h"
#include "support/passi.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <atomic>
#include <functional>
#include <set>
#include <thread>

namespace sortimetra {
namespace {

namespace fs = std::filesystem;
using prove::CartellaProva;
using testing::ElementsAre;
using testing::HasSubstr;

/// Both tables tell whose they are: all numbers are shifted by `segno`, and there are so many draws more.
RigheArchivio righe(int segno) {
    RigheArchivio r;
    const auto numero = [&](int n) { return static_cast<Numero>(n + segno); };
    for (int c = 1; c <= 2 + segno; ++c) {
        const Data data = leggi_data_italiana("01/01/2000").value() + std::chrono::days{3 * c};
        r.lotto.push_back({c, data, 0, {numero(1), numero(2), numero(3), numero(4), numero(5)}});
        r.nazionale.push_back({c, data, kNazionale, {numero(1), 60, 61, 62, 63}});
        r.superenalotto.push_back({c, data, {numero(1), 20, 30, 40, 50, 60}, 70, 80});
        r.winforlife.push_back({c, data, "08:00", {numero(1), 11, 12, 13, 14, 15, 16, 17, 18, 19}});
    }
    return r;
}

/// The sign of an archive by its two files: "12" for drawit of sign 1 and drawit2 of sign 2, "-" where there
/// is none.
std::string segni(const fs::path& cartella) {
    if (!contiene_archivio(cartella)) return "--";
    const auto a = apri_archivio(cartella);
    if (!a) return a.error().testo();
    const auto segno = [](std::size_t righe) { return righe == 0 ? "-" : std::to_string(righe - 2); };
    EXPECT_EQ(a->superenalotto().concorso.size(), a->nazionale().concorso.size());
    return segno(a->nazionale().concorso.size()) + segno(a->winforlife().concorso.size());
}

std::expected<void, ErroreArchivio> scrivi(const fs::path& cartella, int segno,
                                           Destino drawit = Destino::Nuovo,
                                           Destino drawit2 = Destino::Nuovo) {
    SenzaAvanzamento nessuno;
    auto cambio = CambioArchivio::apri(cartella, nessuno);
    if (!cambio) return std::unexpected(cambio.error());
    return cambio->scrivi({.righe = righe(segno), .drawit = drawit, .drawit2 = drawit2}, nessuno);
}

std::expected<void, ErroreArchivio> annulla(const fs::path& cartella) {
    SenzaAvanzamento nessuno;
    return annulla_importazione(cartella, nessuno);
}

std::set<std::string> nomi(const fs::path& cartella) {
    std::set<std::string> tutti;
    for (const auto& voce : fs::directory_iterator{cartella}) tutti.insert(voce.path().filename());
    return tutti;
}

TEST(Cambio, QuelCheCEraResta) {
    const CartellaProva cartella;
    const auto dove = cartella.percorso() / "archivio";
    ASSERT_TRUE(scrivi(dove, 1));
    EXPECT_EQ(segni(dove), "11");
    EXPECT_THAT(nomi(dove), ElementsAre("drawit.db", "drawit.db.prec", "drawit2.db", "drawit2.db.prec"));
    EXPECT_TRUE(fs::is_empty(dove / "drawit.db.prec")) << "there was none";
    const auto primo = leggi_file(dove / "drawit.db").value();
    ASSERT_TRUE(scrivi(dove, 2));
    EXPECT_EQ(segni(dove), "22");
    EXPECT_EQ(leggi_file(dove / "drawit.db.prec").value(), primo);
    // Only one of them: the other is no part of what can be undone.
    ASSERT_TRUE(scrivi(dove, 3, Destino::Resta));
    EXPECT_EQ(segni(dove), "23");
    EXPECT_THAT(nomi(dove), ElementsAre("drawit.db", "drawit2.db", "drawit2.db.prec"));
    ASSERT_TRUE(annulla(dove));
    EXPECT_EQ(segni(dove), "22");
    // Undone twice: the change is back.
    ASSERT_TRUE(annulla(dove));
    EXPECT_EQ(segni(dove), "23");
    ASSERT_TRUE(scrivi(dove, 4, Destino::Tolto, Destino::Nuovo));
    EXPECT_EQ(segni(dove), "-4");
    ASSERT_TRUE(annulla(dove));
    EXPECT_EQ(segni(dove), "23");
}

TEST(Cambio, AnnullareCioCheNonCEra) {
    const CartellaProva cartella;
    const auto dove = cartella.percorso() / "archivio";
    const auto mancano = annulla(dove);
    ASSERT_FALSE(mancano);
    EXPECT_THAT(mancano.error().motivo, HasSubstr("non c'è un'importazione da annullare"));
    EXPECT_FALSE(fs::exists(dove)) << "the folder that was made for it goes again";
    ASSERT_TRUE(scrivi(dove, 1));
    ASSERT_TRUE(annulla(dove));
    EXPECT_EQ(segni(dove), "--");
    EXPECT_THAT(nomi(dove), ElementsAre("drawit.db.prec", "drawit2.db.prec"));
    ASSERT_TRUE(annulla(dove));
    EXPECT_EQ(segni(dove), "11");
    // What was kept is damaged: it does not take the place of what is sound.
    ASSERT_TRUE(scrivi(dove, 2));
    ASSERT_TRUE(scrivi_file(dove / "drawit.db.prec", "rotto"));
    const auto rotto = annulla(dove);
    ASSERT_FALSE(rotto);
    EXPECT_EQ(rotto.error().file, dove / "drawit.db.prec");
    EXPECT_EQ(segni(dove), "22");
}

/// What a change begins with, what it is, and what it makes of "--" or "11".
struct Caso {
    const char* nome;
    int prima;  ///< the sign of both files, 0 for no archive
    std::function<std::expected<void, ErroreArchivio>(const fs::path&)> cambia;
    std::string dopo;
};
std::vector<Caso> casi() {
    return {{"both anew", 1, [](const fs::path& d) { return scrivi(d, 2); }, "22"},
            {"both from nothing", 0, [](const fs::path& d) { return scrivi(d, 2); }, "22"},
            {"one anew, one gone", 1,
             [](const fs::path& d) { return scrivi(d, 2, Destino::Nuovo, Destino::Tolto); }, "2-"},
            {"the other way", 1,
             [](const fs::path& d) { return scrivi(d, 2, Destino::Tolto, Destino::Nuovo); }, "-2"}};
}

/// Reads as one who may read everything and change nothing.
std::string segni_in_sola_lettura(const fs::path& cartella) {
    const prove::DiscoGuasto disco{1, 1'000'000};
    return segni(cartella);
}

TEST(Cambio, UccisoPrimaDiOgniPassoETuttoONulla) {
    for (const Caso& caso : casi()) {
        SCOPED_TRACE(caso.nome);
        const std::string prima =
            caso.prima == 0 ? "--" : std::string(2, static_cast<char>('0' + caso.prima));
        int vecchi = 0;
        int nuovi = 0;
        for (int n = 1;; ++n) {
            SCOPED_TRACE(n);
            const CartellaProva cartella;
            const auto dove = cartella.percorso() / "archivio";
            if (caso.prima != 0) {
                ASSERT_TRUE(scrivi(dove, caso.prima));
            }
            const bool finito = prove::fino_al_passo(n, [&] { (void)caso.cambia(dove); });
            // Nobody is ever wrong in between, not even one who cannot finish it.
            const std::string senza_toccare = segni_in_sola_lettura(dove);
            EXPECT_THAT(senza_toccare, testing::AnyOf(prima, caso.dopo));
            EXPECT_EQ(segni(dove), senza_toccare);
            ++(senza_toccare == prima ? vecchi : nuovi);
            if (finito) {
                EXPECT_EQ(senza_toccare, caso.dopo);
            }
            // The next one starts on clean ground, and what was kept is what stood there.
            if (senza_toccare == caso.dopo) {
                ASSERT_TRUE(annulla(dove));
                EXPECT_EQ(segni(dove), prima);
            }
            ASSERT_TRUE(scrivi(dove, 5));
            EXPECT_EQ(segni(dove), "55");
            EXPECT_THAT(nomi(dove),
                        ElementsAre("drawit.db", "drawit.db.prec", "drawit2.db", "drawit2.db.prec"));
            if (finito) break;
        }
        EXPECT_GT(vecchi, 3);
        EXPECT_GT(nuovi, 3);
    }
}

TEST(Cambio, OgniPassoCheNonRiesceLasciaTuttoComEraODaTutto) {
    for (const Caso& caso : casi()) {
        SCOPED_TRACE(caso.nome);
        const std::string prima =
            caso.prima == 0 ? "--" : std::string(2, static_cast<char>('0' + caso.prima));
        int rifiuti = 0;
        for (int n = 1;; ++n) {
            SCOPED_TRACE(n);
            const CartellaProva cartella;
            const auto dove = cartella.percorso() / "archivio";
            if (caso.prima != 0) {
                ASSERT_TRUE(scrivi(dove, caso.prima));
            }
            std::expected<void, ErroreArchivio> esito;
            bool toccato = false;
            {
                const prove::DiscoGuasto guasto{n};
                esito = caso.cambia(dove);
                toccato = prove::DiscoGuasto::toccato();
            }
            EXPECT_EQ(segni(dove), esito ? caso.dopo : prima);
            if (!esito) ++rifiuti;
            ASSERT_TRUE(scrivi(dove, 5));
            EXPECT_THAT(nomi(dove),
                        ElementsAre("drawit.db", "drawit.db.prec", "drawit2.db", "drawit2.db.prec"));
            if (!toccato) break;
        }
        EXPECT_GT(rifiuti, 3);
    }
}

TEST(Cambio, LAnnullamentoUccisoETuttoONulla) {
    for (int n = 1;; ++n) {
        SCOPED_TRACE(n);
        const CartellaProva cartella;
        ASSERT_TRUE(scrivi(cartella.percorso(), 1));
        ASSERT_TRUE(scrivi(cartella.percorso(), 2));
        const bool finito = prove::fino_al_passo(n, [&] { (void)annulla(cartella.percorso()); });
        const std::string ora = segni_in_sola_lettura(cartella.percorso());
        EXPECT_THAT(ora, testing::AnyOf("11", "22"));
        EXPECT_EQ(segni(cartella.percorso()), ora);
        ASSERT_TRUE(annulla(cartella.percorso()));
        EXPECT_EQ(segni(cartella.percorso()), ora == "11" ? "22" : "11") << "nothing is lost";
        if (finito) break;
    }
}

TEST(Cambio, QuelCheSiRileggeDiversoNonEntra) {
    const CartellaProva cartella;
    ASSERT_TRUE(scrivi(cartella.percorso(), 1));
    // A disk that takes bytes and gives others back: the last page is empty when the file is looked at again.
    guarda_passi([](PassoDisco passo, const fs::path& file) {
        if (passo == PassoDisco::Fissa && file.extension() == ".tmp" && fs::file_size(file) > 4096) {
            const auto lunga = fs::file_size(file);
            fs::resize_file(file, lunga - 4096);
            fs::resize_file(file, lunga);
        }
        return 0;
    });
    const auto esito = scrivi(cartella.percorso(), 2);
    guarda_passi(nullptr);
    ASSERT_FALSE(esito);
    EXPECT_THAT(esito.error().motivo, HasSubstr("quel che è stato scritto"));
    EXPECT_EQ(segni(cartella.percorso()), "11");
    EXPECT_THAT(nomi(cartella.percorso()),
                ElementsAre("drawit.db", "drawit.db.prec", "drawit2.db", "drawit2.db.prec"));
}

/// Says stop the first time that somebody waits.
class Impaziente final : public Avanzamento {
  public:
    bool procedi(std::size_t, std::size_t) override { return false; }
};

TEST(Cambio, UnoAllaVolta) {
    const CartellaProva cartella;
    SenzaAvanzamento nessuno;
    auto primo = CambioArchivio::apri(cartella.percorso(), nessuno);
    ASSERT_TRUE(primo);
    Impaziente impaziente;
    const auto secondo = CambioArchivio::apri(cartella.percorso(), impaziente);
    ASSERT_FALSE(secondo);
    EXPECT_EQ(secondo.error().motivo, kAnnullata);
    const auto terzo = CambioArchivio::apri(cartella.percorso(), nessuno, std::chrono::milliseconds{20});
    ASSERT_FALSE(terzo);
    EXPECT_THAT(terzo.error().motivo, HasSubstr("un altro programma sta cambiando l'archivio"));
    // Who only reads is not held up.
    ASSERT_TRUE(
        primo->scrivi({.righe = righe(1), .drawit = Destino::Nuovo, .drawit2 = Destino::Nuovo}, nessuno));
    EXPECT_EQ(segni(cartella.percorso()), "11");
}

TEST(Cambio, ChiLeggeMentreSiCambiaVedeUnArchivioSolo) {
    const CartellaProva cartella;
    ASSERT_TRUE(scrivi(cartella.percorso(), 1));
    std::atomic<bool> finito{false};
    std::jthread scrittore{[&] {
        for (int i = 0; i < 40; ++i) EXPECT_TRUE(scrivi(cartella.percorso(), 1 + i % 3));
        finito = true;
    }};
    int letture = 0;
    for (; !finito || letture < 10; ++letture)
        ASSERT_THAT(segni(cartella.percorso()), testing::AnyOf("11", "22", "33"));
}

TEST(Cambio, UnMdbConUnaDataPiuRecente) {
    const CartellaProva cartella;
    const auto mdb = cartella.percorso() / "DrawIt.mdb";
    ASSERT_TRUE(scrivi_file(mdb, "x"));
    ASSERT_TRUE(scrivi(cartella.percorso(), 1));
    const NuovoArchivio nuovo{.drawit = Destino::Nuovo, .drawit2 = Destino::Nuovo};
    fs::last_write_time(mdb, fs::last_write_time(mdb) - std::chrono::hours{1});
    EXPECT_THAT(nascosti_da_jet(cartella.percorso(), nuovo), testing::IsEmpty());
    fs::last_write_time(mdb, fs::last_write_time(mdb) + std::chrono::hours{48});
    const auto frasi = nascosti_da_jet(cartella.percorso(), nuovo);
    ASSERT_EQ(frasi.size(), 1U);
    EXPECT_THAT(frasi[0], HasSubstr("DrawIt.mdb porta una data più recente di drawit.db"));
    EXPECT_THAT(frasi[0], HasSubstr("togliere DrawIt.mdb"));
}

TEST(Cambio, LeggeCioCheLeggeUnaRicerca) {
    const CartellaProva cartella;
    SenzaAvanzamento nessuno;
    auto cambio = CambioArchivio::apri(cartella.percorso(), nessuno);
    ASSERT_TRUE(cambio);
    EXPECT_TRUE(cambio->leggi(kTutteLeTabelle).drawit.file.empty());
    ASSERT_TRUE(scrivi_drawit(cartella.percorso() / "drawit.db", righe(2), true));
    ASSERT_TRUE(scrivi_file(cartella.percorso() / "drawit2.db", "rotto"));
    const auto letto = cambio->leggi(kTutteLeTabelle);
    EXPECT_TRUE(letto.drawit.simulato);
    EXPECT_EQ(letto.righe.lotto.size(), 4U);
    ASSERT_TRUE(letto.illeggibile);
    EXPECT_EQ(letto.illeggibile->file, cartella.percorso() / "drawit2.db");
    EXPECT_FALSE(cambio->leggi(kTabellaLotto).illeggibile);
}

}  // namespace
}  // namespace sortimetra
