#include "positional/form_posizione.h"
#include "screens/area_parametri.h"
#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/tema.h"
#include "support/archivi.h"

#include <QApplication>
#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTableView>
#include <QtTest>
#include <memory>

using namespace sortimetra;

namespace {

constexpr const char* kLotto = "ritardi e frequenze per posizione dei 90 numeri";
constexpr const char* kSuperEnalotto = "frequenza e ritardo dei 90 numeri per posizione (superenalotto)";
constexpr const char* kDieci = "frequenza e ritardo dei 90 numeri per posizione (10 e lotto)";
constexpr const char* kWfl = "frequenza e ritardo dei 20 numeri per posizione (win for life)";

/// Four draws of two games that can be counted by hand.
ArchivioEstrazioni archivio_piccolo() {
    return prove::da_testi(
        "1 BA 7 2 3 4 5\n1 CA 7 12 13 14 15\n2 BA 8 7 3 4 5\n2 CA 21 22 23 24 25\n"
        "3 BA 7 9 3 4 5\n3 CA 31 32 33 34 35\n4 BA 1 2 3 4 5\n4 CA 41 42 43 44 45\n",
        "3 1 2 3 4 5 6 90 0\n4 11 12 13 14 15 16 90 0\n",
        "1 9:00 1 2 3 4 5 6 7 8 9 10\n2 10:00 11 12 13 14 15 16 17 18 19 20\n");
}

}  // namespace

class TestFormPosizione final : public QObject {
    Q_OBJECT

    prove::CartellaProva cartella_;
    Sessione sessione_{.percorso_programma = cartella_.percorso()};
    ArchivioEstrazioni archivio_ = archivio_piccolo();
    std::unique_ptr<Form_posizione> form_;

    void apri(const char* chiave) {
        form_ = std::make_unique<Form_posizione>(sessione_);
        form_->apri(*trova_ricerca(chiave), archivio_);
        form_->show();
        QApplication::setActiveWindow(form_.get());
    }
    [[nodiscard]] QPushButton* bottone(const char* nome) const {
        return form_->findChild<QPushButton*>(QString::fromLatin1(nome));
    }
    void clic(const char* nome) const {
        QVERIFY2(bottone(nome) != nullptr, nome);
        QTest::mouseClick(bottone(nome), Qt::LeftButton);
    }
    [[nodiscard]] ModelloRisultato* modello() const { return form_->griglia()->modello(); }
    [[nodiscard]] QString cella(int numero, int colonna) const {
        return modello()->testo(numero - 1, colonna);
    }
    /// A click on the third title row over a column.
    void clic_titolo(int colonna) const {
        QTableView* vista = form_->griglia()->vista();
        QWidget* testata = bottone("cmdcol_0")->parentWidget();
        const int x = vista->columnViewportPosition(colonna) + vista->columnWidth(colonna) / 2 + 1;
        QTest::mouseClick(testata, Qt::LeftButton, {}, QPoint{x, testata->height() - 5});
    }

  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }

    void le_quattro_griglie_data() {
        QTest::addColumn<QString>("chiave");
        QTest::addColumn<QString>("tag");
        QTest::addColumn<int>("colonne");
        QTest::addColumn<int>("righe");
        QTest::newRow("lotto") << kLotto << "lotto" << 16 << 90;
        QTest::newRow("superenalotto") << kSuperEnalotto << "superenalotto" << 22 << 90;
        QTest::newRow("10 e lotto") << kDieci << "10 e lotto" << 61 << 90;
        QTest::newRow("win for life") << kWfl << "Win for Life" << 31 << 20;
    }
    void le_quattro_griglie() {
        QFETCH(QString, chiave);
        QFETCH(QString, tag);
        QFETCH(int, colonne);
        QFETCH(int, righe);
        apri(chiave.toUtf8().constData());
        QCOMPARE(form_->property("Tag").toString(), tag);
        QCOMPARE(modello()->columnCount(), colonne);
        QCOMPARE(modello()->rowCount(), 0);
        const auto& titoli = modello()->tabella()->titoli;
        QCOMPARE(titoli.size(), std::size_t{3});
        QCOMPARE(titoli[0][1], std::string{"Posizione"});
        clic("Command1");
        QCOMPARE(modello()->rowCount(), righe);
        QCOMPARE(modello()->columnCount(), colonne);
        QVERIFY(bottone(qPrintable(QStringLiteral("cmdcol_%1").arg(colonne - 1))) != nullptr);
        QCOMPARE(modello()->testo(righe - 1, 0), QString::number(righe));
    }

    void si_contano_a_mano() {
        apri(kLotto);
        clic("Command1");
        // 7 first in draws 1 and 3 of four: twice, one draw ago, one draw between.
        QCOMPARE(cella(7, 1), QStringLiteral("2"));
        QCOMPARE(cella(7, 2), QStringLiteral("1"));
        QCOMPARE(cella(7, 3), QStringLiteral("1"));
        // Second once, in draw 2; never third.
        QCOMPARE(cella(7, 4), QStringLiteral("1"));
        QCOMPARE(cella(7, 5), QStringLiteral("2"));
        QCOMPARE(cella(7, 6), QStringLiteral("0"));
        QCOMPARE(cella(7, 7), QStringLiteral("..."));
        QCOMPARE(cella(7, 8), QStringLiteral("4"));
        QCOMPARE(cella(7, 9), QStringLiteral("..."));
    }

    void una_ruota_in_piu_con_il_mouse() {
        apri(kLotto);
        auto* cagliari = form_->findChild<QCheckBox*>(QStringLiteral("CheckRuota_1"));
        QTest::mouseClick(cagliari, Qt::LeftButton);
        QVERIFY(cagliari->isChecked());
        QTest::keyClick(form_.get(), Qt::Key_F5);
        QCOMPARE(cella(7, 1), QStringLiteral("3"));
        // Another wheel clears what does not belong to it.
        QTest::mouseClick(cagliari, Qt::LeftButton);
        QCOMPARE(modello()->rowCount(), 0);
    }

    void il_titolo_ordina_crescente_poi_decrescente() {
        apri(kLotto);
        clic("Command1");
        using Ordine = std::pair<int, Verso>;
        clic_titolo(2);
        QCOMPARE(form_->griglia()->ordinamento().value(), (Ordine{2, Verso::crescente}));
        clic_titolo(2);
        QCOMPARE(form_->griglia()->ordinamento().value(), (Ordine{2, Verso::decrescente}));
        // After a descending sort the same column goes up again, and so does another column at once.
        clic_titolo(2);
        QCOMPARE(form_->griglia()->ordinamento().value(), (Ordine{2, Verso::crescente}));
        clic_titolo(5);
        QCOMPARE(form_->griglia()->ordinamento().value(), (Ordine{5, Verso::crescente}));
        clic_titolo(2);
        QCOMPARE(form_->griglia()->ordinamento().value(), (Ordine{2, Verso::crescente}));
    }

    void l_ultimo_titolo_premuto_vale_anche_per_la_ricerca_dopo() {
        apri(kLotto);
        clic("Command1");
        using Ordine = std::pair<int, Verso>;
        clic_titolo(2);
        QCOMPARE(form_->griglia()->ordinamento().value(), (Ordine{2, Verso::crescente}));
        // A new run writes the rows in number order; the title remembers that it has sorted upwards.
        clic("Command1");
        QVERIFY(!form_->griglia()->ordinamento().has_value());
        QCOMPARE(modello()->testo(0, 0), QStringLiteral("1"));
        clic_titolo(2);
        QCOMPARE(form_->griglia()->ordinamento().value(), (Ordine{2, Verso::decrescente}));
        // A button keeps a direction of its own and does not touch the title's.
        clic_titolo(2);
        clic("cmdcol_2");
        QCOMPARE(form_->griglia()->ordinamento().value(), (Ordine{2, Verso::decrescente}));
        clic_titolo(2);
        QCOMPARE(form_->griglia()->ordinamento().value(), (Ordine{2, Verso::decrescente}));
        // Opened for another search the screen begins anew.
        form_->apri(*trova_ricerca(kLotto), archivio_);
        clic("Command1");
        clic_titolo(2);
        QCOMPARE(form_->griglia()->ordinamento().value(), (Ordine{2, Verso::crescente}));
    }

    void dopo_una_ruota_i_pulsanti_tengono_il_verso() {
        apri(kLotto);
        clic("Command1");
        clic("cmdcol_1");
        QTest::mouseClick(form_->findChild<QCheckBox*>(QStringLiteral("CheckRuota_1")), Qt::LeftButton);
        QCOMPARE(modello()->rowCount(), 0);
        QCOMPARE(bottone("cmdcol_1")->property("tag").toString(), QStringLiteral("0"));
        clic("Command1");
        clic("cmdcol_1");
        using Ordine = std::pair<int, Verso>;
        QCOMPARE(form_->griglia()->ordinamento().value(), (Ordine{1, Verso::crescente}));
    }

    void le_sedici_colonne_stanno_nella_finestra_piu_piccola() {
        apri(kLotto);
        form_->resize(1024, 640);
        clic("Command1");
        const QTableView* vista = form_->griglia()->vista();
        QTRY_COMPARE(vista->horizontalScrollBar()->maximum(), 0);
        const QFontMetrics misure{vista->font()};
        for (int c = 1; c < 16; ++c)
            QVERIFY(vista->columnWidth(c) > misure.horizontalAdvance(modello()->testo_piu_largo(c)));
    }

    void il_pulsante_ordina_decrescente_poi_crescente() {
        apri(kLotto);
        clic("Command1");
        clic("cmdcol_1");
        QCOMPARE(bottone("cmdcol_1")->property("tag").toString(), QStringLiteral("0"));
        // 7 twice first; "..." stands between the negative numbers and 0, so that it comes last here.
        QCOMPARE(modello()->testo(0, 0), QStringLiteral("7"));
        QCOMPARE(modello()->testo(1, 1), QStringLiteral("1"));
        QCOMPARE(modello()->testo(89, 1), QStringLiteral("..."));
        clic("cmdcol_1");
        QCOMPARE(bottone("cmdcol_1")->property("tag").toString(), QString{});
        QCOMPARE(modello()->testo(0, 1), QStringLiteral("..."));
        QCOMPARE(modello()->testo(89, 0), QStringLiteral("7"));
    }

    void la_prima_colonna_resta_in_vista() {
        apri(kDieci);
        form_->resize(1024, 640);
        clic("Command1");
        auto* ferma = form_->findChild<QTableView*>(QStringLiteral("MSHFlexGrid1_prima_colonna"));
        QTableView* vista = form_->griglia()->vista();
        QVERIFY(ferma->isVisible());
        QTRY_VERIFY(ferma->verticalScrollBar()->maximum() > 300);
        vista->horizontalScrollBar()->setValue(vista->horizontalScrollBar()->maximum());
        vista->verticalScrollBar()->setValue(300);
        QCOMPARE(ferma->verticalScrollBar()->value(), 300);
        // The numbers stand level with their rows.
        const int y = vista->viewport()->height() / 2;
        QCOMPARE(ferma->rowAt(y), vista->rowAt(y));
        QCOMPARE(ferma->viewport()->mapTo(form_.get(), QPoint{0, ferma->rowViewportPosition(40)}).y(),
                 vista->viewport()->mapTo(form_.get(), QPoint{0, vista->rowViewportPosition(40)}).y());
    }

    void stampa_e_uscita() {
        apri(kLotto);
        QVERIFY(!bottone("Command2")->isEnabled());
        LavoroStampa ricevuto;
        form_->imposta_stampa([&](const LavoroStampa& l) { ricevuto = l; });
        clic("Command1");
        clic("cmdcol_1");
        clic("Command2");
        QVERIFY(ricevuto.risposta.risultato != nullptr);
        QCOMPARE(ricevuto.risposta.risultato->tabelle[0].n_colonne(), std::size_t{16});
        // The order on the screen goes to the printer with it.
        QCOMPARE(ricevuto.risposta.ordine.at(0), 6U);
        QSignalSpy chiuso{form_.get(), &SchermoRicerca::chiuso};
        clic("cmdesci");
        QCOMPARE(chiuso.size(), 1);
        QVERIFY(!form_->isVisible());
    }

    void ambito_vuoto() {
        MessaggiDiProva detti;
        apri(kLotto);
        auto* da = form_->findChild<QLineEdit*>(QStringLiteral("txtda"));
        auto* a = form_->findChild<QLineEdit*>(QStringLiteral("txta"));
        da->setText(QStringLiteral("4"));
        a->setText(QStringLiteral("1"));
        clic("Command1");
        QCOMPARE(detti.detti.size(), 1);
        QCOMPARE(detti.detti[0].testo, QStringLiteral("Non ci sono estrazioni per l'intervallo selezionato"));
        QCOMPARE(modello()->rowCount(), 0);
    }
};

QTEST_MAIN(TestFormPosizione)
#include "test_form_posizione.moc"
