#include "catalogue/ricerche.h"
#include "lunghette/form_lunghette.h"
#include "lunghette/parametri.h"
#include "lunghette/tavola_lunghetta.h"
#include "screens/area_parametri.h"
#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/pannello_avanzamento.h"
#include "screens/tema.h"
#include "statistics/form_stat.h"
#include "statistics/parametri.h"
#include "support/archivi.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>
#include <memory>

using namespace sortimetra;

namespace {

constexpr const char* kLotto = "lunghette ritardate/frequenti per ambo e terno";
constexpr const char* kDieci = "calcolo lunghette per punteggio 10elotto";
constexpr const char* kWfl = "calcolo lunghette per punteggio";

}  // namespace

class TestFormLunghette final : public QObject {
    Q_OBJECT

    prove::CartellaProva cartella_;
    Sessione sessione_{.percorso_programma = cartella_.percorso()};
    ArchivioEstrazioni archivio_ = prove::archivio_casuale(5);
    std::unique_ptr<SchermoLunghetta> form_;

    void apri(const char* chiave) {
        const std::string_view k{chiave};
        if (k == kLotto)
            form_ = std::make_unique<Form_lunghette>(sessione_);
        else if (k == kDieci)
            form_ = std::make_unique<Form_lunghette10Lotto>(sessione_);
        else
            form_ = std::make_unique<Form_lunghetteWFL>(sessione_);
        form_->apri(*trova_ricerca(chiave), archivio_);
        form_->show();
        QVERIFY(QTest::qWaitForWindowActive(form_.get()));
    }
    template <class T>
    T* controllo(const QString& nome) const {
        T* c = form_->findChild<T*>(nome);
        if (c == nullptr) QTest::qFail(qPrintable("manca " + nome), __FILE__, __LINE__);
        return c;
    }
    QComboBox* combo(const char* nome) const { return controllo<QComboBox>(QString::fromLatin1(nome)); }
    QRadioButton* opzione(int i) const {
        return controllo<QRadioButton>(QStringLiteral("Option1_%1").arg(i));
    }
    QLineEdit* casella(int i) const { return controllo<QLineEdit>(QStringLiteral("txtnumpers_%1").arg(i)); }
    void clic(const char* nome) const {
        QTest::mouseClick(controllo<QPushButton>(QString::fromLatin1(nome)), Qt::LeftButton);
    }
    QString testo(const QString& nome) const { return controllo<QLabel>(nome)->text(); }
    /// The filled slots in slot order, as the screen shows them.
    QStringList numeri() const {
        QStringList n;
        for (int i = 0; i < 20; ++i)
            if (const QString t = testo(QStringLiteral("lblnum_%1").arg(i)); !t.isEmpty()) n << t;
        return n;
    }
    /// The same of the search asked without a screen.
    QStringList attesi(const char* chiave, ParametriLunghette p, AmbitoRicerca ambito = {}) const {
        Domanda d = prove::domanda(chiave, ambito);
        d.parametri = std::move(p);
        const Risultato r = prove::esegui(d, archivio_);
        QStringList n;
        for (const auto& t : std::get<std::vector<std::string>>(r.etichette.at(0).testo))
            if (!t.empty()) n << QString::fromStdString(t);
        n << "punteggio " + QString::fromStdString(std::get<std::string>(r.etichette.at(1).testo));
        return n;
    }
    QStringList in_mostra() const { return numeri() << "punteggio " + testo("lblRit_freq"); }

  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }
    void cleanup() { form_.reset(); }

    void come_l_ultima_volta() {
        apri(kLotto);
        combo("Combo1")->setCurrentIndex(2);
        opzione(2)->click();
        QTest::keyClicks(casella(0), QStringLiteral("12"));
        QTest::keyClicks(casella(1), QStringLiteral("34"));
        combo("ComboLunga")->setCurrentIndex(2);
        clic("cmdAvviaRicerca");
        form_->close();
        apri(kLotto);
        QCOMPARE(combo("Combo1")->currentIndex(), 0);
        form_->come_l_ultima_volta();
        QCOMPARE(combo("Combo1")->currentIndex(), 2);
        QVERIFY(opzione(2)->isChecked());
        QCOMPARE(casella(0)->text(), QStringLiteral("12"));
        QCOMPARE(casella(1)->text(), QStringLiteral("34"));
        QCOMPARE(casella(2)->text(), QString{});
        QCOMPARE(combo("ComboLunga")->currentIndex(), 2);
        QVERIFY(numeri().isEmpty());
    }

    void ogni_controllo_c_e_data() {
        QTest::addColumn<QString>("chiave");
        QTest::addColumn<QString>("titolo");
        QTest::addColumn<int>("ricerche");
        QTest::addColumn<int>("caselle");
        QTest::newRow("lotto") << kLotto << "Lunghette Ritardate/Frequenti per Ambo e Terno" << 4 << 3;
        QTest::newRow("10elotto") << kDieci << "Ricerca Lunghette 10 e Lotto" << 22 << 5;
        QTest::newRow("wfl") << kWfl << "Ricerca Lunghette Win for Life" << 22 << 5;
    }
    void ogni_controllo_c_e() {
        QFETCH(QString, chiave);
        QFETCH(QString, titolo);
        QFETCH(int, ricerche);
        QFETCH(int, caselle);
        apri(chiave.toUtf8().constData());
        QCOMPARE(form_->windowTitle(), titolo);
        QCOMPARE(combo("Combo1")->count(), ricerche);
        QCOMPARE(combo("Combo1")->currentIndex(), 0);
        QCOMPARE(combo("ComboLunga")->count(), 16);
        QCOMPARE(combo("ComboLunga")->currentText(), QStringLiteral("5"));
        int visibili = 0;
        for (int i = 0; i < 5; ++i) visibili += casella(i)->isVisible() ? 1 : 0;
        QCOMPARE(visibili, caselle);
        for (int i = 0; i < 20; ++i)
            QVERIFY(!controllo<QLabel>(QStringLiteral("lblnum_%1").arg(i))->accessibleName().isEmpty());
        for (int i = 0; i < 3; ++i) controllo<QLabel>(QStringLiteral("lbloption_%1").arg(i));
        for (const char* nome : {"cmdAvviaRicerca", "cmdAnnulla", "cmdStampa", "cmdscomposizione", "cmdesci"})
            controllo<QPushButton>(QString::fromLatin1(nome));
        for (const char* nome : {"FramePro", "FrameParametri", "FrameParametri2"})
            controllo<QFrame>(QString::fromLatin1(nome));
        QCOMPARE(controllo<QPushButton>("cmdAnnulla")->text(), QStringLiteral("Annulla Ricerca"));
        QCOMPARE(controllo<QCheckBox>("Check1")->isVisible(), ricerche == 22);
        QCOMPARE(controllo<QCheckBox>("Check2")->isVisible(), ricerche == 22);
        // The ten wheels, the wheels of 10eLotto and the hours of Win for Life are asked where they mean
        // something.
        QCOMPARE(controllo<QCheckBox>("CheckRuota_0")->isVisible(), ricerche == 4);
        QCOMPARE(combo("ComboIntervallo")->count(), chiave == kWfl ? 16 : 21);
    }

    void le_didascalie_seguono_la_ricerca_data() {
        QTest::addColumn<int>("indice");
        QTest::addColumn<QString>("prima");
        QTest::addColumn<QString>("seme");
        QTest::addColumn<QString>("desc");
        QTest::addColumn<QString>("punteggio");
        QTest::newRow("r2") << 0 << "Ambata più in Ritardo" << "Ambo più in Ritardo" << ""
                            << "Ritardo per Ambo della lunghetta finora ricavata";
        QTest::newRow("r3") << 1 << "Ambata più in Ritardo" << "Terno più in Ritardo"
                            << "(Ottenuto dall'ambo + in Ritardo)"
                            << "Ritardo per Terno della lunghetta finora ricavata";
        QTest::newRow("f2") << 2 << "Ambata più Frequente" << "Ambo più Frequente" << ""
                            << "Frequenza per Ambo della lunghetta finora ricavata";
        QTest::newRow("f3") << 3 << "Ambata più Frequente" << "Terno più Frequente"
                            << "(Ottenuto dall'ambo + Frequente)"
                            << "Frequenza per Terno della lunghetta finora ricavata";
    }
    void le_didascalie_seguono_la_ricerca() {
        QFETCH(int, indice);
        QFETCH(QString, prima);
        QFETCH(QString, seme);
        QFETCH(QString, desc);
        QFETCH(QString, punteggio);
        apri(kLotto);
        opzione(2)->click();
        combo("Combo1")->setFocus();
        for (int i = 0; i < indice; ++i) QTest::keyClick(combo("Combo1"), Qt::Key_Down);
        QCOMPARE(combo("Combo1")->currentIndex(), indice);
        QCOMPARE(opzione(0)->text(), prima);
        QCOMPARE(testo("Label8"), punteggio);
        const bool terno = indice % 2 == 1;
        QCOMPARE(opzione(terno ? 4 : 1)->text(), seme);
        QCOMPARE(opzione(1)->isVisible(), !terno);
        QCOMPARE(controllo<QLabel>("lbloption_1")->isVisible(), !terno);
        QCOMPARE(opzione(4)->isVisible(), terno);
        QVERIFY(!opzione(4)->isEnabled());
        QCOMPARE(controllo<QLabel>("lbloption_2")->isVisible(), terno);
        QCOMPARE(controllo<QLabel>("lbldesc")->isVisible(), terno);
        if (terno) QCOMPARE(testo("lbldesc"), desc);
        QCOMPARE(opzione(3)->isVisible(), indice == 0);
        // Another search begins with its first option.
        if (indice > 0) QVERIFY(opzione(0)->isChecked());
    }

    void le_voci_hanno_i_loro_spazi() {
        apri(kLotto);
        QCOMPARE(combo("Combo1")->itemText(0), QStringLiteral("più  in  Ritardo  per  Ambo"));
        QCOMPARE(combo("Combo1")->itemText(3), QStringLiteral("più  Frequenti   per  Terno"));
        apri(kDieci);
        QCOMPARE(combo("Combo1")->itemText(10), QStringLiteral("più  in  Ritardo  per  punti 10"));
        QCOMPARE(combo("Combo1")->itemText(11), QStringLiteral("più  Frequenti  per  punti 0"));
        combo("Combo1")->setCurrentIndex(16);
        QCOMPARE(opzione(0)->text(), QStringLiteral("Dal numero + frequente"));
        QCOMPARE(opzione(1)->text(), QStringLiteral("Da punti 5 + frequenti"));
        QCOMPARE(testo("Label8"), QStringLiteral("Frequenza per punti 5 della lunghetta ricavata"));
        QCOMPARE(controllo<QCheckBox>("Check2")->text(),
                 QStringLiteral("Trova ventina più frequente per punti 5"));
        apri(kWfl);
        QCOMPARE(controllo<QCheckBox>("Check2")->text(),
                 QStringLiteral("Trova decina più frequente per punti 3"));
    }

    void il_pulsante_riempie_le_caselle() {
        apri(kLotto);
        clic("cmdAvviaRicerca");
        QCOMPARE(in_mostra(), attesi(kLotto, {}));
        QVERIFY(!testo("lbloption_0").isEmpty());
        // The steps stand in a quiet line, with the numbers that it began with.
        QVERIFY(testo("lblpassi").startsWith("Dai numeri "));
        QVERIFY(controllo<QPushButton>("cmdAvviaRicerca")->isEnabled());
        // Choosing another option takes the seeds away.
        QTest::mouseClick(opzione(1), Qt::LeftButton, {}, QPoint{8, opzione(1)->height() / 2});
        QCOMPARE(testo("lbloption_0"), QString{});
        QTest::keyClick(form_.get(), Qt::Key_F5);
        QCOMPARE(in_mostra(), attesi(kLotto, {.opzione = 1}));
        QVERIFY(testo("lbloption_1").contains(" - "));
    }

    void invio_avvia_e_le_ruote_svuotano() {
        apri(kLotto);
        combo("Combo1")->setCurrentIndex(3);
        QTest::keyClick(combo("ComboLunga"), Qt::Key_Return);
        QCOMPARE(in_mostra(), attesi(kLotto, {.ricerca = 3}));
        QTest::mouseClick(controllo<QCheckBox>("CheckRuota_1"), Qt::LeftButton);
        QVERIFY(numeri().isEmpty());
        QCOMPARE(testo("lblRit_freq"), QString{});
        QVERIFY(!controllo<QPushButton>("cmdscomposizione")->isEnabled());
        clic("cmdAvviaRicerca");
        AmbitoRicerca ambito;
        ambito.ruote.clic(1, true);
        QCOMPARE(in_mostra(), attesi(kLotto, {.ricerca = 3}, ambito));
    }

    void l_ambito_vuoto_lascia_tutto_bianco_senza_messaggi() {
        MessaggiDiProva messaggi;
        apri(kLotto);
        clic("cmdAvviaRicerca");
        QVERIFY(!numeri().isEmpty());
        form_->area()->findChild<QLineEdit*>("txtda")->setText("3");
        form_->area()->findChild<QLineEdit*>("txta")->setText("2");
        clic("cmdAvviaRicerca");
        QVERIFY(numeri().isEmpty());
        QVERIFY(messaggi.detti.isEmpty());
        QVERIFY(controllo<QPushButton>("cmdAvviaRicerca")->isEnabled());
    }

    void la_lunghezza_allunga_e_non_accorcia() {
        apri(kLotto);
        clic("cmdAvviaRicerca");
        const QStringList cinque = in_mostra();
        combo("ComboLunga")->setFocus();
        QTest::keyClick(combo("ComboLunga"), Qt::Key_End);
        QCOMPARE(combo("ComboLunga")->currentText(), QStringLiteral("20"));
        const QStringList venti = in_mostra();
        QCOMPARE(venti, attesi(kLotto, {.lunghezza = 20}));
        // The seed is told of once, then the seventeen numbers.
        QCOMPARE(testo("lblpassi").count(QStringLiteral("\u00A0(")), 17);
        QTest::keyClick(combo("ComboLunga"), Qt::Key_Home);
        QCOMPARE(combo("ComboLunga")->currentText(), QStringLiteral("5"));
        QCOMPARE(in_mostra(), venti);
        clic("cmdAvviaRicerca");
        QCOMPARE(in_mostra(), cinque);
    }

    void l_automatica_non_si_allunga() {
        apri(kLotto);
        opzione(3)->click();
        clic("cmdAvviaRicerca");
        const QStringList cinque = in_mostra();
        QCOMPARE(cinque, attesi(kLotto, {.opzione = 3}));
        combo("ComboLunga")->setCurrentIndex(4);
        QCOMPARE(in_mostra(), cinque);
    }

    void i_numeri_personali_con_la_tastiera() {
        apri(kLotto);
        QVERIFY(!casella(0)->isEnabled());
        QTest::mouseClick(opzione(2), Qt::LeftButton, {}, QPoint{8, opzione(2)->height() / 2});
        QVERIFY(casella(0)->isEnabled());
        QVERIFY(casella(0)->hasFocus());
        QVERIFY(!casella(1)->isEnabled());
        // Letters do not get in; two digits go on to the next box.
        QTest::keyClicks(casella(0), "a1x2");
        QCOMPARE(casella(0)->text(), QStringLiteral("12"));
        QTRY_VERIFY(casella(1)->hasFocus());
        QTest::keyClicks(casella(1), "7");
        QVERIFY(casella(1)->hasFocus());
        QVERIFY(casella(2)->isEnabled());
        // The same number twice: the box that is left empties, and the one after it closes.
        QTest::keyClick(casella(1), Qt::Key_Backspace);
        QVERIFY(!casella(2)->isEnabled());
        QTest::keyClicks(casella(1), "12");
        QTRY_COMPARE(casella(1)->text(), QString{});
        QVERIFY(casella(1)->isEnabled());
        QVERIFY(!casella(2)->isEnabled());
        casella(1)->setFocus();
        QTest::keyClicks(casella(1), "34");
        QTRY_VERIFY(casella(2)->hasFocus());
        QTest::keyClick(casella(2), Qt::Key_Return);
        QCOMPARE(in_mostra(), attesi(kLotto, {.opzione = 2, .numeri = {12, 34}}));
        // Another option closes the boxes and leaves their text.
        opzione(0)->click();
        QVERIFY(!casella(0)->isEnabled());
        QCOMPARE(casella(0)->text(), QStringLiteral("12"));
        opzione(2)->click();
        QVERIFY(casella(2)->isEnabled());
    }

    void un_numero_che_non_c_e_svuota_la_casella_e_chiude_le_altre() {
        apri(kLotto);
        opzione(2)->click();
        QTest::keyClicks(casella(0), "12");
        QTest::keyClicks(casella(1), "34");
        QTest::keyClicks(casella(2), "5");
        casella(0)->setFocus();
        QTest::keyClicks(casella(0), "91");
        QTRY_COMPARE(casella(0)->text(), QString{});
        QVERIFY(!casella(1)->isEnabled());
        QCOMPARE(casella(1)->text(), QString{});
        // Without a number nothing happens.
        clic("cmdAvviaRicerca");
        QVERIFY(numeri().isEmpty());
        QVERIFY(testo("lblpassi").contains("almeno un numero"));
        apri(kWfl);
        opzione(2)->click();
        QTest::keyClicks(casella(0), "21");
        QTRY_COMPARE(casella(0)->text(), QString{});
        QTest::keyClicks(casella(0), "20");
        QTest::keyClicks(casella(1), "3");
        clic("cmdAvviaRicerca");
        QCOMPARE(in_mostra(), attesi(kWfl, {.opzione = 2, .numeri = {20, 3}}));
    }

    void la_posizione_arriva_a_dieci() {
        MessaggiDiProva messaggi;
        apri(kWfl);
        combo("Combo1")->setCurrentIndex(14);
        combo("ComboLunga")->setCurrentIndex(12);
        auto* check1 = controllo<QCheckBox>("Check1");
        QTest::keyClick(check1, Qt::Key_Space);
        QVERIFY(check1->isChecked());
        QCOMPARE(combo("ComboLunga")->currentText(), QStringLiteral("10"));
        QCOMPARE(messaggi.detti.size(), 1);
        QCOMPARE(
            messaggi.detti[0].testo,
            QStringLiteral("Con l'analisi per posizione la lunghetta può essere al massimo di 10 numeri."));
        clic("cmdAvviaRicerca");
        QCOMPARE(in_mostra(), attesi(kWfl, {.ricerca = 14, .lunghezza = 10, .posizione = true}));
        combo("ComboLunga")->setCurrentIndex(7);
        QCOMPARE(messaggi.detti.size(), 2);
        QCOMPARE(combo("ComboLunga")->currentText(), QStringLiteral("10"));
        combo("ComboLunga")->setCurrentIndex(2);
        QCOMPARE(messaggi.detti.size(), 2);
        QVERIFY(check1->isChecked());
    }

    void la_piu_frequente_vuole_venti_numeri() {
        apri(kDieci);
        auto* check1 = controllo<QCheckBox>("Check1");
        auto* check2 = controllo<QCheckBox>("Check2");
        clic("cmdAvviaRicerca");
        const QStringList prima = in_mostra();
        check1->click();
        QTest::keyClick(check2, Qt::Key_Space);
        QVERIFY(check2->isChecked());
        QVERIFY(!check1->isChecked());
        QVERIFY(!check1->isEnabled());
        for (const int i : {0, 1, 2}) QVERIFY(!opzione(i)->isEnabled());
        QCOMPARE(combo("ComboLunga")->currentText(), QStringLiteral("20"));
        // The length that it brings along makes nothing longer.
        QCOMPARE(in_mostra(), prima);
        QCOMPARE(opzione(1)->text(), QStringLiteral("Più frequente x punti 5"));
        QCOMPARE(testo("Label8"), QStringLiteral("Frequenza per punti 0 della lunghetta ricavata"));
        clic("cmdAvviaRicerca");
        QCOMPARE(in_mostra(), attesi(kDieci, {.lunghezza = 20, .frequente = true}));
        combo("ComboLunga")->setCurrentIndex(3);
        QVERIFY(!check2->isChecked());
        QVERIFY(check1->isEnabled());
        QVERIFY(opzione(0)->isEnabled());
        QCOMPARE(testo("Label8"), QStringLiteral("Ritardo per punti 0 della lunghetta ricavata"));
    }

    void a_punti_l_allungo_finisce_col_calcolo() {
        apri(kDieci);
        combo("Combo1")->setCurrentIndex(14);
        clic("cmdAvviaRicerca");
        QCOMPARE(in_mostra(), attesi(kDieci, {.ricerca = 14}));
        combo("ComboLunga")->setCurrentIndex(3);
        QCOMPARE(in_mostra(), attesi(kDieci, {.ricerca = 14, .lunghezza = 8}));
    }

    void l_ora_del_win_for_life() {
        apri(kWfl);
        combo("ComboIntervallo")->setCurrentText("10:00");
        combo("Combo1")->setCurrentIndex(15);
        clic("cmdAvviaRicerca");
        AmbitoRicerca alle_dieci;
        alle_dieci.ora = *trova_ora("10:00");
        QCOMPARE(in_mostra(), attesi(kWfl, {.ricerca = 15}, alle_dieci));
    }

    void la_scomposizione_elenca_gli_ambi() {
        apri(kLotto);
        QTest::mouseClick(controllo<QCheckBox>("CheckRuota_1"), Qt::LeftButton);
        form_->area()->findChild<QLineEdit*>("txtda")->setText("2");
        combo("ComboLunga")->setCurrentIndex(1);
        clic("cmdAvviaRicerca");
        QCOMPARE(numeri().size(), 6);
        clic("cmdscomposizione");
        Form_stat* stat = form_->scomposizione();
        QVERIFY(stat != nullptr);
        QVERIFY(stat->isVisible());
        QVERIFY(!form_->isVisible());
        QCOMPARE(stat->windowTitle(), QStringLiteral("Scomposizione Gruppo (6 numeri = 15 Ambi)"));
        QCOMPARE(stat->griglia()->modello()->rowCount(), 15);
        QCOMPARE(stat->area()->ambito().tratto.da, 2);
        QVERIFY(stat->area()->ruote() == form_->area()->ruote());
        auto* tipo = stat->findChild<QComboBox*>("ComboRit");
        QCOMPARE(tipo->count(), 2);
        QCOMPARE(tipo->currentIndex(), 1);
        QCOMPARE(stat->griglia()->modello()->testo(0, 0).left(2), numeri()[0].rightJustified(2, '0'));
        QTest::keyClick(stat, Qt::Key_Escape);
        QTRY_VERIFY(form_->isVisible());
        QCOMPARE(numeri().size(), 6);
    }

    void la_scomposizione_si_misura_nel_gioco_data() {
        QTest::addColumn<QString>("chiave");
        QTest::addColumn<QString>("scomposizione");
        QTest::newRow("10elotto") << kDieci << "scomposizione 10 e lotto";
        QTest::newRow("wfl") << kWfl << "scomposizione win for life";
    }
    void la_scomposizione_si_misura_nel_gioco() {
        QFETCH(QString, chiave);
        QFETCH(QString, scomposizione);
        apri(chiave.toUtf8().constData());
        combo("Combo1")->setCurrentIndex(14);
        clic("cmdAvviaRicerca");
        clic("cmdscomposizione");
        Form_stat* stat = form_->scomposizione();
        QCOMPARE(stat->windowTitle(), QStringLiteral("Scomposizione Gruppo (5 numeri = 10 Ambi)"));
        Domanda d = prove::domanda(scomposizione.toStdString());
        ParametriStatistica p{.tipo = 1};
        for (const QString& n : numeri()) p.numeri.push_back(n.toInt());
        d.parametri = std::move(p);
        const Risultato attesa = prove::esegui(d, archivio_);
        QCOMPARE(attesa.tabelle[0].righe(), std::size_t{10});
        for (int r = 0; r < 10; ++r)
            for (int c = 0; c < 4; ++c)
                QCOMPARE(stat->griglia()->modello()->testo(r, c),
                         QString::fromStdString(attesa.tabelle[0].testo(static_cast<std::size_t>(r),
                                                                        static_cast<std::size_t>(c))));
    }

    void la_stampa_riceve_la_domanda() {
        apri(kLotto);
        std::vector<Risposta> stampate;
        form_->imposta_stampa([&](const LavoroStampa& l) { stampate.push_back(l.risposta); });
        QVERIFY(!controllo<QPushButton>("cmdStampa")->isEnabled());
        combo("Combo1")->setCurrentIndex(2);
        clic("cmdAvviaRicerca");
        clic("cmdStampa");
        QCOMPARE(stampate.size(), std::size_t{1});
        QCOMPARE(stampate[0].domanda.di<ParametriLunghette>().ricerca, 2);
    }

    /// One click is told to the search once; then it goes on.
    void un_annullo_a_passi_vale_una_volta() {
        QWidget finestra;
        auto* disabilitato = new QWidget{&finestra};
        PannelloAvanzamento pannello{&finestra};
        CorsaRicerca corsa{disabilitato, &pannello, disabilitato};
        corsa.imposta_annullo_a_passi(true);
        QVERIFY(corsa.procedi(1, 90));
        emit pannello.annulla();
        QVERIFY(!corsa.procedi(2, 90));
        QVERIFY(corsa.procedi(3, 90));
        corsa.imposta_annullo_a_passi(false);
        emit pannello.annulla();
        QVERIFY(!corsa.procedi(4, 90));
        QVERIFY(!corsa.procedi(5, 90));
    }

    void tab_gira_in_ordine_di_lettura() {
        apri(kDieci);
        QStringList giro;
        controllo<QComboBox>("Combo1")->setFocus();
        QWidget* inizio = QApplication::focusWidget();
        for (int i = 0; i < 40; ++i) {
            giro << QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            if (QApplication::focusWidget() == inizio) break;
        }
        const QStringList attesi{"Combo1", "Option1_0", "Check1", "Check2", "ComboLunga", "cmdAvviaRicerca"};
        int posto = -1;
        for (const QString& nome : attesi) {
            QVERIFY2(giro.indexOf(nome) > posto, qPrintable(nome + " in " + giro.join(' ')));
            posto = static_cast<int>(giro.indexOf(nome));
        }
        QVERIFY(giro.contains("cmdesci"));
    }

    void sta_in_960_per_540() {
        for (const char* chiave : {kLotto, kDieci, kWfl}) {
            apri(chiave);
            clic("cmdAvviaRicerca");
            QVERIFY2(form_->minimumSizeHint().width() <= 960, chiave);
            QVERIFY2(form_->minimumSizeHint().height() <= 512, chiave);
        }
    }
};

QTEST_MAIN(TestFormLunghette)
#include "test_form_lunghette.moc"
