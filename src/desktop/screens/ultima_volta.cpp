#include "screens/ultima_volta.h"

#include "catalogue/ricerche.h"
#include "draws/ambito.h"
#include "draws/ruote.h"
#include "qt_testi.h"
#include "results/ricerca.h"
#include "results/risultato.h"
#include "screens/memoria_schermi.h"

#include <QStringList>

namespace sortimetra {

namespace {

const QString kSezione = QStringLiteral("ultima volta");
const QString kRiapri = QStringLiteral("riapri come l'ultima volta");
const QString kVoceRuote = QStringLiteral("ruote");
const QString kIntervallo = QStringLiteral("intervallo");
const QString kOra = QStringLiteral("ora");
const QString kDa = QStringLiteral("da");
const QString kA = QStringLiteral("a");
const QString kOrdine = QStringLiteral("ordine");
/// The end of a range that follows the archive.
const QString kUltimo = QStringLiteral("ultimo");
/// The box of all ten wheels has no code.
const QString kParolaTutte = QStringLiteral("TUTTE");
const QString kCrescente = QStringLiteral("crescente");
const QString kDecrescente = QStringLiteral("decrescente");

QString sezione(const Ricerca& ricerca) {
    return kSezione + QLatin1Char{'/'} + testo_qt(ricerca.chiave());
}

QString codice(int casella) {
    const auto c = kNomiRuote[static_cast<std::size_t>(casella)].codice;
    return c.empty() ? kParolaTutte : testo_qt(c);
}

QString testo_ruote(SelezioneRuote ruote) {
    QStringList codici;
    for (int i = 0; i < static_cast<int>(kNomiRuote.size()); ++i)
        if (ruote.spuntata(i)) codici << codice(i);
    return codici.join(QLatin1Char{' '});
}

SelezioneRuote leggi_ruote(const QString& testo) {
    SelezioneRuote ruote = SelezioneRuote::nessuna();
    const QStringList codici = testo.split(QLatin1Char{' '}, Qt::SkipEmptyParts);
    for (int i = 0; i < static_cast<int>(kNomiRuote.size()); ++i)
        if (codici.contains(codice(i))) ruote.clic(i, true);
    return ruote;
}

/// The file may have been written by hand: what is none of the entries is the first one.
template <class Trova>
std::size_t voce(const MemoriaSchermi& memoria, const QString& nome, Trova trova) {
    return trova(memoria.value(nome).toString().toStdString()).value_or(0);
}

std::optional<OrdineGriglia> leggi_ordine(const QString& testo) {
    const QStringList parti = testo.split(QLatin1Char{' '});
    bool numero = false;
    const int colonna = parti[0].toInt(&numero);
    if (parti.size() != 2 || !numero || colonna < 0) return std::nullopt;
    return OrdineGriglia{colonna, parti[1] == kCrescente ? Verso::crescente : Verso::decrescente};
}

}  // namespace

void ricorda(const Sessione& sessione, const Domanda& domanda, Concorso ultimo) {
    MemoriaSchermi memoria{sessione};
    if (!memoria.isWritable()) return;
    const AmbitoRicerca& a = domanda.ambito;
    memoria.beginGroup(sezione(*domanda.ricerca));
    memoria.remove(QString{});
    memoria.setValue(kVoceRuote, testo_ruote(a.ruote));
    memoria.setValue(kIntervallo, testo_qt(kIntervalli[a.intervallo].testo));
    memoria.setValue(kOra, testo_qt(kOre[a.ora]));
    memoria.setValue(kDa, a.tratto.da);
    memoria.setValue(kA, a.tratto.a >= ultimo ? QVariant{kUltimo} : QVariant{a.tratto.a});
    for (const Opzione* o : domanda.ricerca->opzioni)
        if (const auto valore = o->scrivi == nullptr ? std::nullopt : o->scrivi(domanda))
            memoria.setValue(testo_qt(o->nome), QString::fromStdString(*valore));
}

void ricorda_ordine(const Sessione& sessione, const Ricerca& ricerca, std::optional<OrdineGriglia> ordine) {
    MemoriaSchermi memoria{sessione};
    if (!memoria.isWritable()) return;
    memoria.beginGroup(sezione(ricerca));
    if (ordine)
        memoria.setValue(kOrdine, QStringLiteral("%1 %2")
                                      .arg(ordine->first)
                                      .arg(ordine->second == Verso::crescente ? kCrescente : kDecrescente));
    else
        memoria.remove(kOrdine);
}

std::optional<UltimaVolta> ultima_volta(const Sessione& sessione, const Ricerca& ricerca, Concorso ultimo) {
    MemoriaSchermi memoria{sessione};
    memoria.beginGroup(sezione(ricerca));
    if (!memoria.contains(kDa)) return std::nullopt;
    UltimaVolta u{.domanda = domanda_intatta(ricerca), .ordine = {}};
    AmbitoRicerca& a = u.domanda.ambito;
    a.ruote = leggi_ruote(memoria.value(kVoceRuote).toString());
    a.intervallo = voce(memoria, kIntervallo, [](const std::string& t) { return trova_intervallo(t); });
    a.ora = voce(memoria, kOra, [](const std::string& t) { return trova_ora(t); });
    a.tratto.da = memoria.value(kDa).toInt();
    const QString fine = memoria.value(kA).toString();
    a.tratto.a = fine == kUltimo ? ultimo : fine.toInt();
    a.tratto = a.tratto.riportato(ultimo);
    for (const Opzione* o : ricerca.opzioni)
        if (const QString nome = testo_qt(o->nome); o->leggi != nullptr && memoria.contains(nome))
            // A value that is none any more leaves the option untouched.
            static_cast<void>(o->leggi(memoria.value(nome).toString().toStdString(), u.domanda));
    u.ordine = leggi_ordine(memoria.value(kOrdine).toString());
    return u;
}

bool riapre_come_l_ultima_volta(const Sessione& sessione) {
    return MemoriaSchermi{sessione}.value(kRiapri, false).toBool();
}

void imposta_riapre_come_l_ultima_volta(const Sessione& sessione, bool si) {
    MemoriaSchermi memoria{sessione};
    if (memoria.isWritable()) memoria.setValue(kRiapri, si);
}

}  // namespace sortimetra
