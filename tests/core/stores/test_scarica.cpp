#include "draws/avanzamento.h"
#include "stores/arrivi.h"
#include "support/server_https.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cstdlib>
#include <memory>

namespace sortimetra {
namespace {

using prove::ServerHttps;
using std::chrono::milliseconds;
using testing::EndsWith;
using testing::HasSubstr;

constexpr std::string_view kRiga = "2001/06/16\tBA\t1\t2\t3\t4\t5\n";

/// One server for all tests of this file.
class Scarica : public testing::Test {
  protected:
    static void SetUpTestSuite() {
        // A proxy knows nothing of our loopback address.
        setenv("no_proxy", "*", 1);
        server_ = std::make_unique<ServerHttps>();
    }
    static void TearDownTestSuite() { server_.reset(); }
    void SetUp() override { ASSERT_TRUE(server_->avviato()) << "python3 or openssl is missing"; }

    [[nodiscard]] static ModoScarico modo(milliseconds tempo = milliseconds{60'000}) {
        return {.tempo = tempo, .autorita = server_->autorita()};
    }
    static std::string errore(const std::string& certificato, const std::string& percorso,
                              const ModoScarico& come) {
        SenzaAvanzamento nessuno;
        const auto esito = scarica_arrivo(server_->indirizzo(certificato, percorso), nessuno, come);
        if (esito) return "nessun errore";
        EXPECT_EQ(esito.error().file, server_->indirizzo(certificato, percorso));
        return esito.error().motivo;
    }
    static std::string errore(const std::string& certificato, const std::string& percorso) {
        return errore(certificato, percorso, modo());
    }

    static std::unique_ptr<ServerHttps> server_;
};
std::unique_ptr<ServerHttps> Scarica::server_;

TEST_F(Scarica, Giusto) {
    SenzaAvanzamento nessuno;
    const auto a = scarica_arrivo(server_->indirizzo("giusto", "lotto"), nessuno, modo());
    ASSERT_TRUE(a) << a.error().testo();
    EXPECT_EQ(a->byte, kRiga);
    EXPECT_EQ(a->nome, server_->indirizzo("giusto", "lotto"));
    const auto lette = leggi_arrivi(std::span{&*a, 1}, nessuno);
    ASSERT_TRUE(lette);
    EXPECT_EQ(lette->testi[0].estrazioni, 1U);
}

TEST_F(Scarica, IlCertificato) {
    const std::string non_valido = "il certificato del server non è valido";
    EXPECT_THAT(errore("altrui", "lotto"), HasSubstr(non_valido)) << "another authority";
    EXPECT_THAT(errore("nome", "lotto"), HasSubstr(non_valido)) << "another host's";
    EXPECT_THAT(errore("scaduto", "lotto"), HasSubstr(non_valido));
    EXPECT_THAT(errore("giusto", "lotto", {}), HasSubstr(non_valido)) << "the system does not know ours";
}

TEST_F(Scarica, IRinvii) {
    SenzaAvanzamento nessuno;
    const auto a = scarica_arrivo(server_->indirizzo("giusto", "rinvio"), nessuno, modo());
    ASSERT_TRUE(a) << a.error().testo();
    EXPECT_EQ(a->byte, kRiga) << "within HTTPS";
    EXPECT_THAT(errore("giusto", "in_chiaro"), HasSubstr("rinvia a un indirizzo che non è https"));
    EXPECT_THAT(errore("giusto", "al_disco"), HasSubstr("rinvia a un indirizzo che non è https"));
    EXPECT_EQ(errore("giusto", "giostra"), "il server rinvia più di 5 volte");
}

TEST_F(Scarica, QuelloCheNonArrivaIntero) {
    EXPECT_EQ(errore("giusto", "tagliato"), "la trasmissione si è interrotta a metà");
    EXPECT_EQ(errore("giusto", "manca"), "il server risponde con l'errore 404: quel file non c'è");
    EXPECT_EQ(errore("giusto", "lento", modo(milliseconds{400})), "non è arrivato entro 1 secondi");
    EXPECT_EQ(errore("giusto", "muto", modo(milliseconds{400})), "non è arrivato entro 1 secondi");
}

TEST_F(Scarica, QuelloCheETroppo) {
    EXPECT_EQ(errore("giusto", "enorme"), "è troppo grande: al massimo 50 MB") << "as it announces itself";
    ModoScarico poco = modo();
    poco.massimo = std::size_t{1} << 20U;
    EXPECT_EQ(errore("giusto", "senza_fine", poco), "è troppo grande: al massimo 1 MB");
}

TEST_F(Scarica, NessunoRisponde) {
    // A port that was free a moment ago.
    const int presa = socket(AF_INET, SOCK_STREAM, 0);
    sockaddr_in dove{};
    dove.sin_family = AF_INET;
    dove.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    ASSERT_EQ(bind(presa, reinterpret_cast<sockaddr*>(&dove), sizeof dove), 0);
    socklen_t lunga = sizeof dove;
    ASSERT_EQ(getsockname(presa, reinterpret_cast<sockaddr*>(&dove), &lunga), 0);
    const std::string indirizzo = "https://127.0.0.1:" + std::to_string(ntohs(dove.sin_port)) + "/lotto";
    SenzaAvanzamento nessuno;
    // Bound, but nobody listens: refused.
    const auto a = scarica_arrivo(indirizzo, nessuno, modo());
    close(presa);
    ASSERT_FALSE(a);
    EXPECT_EQ(a.error().motivo, "il server non risponde");
}

TEST_F(Scarica, SoloHttps) {
    SenzaAvanzamento nessuno;
    for (const char* indirizzo :
         {"http://localhost/lotto", "file:///etc/hostname", "ftp://localhost/", "", "lotto"})
        EXPECT_EQ(scarica_arrivo(indirizzo, nessuno).error().motivo,
                  "si scarica soltanto da indirizzi che cominciano con https://")
            << indirizzo;
    EXPECT_FALSE(scarica_arrivo("https://", nessuno));
    EXPECT_FALSE(scarica_arrivo("https:// /", nessuno));
}

/// Counts what it is told, and stops after so many bytes.
class Fermo final : public Avanzamento {
  public:
    explicit Fermo(std::size_t fino) : fino_{fino} {}
    bool procedi(std::size_t fatto, std::size_t totale) override {
        EXPECT_LE(fatto, totale);
        massimo_ = std::max(massimo_, fatto);
        return fatto < fino_;
    }
    [[nodiscard]] std::size_t massimo() const { return massimo_; }

  private:
    std::size_t fino_;
    std::size_t massimo_ = 0;
};

TEST_F(Scarica, SiAnnulla) {
    Fermo fermo{1000};
    const auto a = scarica_arrivo(server_->indirizzo("giusto", "lento"), fermo, modo());
    ASSERT_FALSE(a);
    EXPECT_EQ(a.error().motivo, kAnnullata);
    EXPECT_GE(fermo.massimo(), 1000U);
}

}  // namespace
}  // namespace sortimetra
