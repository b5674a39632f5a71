#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/tema.h"
#include "support/archivi.h"
#include "tools/ciclometria.h"
#include "tools/form_som_dis_ciclo.h"
#include "tools/parametri.h"

#include <QApplication>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QtTest>
#include <memory>

using namespace sortimetra;

namespace {

/// Draws 1 to 12 without 8, on the first days of 2000, in which Bari and Cagliari have the same first sum.
ArchivioEstrazioni archivio_piccolo() {
    std::string testo;
    for (int c = 1; c <= 12; ++c)
        for (int w = 0; w < kRuote && c != 8; ++w)
            testo += std::to_string(c) + " " + std::string{kNomiRuote[static_cast<std::size_t>(w)].codice} +
                     " " + std::to_string(w < 2 ? c + w : 20 + w) + " " +
                     std::to_string(w < 2 ? 80 - w : 40 + 2 * w) + " - - -\n";
    return prove::da_testo(testo);
}

}  // namespace

class TestFormCiclometria final : public QObject {
    Q_OBJECT

    prove::CartellaProva cartella_;
    Sessione sessione_{.percorso_programma = cartella_.percorso()};
    ArchivioEstrazioni archivio_ = archivio_piccolo();
    std::unique_ptr<Form_som_dis_ciclo> form_;

    void apri(const ArchivioEstrazioni& archivio) {
        form_ = std::make_unique<Form_som_dis_ciclo>(sessione_);
        form_->apri(*trova_ricerca("calcolo somme e distanze ciclometriche"), archivio);
        form_->show();
        QApplication::setActiveWindow(form_.get());
    }
    void apri() { apri(archivio_); }
    template <class Tipo>
    [[nodiscard]] Tipo* trova(const char* nome) const {
        return form_->findChild<Tipo*>(QString::fromLatin1(nome));
    }
    [[nodiscard]] const Tabella& tabella(std::size_t i) const { return form_->risultato()->tabelle.at(i); }
    [[nodiscard]] QString titolo() const { return QString::fromStdString(tabella(0).titoli[0][0]); }
    [[nodiscard]] QString griglia(int i, int riga, int colonna) const {
        const auto* vista = form_->findChild<QTableView*>(QStringLiteral("MSHFlexGrid1_%1").arg(i));
        return vista->model()->index(riga, colonna).data().toString();
    }
    void scrivi(const QString& testo) const {
        auto* casella = trova<QLineEdit>("txtConc");
        casella->setFocus();
        casella->selectAll();
        QTest::keyClicks(casella, testo);
    }
    [[nodiscard]] QDate giorno() const { return trova<QDateEdit>("DTPicker1")->date(); }

  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }

    void si_apre_sull_ultima_estrazione() {
        apri();
        QCOMPARE(form_->windowTitle(), QStringLiteral("Somme e Distanze Ciclometriche"));
        QCOMPARE(trova<QLineEdit>("txtConc")->text(), QStringLiteral("12"));
        QCOMPARE(giorno(), QDate(2000, 1, 12));
        QCOMPARE(titolo(), QStringLiteral("Estrazione - 12/01/2000"));
        QCOMPARE(trova<QLabel>("lbltabella_0")->text(), QStringLiteral("Estrazione - 12/01/2000"));
        QCOMPARE(trova<QLabel>("lbltabella_1")->text(), QStringLiteral("Somma Ciclometrica"));
        QCOMPARE(trova<QLabel>("lbltabella_2")->text(), QStringLiteral("Distanza Ciclometrica"));
        QCOMPARE(griglia(0, 0, 0), QStringLiteral("Bari"));
        QCOMPARE(griglia(0, 0, 1), QStringLiteral("12"));
        QCOMPARE(griglia(0, 0, 3), QStringLiteral("..."));
        QCOMPARE(griglia(1, 0, 1), QStringLiteral("2"));
        QCOMPARE(griglia(1, 1, 1), QStringLiteral("2"));
        QCOMPARE(griglia(2, 0, 1), QStringLiteral("22"));
        // The isotopes have a shade in common, and stand in words beside.
        QCOMPARE(tabella(1).sfondo(0, 1), kPaletta[0]);
        QCOMPARE(tabella(1).sfondo(1, 1), kPaletta[0]);
        QVERIFY(trova<QLabel>("lblisotopi")->text().contains("Somma 1°- 2°: 2 a Bari e Cagliari"));
        QVERIFY(trova<QLabel>("lblnota")->text().contains("isotope orizzontali"));
        QVERIFY(!trova<QPushButton>("cmdMostra")->isVisible());
        QCOMPARE(trova<QPushButton>("cmdChiudi")->text().remove('&'), QStringLiteral("Chiudi"));
    }

    void casella_e_data_si_seguono() {
        apri();
        scrivi("3");
        QCOMPARE(titolo(), QStringLiteral("Estrazione - 03/01/2000"));
        QCOMPARE(giorno(), QDate(2000, 1, 3));
        QTest::keyClick(trova<QLineEdit>("txtConc"), Qt::Key_Up);
        QCOMPARE(titolo(), QStringLiteral("Estrazione - 04/01/2000"));
        QCOMPARE(giorno(), QDate(2000, 1, 4));
        trova<QDateEdit>("DTPicker1")->setDate({2000, 1, 7});
        QCOMPARE(trova<QLineEdit>("txtConc")->text(), QStringLiteral("7"));
        QCOMPARE(titolo(), QStringLiteral("Estrazione - 07/01/2000"));
        QCOMPARE(griglia(0, 0, 1), QStringLiteral("7"));
    }

    void un_giorno_senza_estrazione_mostra_la_precedente() {
        apri();
        trova<QDateEdit>("DTPicker1")->setDate({2000, 1, 8});
        QCOMPARE(trova<QLineEdit>("txtConc")->text(), QStringLiteral("7"));
        QCOMPARE(giorno(), QDate(2000, 1, 7));
        trova<QDateEdit>("DTPicker1")->setDate({2030, 5, 1});
        QCOMPARE(trova<QLineEdit>("txtConc")->text(), QStringLiteral("12"));
        QCOMPARE(giorno(), QDate(2000, 1, 12));
        // Before the first draw nothing changes but the day on show.
        trova<QDateEdit>("DTPicker1")->setDate({1999, 1, 1});
        QCOMPARE(titolo(), QStringLiteral("Estrazione - 12/01/2000"));
        QCOMPARE(trova<QLineEdit>("txtConc")->text(), QStringLiteral("12"));
    }

    void un_concorso_che_non_c_e_non_cambia_nulla() {
        apri();
        scrivi("5");
        scrivi("8");
        QCOMPARE(titolo(), QStringLiteral("Estrazione - 05/01/2000"));
        QCOMPARE(giorno(), QDate(2000, 1, 5));
        // Left, the box tells again the draw on show.
        trova<QDateEdit>("DTPicker1")->setFocus();
        QCOMPARE(trova<QLineEdit>("txtConc")->text(), QStringLiteral("5"));
        scrivi("77x");
        trova<QDateEdit>("DTPicker1")->setFocus();
        QCOMPARE(trova<QLineEdit>("txtConc")->text(), QStringLiteral("7"));
        QCOMPARE(titolo(), QStringLiteral("Estrazione - 07/01/2000"));
    }

    void uguale_alla_ricerca() {
        apri();
        for (int c = 1; c <= 12; ++c) {
            if (c == 8) continue;
            scrivi(QString::number(c));
            Domanda d = prove::domanda("calcolo somme e distanze ciclometriche");
            d.parametri.per<ParametriCiclometria>().concorso = c;
            QCOMPARE(*form_->risultato(), prove::esegui(d, archivio_));
        }
    }

    void stampa_ed_esporta_quello_che_si_vede() {
        apri();
        LavoroStampa stampato;
        form_->imposta_stampa([&](const LavoroStampa& lavoro) { stampato = lavoro; });
        scrivi("4");
        QTest::mouseClick(trova<QPushButton>("Command1"), Qt::LeftButton);
        QCOMPARE(stampato.risposta.domanda.di<ParametriCiclometria>().concorso, std::optional<Concorso>{4});
        QCOMPARE(stampato.risposta.risultato->tabelle.size(), std::size_t{3});
    }

    void un_archivio_vuoto() {
        const ArchivioEstrazioni vuoto = prove::da_testo("");
        apri(vuoto);
        QVERIFY(form_->risultato() == nullptr);
        QVERIFY(!trova<QPushButton>("Command1")->isEnabled());
        trova<QDateEdit>("DTPicker1")->setDate({2001, 1, 1});
        scrivi("1");
        QVERIFY(form_->risultato() == nullptr);
    }

    void tab_arriva_ovunque() {
        apri();
        QCOMPARE(QApplication::focusWidget()->objectName(), QStringLiteral("UpDown1"));
        QStringList visti;
        QWidget* primo = QApplication::focusWidget();
        do {
            visti << QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        } while (QApplication::focusWidget() != primo && visti.size() < 30);
        for (const char* nome :
             {"UpDown1", "DTPicker1", "MSHFlexGrid1_0", "MSHFlexGrid1_1", "MSHFlexGrid1_2", "cmdChiudi"})
            QVERIFY2(visti.contains(QString::fromLatin1(nome)), nome);
        QTest::keyClick(form_.get(), Qt::Key_Escape);
        QVERIFY(!form_->isVisible());
    }
};

QTEST_MAIN(TestFormCiclometria)
#include "test_form_som_dis_ciclo.moc"
