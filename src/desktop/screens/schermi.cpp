#include "screens/schermi.h"

#include "catalogue/nomi.h"

#include <algorithm>

namespace sortimetra {

namespace {

struct PostoRicerca {
    NomeRicerca nome;
    Schermo schermo;
    std::string_view tag;  ///< "" for the key
    int pulsante_1 = 1;    ///< the column that sort button 1 sorts
};

/// The searches that have another screen than `Form_stat`, or anything else of their own.
constexpr PostoRicerca kRighe[] = {
    {nomi::kTuttiGliAmbi, Schermo::stat, {}, 0},
    {nomi::kAmbataCapogioco, Schermo::stat, {}, 0},
    {nomi::kAmboCapogioco, Schermo::stat, {}, 0},
    {nomi::kUltimi, Schermo::ultimi, {}},
    {nomi::kFiltri, Schermo::filtri, {}},
    {nomi::kSistemiRealizzati, Schermo::filtri, {}},
    {nomi::kPosizione, Schermo::posizione, "lotto"},
    {nomi::kTabellone, Schermo::tab_pos, "tabpos"},
    {nomi::kDieciNumeri, Schermo::tab_pos, "10num"},
    {nomi::kSegnalimiteCabalistici, Schermo::segnalimite, {}},
    {nomi::kSpia, Schermo::spia, {}},
    {nomi::kPersonali, Schermo::personali, "lotto"},
    {nomi::kGruppi, Schermo::gruppi2, {}},
    {nomi::kCiclometria, Schermo::som_dis_ciclo, {}},
    {nomi::kLunghette, Schermo::lunghette, {}},
    {nomi::kPiramide, Schermo::piramide, {}},
    {nomi::kTabellonePrimiEstratti, Schermo::tab_pos, "tabpos_s"},
    {nomi::kTabelloneSestina, Schermo::tab_pos, "tabpos_s6"},
    {nomi::kPosizioneSuperEnalotto, Schermo::posizione, "superenalotto"},
    {nomi::kPersonaliSuperEnalotto, Schermo::personali, "superenalotto"},
    {nomi::kScommesse, Schermo::scommesse, {}},
    {nomi::kMiglioriRitardi, Schermo::tab_pos2, "10num"},
    {nomi::kTabellone10eLotto, Schermo::tab_pos, "tabpos_10"},
    {nomi::kPosizione10eLotto, Schermo::posizione, "10 e lotto"},
    {nomi::kPersonali10eLotto, Schermo::personali, "10 e lotto"},
    {nomi::kLunghette10eLotto, Schermo::lunghette10, {}},
    {nomi::kTabelloneWinForLife, Schermo::tab_pos_wfl, "tabpos_10"},
    {nomi::kPosizioneWinForLife, Schermo::posizione, "Win for Life"},
    {nomi::kPersonaliWinForLife, Schermo::personali, "Win for Life"},
    {nomi::kLunghetteWinForLife, Schermo::lunghette_wfl, {}},
    {nomi::kLunghetteScomposte, Schermo::lunghette5, {}},
};

const PostoRicerca* riga_di(const Ricerca& ricerca) {
    const auto* riga = std::find_if(std::begin(kRighe), std::end(kRighe),
                                    [&](const PostoRicerca& r) { return r.nome.chiave == ricerca.chiave(); });
    return riga == std::end(kRighe) ? nullptr : riga;
}

}  // namespace

Schermo schermo_di(const Ricerca& ricerca) {
    if (ricerca.dove == Dove::solo_comandi) return Schermo::nessuno;
    const PostoRicerca* riga = riga_di(ricerca);
    return riga == nullptr ? Schermo::stat : riga->schermo;
}

int colonna_del_pulsante_1(const Ricerca& ricerca) {
    const PostoRicerca* riga = riga_di(ricerca);
    return riga == nullptr ? 1 : riga->pulsante_1;
}

const char* capitolo_di(const Ricerca& ricerca) {
    switch (schermo_di(ricerca)) {
        case Schermo::stat:
            return ricerca.famiglia != nullptr ? "serie-speciali" : "numeri-ambi-e-terni";
        case Schermo::posizione:
        case Schermo::tab_pos:
        case Schermo::tab_pos_wfl:
        case Schermo::tab_pos2:
            return "posizioni-e-tabelloni";
        case Schermo::segnalimite:
        case Schermo::spia:
        case Schermo::som_dis_ciclo:
            return "spia-e-ciclometria";
        case Schermo::lunghette:
        case Schermo::lunghette10:
        case Schermo::lunghette_wfl:
        case Schermo::lunghette5:
            return "lunghette";
        case Schermo::personali:
            return "numeri-personali";
        case Schermo::gruppi2:
            return "gruppi";
        case Schermo::piramide:
            return "piramide";
        case Schermo::filtri:
        case Schermo::ultimi:
            return "sistemi";
        case Schermo::scommesse:
            return "scommesse";
        case Schermo::nessuno:
            break;
    }
    return "le-ricerche";
}

std::string_view tag_di(const Ricerca& ricerca) {
    const PostoRicerca* riga = riga_di(ricerca);
    return riga == nullptr || riga->tag.empty() ? ricerca.chiave() : riga->tag;
}

}  // namespace sortimetra
