#include "catalogue/ricerche.h"
#include "screens/area_parametri.h"
#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/schermi.h"
#include "screens/tema.h"
#include "statistics/form_spec.h"
#include "statistics/form_stat.h"
#include "statistics/form_stat2.h"
#include "statistics/pannello_gruppo.h"
#include "support/archivi.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QSettings>
#include <QSpinBox>
#include <QtTest>
#include <filesystem>

using namespace sortimetra;

namespace {

/// Thirty draws of all ten wheels. On Bari the 90 comes out at draws 5 and 20, the 89 at the first alone.
ArchivioEstrazioni archivio_di_prova() {
    static constexpr const char* kCodici[]{"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE"};
    std::string lotto;
    std::string wfl;
    std::string enalotto;
    for (int c = 1; c <= 30; ++c) {
        for (int w = 0; w < 10; ++w) {
            const bool novanta = w == 0 && (c == 5 || c == 20);
            const bool ottantanove = w == 0 && c == 1;
            lotto += std::to_string(c) + " " + kCodici[w] + " " +
                     (novanta       ? "90"
                      : ottantanove ? "89"
                                    : std::to_string(w + 1)) +
                     " " + std::to_string(11 + w) + " " + std::to_string(21 + w) + " " +
                     std::to_string(31 + w) + " " + std::to_string(41 + (c + w) % 30) + "\n";
        }
        lotto += std::to_string(c) + " NZ 1 2 3 4 " + std::to_string(5 + c) + "\n";
        enalotto += std::to_string(c) + " 1 2 3 4 5 6 7 " + std::to_string(c) + "\n";
        wfl += std::to_string(c) + (c % 2 == 0 ? " 8:00" : " 9:00") + " 1 2 3 4 5 6 7 8 9 10\n";
    }
    return prove::da_testi(lotto, enalotto, wfl);
}

constexpr const char* kNovanta = "ritardo e frequenza dei 90 numeri";

}  // namespace

class TestFormStat : public QObject {
    Q_OBJECT
  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }
    void init();
    void cleanup();

    void i_90_numeri_di_bari_dal_pulsante();
    void la_griglia_e_la_risposta_della_ricerca();
    void invio_f5_e_barra_avviano();
    void esc_chiude_e_torna_a_chi_ha_aperto();
    void un_clic_su_una_ruota_svuota_la_griglia();
    void l_intervallo_svuota_la_griglia();
    void un_altro_tratto_svuota_la_griglia();
    void l_ambito_vuoto_da_il_messaggio();
    void nessuna_ruota_legge_bari_con_t_zero();
    void i_riquadri_seguono_la_ricerca_data();
    void i_riquadri_seguono_la_ricerca();
    void i_titoli_seguono_la_ricerca_data();
    void i_titoli_seguono_la_ricerca();
    void il_combo_avvia_da_solo();
    void il_capogioco_sbagliato_ha_il_suo_messaggio();
    void i_capigioco_sbagliati_hanno_il_loro_messaggio();
    void il_capogioco_giusto();
    void il_file_mancante_ha_il_suo_titolo();
    void la_tabella_di_tutte_le_ruote();
    void il_win_for_life_ha_le_ore();
    void il_superenalotto_non_ha_ruote();
    void dieci_e_lotto_apre_con_tutte();
    void la_riga_di_stato();
    void l_archivio_simulato_e_dichiarato();
    void la_stampa_aspetta_il_suo_gancio();
    void la_stampa_riceve_cio_che_si_vede();
    void le_schedine_ricevono_il_sistema();
    void la_tabella_delle_ruote_e_del_suo_schermo();
    void il_numero_di_combinazioni_si_svuota_con_la_griglia();
    void l_analisi_riceve_le_combinazioni();
    void esporta_in_tre_formati();
    void un_esportazione_che_non_riesce_lo_dice();
    void le_frecce_indicano_il_pulsante();
    void la_finestra_ricorda_il_suo_posto();
    void sta_in_1024_per_640();
    void ogni_ricerca_di_questo_schermo_si_apre_e_gira();
    void ordine_di_tabulazione();
    void l_estratto_e_la_scomposizione();

  private:
    void apri(const char* chiave, const ArchivioEstrazioni& archivio) {
        const Ricerca* r = trova_ricerca(chiave);
        QVERIFY2(r != nullptr, chiave);
        form_->apri(*r, archivio);
        form_->show();
        QVERIFY(QTest::qWaitForWindowActive(form_.get()));
    }
    void apri(const char* chiave) { apri(chiave, archivio_); }
    template <class T>
    T* controllo(const char* nome) const {
        return form_->findChild<T*>(QString::fromLatin1(nome));
    }
    void premi(const char* nome) const { QTest::mouseClick(controllo<QPushButton>(nome), Qt::LeftButton); }
    int righe() const { return form_->griglia()->modello()->rowCount(); }
    QString riga(int r) const {
        QStringList celle;
        for (int c = 0; c < form_->griglia()->modello()->columnCount(); ++c)
            celle << form_->griglia()->modello()->index(r, c).data().toString();
        return celle.join(QLatin1Char(' '));
    }
    QStringList titoli() const {
        QStringList t;
        const ModelloRisultato& m = *form_->griglia()->modello();
        for (int i = 0; i < m.columnCount(); ++i) t << m.headerData(i, Qt::Horizontal).toString();
        return t;
    }

    ArchivioEstrazioni archivio_ = archivio_di_prova();
    std::unique_ptr<prove::CartellaProva> cartella_;
    Sessione sessione_;
    std::unique_ptr<Form_stat> form_;
    std::unique_ptr<MessaggiDiProva> messaggi_;
};

void TestFormStat::init() {
    cartella_ = std::make_unique<prove::CartellaProva>();
    sessione_.percorso_programma = cartella_->percorso();
    messaggi_ = std::make_unique<MessaggiDiProva>();
    form_ = std::make_unique<Form_stat>(sessione_);
}

void TestFormStat::cleanup() {
    form_.reset();
    messaggi_.reset();
}

void TestFormStat::i_90_numeri_di_bari_dal_pulsante() {
    apri(kNovanta);
    QCOMPARE(form_->windowTitle(), QStringLiteral("Ritardo e Frequenza dei 90 numeri"));
    QCOMPARE(form_->property("Tag").toString(), QString::fromLatin1(kNovanta));
    QCOMPARE(controllo<QPushButton>("Command1")->text(), QStringLiteral("Avvia &Ricerca"));
    QCOMPARE(titoli(), (QStringList{"Numeri", "Frequenza", "Ritardo", "Ritardo Storico"}));
    QCOMPARE(righe(), 0);
    premi("Command1");
    QCOMPARE(righe(), 90);
    QCOMPARE(riga(89), QStringLiteral("90 2 10 14"));  // at draws 5 and 20 of 30
    QCOMPARE(riga(88), QStringLiteral("89 1 29 0"));   // at the first draw alone
    QCOMPARE(riga(0), QStringLiteral("1 27 0 1"));
    QVERIFY(form_->isEnabled());
    QVERIFY(!controllo<QFrame>("FramePro")->isVisible());
    QVERIFY(messaggi_->detti.isEmpty());
}

void TestFormStat::la_griglia_e_la_risposta_della_ricerca() {
    // What the screen shows is, cell by cell, what the search answers to the same question.
    apri(kNovanta);
    controllo<QCheckBox>("CheckRuota_10")->click();
    controllo<QLineEdit>("txtda")->setText(QStringLiteral("3"));
    controllo<QLineEdit>("txta")->setText(QStringLiteral("25"));
    premi("Command1");
    Domanda d = prove::domanda(kNovanta, {.ruote = SelezioneRuote::tutte(), .tratto = {3, 25}});
    const Risultato atteso = prove::esegui(d, archivio_);
    QVERIFY(form_->risultato() != nullptr);
    QVERIFY(*form_->risultato() == atteso);
}

void TestFormStat::invio_f5_e_barra_avviano() {
    apri(kNovanta);
    QTest::keyClick(form_.get(), Qt::Key_F5);
    QCOMPARE(righe(), 90);
    controllo<QCheckBox>("CheckRuota_1")->click();
    QCOMPARE(righe(), 0);
    controllo<QCheckBox>("CheckRuota_1")->setFocus();
    QTest::keyClick(controllo<QCheckBox>("CheckRuota_1"), Qt::Key_Return);
    QCOMPARE(righe(), 90);
    // From inside a box: it is brought back first, then the search runs.
    auto* a = controllo<QLineEdit>("txta");
    a->setFocus();
    a->selectAll();
    QTest::keyClicks(a, QStringLiteral("99"));
    QCOMPARE(righe(), 0);
    QTest::keyClick(a, Qt::Key_Enter);
    QCOMPARE(righe(), 90);
    QCOMPARE(a->text(), QStringLiteral("30"));
    controllo<QCheckBox>("CheckRuota_1")->click();
    controllo<QPushButton>("Command1")->setFocus();
    QTest::keyClick(controllo<QPushButton>("Command1"), Qt::Key_Space);
    QCOMPARE(righe(), 90);
    // Enter on another button presses that one.
    controllo<QPushButton>("cmdChiudi")->setFocus();
    QTest::keyClick(controllo<QPushButton>("cmdChiudi"), Qt::Key_Return);
    QVERIFY(!form_->isVisible());
}

void TestFormStat::esc_chiude_e_torna_a_chi_ha_aperto() {
    QWidget apritore;
    const Ricerca* r = trova_ricerca(kNovanta);
    form_->apri(*r, archivio_, &apritore);
    form_->show();
    QSignalSpy chiuso{form_.get(), &SchermoRicerca::chiuso};
    QTest::keyClick(form_.get(), Qt::Key_Escape);
    QVERIFY(!form_->isVisible());
    QVERIFY(apritore.isVisible());
    QCOMPARE(chiuso.count(), 1);
    // The opener is asked back once, not at every later closing.
    apritore.hide();
    apri(kNovanta);
    premi("cmdChiudi");
    QVERIFY(!form_->isVisible());
    QVERIFY(!apritore.isVisible());
}

void TestFormStat::un_clic_su_una_ruota_svuota_la_griglia() {
    apri(kNovanta);
    premi("Command1");
    QCOMPARE(righe(), 90);
    QTest::mouseClick(controllo<QPushButton>("cmdcol_1"), Qt::LeftButton);
    auto* ruota = controllo<QCheckBox>("CheckRuota_3");
    QTest::mouseClick(ruota, Qt::LeftButton, {}, QPoint{14, ruota->height() / 2});
    QCOMPARE(righe(), 0);
    QVERIFY(form_->risultato() == nullptr);
    QCOMPARE(titoli().size(), 4);
    QCOMPARE(controllo<QPushButton>("cmdcol_1")->property("tag").toString(), QStringLiteral("0"));
}

void TestFormStat::l_intervallo_svuota_la_griglia() {
    apri(kNovanta);
    premi("Command1");
    QTest::keyClick(controllo<QComboBox>("ComboIntervallo"), Qt::Key_Down);
    QCOMPARE(righe(), 0);
    premi("Command1");  // "Mesi Pari": the thirty days of January have none
    QCOMPARE(righe(), 0);
    QCOMPARE(messaggi_->detti.size(), 1);
}

void TestFormStat::un_altro_tratto_svuota_la_griglia() {
    apri(kNovanta);
    premi("Command1");
    QCOMPARE(righe(), 90);
    QTest::keyClick(controllo<QLineEdit>("txtda"), Qt::Key_Up);
    QCOMPARE(righe(), 0);
}

void TestFormStat::l_ambito_vuoto_da_il_messaggio() {
    apri(kNovanta);
    controllo<QLineEdit>("txtda")->setText(QStringLiteral("20"));
    controllo<QLineEdit>("txta")->setText(QStringLiteral("10"));
    premi("Command1");
    QCOMPARE(messaggi_->detti.size(), 1);
    QCOMPARE(messaggi_->detti[0].titolo, QStringLiteral("Sortimetra"));
    QCOMPARE(messaggi_->detti[0].testo,
             QStringLiteral("Non ci sono estrazioni per l'intervallo selezionato"));
    QCOMPARE(righe(), 0);
    QVERIFY(form_->isEnabled());
}

void TestFormStat::nessuna_ruota_legge_bari_con_t_zero() {
    apri(kNovanta);
    controllo<QCheckBox>("CheckRuota_0")->click();
    premi("Command1");
    QCOMPARE(righe(), 90);
    QCOMPARE(riga(89), QStringLiteral("90 2 -20 14"));
    QCOMPARE(riga(88), QStringLiteral("89 1 -1 1"));
}

void TestFormStat::i_riquadri_seguono_la_ricerca_data() {
    QTest::addColumn<QString>("chiave");
    QTest::addColumn<QStringList>("visibili");
    QTest::newRow("90 numeri") << kNovanta << QStringList{};
    QTest::newRow("ambi") << "ricerche su tutti gli ambi" << QStringList{"Command2"};
    QTest::newRow("terni") << "ricerche su tutti i terni" << QStringList{"FrameRit", "Command2"};
    QTest::newRow("ambata capogioco")
        << "ambata capogioco" << QStringList{"FrameCapogioco", "Command2", "Command3"};
    QTest::newRow("ambo capogioco") << "ambo capogioco"
                                    << QStringList{"FrameAmboCapo", "FrameRit", "ComboComb", "Command2",
                                                   "Command4"};
    QTest::newRow("ambi vertibili") << "ambi vertibili" << QStringList{"FrameRit", "Command2", "Command5"};
    QTest::newRow("decine") << "decine" << QStringList{"FrameRit", "cmdSpec", "Command2", "Command5"};
    QTest::newRow("cifre") << "cifre" << QStringList{"FrameRit", "cmdSpec", "Command2", "Command5"};
    QTest::newRow("dieci ruote") << "ricerche su tutti gli ambi negli estratti delle 10 ruote"
                                 << QStringList{"cmbEstratto", "Command2"};
}

void TestFormStat::i_riquadri_seguono_la_ricerca() {
    QFETCH(QString, chiave);
    QFETCH(QStringList, visibili);
    apri("decine");  // whatever stood there before
    apri(chiave.toUtf8().constData());
    for (const char* nome : {"FrameRit", "FrameCapogioco", "FrameAmboCapo", "cmbEstratto", "cmdSpec",
                             "ComboComb", "Command2", "Command3", "Command4", "Command5"}) {
        const bool atteso = visibili.contains(QLatin1String(nome));
        QVERIFY2(controllo<QWidget>(nome)->isVisible() == atteso, nome);
    }
}

void TestFormStat::i_titoli_seguono_la_ricerca_data() {
    QTest::addColumn<QString>("chiave");
    QTest::addColumn<bool>("brevi");
    for (const char* lunga : {kNovanta, "terzine consecutive", "decine", "grattacielo dei 90"})
        QTest::newRow(lunga) << lunga << false;
    for (const char* breve :
         {"sestine circolari", "cinquine sun", "settine renard", "controfigure", "decine simmetriche"})
        QTest::newRow(breve) << breve << true;
}

void TestFormStat::i_titoli_seguono_la_ricerca() {
    QFETCH(QString, chiave);
    QFETCH(bool, brevi);
    apri(chiave.toUtf8().constData());
    const QStringList attesi = brevi ? QStringList{"Numeri", "Freq.", "Rit.", "R. S."}
                                     : QStringList{"Numeri", "Frequenza", "Ritardo", "Ritardo Storico"};
    QCOMPARE(titoli(), attesi);
    premi("Command1");
    QVERIFY(righe() > 0);
    QCOMPARE(titoli(), attesi);
}

void TestFormStat::il_combo_avvia_da_solo() {
    apri("ambi vertibili");
    auto* rit = controllo<QComboBox>("ComboRit");
    QCOMPARE(rit->count(), 2);
    QCOMPARE(rit->itemText(0), QStringLiteral("all'Ambata"));
    QCOMPARE(rit->itemText(1), QStringLiteral("all'Ambo"));
    QCOMPARE(rit->currentIndex(), 0);
    QCOMPARE(sessione_.indice_combo_rit, 0);
    QCOMPARE(righe(), 0);
    QTest::keyClick(rit, Qt::Key_Down);  // the choice alone runs the search
    QCOMPARE(righe(), 28);
    const QString ambo = riga(0);
    QCOMPARE(sessione_.indice_combo_rit, 1);
    QTest::keyClick(rit, Qt::Key_Up);
    QCOMPARE(righe(), 28);
    QVERIFY(riga(0) != ambo);  // 12.21: both are never drawn together, one of them always
    // A change by the program is no click.
    controllo<QCheckBox>("CheckRuota_1")->click();
    rit->setCurrentIndex(1);
    QCOMPARE(righe(), 0);
    // Opened again, it starts from the first entry and runs nothing.
    apri("terzine fabarri");
    QCOMPARE(rit->currentIndex(), 0);
    QCOMPARE(righe(), 0);
}

void TestFormStat::il_capogioco_sbagliato_ha_il_suo_messaggio() {
    apri("ambata capogioco");
    auto* capo = controllo<QLineEdit>("txtcapogioco");
    for (const char* sbagliato : {"", "0", "91", "99999999999"}) {
        capo->setText(QString::fromLatin1(sbagliato));
        controllo<QCheckBox>("CheckRuota_0")->setFocus();
        messaggi_->detti.clear();
        premi("Command1");
        QCOMPARE(messaggi_->detti.size(), 1);
        QCOMPARE(messaggi_->detti[0].titolo, QString{});
        QCOMPARE(messaggi_->detti[0].testo, QStringLiteral("Capogioco specificato non valido"));
        QVERIFY(capo->hasFocus());
        QCOMPARE(righe(), 0);
    }
    // The check of the scope comes first.
    controllo<QLineEdit>("txtda")->setText(QStringLiteral("20"));
    controllo<QLineEdit>("txta")->setText(QStringLiteral("10"));
    messaggi_->detti.clear();
    premi("Command1");
    QCOMPARE(messaggi_->detti[0].testo,
             QStringLiteral("Non ci sono estrazioni per l'intervallo selezionato"));
}

void TestFormStat::i_capigioco_sbagliati_hanno_il_loro_messaggio() {
    apri("ambo capogioco");
    controllo<QLineEdit>("txtAmboCapo_0")->setText(QStringLiteral("7"));
    controllo<QLineEdit>("txtAmboCapo_1")->setFocus();
    premi("Command1");
    QCOMPARE(messaggi_->detti.size(), 1);
    QCOMPARE(messaggi_->detti[0].titolo, QString{});
    QCOMPARE(messaggi_->detti[0].testo, QStringLiteral("Capigioco specificati non valido"));
    QVERIFY(controllo<QLineEdit>("txtAmboCapo_0")->hasFocus());
}

void TestFormStat::il_capogioco_giusto() {
    apri("ambata capogioco");
    auto* capo = controllo<QLineEdit>("txtcapogioco");
    capo->setFocus();
    QTest::keyClicks(capo, QStringLiteral("9x0"));
    QCOMPARE(capo->text(), QStringLiteral("90"));
    QTest::keyClick(capo, Qt::Key_Return);
    QCOMPARE(righe(), 89);
    QCOMPARE(riga(0).section(QLatin1Char(' '), 0, 0), QStringLiteral("01-90"));
    QCOMPARE(riga(88).section(QLatin1Char(' '), 0, 0), QStringLiteral("89-90"));
    // The second button sorts the first column here.
    QTest::mouseClick(controllo<QPushButton>("cmdcol_1"), Qt::LeftButton);
    QCOMPARE(riga(0).section(QLatin1Char(' '), 0, 0), QStringLiteral("89-90"));
    // A new capo takes the old answer away.
    QTest::keyClick(capo, Qt::Key_Backspace);
    QCOMPARE(righe(), 0);
}

void TestFormStat::il_file_mancante_ha_il_suo_titolo() {
    apri("cinquine dei 90");
    premi("Command1");
    QCOMPARE(messaggi_->detti.size(), 1);
    QCOMPARE(messaggi_->detti[0].titolo, QStringLiteral("Sortimetra 2001"));
    QCOMPARE(messaggi_->detti[0].testo,
             QStringLiteral("File danneggiato! Impossibile effettuare Ricerca Statistica!"));
    QCOMPARE(righe(), 0);
}

void TestFormStat::la_tabella_di_tutte_le_ruote() {
    apri("decine");
    QCOMPARE(controllo<QPushButton>("cmdSpec")->text(),
             QStringLiteral("Tabella riepilogativa dei ritardi su tutte  le ruote"));
    premi("cmdSpec");
    Form_spec* spec = form_->tabella_ruote();
    QVERIFY(spec != nullptr && spec->isVisible());
    QCOMPARE(spec->findChild<QLabel*>(QStringLiteral("lbltitolo"))->text(),
             QStringLiteral("decine - Ritardo per ogni ruota"));
    // The caption says of what: calendar and range.
    QCOMPARE(spec->windowTitle(),
             QStringLiteral("decine - Ritardo per ogni ruota  ·  Tutti i Concorsi, dal concorso 1 del "
                            "01/01/2000 al concorso 30 del 30/01/2000"));
    QCOMPARE(spec->griglia()->modello()->rowCount(), 9);
    QCOMPARE(spec->griglia()->modello()->columnCount(), 12);
    QVERIFY(spec->findChild<QLabel*>(QStringLiteral("descrizione"))
                ->text()
                .startsWith(QStringLiteral("Le Decine sono composte da 10 numeri")));
    QCOMPARE(righe(), 0);  // the screen's own grid is not touched
    QTest::keyClick(spec, Qt::Key_Escape);
    QVERIFY(!spec->isVisible());
}

void TestFormStat::la_tabella_delle_ruote_e_del_suo_schermo() {
    apri("decine");
    form_->setGeometry(100, 60, 600, 500);
    premi("cmdSpec");
    Form_spec* spec = form_->tabella_ruote();
    QVERIFY(spec->isVisible());
    // Over it, as far as the display lets.
    QVERIFY(spec->geometry().intersects(form_->geometry()));
    QVERIFY(spec->screen()->availableGeometry().contains(spec->geometry().topLeft()));
    // The screen's own search leaves it alone; another scope does not.
    premi("Command1");
    QCOMPARE(spec->griglia()->modello()->rowCount(), 9);
    controllo<QSpinBox>("UpDown1_0")->setValue(5);
    QCOMPARE(spec->griglia()->modello()->rowCount(), 0);
    QCOMPARE(spec->windowTitle(), QStringLiteral("decine - Ritardo per ogni ruota"));
    QVERIFY(!spec->findChild<QPushButton*>(QStringLiteral("cmdEsporta"))->isEnabled());
    premi("cmdSpec");
    QVERIFY(spec->windowTitle().contains(QStringLiteral("dal concorso 5")));
    form_->close();
    QVERIFY(!spec->isVisible());
}

void TestFormStat::il_numero_di_combinazioni_si_svuota_con_la_griglia() {
    apri("ambo capogioco");
    controllo<QLineEdit>("txtAmboCapo_0")->setText(QStringLiteral("1"));
    controllo<QLineEdit>("txtAmboCapo_1")->setText(QStringLiteral("2"));
    premi("Command1");
    QVERIFY(controllo<QComboBox>("ComboComb")->count() > 0);
    controllo<QComboBox>("ComboIntervallo")->setCurrentIndex(1);
    QCOMPARE(righe(), 0);
    QCOMPARE(controllo<QComboBox>("ComboComb")->count(), 0);
}

void TestFormStat::il_win_for_life_ha_le_ore() {
    apri("ritardo e frequenza dei 20 numeri nella combinazione win for life");
    QVERIFY(!controllo<QCheckBox>("CheckRuota_0")->isVisible());
    auto* ore = controllo<QComboBox>("ComboIntervallo");
    QCOMPARE(ore->count(), 16);
    premi("Command1");
    QCOMPARE(righe(), 20);
    QCOMPARE(riga(0), QStringLiteral("1 30 0 0"));
    QTest::keyClick(ore, Qt::Key_Down);  // 8:00: the even half
    QCOMPARE(righe(), 0);
    premi("Command1");
    QCOMPARE(riga(0), QStringLiteral("1 15 0 0"));
    // Back to a game with wheels.
    apri(kNovanta);
    QVERIFY(controllo<QCheckBox>("CheckRuota_0")->isVisible());
    QCOMPARE(ore->count(), 21);
}

void TestFormStat::il_superenalotto_non_ha_ruote() {
    apri("ritardo e frequenza del numero superstar");
    QVERIFY(!controllo<QCheckBox>("CheckRuota_0")->isVisible());
    premi("Command1");
    QCOMPARE(righe(), 90);
    QCOMPARE(riga(29), QStringLiteral("30 1 0 0"));
}

void TestFormStat::dieci_e_lotto_apre_con_tutte() {
    apri("ritardo e frequenza dei 90 numeri nella combinazione 10 e lotto");
    QVERIFY(controllo<QCheckBox>("CheckRuota_10")->isChecked());
    premi("Command1");
    QCOMPARE(righe(), 90);
}

void TestFormStat::la_riga_di_stato() {
    apri(kNovanta);
    auto* stato = controllo<QLabel>("lblstato");
    QCOMPARE(stato->toolTip(), QStringLiteral("30 concorsi in ambito"));
    controllo<QLineEdit>("txtda")->setText(QStringLiteral("30"));
    QCOMPARE(stato->toolTip(), QStringLiteral("1 concorso in ambito"));
    premi("Command1");
    QVERIFY2(stato->toolTip().startsWith(QStringLiteral("90 righe  ·  1 concorso in ambito  ·  ")),
             qPrintable(stato->toolTip()));
    QVERIFY(stato->toolTip().endsWith(QStringLiteral(" ms")));
}

void TestFormStat::l_archivio_simulato_e_dichiarato() {
    apri(kNovanta);
    QVERIFY(!controllo<QLabel>("lblsimulato")->isVisible());
    RigheArchivio righe_simulate;
    righe_simulate.lotto.push_back({.concorso = 1, .data = {}, .ruota = 0, .numeri = {1, 2, 3, 4, 5}});
    const auto simulato =
        ArchivioEstrazioni::componi(righe_simulate, {.file = "drawit.db", .simulato = true});
    QVERIFY(simulato.has_value());
    apri(kNovanta, *simulato);
    QVERIFY(controllo<QLabel>("lblsimulato")->isVisible());
}

void TestFormStat::la_stampa_aspetta_il_suo_gancio() {
    apri("decine");
    premi("Command1");
    QVERIFY(!controllo<QPushButton>("cmdStampa")->isEnabled());
    QVERIFY(!controllo<QPushButton>("cmdStampa")->toolTip().isEmpty());
    QVERIFY(controllo<QPushButton>("Command5")->isEnabled());
    QCOMPARE(controllo<QPushButton>("Command5")->text(), QStringLiteral("Analisi Gruppo"));
    QCOMPARE(controllo<QPushButton>("Command2")->text(), QStringLiteral("Schedine"));
}

void TestFormStat::la_stampa_riceve_cio_che_si_vede() {
    LavoroStampa ricevuto;
    int volte = 0;
    form_->imposta_stampa([&](const LavoroStampa& l) {
        ricevuto = l;
        ++volte;
    });
    apri(kNovanta);
    QVERIFY(!controllo<QPushButton>("cmdStampa")->isEnabled());
    QTest::keyClick(form_.get(), Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(volte, 0);
    premi("Command1");
    QTest::mouseClick(controllo<QPushButton>("cmdcol_0"), Qt::LeftButton);
    premi("cmdStampa");
    QCOMPARE(volte, 1);
    QCOMPARE(ricevuto.risposta.risultato->tabelle[0].righe(), 90U);
    QCOMPARE(ricevuto.risposta.ordine.front(), 89U);
    QCOMPARE(ricevuto.risposta.ricerca().chiave(), std::string_view{kNovanta});
    QCOMPARE(ricevuto.risposta.ambito->intervallo, std::string{"Tutti i Concorsi"});
    QCOMPARE(ricevuto.risposta.ambito->tratto.a, 30);
    QTest::keyClick(form_.get(), Qt::Key_P, Qt::ControlModifier);
    QCOMPARE(volte, 2);
}

void TestFormStat::le_schedine_ricevono_il_sistema() {
    QString avviato;
    bool parte = true;
    form_->avvia_programma = [&](const QString& programma) {
        avviato = programma;
        return parte;
    };
    apri("ambi vertibili");
    QVERIFY(!controllo<QPushButton>("Command2")->isEnabled());
    premi("Command1");
    form_->griglia()->ordina_colonna(0, Verso::decrescente);
    QVERIFY(controllo<QPushButton>("Command2")->isEnabled());
    premi("Command2");
    QVERIFY(avviato.endsWith(QStringLiteral("stampa.exe")));
    QVERIFY(messaggi_->detti.isEmpty());
    // The window says what was written and where.
    const auto stato = [this] { return controllo<QLabel>("lblstato")->toolTip(); };
    const QString dove = QString::fromStdString((cartella_->percorso() / "ambo").string());
    QVERIFY2(stato().contains(dove) && stato().contains(QStringLiteral("ric_stat")), qPrintable(stato()));
    const auto leggi = [this](const char* nome) {
        QFile f{QString::fromStdString((cartella_->percorso() / nome).string())};
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray{};
    };
    QCOMPARE(leggi("trans"), QByteArray{"\"ambo\",\"ric_stat\"\r\n"});
    // The system has the members in their own order, whatever the order on the screen.
    bool trovata = false;
    for (const auto& voce : std::filesystem::recursive_directory_iterator{cartella_->percorso() / "ambo"}) {
        QFile f{QString::fromStdString(voce.path().string())};
        if (f.open(QIODevice::ReadOnly) && f.readAll().startsWith("12,21\r\n")) trovata = true;
    }
    QVERIFY(trovata);
    parte = false;
    premi("Command2");
    QCOMPARE(messaggi_->detti.size(), 1);
    QCOMPARE(messaggi_->detti[0].titolo, QStringLiteral("Sortimetra"));
    QCOMPARE(messaggi_->detti[0].testo,
             QStringLiteral("File Danneggiato!\nReinstalla Sortimetra dal tuo CD-ROM."));
    // The files are there all the same.
    QVERIFY2(stato().contains(dove) && stato().contains(QStringLiteral("i file ci sono")),
             qPrintable(stato()));
    // With the slip program open nothing is started.
    QFile sch{QString::fromStdString((cartella_->percorso() / "sch").string())};
    QVERIFY(sch.open(QIODevice::WriteOnly));
    sch.close();
    avviato.clear();
    premi("Command2");
    QCOMPARE(avviato, QString{});
    QVERIFY2(stato().contains(dove) && stato().contains(QStringLiteral("già aperto")), qPrintable(stato()));
    // "Cifre" gives no slips.
    apri("cifre");
    premi("Command1");
    QVERIFY(controllo<QPushButton>("Command2")->isVisible());
    QVERIFY(!controllo<QPushButton>("Command2")->isEnabled());
}

void TestFormStat::l_analisi_riceve_le_combinazioni() {
    const auto lunghette = [this] { return form_->analisi()->pannello()->lunghette()->modello(); };
    apri("ambo capogioco");
    QVERIFY(!controllo<QPushButton>("Command4")->isEnabled());
    controllo<QLineEdit>("txtAmboCapo_0")->setText(QStringLiteral("7"));
    controllo<QLineEdit>("txtAmboCapo_1")->setText(QStringLiteral("21"));
    controllo<QComboBox>("ComboRit")->setCurrentIndex(1);
    premi("Command1");
    QCOMPARE(righe(), 88);
    auto* comb = controllo<QComboBox>("ComboComb");
    QCOMPARE(comb->count(), 88);
    QCOMPARE(comb->currentText(), QStringLiteral("88"));
    comb->setCurrentIndex(4);
    premi("Command4");
    QVERIFY(form_->analisi()->isVisible());
    QCOMPARE(lunghette()->rowCount(), 5);
    QCOMPARE(lunghette()->testo(0, 0), QStringLiteral("1 - 7 - 21"));
    // The first rows are those of the grid as it is shown.
    form_->griglia()->ordina_colonna(0, Verso::decrescente);
    premi("Command4");
    QCOMPARE(lunghette()->testo(0, 0), QStringLiteral("7 - 21 - 90"));
    QTest::keyClick(form_->analisi(), Qt::Key_Escape);
    QVERIFY(!form_->analisi()->isVisible());
    apri("gemelli");
    premi("Command1");
    premi("Command5");
    QCOMPARE(form_->analisi()->windowTitle(), QStringLiteral("Analisi Gruppo - Gemelli"));
    QCOMPARE(lunghette()->rowCount(), 1);
    QCOMPARE(lunghette()->testo(0, 0), QStringLiteral("11 - 22 - 33 - 44 - 55 - 66 - 77 - 88"));
    apri("ambata capogioco");
    controllo<QLineEdit>("txtcapogioco")->setText(QStringLiteral("90"));
    premi("Command1");
    premi("Command3");
    QCOMPARE(lunghette()->rowCount(), 89);
}

void TestFormStat::esporta_in_tre_formati() {
    apri(kNovanta);
    QVERIFY(!controllo<QPushButton>("cmdEsporta")->isEnabled());
    premi("Command1");
    QTest::mouseClick(controllo<QPushButton>("cmdcol_0"), Qt::LeftButton);
    const auto scrivi = [this](const char* nome) {
        const QString file = QString::fromStdString((cartella_->percorso() / nome).string());
        messaggi_->file = file;
        premi("cmdEsporta");
        QFile f{file};
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray{};
    };
    const QByteArray csv = scrivi("esito.csv");
    QVERIFY(csv.startsWith("Numeri;Frequenza;Ritardo;Ritardo Storico\n90;2;10;14\n89;1;29;0\n"));
    QVERIFY(messaggi_->proposto.endsWith(QStringLiteral("Ritardo e Frequenza dei 90 numeri.csv")));
    QVERIFY(scrivi("esito.json").contains("\"chiave\""));
    QVERIFY(scrivi("esito.xlsx").startsWith("PK"));
    // A name without an ending gets one.
    scrivi("senza");
    QVERIFY(QFile::exists(QString::fromStdString((cartella_->percorso() / "senza.csv").string())));
    QVERIFY(controllo<QLabel>("lblstato")->toolTip().contains(QStringLiteral("senza.csv")));
    // The user thinks better of it.
    messaggi_->file.reset();
    QTest::keyClick(form_.get(), Qt::Key_E, Qt::ControlModifier);
    QVERIFY(messaggi_->detti.isEmpty());
}

void TestFormStat::un_esportazione_che_non_riesce_lo_dice() {
    apri(kNovanta);
    premi("Command1");
    for (const char* nome : {"manca/esito.csv", "manca/esito.xlsx"}) {
        messaggi_->detti.clear();
        messaggi_->file = QString::fromStdString((cartella_->percorso() / nome).string());
        premi("cmdEsporta");
        QCOMPARE(messaggi_->detti.size(), 1);
        QCOMPARE(messaggi_->detti[0].titolo, QStringLiteral("Sortimetra"));
        QVERIFY(messaggi_->detti[0].testo.contains(QStringLiteral("esito")));
        QVERIFY(!QFile::exists(*messaggi_->file));
    }
}

void TestFormStat::le_frecce_indicano_il_pulsante() {
    apri(kNovanta);
    QVERIFY(controllo<QFrame>("FrameFreccia")->isVisible());
    for (int i = 0; i < 5; ++i)
        QVERIFY(form_->findChild<QLabel*>(QStringLiteral("Image1_%1").arg(i)) != nullptr);
    QVERIFY(form_->findChild<QTimer*>(QStringLiteral("Timer1")) != nullptr);
}

void TestFormStat::la_finestra_ricorda_il_suo_posto() {
    apri(kNovanta);
    QVERIFY(form_->width() <= 1180 && form_->height() <= 720);
    form_->setGeometry(30, 40, 700, 500);
    form_->close();
    const QString file = QString::fromStdString((cartella_->percorso() / "schermi.ini").string());
    QVERIFY(QFile::exists(file));
    form_ = std::make_unique<Form_stat>(sessione_);
    apri(kNovanta);
    QCOMPARE(form_->geometry(), QRect(30, 40, 700, 500));
    form_->close();
    // A place on a screen that is gone, or nonsense, gives the usual one.
    for (const QVariant& posto : {QVariant{QRect{9000, 9000, 700, 500}}, QVariant{QStringLiteral("boh")}}) {
        QSettings memoria{file, QSettings::IniFormat};
        memoria.setValue(QStringLiteral("Form_stat/posto"), posto);
        memoria.sync();
        form_ = std::make_unique<Form_stat>(sessione_);
        apri(kNovanta);
        QVERIFY(QGuiApplication::primaryScreen()->geometry().intersects(form_->geometry()));
        QVERIFY(form_->width() > 700);
        form_->hide();
    }
}

void TestFormStat::sta_in_1024_per_640() {
    for (const char* chiave :
         {kNovanta, "decine", "ambo capogioco", "ricerche su tutti gli ambi negli estratti delle 10 ruote"}) {
        apri(chiave);
        QVERIFY2(form_->minimumSizeHint().width() <= 1024, chiave);
        QVERIFY2(form_->minimumSizeHint().height() <= 640, chiave);
    }
}

void TestFormStat::ogni_ricerca_di_questo_schermo_si_apre_e_gira() {
    int girate = 0;
    for (const Ricerca& r : ricerche()) {
        if (schermo_di(r) != Schermo::stat || !r.pronta() || r.carica != nullptr) continue;
        messaggi_->detti.clear();
        form_->imposta_serie({3, 7, 21, 44}, 2);
        form_->apri(r, archivio_);
        controllo<QLineEdit>("txtcapogioco")->setText(QStringLiteral("7"));
        controllo<QLineEdit>("txtAmboCapo_0")->setText(QStringLiteral("7"));
        controllo<QLineEdit>("txtAmboCapo_1")->setText(QStringLiteral("21"));
        form_->avvia();
        const QByteArray nome{r.chiave().data(), static_cast<qsizetype>(r.chiave().size())};
        QVERIFY2(messaggi_->detti.isEmpty(), nome.constData());
        QVERIFY2(righe() > 0, nome.constData());
        QCOMPARE(form_->windowTitle(),
                 QString::fromUtf8(r.titolo().data(), static_cast<qsizetype>(r.titolo().size())));
        ++girate;
    }
    QVERIFY2(girate >= 2, qPrintable(QString::number(girate)));
}

void TestFormStat::ordine_di_tabulazione() {
    apri("ambo capogioco");
    // From the first wheel to the start button, in reading order.
    QStringList giro;
    controllo<QCheckBox>("CheckRuota_0")->setFocus();
    for (int i = 0; i < 40; ++i) {
        QWidget* w = form_->focusWidget();
        giro << w->objectName();
        if (w->objectName() == QLatin1String("Command1")) break;
        QTest::keyClick(w, Qt::Key_Tab);
    }
    QStringList atteso;
    for (int i = 0; i < 12; ++i) atteso << QStringLiteral("CheckRuota_%1").arg(i);
    atteso << "ComboIntervallo" << "UpDown1_0" << "UpDown1_1" << "txtAmboCapo_0" << "txtAmboCapo_1"
           << "ComboRit" << "cmdRiapri" << "Command1";
    QVERIFY2(giro == atteso, qPrintable(giro.join(QLatin1Char(32))));
    // Every control that takes the keyboard says what it is.
    for (QWidget* w : form_->findChildren<QWidget*>()) {
        if (!w->isVisible() || (w->focusPolicy() & Qt::TabFocus) == 0 || w->focusProxy() != nullptr) continue;
        auto* b = qobject_cast<QAbstractButton*>(w);
        const bool detto = !w->accessibleName().isEmpty() || (b != nullptr && !b->text().isEmpty());
        QVERIFY2(detto, qPrintable(w->objectName() + QLatin1Char(' ') +
                                   QLatin1String(w->metaObject()->className())));
    }
}

void TestFormStat::l_estratto_e_la_scomposizione() {
    apri("ricerche su tutti gli ambi negli estratti delle 10 ruote");
    auto* estratto = controllo<QComboBox>("cmbEstratto");
    QCOMPARE(estratto->count(), 5);
    QCOMPARE(estratto->itemText(0), QStringLiteral("1° Estratto"));
    QCOMPARE(estratto->itemText(4), QStringLiteral("5° Estratto"));
    QVERIFY(controllo<QCheckBox>("CheckRuota_0")->isVisible());  // its wheels divide the draws
    apri("scomposizione");
    auto* rit = controllo<QComboBox>("ComboRit");
    QCOMPARE(rit->count(), 3);
    QCOMPARE(rit->itemText(2), QStringLiteral("al Terno"));
    form_->imposta_serie({1, 2, 3}, 2);
    premi("Command1");
    QCOMPARE(righe(), 3);
    QCOMPARE(riga(2).section(QLatin1Char(' '), 0, 0), QStringLiteral("02.03"));
}

QTEST_MAIN(TestFormStat)
#include "test_form_stat.moc"
