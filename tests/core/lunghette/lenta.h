#pragma once

#include "draws/ambito.h"
#include "draws/archivio.h"
#include "lunghette/lunghetta.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace sortimetra::prove {

/// A second, slow and plain implementation of the lunghette: every stage walks every row for every candidate
/// and compares texts, the state is what the screen shows.
class LentaLunghetta {
  public:
    struct Riga {
        Concorso concorso{};
        std::vector<int> numeri;  ///< 0 for none
    };

    /// The Lotto on the wheels of the scope.
    static LentaLunghetta lotto(const ArchivioEstrazioni& archivio, const AmbitoRicerca& ambito);
    /// The games by points: one row a draw.
    static LentaLunghetta punti(Gioco gioco, const ArchivioEstrazioni& archivio, AmbitoRicerca ambito);

    [[nodiscard]] bool vuota() const { return righe.empty(); }
    /// The searches of the Lotto; false where nothing is to be done.
    bool cerca_lotto(int ricerca, int opzione, int lunghezza, const std::vector<int>& caselle);
    /// The searches by points.
    struct DomandaPunti {
        int ricerca = 0;
        int opzione = 0;
        int lunghezza = 5;
        std::vector<int> caselle{};
        bool posizione = false;
        bool frequente = false;
    };
    bool cerca_punti(DomandaPunti d);
    /// Makes what stands longer.
    void ric_lunga(char tipo, int k, int lunghezza);

    std::array<std::string, 20> lblnum{};
    std::string lblRit_freq{};
    std::array<std::string, 3> lbloption{};
    int lunga = 0;

  private:
    void svuota();
    [[nodiscard]] int numero(std::size_t casella) const;
    void Ric_ambata(char tipo);
    void ric_ambata_capogioco(char tipo);
    void ric_ambi_lotto(char tipo);
    void ric_ambo_capogioco(char tipo, int k);
    void ric_terni_lotto(char tipo);
    void ricerca_automatica(int lunghezza);
    bool personali(char tipo, int k, int lunghezza, const std::vector<int>& n);
    void CalcolaRitardo(int n, int p);
    void CalcolaFrequenza(int n, int p);
    void CercaNumeriRitardo(int quanti);
    void Pos(bool ritardo, int lunghezza);
    void CercaNumeriFrequenti(int quanti);
    void Cercalunghetta10();
    /// Rows from a concorso back, the newest first.
    [[nodiscard]] std::vector<Riga> indietro(Concorso da, std::size_t quante) const;
    template <class Fai>
    void per_ogni_riga(Fai&& fai) const;
    [[nodiscard]] std::string testo(const Riga& riga) const;

    std::vector<Riga> righe;
    std::vector<Riga> senza_calendario;  ///< by points: the range without the calendar (with the hour)
    std::vector<Riga> tutte;             ///< by points: the whole table
    int massimo = 90;
    int t = 0;
    int w = 1;
    bool a_punti = false;
    bool wfl = false;
    TrattoConcorsi tratto{};
};

}  // namespace sortimetra::prove
