#include "screens/modello_risultato.h"

#include "qt_testi.h"
#include "results/parole.h"
#include "results/risultato.h"
#include "screens/calore.h"
#include "screens/tema.h"
#include "text/testi.h"

#include <QBrush>
#include <algorithm>
#include <utility>

namespace sortimetra {

namespace {

/// The yellow of a hit, as searches write it.
constexpr Colore kGialloTrovato = 65535;
/// Characters from which a cell may be cut short on the screen.
constexpr qsizetype kTestoLungo = 48;

QString qtesto(std::string_view testo) {
    return testo_qt(rifila(testo));
}

/// A light ground of a search on a dark skin: its hue, as dark as the skin's own grounds. Others as they are.
QRgb smorzato(QRgb fondo) {
    constexpr float kChiaro = 0.8F;
    float tinta = 0;
    float saturazione = 0;
    float luce = 0;
    const Skin& s = skin_in_uso();
    QColor::fromRgb(fondo).getHslF(&tinta, &saturazione, &luce);
    if (!s.scura || luce < kChiaro || fondo == s.trovato) return fondo;
    const float buio = QColor::fromRgb(s.rilievo).lightnessF();
    return QColor::fromHslF(std::max(tinta, 0.0F), saturazione * 0.25F, buio).rgb();
}

}  // namespace

void ModelloRisultato::mostra(std::shared_ptr<const Tabella> tabella) {
    beginResetModel();
    tabella_ = std::move(tabella);
    ordine_.clear();
    filtrato_ = false;
    numerica_.clear();
    if (tabella_)
        for (const Colonna& c : tabella_->colonne) numerica_.push_back(e_numerica(c));
    prima_aggiunta_ = -1;
    calore_ = false;
    trova_misure();
    endResetModel();
}

void ModelloRisultato::svuota() {
    if (!tabella_ || tabella_->righe() == 0) return;
    filtra({});
    auto vuota = std::make_shared<Tabella>();
    vuota->nome = tabella_->nome;
    vuota->titoli = tabella_->titoli;
    vuota->colonne.resize(tabella_->n_colonne());
    // The kind of a column outlives its rows, so that the titles do not jump from right to left.
    const std::vector<bool> numerica = numerica_;
    beginRemoveRows({}, 0, rowCount() - 1);
    tabella_ = std::move(vuota);
    ordine_.clear();
    numerica_ = numerica;
    endRemoveRows();
}

void ModelloRisultato::ordina_per(int colonna, Verso verso) {
    if (!tabella_ || colonna < 0 || colonna >= columnCount() || rowCount() == 0) return;
    emit layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    const QModelIndexList vecchi = persistentIndexList();
    std::vector<std::size_t> originali;
    originali.reserve(static_cast<std::size_t>(vecchi.size()));
    for (const QModelIndex& i : vecchi) originali.push_back(riga_originale(i.row()));

    std::vector<std::uint32_t> ordine = ordina(*tabella_, static_cast<std::size_t>(colonna), verso);
    if (filtrato_) {
        std::vector<bool> in_mostra(ordine.size());
        for (const std::uint32_t r : ordine_) in_mostra[r] = true;
        std::erase_if(ordine, [&](std::uint32_t r) { return !in_mostra[r]; });
    }
    ordine_ = std::move(ordine);

    if (!vecchi.isEmpty()) {
        std::vector<int> posto(tabella_->righe());
        for (std::size_t i = 0; i < ordine_.size(); ++i) posto[ordine_[i]] = static_cast<int>(i);
        QModelIndexList nuovi;
        nuovi.reserve(vecchi.size());
        for (qsizetype i = 0; i < vecchi.size(); ++i)
            nuovi.append(index(posto[originali[static_cast<std::size_t>(i)]], vecchi[i].column()));
        changePersistentIndexList(vecchi, nuovi);
    }
    emit layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void ModelloRisultato::filtra(const std::optional<std::vector<std::uint32_t>>& righe) {
    if (!tabella_ || (!righe && !filtrato_)) return;
    beginResetModel();
    filtrato_ = righe.has_value();
    ordine_ = righe.value_or(std::vector<std::uint32_t>{});
    endResetModel();
}

std::size_t ModelloRisultato::riga_originale(int riga) const {
    const auto r = static_cast<std::size_t>(riga);
    return ordine_.empty() ? r : ordine_[r];
}

QString ModelloRisultato::testo(int riga, int colonna) const {
    return qtesto(tabella_->testo(riga_originale(riga), static_cast<std::size_t>(colonna)));
}

bool ModelloRisultato::numerica(int colonna) const {
    const auto c = static_cast<std::size_t>(colonna);
    return c < numerica_.size() && numerica_[c];
}

QString ModelloRisultato::testo_piu_largo(int colonna) const {
    if (!tabella_ || tabella_->righe() == 0) return {};
    const auto c = static_cast<std::size_t>(colonna);
    const Colonna& dati = tabella_->colonne[c];
    std::size_t scelta = 0;
    if (const auto* interi = std::get_if<ColonnaInteri>(&dati)) {
        // The two ends of the range are the candidates: the longest number or the longest negative one.
        const auto [minimo, massimo] = std::minmax_element(interi->valori.begin(), interi->valori.end());
        const auto riga = [&](auto it) { return static_cast<std::size_t>(it - interi->valori.begin()); };
        const QString a = qtesto(tabella_->testo(riga(minimo), c));
        const QString b = qtesto(tabella_->testo(riga(massimo), c));
        return a.size() > b.size() ? a : b;
    }
    if (const auto* testi = std::get_if<ColonnaTesti>(&dati)) {
        for (std::size_t r = 1; r < testi->valori.size(); ++r)
            if (testi->valori[r].size() > testi->valori[scelta].size()) scelta = r;
    }
    if (const auto* voci = std::get_if<ColonnaVoci>(&dati)) {
        const auto lungo = std::max_element(voci->voci.begin(), voci->voci.end(),
                                            [](const auto& a, const auto& b) { return a.size() < b.size(); });
        return lungo == voci->voci.end() ? QString{} : qtesto(*lungo);
    }
    return qtesto(tabella_->testo(scelta, c));
}

int ModelloRisultato::rowCount(const QModelIndex& padre) const {
    if (padre.isValid() || !tabella_) return 0;
    return static_cast<int>(filtrato_ ? ordine_.size() : tabella_->righe());
}

int ModelloRisultato::columnCount(const QModelIndex& padre) const {
    return padre.isValid() || !tabella_ ? 0 : static_cast<int>(tabella_->n_colonne());
}

QRgb ModelloRisultato::fondo(int riga, int colonna) const {
    const Colore colore = tabella_->sfondo(riga_originale(riga), static_cast<std::size_t>(colonna));
    if (colore != kNessunColore) return smorzato(colore_schermo(colore));
    if (calore_ && colonna > 0) {
        const auto v = intero_della_cella(*tabella_, riga_originale(riga), static_cast<std::size_t>(colonna));
        if (v && *v > 0 && massimo_ > 0) return calore(static_cast<double>(*v) / massimo_);
    }
    return riga % 2 == 0 ? skin_in_uso().tinta_a : skin_in_uso().tinta_b;
}

QVariant ModelloRisultato::data(const QModelIndex& indice, int ruolo) const {
    if (!indice.isValid() || !tabella_) return {};
    switch (ruolo) {
        case Qt::DisplayRole:
            return testo(indice.row(), indice.column());
        case Qt::TextAlignmentRole: {
            const Qt::AlignmentFlag lato = numerica(indice.column()) ? Qt::AlignRight : Qt::AlignLeft;
            return QVariant::fromValue(Qt::Alignment{lato | Qt::AlignVCenter});
        }
        case Qt::BackgroundRole:
            return QBrush{QColor::fromRgb(fondo(indice.row(), indice.column()))};
        case Qt::ForegroundRole: {
            const auto riga = riga_originale(indice.row());
            const auto colonna = static_cast<std::size_t>(indice.column());
            const Colore dato = tabella_->primo_piano(riga, colonna);
            const QRgb sotto = fondo(indice.row(), indice.column());
            if (dato != kNessunColore) return QBrush{QColor::fromRgb(leggibile(colore_schermo(dato), sotto))};
            // On a ground that the search chose, the skin's own colour or, where it would be weak, the
            // strongest.
            const bool aggiunta = prima_aggiunta_ >= 0 && indice.column() >= prima_aggiunta_;
            const QRgb proprio = aggiunta ? skin_in_uso().testo_quieto : skin_in_uso().testo;
            return QBrush{QColor::fromRgb(contrasto(proprio, sotto) >= 4.5 ? proprio : testo_su(sotto))};
        }
        case Qt::ToolTipRole:
        case Qt::AccessibleDescriptionRole:
            return suggerimento(indice.row(), indice.column());
        case kRuoloSegno:
            return ritardo_ == static_cast<std::size_t>(indice.column()) &&
                   oltre_lo_storico(riga_originale(indice.row()));
        default:
            return {};
    }
}

QVariant ModelloRisultato::suggerimento(int riga, int colonna) const {
    const std::size_t r = riga_originale(riga);
    if (ritardo_ == static_cast<std::size_t>(colonna) && oltre_lo_storico(r))
        return tr("Manca da %1 concorsi: più del suo ritardo storico, %2. Se uscisse ora il record sarebbe "
                  "questo.")
            .arg(testo(riga, colonna), testo(riga, static_cast<int>(*storico_)));
    // A text too long for any column.
    const QString t = testo(riga, colonna);
    return t.size() > kTestoLungo ? QVariant{t} : QVariant{};
}

/// Where there is no closed delay yet there is none to be above of.
bool ModelloRisultato::oltre_lo_storico(std::size_t riga) const {
    if (!ritardo_ || !storico_) return false;
    const auto ritardo = intero_della_cella(*tabella_, riga, *ritardo_);
    const auto storico = intero_della_cella(*tabella_, riga, *storico_);
    if (!ritardo || !storico || *ritardo <= *storico) return false;
    const auto frequenza = frequenza_ ? intero_della_cella(*tabella_, riga, *frequenza_) : std::nullopt;
    return frequenza ? *frequenza > 1 : *storico > 0;
}

void ModelloRisultato::trova_misure() {
    frequenza_.reset();
    ritardo_.reset();
    storico_.reset();
    if (!tabella_) return;
    frequenza_ = colonna_della_misura(*tabella_, "Frequenza");
    ritardo_ = colonna_della_misura(*tabella_, "Ritardo");
    storico_ = colonna_della_misura(*tabella_, "Ritardo Storico");
}

void ModelloRisultato::imposta_aspetto(int prima_aggiunta, bool calore) {
    prima_aggiunta_ = prima_aggiunta;
    calore_ = calore;
    massimo_ = 0;
    if (!calore || !tabella_) return;
    for (std::size_t c = 1; c < tabella_->n_colonne(); ++c)
        if (const auto* interi = std::get_if<ColonnaInteri>(&tabella_->colonne[c]))
            for (const std::int32_t v : interi->valori) massimo_ = std::max(massimo_, v);
}

QVariant ModelloRisultato::headerData(int sezione, Qt::Orientation verso, int ruolo) const {
    if (ruolo != Qt::DisplayRole || !tabella_ || sezione < 0) return {};
    if (verso == Qt::Vertical) return sezione + 1;
    const auto c = static_cast<std::size_t>(sezione);
    if (tabella_->titoli.empty() || c >= tabella_->titoli.back().size()) return {};
    return qtesto(tabella_->titoli.back()[c]);
}

QRgb colore_schermo(Colore colore) {
    if (colore == kGialloTrovato) return skin_in_uso().trovato;
    const auto c = static_cast<unsigned>(colore);
    return qRgb(static_cast<int>(c & 0xFFU), static_cast<int>(c >> 8U & 0xFFU),
                static_cast<int>(c >> 16U & 0xFFU));
}

QRgb leggibile(QRgb testo, QRgb fondo) {
    const QRgb verso = testo_su(fondo);
    for (int parte = 0; parte <= 10; ++parte) {
        const auto m = [parte](int a, int b) { return a + (b - a) * parte / 10; };
        const QRgb prova =
            qRgb(m(qRed(testo), qRed(verso)), m(qGreen(testo), qGreen(verso)), m(qBlue(testo), qBlue(verso)));
        if (contrasto(prova, fondo) >= 4.5) return prova;
    }
    return verso;
}

}  // namespace sortimetra
