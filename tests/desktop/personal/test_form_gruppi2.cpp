#include "files/file_sicuro.h"
#include "personal/form_gruppi2.h"
#include "personal/scelta_numeri.h"
#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/tema.h"
#include "statistics/pannello_gruppo.h"
#include "support/archivi.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTableWidget>
#include <QtTest>
#include <memory>

using namespace sortimetra;

namespace {

ArchivioEstrazioni archivio_piccolo() {
    return prove::da_testo(
        "1 BA 1 10 20 30 40\n2 BA 50 51 52 53 54\n3 BA 50 51 52 53 54\n4 BA 4 2 60 61 62\n"
        "5 BA 50 51 52 53 54\n");
}

}  // namespace

class TestFormGruppi2 final : public QObject {
    Q_OBJECT

    std::unique_ptr<prove::CartellaProva> cartella_;
    std::unique_ptr<Sessione> sessione_;
    ArchivioEstrazioni archivio_ = archivio_piccolo();
    std::unique_ptr<Form_Gruppi2> form_;
    std::unique_ptr<MessaggiDiProva> messaggi_;

    template <class T>
    [[nodiscard]] T* controllo(const char* nome) const {
        return form_->findChild<T*>(QString::fromLatin1(nome));
    }
    void clic(const char* nome) const {
        auto* b = controllo<QPushButton>(nome);
        QVERIFY2(b != nullptr, nome);
        // What was shown a moment ago takes its place with the next turn of the event loop.
        QApplication::processEvents();
        QTest::mouseClick(b, Qt::LeftButton);
    }
    [[nodiscard]] QTableWidget* tavola() const { return controllo<QTableWidget>("MSFlexGrid2"); }
    [[nodiscard]] QString detto() const {
        return messaggi_->detti.isEmpty() ? QString{} : messaggi_->detti.back().testo;
    }
    void segna(std::initializer_list<int> numeri) const {
        for (const int n : numeri)
            QTest::mouseClick(form_->scelta()->viewport(), Qt::LeftButton, {},
                              form_->scelta()->visualItemRect(form_->scelta()->cella(n)).center());
    }
    /// Two lunghette of three numbers.
    void inserisci() {
        controllo<QComboBox>("Cmblunghe")->setCurrentIndex(1);
        controllo<QComboBox>("cmblunghe2")->setCurrentIndex(2);
        segna({1, 2, 3});
        clic("cmdconferma");
        segna({4, 5, 6});
        clic("cmdconferma");
    }
    void salva(const QString& nome) {
        clic("cmdsalvagruppo");
        controllo<QLineEdit>("txtnomegruppo")->setText(nome);
        clic("cmdoksalva");
    }
    [[nodiscard]] static QString cella(const GrigliaRisultati* g, int riga, int colonna) {
        return g->modello()->testo(riga, colonna);
    }

  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }
    void init() {
        cartella_ = std::make_unique<prove::CartellaProva>();
        sessione_ = std::make_unique<Sessione>(Sessione{.percorso_programma = cartella_->percorso()});
        messaggi_ = std::make_unique<MessaggiDiProva>();
        form_ = std::make_unique<Form_Gruppi2>(*sessione_);
        form_->apri(*trova_ricerca("ricerche per gruppi"), archivio_);
        form_->show();
        QApplication::setActiveWindow(form_.get());
    }
    void cleanup() {
        form_.reset();
        messaggi_.reset();
    }

    void ogni_controllo_ha_il_suo_nome() {
        for (const char* nome :
             {"Cmblunghe",      "cmblunghe2",    "ComboRit",    "MSHFlexGrid1", "MSFlexGrid2",
              "MSHFlexGrid2",   "ListView1",     "ListView2",   "ListView3",    "ListView4",
              "ListView5",      "cmdnuovo",      "cmdconferma", "Command1",     "cmdannullagruppo",
              "cmdsalvagruppo", "cmdaprigruppo", "cmdanalizza", "cmddettaglio", "Command11",
              "Command12",      "cmdapri",       "cmdelimina",  "cmdoksalva",   "txtnomegruppo",
              "Frame7",         "Frame9",        "Combo1",      "lblprob",      "lblfasce_0",
              "lblfasce_2",     "SkinLabel5",    "Label4",      "lblnumeri"})
            QVERIFY2(controllo<QWidget>(nome) != nullptr, nome);
        QCOMPARE(controllo<QComboBox>("Cmblunghe")->count(), 50);
        QCOMPARE(controllo<QComboBox>("Cmblunghe")->currentText(), QStringLiteral("5"));
        QCOMPARE(controllo<QComboBox>("cmblunghe2")->count(), 20);
        QCOMPARE(controllo<QComboBox>("cmblunghe2")->currentText(), QStringLiteral("10"));
    }

    void la_sorte_segue_la_lunghezza() {
        auto* sorte = controllo<QComboBox>("ComboRit");
        QCOMPARE(sorte->count(), 5);
        controllo<QComboBox>("cmblunghe2")->setCurrentIndex(0);
        QCOMPARE(sorte->count(), 1);
        QCOMPARE(sorte->itemText(0), QStringLiteral("per Ambata"));
        controllo<QComboBox>("cmblunghe2")->setCurrentIndex(3);
        QCOMPARE(sorte->count(), 4);
        QCOMPARE(sorte->itemText(3), QStringLiteral("per Quaterna"));
    }

    void si_inserisce_una_lunghetta_alla_volta() {
        controllo<QComboBox>("Cmblunghe")->setCurrentIndex(1);
        controllo<QComboBox>("cmblunghe2")->setCurrentIndex(2);
        segna({1, 2});
        clic("cmdconferma");
        QCOMPARE(detto(), QStringLiteral("Selezionare 3 numeri"));
        QCOMPARE(form_->gruppo().righe(), std::size_t{0});
        segna({3});
        clic("cmdconferma");
        QCOMPARE(form_->scelta()->numeri().size(), std::size_t{0});
        QCOMPARE(tavola()->item(0, 2)->text(), QStringLiteral("3"));
        QVERIFY(controllo<QLabel>("Label4")->text().startsWith(QStringLiteral("Lunghe inserite 1")));
        clic("cmdanalizza");
        QCOMPARE(detto(), QStringLiteral("Completare l'inserimento del gruppo da analizzare."));
        clic("cmdsalvagruppo");
        QCOMPARE(detto(), QStringLiteral("Inserimento gruppo non completato, impossibile salvare."));
        segna({4, 5, 6});
        clic("cmdconferma");
        QCOMPARE(form_->gruppo().righe(), std::size_t{2});
        segna({7, 8, 9});
        clic("cmdconferma");
        QCOMPARE(detto(), QStringLiteral("Inserimento gruppo completato"));
        QCOMPARE(form_->gruppo().righe(), std::size_t{2});
        tavola()->selectRow(0);
        clic("Command1");
        QCOMPARE(form_->gruppo().righe(), std::size_t{1});
        QCOMPARE(tavola()->item(0, 0)->text(), QStringLiteral("4"));
        clic("cmdannullagruppo");
        QCOMPARE(form_->gruppo().righe(), std::size_t{0});
    }

    void l_analisi_riempie_le_liste() {
        inserisci();
        clic("cmdanalizza");
        const PannelloGruppo* p = form_->pannello();
        QVERIFY(p->isVisible());
        QCOMPARE(p->esiti()->modello()->rowCount(), 3);
        QCOMPARE(cella(p->esiti(), 1, 0), QStringLiteral("2"));
        QCOMPARE(cella(p->ritardi(), 0, 2), QStringLiteral("66,67%"));
        QCOMPARE(controllo<QLabel>("lblfasce_0")->text(), QStringLiteral("0 - 2  (75%)"));
        // The most frequent delay's row is chosen.
        QCOMPARE(p->ritardi()->vista()->currentIndex().row(), 0);
        // Delay 1, longest 2: one draw is left to ask about.
        QVERIFY(controllo<QFrame>("Frame7")->isVisible());
        QCOMPARE(controllo<QComboBox>("Combo1")->count(), 1);
        QCOMPARE(controllo<QLabel>("lblprob")->text(), QStringLiteral("100,00%"));
        // Another wheel takes the answer away and brings the group back.
        QTest::mouseClick(controllo<QCheckBox>("CheckRuota_1"), Qt::LeftButton);
        QVERIFY(!p->isVisible());
        QVERIFY(tavola()->isVisible());
        QCOMPARE(form_->gruppo().righe(), std::size_t{2});
    }

    void i_pulsanti_cmdstat_ordinano_le_due_liste() {
        inserisci();
        clic("cmdanalizza");
        clic("cmdstat_0");
        QCOMPARE(cella(form_->pannello()->ritardi(), 0, 0), QStringLiteral("2"));
        clic("cmdstat_0");
        QCOMPARE(cella(form_->pannello()->ritardi(), 0, 0), QStringLiteral("0"));
        clic("cmdstat_4");
        QCOMPARE(cella(form_->pannello()->esiti(), 0, 1), QStringLiteral("4"));
        clic("cmdstat_5");
        QCOMPARE(cella(form_->pannello()->esiti(), 0, 2), QStringLiteral("04/01/2000"));
    }

    void il_dettaglio_e_la_scomposizione() {
        inserisci();
        clic("cmdanalizza");
        PannelloGruppo* p = form_->pannello();
        QVERIFY(!p->lunghette()->isVisible());
        clic("cmddettaglio");
        QVERIFY(p->lunghette()->isVisible());
        QCOMPARE(cella(p->lunghette(), 1, 0), QStringLiteral("4 - 5 - 6"));
        p->lunghette()->vista()->selectRow(1);
        clic("SkinLabel5");
        QVERIFY(p->scomposta());
        QCOMPARE(p->combinazioni()->modello()->rowCount(), 3);
        QCOMPARE(cella(p->combinazioni(), 0, 0), QStringLiteral("04"));
        clic("Command12");
        QVERIFY(!p->scomposta());
        clic("Command11");
        QVERIFY(!p->lunghette()->isVisible());
    }

    void oltre_il_terno_niente_scomposizione() {
        controllo<QComboBox>("Cmblunghe")->setCurrentIndex(0);
        controllo<QComboBox>("cmblunghe2")->setCurrentIndex(3);
        segna({1, 2, 3, 4});
        clic("cmdconferma");
        controllo<QComboBox>("ComboRit")->setCurrentIndex(3);
        clic("cmdanalizza");
        clic("cmddettaglio");
        QVERIFY(!controllo<QPushButton>("SkinLabel5")->isVisible());
    }

    void si_salva_si_apre_si_elimina() {
        clic("cmdaprigruppo");
        QCOMPARE(detto(), QStringLiteral("Nessun gruppo di lunghette è stato ancora salvato."));
        inserisci();
        clic("cmdsalvagruppo");
        // While a name is asked for nothing else can be done.
        for (const char* nome :
             {"cmdnuovo", "cmdaprigruppo", "cmdanalizza", "cmdconferma", "Command1", "cmdChiudi"})
            QVERIFY2(!controllo<QPushButton>(nome)->isEnabled(), nome);
        QVERIFY(!controllo<QComboBox>("cmblunghe2")->isEnabled());
        clic("cmdoksalva");
        QVERIFY(controllo<QLineEdit>("txtnomegruppo")->isVisible());
        QTest::keyClicks(controllo<QLineEdit>("txtnomegruppo"), QStringLiteral("Mio"));
        QTest::keyClick(controllo<QLineEdit>("txtnomegruppo"), Qt::Key_Return);
        QVERIFY(controllo<QPushButton>("cmdChiudi")->isEnabled());
        QVERIFY(controllo<QComboBox>("cmblunghe2")->isEnabled());
        QVERIFY(controllo<QPushButton>("cmdnuovo")->isEnabled());
        QCOMPARE(leggi_file(cartella_->percorso() / "grup.dat").value_or(""),
                 std::string{"\"Mio\"\r\n2,3\r\n1,2,3,4,5,6\r\n"});
        salva(QStringLiteral("Mio"));
        QCOMPARE(detto(), QStringLiteral("Il nome scelto è già in uso. Impossibile salvare"));
        QCOMPARE(messaggi_->detti.back().titolo, QStringLiteral("Sortimetra 2004"));
        QTest::keyClick(form_.get(), Qt::Key_Escape);
        QVERIFY(form_->isVisible());

        clic("cmdnuovo");
        controllo<QComboBox>("cmblunghe2")->setCurrentIndex(9);
        clic("cmdaprigruppo");
        QCOMPARE(cella(form_->salvati(), 0, 0), QStringLiteral("Mio"));
        clic("cmdapri");
        QCOMPARE(form_->gruppo().righe(), std::size_t{2});
        QCOMPARE(controllo<QComboBox>("cmblunghe2")->currentText(), QStringLiteral("3"));
        QCOMPARE(controllo<QLabel>("lblnome")->text(), QStringLiteral("Nome Gruppo: Mio"));
        clic("cmdaprigruppo");
        clic("cmdelimina");
        QCOMPARE(form_->salvati()->modello()->rowCount(), 0);
        QVERIFY(!std::filesystem::exists(cartella_->percorso() / "grup.dat"));
        clic("cmdchiudielenco");
        clic("cmdaprigruppo");
        QCOMPARE(detto(), QStringLiteral("Nessun gruppo di lunghette è stato ancora salvato."));
    }

    void un_file_rovinato_si_dice_e_resta_com_era() {
        const std::string rovinato = "\"A\"\r\n2,3\r\n1,2,x,4,5,6\r\n";
        QVERIFY(scrivi_file(cartella_->percorso() / "grup.dat", rovinato).has_value());
        clic("cmdaprigruppo");
        clic("cmdapri");
        QVERIFY(detto().contains(QStringLiteral("riga 3")));
        QCOMPARE(form_->gruppo().righe(), std::size_t{0});
        QCOMPARE(leggi_file(cartella_->percorso() / "grup.dat").value_or(""), rovinato);
    }

    void ambito_vuoto() {
        inserisci();
        controllo<QLineEdit>("txtda")->setText(QStringLiteral("4"));
        controllo<QLineEdit>("txta")->setText(QStringLiteral("2"));
        clic("cmdanalizza");
        QCOMPARE(detto(), QStringLiteral("Non ci sono estrazioni per l'intervallo selezionato"));
        QVERIFY(!form_->pannello()->isVisible());
    }
};

QTEST_MAIN(TestFormGruppi2)
#include "test_form_gruppi2.moc"
