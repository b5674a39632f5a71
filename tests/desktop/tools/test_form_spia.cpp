#include "screens/area_parametri.h"
#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/pannello_avanzamento.h"
#include "screens/tema.h"
#include "support/archivi.h"
#include "tools/form_spia.h"
#include "tools/parametri.h"
#include "tools/tavola_numeri.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QTimer>
#include <QtTest>
#include <memory>

using namespace sortimetra;

namespace {

constexpr const char* kChiave = "calcolo dei numeri spia";

/// 40 draws of two wheels and of NAZIONALE; on Bari 7 comes one draw before 50, twice.
ArchivioEstrazioni archivio_piccolo() {
    std::string testo;
    for (int c = 1; c <= 40; ++c) {
        const std::string bari = c == 20 || c == 30   ? "7 60 61 62 63"
                                 : c == 21 || c == 31 ? "50 64 65 66 67"
                                                      : "80 81 82 83 84";
        testo += std::to_string(c) + " BA " + bari + "\n" + std::to_string(c) + " CA 1 2 3 4 5\n" +
                 std::to_string(c) + " NZ 6 7 8 9 10\n";
    }
    return prove::da_testo(testo);
}

}  // namespace

class TestFormSpia final : public QObject {
    Q_OBJECT

    prove::CartellaProva cartella_;
    Sessione sessione_{.percorso_programma = cartella_.percorso()};
    ArchivioEstrazioni archivio_ = archivio_piccolo();
    std::unique_ptr<form_spia> form_;

    void apri() {
        form_ = std::make_unique<form_spia>(sessione_);
        form_->apri(*trova_ricerca(kChiave), archivio_);
        form_->show();
        QApplication::setActiveWindow(form_.get());
    }
    template <class Tipo>
    [[nodiscard]] Tipo* trova(const QString& nome) const {
        return form_->findChild<Tipo*>(nome);
    }
    [[nodiscard]] CasellaNumero* numero(int n) const {
        return trova<CasellaNumero>(QStringLiteral("lblnum_%1").arg(n));
    }
    void clic_numero(int n) const { QTest::mouseClick(numero(n), Qt::LeftButton); }
    void clic(const char* nome) const {
        auto* b = trova<QAbstractButton>(QString::fromLatin1(nome));
        QVERIFY2(b != nullptr, nome);
        QTest::mouseClick(b, Qt::LeftButton);
    }
    [[nodiscard]] ModelloRisultato* modello() const { return form_->griglia()->modello(); }
    [[nodiscard]] QString riga(int r) const {
        QStringList celle;
        for (int c = 0; c < modello()->columnCount(); ++c) celle << modello()->testo(r, c);
        return celle.join(QLatin1Char{' '});
    }
    [[nodiscard]] int segnati() const {
        int quanti = 0;
        for (int n = 1; n <= 90; ++n) quanti += numero(n)->segnato() ? 1 : 0;
        return quanti;
    }

  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }

    void ogni_controllo_ha_il_suo_nome() {
        apri();
        QCOMPARE(form_->windowTitle(), QStringLiteral("Numeri Spia"));
        for (int n = 1; n <= 90; ++n) {
            QVERIFY(numero(n) != nullptr);
            QCOMPARE(numero(n)->text(), QString::number(n));
            QVERIFY(numero(n)->isVisible());
        }
        for (int w = 0; w < 12; ++w)
            QVERIFY(trova<QCheckBox>(QStringLiteral("CheckRuota_%1").arg(w)) != nullptr);
        QCOMPARE(trova<QPushButton>("Command2")->text(), QStringLiteral("Ricerca su tutti e 90 i Numeri"));
        QCOMPARE(trova<QPushButton>("Command3")->text(), QStringLiteral("Annulla"));
        QCOMPARE(trova<QPushButton>("Command4")->text().remove('&'), QStringLiteral("Stampa"));
        QCOMPARE(trova<QPushButton>("Command1")->text().remove('&'), QStringLiteral("Esci"));
        QVERIFY(trova<QWidget>("Frame5") != nullptr);
        QVERIFY(trova<QWidget>("ProgressBar2") != nullptr);
        QCOMPARE(trova<QWidget>("Frame5")->findChild<QLabel*>("lblprogress")->text(),
                 QStringLiteral("Analisi in corso. Attendere Prego"));
        QVERIFY(trova<QTableView>("MSFlexGrid1") != nullptr);
        QCOMPARE(modello()->rowCount(), 0);
        QVERIFY(trova<QLabel>("lbllegenda_0")->text().startsWith("%1 = "));
        QVERIFY(trova<QLabel>("lbllegenda_3")->text().startsWith("In verde "));
        QCOMPARE(trova<QLineEdit>("txtda")->text(), QStringLiteral("1"));
        QCOMPARE(trova<QLineEdit>("txta")->text(), QStringLiteral("40"));
    }

    void un_numero_aggiunge_la_sua_riga_in_ordine() {
        apri();
        clic_numero(50);
        QCOMPARE(modello()->rowCount(), 1);
        // The lowest of the numbers that stood before both of its draws.
        QCOMPARE(riga(0), QStringLiteral("50 9 7 100% 100% 10"));
        QVERIFY(numero(50)->segnato());
        clic_numero(7);
        clic_numero(80);
        QCOMPARE(modello()->rowCount(), 3);
        QCOMPARE(modello()->testo(0, 0), QStringLiteral("7"));
        QCOMPARE(modello()->testo(2, 0), QStringLiteral("80"));
        QCOMPARE(segnati(), 3);
        // A marked one does nothing.
        const auto prima = form_->risultato();
        clic_numero(7);
        QCOMPARE(form_->risultato(), prima);
        // What is printed is what was asked.
        QCOMPARE(modello()->tabella()->sfondo(1, 2), 65535);
    }

    void tutti_e_novanta() {
        apri();
        clic_numero(50);
        clic("Command2");
        QCOMPARE(modello()->rowCount(), 90);
        QCOMPARE(segnati(), 90);
        for (int r = 0; r < 90; ++r) QCOMPARE(modello()->testo(r, 0), QString::number(r + 1));
        QCOMPARE(trova<QPushButton>("Command2")->text(), QStringLiteral("Ricerca su tutti e 90 i Numeri"));
        QVERIFY(trova<QLabel>("lblstato")->toolTip().startsWith("90 righe"));
        QTest::keyClick(form_.get(), Qt::Key_F5);
        QCOMPARE(modello()->rowCount(), 90);
    }

    /// A stopped run keeps what it has; marks and rows are the same numbers.
    void annulla_data() {
        QTest::addColumn<QByteArray>("bottone");
        QTest::newRow("nel pannello") << QByteArray{"Command3"};
        QTest::newRow("lo stesso bottone") << QByteArray{"Command2"};
    }
    void annulla() {
        QFETCH(QByteArray, bottone);
        apri();
        clic_numero(90);
        trova<PannelloAvanzamento>("Frame5")->imposta_sempre(true);
        // Comes at the first turn that the run gives the event loop.
        QTimer::singleShot(0, this, [&] {
            QVERIFY(form_->in_corsa());
            QCOMPARE(trova<QPushButton>("Command2")->text(), QStringLiteral("Annulla ricerca"));
            QVERIFY(trova<QWidget>("Frame5")->isVisible());
            clic_numero(33);
            QTest::mouseClick(trova<QPushButton>(QString::fromLatin1(bottone)), Qt::LeftButton);
        });
        QTest::mouseClick(trova<QPushButton>("Command2"), Qt::LeftButton);
        QVERIFY(!form_->in_corsa());
        QVERIFY(!trova<QWidget>("Frame5")->isVisible());
        QVERIFY(modello()->rowCount() >= 2 && modello()->rowCount() < 90);
        QCOMPARE(segnati(), modello()->rowCount());
        QVERIFY(numero(1)->segnato());
        QVERIFY(numero(90)->segnato());
        QVERIFY(!numero(89)->segnato());
        // The rest can be asked for.
        trova<PannelloAvanzamento>("Frame5")->imposta_sempre(false);
        clic("Command2");
        QCOMPARE(modello()->rowCount(), 90);
    }

    void una_ruota_ferma_la_ricerca_e_svuota() {
        apri();
        trova<PannelloAvanzamento>("Frame5")->imposta_sempre(true);
        QTimer::singleShot(0, this, [&] {
            QVERIFY(form_->in_corsa());
            clic("CheckRuota_1");
        });
        clic("Command2");
        QVERIFY(!form_->in_corsa());
        QCOMPARE(modello()->rowCount(), 0);
        QCOMPARE(segnati(), 0);
        QCOMPARE(trova<QPushButton>("Command2")->text(), QStringLiteral("Ricerca su tutti e 90 i Numeri"));
    }

    void le_ruote_si_escludono() {
        apri();
        const auto spuntate = [this] {
            QString s;
            for (int w = 0; w < 12; ++w)
                s += trova<QCheckBox>(QStringLiteral("CheckRuota_%1").arg(w))->isChecked() ? '1' : '0';
            return s;
        };
        QCOMPARE(spuntate(), QStringLiteral("100000000000"));
        clic("CheckRuota_4");
        QCOMPARE(spuntate(), QStringLiteral("000010000000"));
        clic("CheckRuota_10");
        QCOMPARE(spuntate(), QStringLiteral("000000000010"));
        clic("CheckRuota_11");
        QCOMPARE(spuntate(), QStringLiteral("000000000001"));
        clic("CheckRuota_0");
        QCOMPARE(spuntate(), QStringLiteral("100000000000"));
        // None: Bari's rows.
        clic("CheckRuota_0");
        QCOMPARE(spuntate(), QStringLiteral("000000000000"));
        clic_numero(50);
        QCOMPARE(riga(0), QStringLiteral("50 9 7 100% 100% 10"));
    }

    void ogni_cambio_dell_ambito_svuota() {
        apri();
        const auto riempi = [this] {
            clic_numero(50);
            QCOMPARE(modello()->rowCount(), 1);
            QCOMPARE(segnati(), 1);
        };
        const auto vuoto = [this] { return modello()->rowCount() == 0 && segnati() == 0; };
        riempi();
        clic("CheckRuota_2");
        QVERIFY(vuoto());
        clic("CheckRuota_0");
        riempi();
        trova<QComboBox>("ComboIntervallo")->setCurrentIndex(1);
        QVERIFY(vuoto());
        trova<QComboBox>("ComboIntervallo")->setCurrentIndex(0);
        riempi();
        auto* da = trova<QLineEdit>("txtda");
        da->setFocus();
        da->selectAll();
        QTest::keyClicks(da, "22");
        QVERIFY(vuoto());
        clic_numero(50);
        QCOMPARE(riga(0), QStringLiteral("50 9 7 50% 100% 10").replace("50%", "100%"));
    }

    void un_ambito_vuoto_si_dice() {
        apri();
        MessaggiDiProva detti;
        auto* a = trova<QLineEdit>("txta");
        auto* da = trova<QLineEdit>("txtda");
        da->setFocus();
        da->selectAll();
        QTest::keyClicks(da, "30");
        a->setFocus();
        a->selectAll();
        QTest::keyClicks(a, "20");
        clic("Command2");
        QCOMPARE(detti.detti.size(), 1);
        QCOMPARE(detti.detti[0].testo, QStringLiteral("Non ci sono estrazioni per l'intervallo selezionato"));
        QCOMPARE(segnati(), 0);
    }

    void con_la_tastiera() {
        apri();
        auto* tavola = trova<TavolaNumeri>("lblnum");
        tavola->setFocus();
        QTest::keyClick(tavola, Qt::Key_Home);
        for (int i = 0; i < 4; ++i) QTest::keyClick(tavola, Qt::Key_Down);
        for (int i = 0; i < 9; ++i) QTest::keyClick(tavola, Qt::Key_Right);
        QCOMPARE(tavola->corrente(), 50);
        QTest::keyClick(tavola, Qt::Key_Return);
        QCOMPARE(modello()->testo(0, 0), QStringLiteral("50"));
        QTest::keyClick(tavola, Qt::Key_End);
        QTest::keyClick(tavola, Qt::Key_Right);
        QTest::keyClick(tavola, Qt::Key_Down);
        QCOMPARE(tavola->corrente(), 90);
        QTest::keyClick(tavola, Qt::Key_Space);
        QCOMPARE(modello()->rowCount(), 2);
        QCOMPARE(tavola->accessibleDescription(), QStringLiteral("Numero 90, esaminato"));
        QTest::keyClick(tavola, Qt::Key_Escape);
        QVERIFY(!form_->isVisible());
    }

    void tab_arriva_ovunque() {
        apri();
        trova<QCheckBox>("CheckRuota_0")->setFocus();
        QStringList visti;
        QWidget* primo = QApplication::focusWidget();
        do {
            visti << QApplication::focusWidget()->objectName();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        } while (QApplication::focusWidget() != primo && visti.size() < 60);
        for (const char* nome : {"CheckRuota_11", "ComboIntervallo", "UpDown1_0", "UpDown1_1", "Command2",
                                 "lblnum", "MSFlexGrid1", "Command1"})
            QVERIFY2(visti.contains(QString::fromLatin1(nome)), nome);
        QVERIFY(visti.indexOf("Command2") < visti.indexOf("lblnum"));
        QVERIFY(visti.indexOf("lblnum") < visti.indexOf("MSFlexGrid1"));
    }

    void stampa_quello_che_si_vede() {
        apri();
        LavoroStampa stampato;
        form_->imposta_stampa([&](const LavoroStampa& lavoro) { stampato = lavoro; });
        QVERIFY(!trova<QPushButton>("Command4")->isEnabled());
        clic_numero(50);
        clic_numero(3);
        clic("Command4");
        QCOMPARE(stampato.risposta.risultato->tabelle[0].righe(), std::size_t{2});
        QCOMPARE(stampato.risposta.domanda.di<ParametriSpia>().numeri, (std::vector<int>{3, 50}));
    }

    void riaprire_comincia_da_capo() {
        apri();
        clic("Command2");
        form_->close();
        form_->apri(*trova_ricerca(kChiave), archivio_);
        form_->show();
        QCOMPARE(segnati(), 0);
        QCOMPARE(modello()->rowCount(), 0);
    }
};

QTEST_MAIN(TestFormSpia)
#include "test_form_spia.moc"
