#include "positional/form_tab_pos.h"
#include "qt_testi.h"
#include "screens/area_parametri.h"
#include "screens/finestra_ricerca.h"
#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/schermo_ricerca.h"
#include "statistics/form_stat.h"
#include "statistics/parametri.h"
#include "support/archivi.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QSpinBox>
#include <QVBoxLayout>
#include <QtTest>
#include <memory>

using namespace sortimetra;

namespace {

/// Draws of the Lotto whose numbers move on by one a draw: with 700 every board is full.
ArchivioEstrazioni archivio_pieno(int quante = 700) {
    std::string lotto;
    for (int c = 1; c <= quante; ++c)
        for (int w = 0; w < kRuote; ++w) {
            lotto += std::to_string(c) + " " + std::string{kNomiRuote[static_cast<std::size_t>(w)].codice};
            for (int i = 0; i < kEstratti; ++i) lotto += " " + std::to_string((c + 7 * w + 18 * i) % 90 + 1);
            lotto += "\n";
        }
    return prove::da_testo(lotto);
}

/// Multiples of what the user typed, up to 90, and their last digits in a second table. The first place of
/// the question is the estratto, which a row of the table may have.
Risultato multipli(const ArchivioEstrazioni&, const Domanda& domanda, Avanzamento&) {
    Risultato r;
    const int passo = domanda.di<ParametriStatistica>().estratto;
    if (passo == 0) {
        r.prodotto = false;
        r.messaggi.push_back({Avviso::altro, "Scrivi un numero"});
        return r;
    }
    ColonnaInteri numeri;
    ColonnaInteri cadenze;
    for (int n = passo; n <= 90; n += passo) {
        numeri.valori.push_back(n);
        cadenze.valori.push_back(n % 10);
    }
    for (auto* colonna : {&numeri, &cadenze}) {
        Tabella t;
        t.titoli = {{colonna == &numeri ? "Numero" : "Cadenza"}};
        t.colonne.emplace_back(*colonna);
        r.tabelle.push_back(std::move(t));
    }
    return r;
}

const Ricerca kMultipli{.nome = nome_e_titolo<"multipli", "I multipli di un numero">,
                        .tabelle = 1,
                        .esegui = multipli,
                        .frase = "Tutti i multipli."};

/// What a screen with a question and grids of its own has to write: its controls, its grids, nothing else.
class SchermoDueGriglie final : public FinestraRicerca {
  public:
    explicit SchermoDueGriglie(Sessione& sessione,
                               CorniceRicerca::Domande domande = CorniceRicerca::Domande::con_parametri)
        : FinestraRicerca{sessione, QStringLiteral("SchermoDueGriglie")},
          passo{new QLineEdit},
          numeri{new GrigliaRisultati},
          cadenze{new GrigliaRisultati} {
        incornicia(domande);
        cornice()->colonna_extra()->addWidget(passo);
        cornice()->risposta()->addWidget(numeri);
        cornice()->risposta()->addWidget(cadenze);
        connect(passo, &QLineEdit::textEdited, this, [this] { svuota(); });
    }
    QLineEdit* passo;
    GrigliaRisultati* numeri;
    GrigliaRisultati* cadenze;

    using FinestraRicerca::imposta_annullabile;

  protected:
    void prepara() override { passo->clear(); }
    [[nodiscard]] Parametri parametri() const override {
        ParametriStatistica p;
        p.estratto = passo->text().toInt();
        return p;
    }
    void mostra(const EsitoRicerca& esito) override {
        const auto& r = esito.risultato;
        numeri->mostra(std::shared_ptr<const Tabella>{r, &r->tabelle[0]});
        cadenze->mostra(std::shared_ptr<const Tabella>{r, &r->tabelle[1]});
    }
    void svuota() override {
        numeri->svuota();
        cadenze->svuota();
        FinestraRicerca::svuota();
    }
    [[nodiscard]] std::vector<std::uint32_t> ordine_in_mostra() const override {
        return numeri->modello()->ordine();
    }
    void trova() override { numeri->apri_trova(); }
};

/// A screen of the usual kind.
class SchermoUnaGriglia final : public SchermoRicerca {
  public:
    explicit SchermoUnaGriglia(Sessione& sessione)
        : SchermoRicerca{sessione, QStringLiteral("SchermoUnaGriglia")} {}
    void inizializza_griglia() override { griglia()->inizializza({{"Numero"}}); }

  protected:
    [[nodiscard]] Parametri parametri() const override {
        ParametriStatistica p;
        p.estratto = 9;
        return p;
    }
};

}  // namespace

class TestFinestra final : public QObject {
    Q_OBJECT

    prove::CartellaProva cartella_;
    Sessione sessione_{cartella_.percorso()};
    ArchivioEstrazioni archivio_ = archivio_pieno();
    std::unique_ptr<FinestraRicerca> form_;

    template <class Form, class... Altro>
    Form& apri(const Ricerca& ricerca, Altro... altro) {
        form_ = std::make_unique<Form>(sessione_, altro...);
        form_->apri(ricerca, archivio_);
        form_->show();
        [&] { QVERIFY(QTest::qWaitForWindowActive(form_.get())); }();
        return static_cast<Form&>(*form_);
    }
    [[nodiscard]] QPushButton* bottone(const char* nome) const {
        return form_->findChild<QPushButton*>(QString::fromLatin1(nome));
    }
    [[nodiscard]] QString testo(const char* nome) const {
        return form_->findChild<QLabel*>(QString::fromLatin1(nome))->text();
    }

    template <class Form>
    void il_tag_senza_riga_e_la_chiave(const Ricerca& ricerca) {
        Form form{sessione_};
        form.apri(ricerca, archivio_);
        QCOMPARE(form.property("Tag").toString(), QStringLiteral("multipli"));
        form.apri(*trova_ricerca("tabellone posizionale"), archivio_);
        QCOMPARE(form.property("Tag").toString(), QStringLiteral("tabpos"));
    }

    template <class Form>
    void torna_chi_ha_aperto() {
        QWidget apritore;
        Form form{sessione_};
        form.apri(kMultipli, archivio_, &apritore);
        form.show();
        QVERIFY(QTest::qWaitForWindowActive(&form));
        QTest::keyClick(&form, Qt::Key_Escape);
        QVERIFY(!form.isVisible());
        QVERIFY(apritore.isVisible());
        // Only once: opened by nobody it brings nobody back.
        apritore.hide();
        form.apri(kMultipli, archivio_);
        form.show();
        form.close();
        QVERIFY(!apritore.isVisible());
    }

  private slots:
    void cleanup() { form_.reset(); }

    void due_griglie_proprie() {
        auto& form = apri<SchermoDueGriglie>(kMultipli);
        QCOMPARE(form.windowTitle(), QStringLiteral("I multipli di un numero"));
        QCOMPARE(testo("lbltitolo"), QStringLiteral("I multipli di un numero"));
        QCOMPARE(testo("lblfrase"), QStringLiteral("Tutti i multipli."));
        QCOMPARE(form.focusWidget(), bottone("Command1"));
        QVERIFY(!bottone("cmdStampa")->isEnabled());
        QVERIFY(!bottone("cmdEsporta")->isEnabled());

        form.passo->setFocus();
        QTest::keyClicks(form.passo, QStringLiteral("30"));
        QTest::keyClick(form.passo, Qt::Key_Return);
        QCOMPARE(form.numeri->modello()->rowCount(), 3);
        QCOMPARE(form.cadenze->modello()->testo(2, 0), QStringLiteral("0"));
        QVERIFY(testo("lblstato").startsWith(QStringLiteral("3 righe")));
        QVERIFY(bottone("cmdEsporta")->isEnabled());
        // Nobody prints yet.
        QVERIFY(!bottone("cmdStampa")->isEnabled());

        // Another question takes the answer away.
        QTest::keyClick(form.passo, Qt::Key_Backspace);
        QCOMPARE(form.numeri->modello()->rowCount(), 0);
        QVERIFY(!bottone("cmdEsporta")->isEnabled());
        QTest::keyClick(&form, Qt::Key_F5);
        QCOMPARE(form.numeri->modello()->rowCount(), 30);
        // And so does another scope.
        auto* ruota = form.area()->findChild<QCheckBox*>(QStringLiteral("CheckRuota_4"));
        QTest::mouseClick(ruota, Qt::LeftButton, {}, QPoint{8, ruota->height() / 2});
        QCOMPARE(form.cadenze->modello()->rowCount(), 0);
    }

    void due_griglie_proprie_stampano_e_scrivono() {
        auto& form = apri<SchermoDueGriglie>(kMultipli);
        LavoroStampa ricevuto;
        int volte = 0;
        form.imposta_stampa([&](const LavoroStampa& l) {
            ricevuto = l;
            ++volte;
        });
        QTest::keyClick(&form, Qt::Key_P, Qt::ControlModifier);
        QCOMPARE(volte, 0);
        form.passo->setText(QStringLiteral("40"));
        QTest::keyClick(&form, Qt::Key_F5);
        form.numeri->ordina_colonna(0, Verso::decrescente);
        QTest::keyClick(&form, Qt::Key_P, Qt::ControlModifier);
        QCOMPARE(volte, 1);
        QCOMPARE(ricevuto.finestra, &form);
        QCOMPARE(&ricevuto.risposta.ricerca(), &kMultipli);
        QCOMPARE(ricevuto.risposta.domanda.di<ParametriStatistica>().estratto, 40);
        QCOMPARE(ricevuto.risposta.risultato->tabelle.size(), std::size_t{2});
        QCOMPARE(ricevuto.risposta.ordine, (std::vector<std::uint32_t>{1, 0}));
        QCOMPARE(ricevuto.risposta.ambito->intervallo, std::string{"Tutti i Concorsi"});

        MessaggiDiProva detti;
        const QString file = QString::fromStdString((cartella_.percorso() / "multipli.csv").string());
        detti.file = file;
        QTest::keyClick(&form, Qt::Key_E, Qt::ControlModifier);
        QVERIFY(QFile::exists(file));
        QVERIFY(form.findChild<QLabel*>(QStringLiteral("lblstato"))->toolTip().contains(file));

        QTest::keyClick(&form, Qt::Key_F, Qt::ControlModifier);
        QVERIFY(form.numeri->findChild<QLineEdit*>(QStringLiteral("txttrova"))->isVisible());
    }

    void una_ricerca_rifiutata_dice_perche_e_non_lascia_la_risposta_di_prima() {
        auto& form = apri<SchermoDueGriglie>(kMultipli);
        form.passo->setText(QStringLiteral("30"));
        QTest::keyClick(&form, Qt::Key_F5);
        MessaggiDiProva detti;
        form.passo->setText(QString{});
        QTest::keyClick(&form, Qt::Key_F5);
        QCOMPARE(detti.detti.size(), 1);
        QCOMPARE(detti.detti[0].titolo, kTitoloMessaggi);
        QCOMPARE(detti.detti[0].testo, QStringLiteral("Scrivi un numero"));
        QCOMPARE(form.numeri->modello()->rowCount(), 0);
        QVERIFY(!bottone("cmdEsporta")->isEnabled());
    }

    void domande_proprie_senza_area_dei_parametri() {
        auto& form = apri<SchermoDueGriglie>(kMultipli, CorniceRicerca::Domande::proprie);
        QCOMPARE(form.area(), nullptr);
        QCOMPARE(form.findChild<AreaParametri*>(), nullptr);
        form.passo->setText(QStringLiteral("45"));
        QTest::keyClick(&form, Qt::Key_F5);
        QCOMPARE(form.numeri->modello()->rowCount(), 2);
        QVERIFY(!testo("lblstato").contains(QStringLiteral("ambito")));
    }

    void invio_su_un_bottone_preme_quel_bottone() {
        auto& form = apri<SchermoDueGriglie>(kMultipli);
        form.passo->setText(QStringLiteral("30"));
        QSignalSpy chiuso{&form, &FinestraRicerca::chiuso};
        bottone("cmdChiudi")->setFocus();
        QTest::keyClick(bottone("cmdChiudi"), Qt::Key_Return);
        QCOMPARE(form.numeri->modello()->rowCount(), 0);
        QCOMPARE(chiuso.size(), 1);
    }

    void tab_gira_nell_ordine_di_lettura() {
        auto& form = apri<SchermoDueGriglie>(kMultipli, CorniceRicerca::Domande::proprie);
        form.passo->setText(QStringLiteral("30"));
        QTest::keyClick(&form, Qt::Key_F5);
        form.passo->setFocus();
        const auto tab = [&form] {
            QTest::keyClick(form.focusWidget(), Qt::Key_Tab);
            return form.focusWidget();
        };
        QCOMPARE(tab(), bottone("cmdUltima"));
        QCOMPARE(tab()->objectName(), QStringLiteral("cmdRiapri"));
        QCOMPARE(tab(), bottone("Command1"));
        QCOMPARE(tab(), bottone("cmdFiltra"));
        QVERIFY(form.numeri->isAncestorOf(tab()));
    }

    // ---- what all kinds of screens have alike ----

    void il_tag_e_la_chiave_dove_la_riga_non_ne_ha() {
        il_tag_senza_riga_e_la_chiave<SchermoDueGriglie>(kMultipli);
        il_tag_senza_riga_e_la_chiave<SchermoUnaGriglia>(kMultipli);
        il_tag_senza_riga_e_la_chiave<form_tab_pos>(kMultipli);
    }

    void chiudendo_torna_chi_ha_aperto() {
        torna_chi_ha_aperto<SchermoDueGriglie>();
        torna_chi_ha_aperto<SchermoUnaGriglia>();
        torna_chi_ha_aperto<form_tab_pos>();
    }

    void invio_nella_casella_del_concorso_conferma_una_volta() {
        auto& form = apri<form_tab_pos>(*trova_ricerca("tabellone posizionale"));
        int corse = 0;
        connect(&form, &QWidget::windowTitleChanged, this, [&] { ++corse; });
        auto* casella = form.findChild<QLineEdit*>(QStringLiteral("txtconc"));
        casella->setFocus();
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
        QVERIFY(form.pagina()->isAncestorOf(form.focusWidget()));
        QCOMPARE(corse, 1);
        // Enter on a board asks nothing again, and takes nothing away.
        QTest::keyClick(form.focusWidget(), Qt::Key_Return);
        QCOMPARE(corse, 1);
    }

    void le_chiavi_della_finestra_valgono_nelle_caselle() {
        auto& form = apri<SchermoDueGriglie>(kMultipli);
        int stampe = 0;
        form.imposta_stampa([&](const LavoroStampa&) { ++stampe; });
        form.passo->setText(QStringLiteral("30"));
        QTest::keyClick(&form, Qt::Key_F5);
        QTest::keyClick(&form, Qt::Key_F, Qt::ControlModifier);
        auto* trova = form.numeri->findChild<QLineEdit*>(QStringLiteral("txttrova"));
        QVERIFY(trova->hasFocus());
        MessaggiDiProva detti;
        const QString file = QString::fromStdString((cartella_.percorso() / "da_trova.csv").string());
        detti.file = file;
        QTest::keyClick(trova, Qt::Key_E, Qt::ControlModifier);
        QVERIFY(QFile::exists(file));
        QTest::keyClick(trova, Qt::Key_P, Qt::ControlModifier);
        QCOMPARE(stampe, 1);
        form.passo->setFocus();
        QTest::keyClick(form.passo, Qt::Key_P, Qt::ControlModifier);
        QCOMPARE(stampe, 2);
        QFile::remove(file);
        QTest::keyClick(form.passo, Qt::Key_E, Qt::ControlModifier);
        QVERIFY(QFile::exists(file));
    }

    void il_filtro_si_apre_con_il_tasto_e_con_il_bottone() {
        auto& form = apri<SchermoDueGriglie>(kMultipli);
        form.passo->setText(QStringLiteral("30"));
        QTest::keyClick(&form, Qt::Key_F5);
        auto* primo = form.numeri->findChild<QLineEdit*>(QStringLiteral("txtfiltro"));
        auto* secondo = form.cadenze->findChild<QLineEdit*>(QStringLiteral("txtfiltro"));
        QTest::mouseClick(bottone("cmdFiltra"), Qt::LeftButton);
        QVERIFY(primo->hasFocus());
        QVERIFY(!secondo->isVisible());
        // The key opens that of the grid where the keyboard is.
        form.cadenze->setFocus();
        QTest::keyClick(form.focusWidget(), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
        QVERIFY(secondo->hasFocus());
    }

    void si_stampa_e_si_scrive_cio_che_il_filtro_lascia() {
        auto& form = apri<SchermoDueGriglie>(kMultipli);
        LavoroStampa ricevuto;
        form.imposta_stampa([&](const LavoroStampa& l) { ricevuto = l; });
        form.passo->setText(QStringLiteral("10"));
        QTest::keyClick(&form, Qt::Key_F5);
        form.numeri->apri_filtro();
        form.numeri->findChild<QLineEdit*>(QStringLiteral("txtfiltro"))
            ->setText(QStringLiteral("numero > 20 e numero <= 40"));
        form.numeri->ordina_colonna(0, Verso::decrescente);
        form.stampa();
        const Tabella& stampata = ricevuto.risposta.risultato->tabelle.front();
        QCOMPARE(std::get<ColonnaInteri>(stampata.colonne[0]).valori, (std::vector<std::int32_t>{40, 30}));
        QVERIFY(ricevuto.risposta.ordine.empty());
        // The answer itself stays whole.
        QCOMPARE(form.risultato()->tabelle.front().righe(), std::size_t{9});
    }

    void come_l_ultima_volta() {
        {
            auto& form = apri<Form_stat>(*trova_ricerca("ambata capogioco"));
            QVERIFY(!bottone("cmdUltima")->isEnabled());
            QTest::keyClick(&form, Qt::Key_L, Qt::ControlModifier);  // nothing to bring back
            form.area()->imposta_ruote(SelezioneRuote::tutte());
            form.findChild<QComboBox*>(QStringLiteral("ComboIntervallo"))->setCurrentIndex(6);
            form.findChild<QSpinBox*>(QStringLiteral("UpDown1_0"))->setValue(100);
            form.findChild<QLineEdit*>(QStringLiteral("txtcapogioco"))->setText(QStringLiteral("12"));
            form.avvia();
            form.griglia()->ordina_colonna(2, Verso::crescente);
            form.close();
        }
        // A new start, an archive that has grown.
        archivio_ = archivio_pieno(720);
        auto& form = apri<Form_stat>(*trova_ricerca("ambata capogioco"));
        QVERIFY(form.area()->ruote() == SelezioneRuote{});
        QVERIFY(bottone("cmdUltima")->isEnabled());
        QTest::keyClick(&form, Qt::Key_L, Qt::ControlModifier);
        const AmbitoRicerca a = form.area()->ambito();
        QVERIFY(a.ruote == SelezioneRuote::tutte());
        QCOMPARE(a.intervallo, std::size_t{6});
        QCOMPARE(a.tratto.da, 100);
        QCOMPARE(a.tratto.a, 720);
        QCOMPARE(form.findChild<QLineEdit*>(QStringLiteral("txtcapogioco"))->text(), QStringLiteral("12"));
        QVERIFY(form.griglia()->vuota());
        form.avvia();
        QVERIFY(form.griglia()->ordinamento() == std::pair(2, Verso::crescente));
        // Another search has a memory of its own.
        form.close();
        form.apri(*trova_ricerca("ritardo e frequenza dei 90 numeri"), archivio_);
        form.come_l_ultima_volta();
        QCOMPARE(form.area()->ambito().tratto.da, 1);
        archivio_ = archivio_pieno();
    }

    void un_tratto_che_finiva_prima_resta_dov_era() {
        const Ricerca& ricerca = *trova_ricerca("ricerche su tutti gli ambi");
        auto& form = apri<Form_stat>(ricerca);
        form.findChild<QSpinBox*>(QStringLiteral("UpDown1_1"))->setValue(500);
        form.avvia();
        form.close();
        form.apri(ricerca, archivio_);
        QCOMPARE(form.area()->ambito().tratto.a, 700);
        form.come_l_ultima_volta();
        QCOMPARE(form.area()->ambito().tratto.a, 500);
    }

    void riapri_come_l_ultima_volta() {
        const Ricerca& ricerca = *trova_ricerca("ricerche su tutti i terni");
        auto& form = apri<Form_stat>(ricerca);
        auto* scelta = form.findChild<QAction*>(QStringLiteral("mnuRiapri"));
        QVERIFY(!scelta->isChecked());
        form.area()->imposta_ruote(SelezioneRuote::nazionale());
        form.area()->imposta_ruote(SelezioneRuote::tutte());
        form.findChild<QComboBox*>(QStringLiteral("ComboRit"))->setCurrentIndex(1);
        form.findChild<QSpinBox*>(QStringLiteral("UpDown1_0"))->setValue(680);
        form.avvia();
        form.close();
        form.apri(ricerca, archivio_);
        QVERIFY(form.area()->ruote() == SelezioneRuote{});
        scelta->trigger();
        form.apri(ricerca, archivio_);
        QVERIFY(form.area()->ruote() == SelezioneRuote::tutte());
        QCOMPARE(form.area()->ambito().tratto.da, 680);
        QCOMPARE(form.findChild<QComboBox*>(QStringLiteral("ComboRit"))->currentIndex(), 1);
        scelta->trigger();
        form.apri(ricerca, archivio_);
        QVERIFY(form.area()->ruote() == SelezioneRuote{});
    }

    void il_concorso_di_un_tabellone_torna() {
        const Ricerca& ricerca = *trova_ricerca("tabellone posizionale");
        auto& form = apri<form_tab_pos>(ricerca);
        auto* casella = form.findChild<QLineEdit*>(QStringLiteral("txtconc"));
        casella->setFocus();
        casella->selectAll();
        QTest::keyClicks(casella, QStringLiteral("690"));
        form.conferma();
        form.close();
        form.apri(ricerca, archivio_);
        form.show();
        QCOMPARE(casella->text(), QStringLiteral("700"));
        QTest::mouseClick(bottone("cmdUltima"), Qt::LeftButton);
        QCOMPARE(casella->text(), QStringLiteral("690"));
    }

    void ogni_pagina_si_stampa_con_la_sua_riga() {
        // Both ways between the board and the list: what is printed carries the row that made it, and so does
        // its question.
        auto& form = apri<form_tab_pos>(*trova_ricerca("tabellone posizionale"));
        QStringList stampate;
        form.imposta_stampa(
            [&](const LavoroStampa& l) { stampate << testo_qt(l.risposta.ricerca().chiave()); });
        form.conferma();
        form.stampa();
        QTest::mouseClick(bottone("Command7"), Qt::LeftButton);
        form.stampa();
        QTest::mouseClick(bottone("Command9"), Qt::LeftButton);
        form.stampa();
        const QString tabellone = QStringLiteral("tabellone posizionale");
        QCOMPARE(stampate, (QStringList{tabellone, QStringLiteral("i 10 numeri più in ritardo su ogni ruota"),
                                        tabellone}));
    }
};

QTEST_MAIN(TestFinestra)
#include "test_finestra.moc"
