#include "files/file_sicuro.h"
#include "personal/form_piramide.h"
#include "personal/griglia_poste.h"
#include "personal/taratura.h"
#include "screens/casella_cifre.h"
#include "screens/messaggi.h"
#include "screens/tema.h"
#include "support/archivi.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QFrame>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>
#include <memory>

using namespace sortimetra;

class TestFormPiramide final : public QObject {
    Q_OBJECT

    std::unique_ptr<prove::CartellaProva> cartella_;
    std::unique_ptr<Sessione> sessione_;
    ArchivioEstrazioni archivio_ =
        prove::da_testo("1 BA 1 2 3 4 5\n2 BA 1 3 4 5 6\n2 CA 7 8 9 10 11\n3 BA 2 3 4 5 6\n");
    std::unique_ptr<Form_Piramide> form_;
    std::unique_ptr<MessaggiDiProva> messaggi_;
    std::optional<Rapporto> schedine_;

    template <class T>
    [[nodiscard]] T* controllo(const char* nome) const {
        return form_->findChild<T*>(QString::fromLatin1(nome));
    }
    void clic(const char* nome) const {
        auto* b = controllo<QAbstractButton>(nome);
        QVERIFY2(b != nullptr, nome);
        // On the caption or the indicator, not in the empty middle.
        QTest::mouseClick(b, Qt::LeftButton, {}, QPoint{10, b->height() / 2});
    }
    void voce(const char* nome) const { controllo<QAction>(nome)->trigger(); }
    [[nodiscard]] QString numero(int cella) const {
        return controllo<QLabel>(qPrintable(QStringLiteral("IMGNumeri_%1").arg(cella)))->text();
    }
    [[nodiscard]] std::string byte(const char* nome) const {
        return leggi_file(cartella_->percorso() / nome).value_or("(manca)");
    }
    /// Types a stake into a cell, and leaves it.
    void scrivi(int riga, int colonna, const QString& testo) const {
        auto* griglia = form_->poste();
        griglia->setCurrentCell(riga, colonna);
        griglia->editItem(griglia->item(riga, colonna));
        // The box of the cell before goes with the next turn of the event loop.
        auto* casella = qobject_cast<QLineEdit*>(QApplication::focusWidget());
        QVERIFY(casella != nullptr);
        QCOMPARE(casella->objectName(), QStringLiteral("txtimporto"));
        casella->selectAll();
        QTest::keyClicks(casella, testo);
        QTest::keyClick(casella, Qt::Key_Return);
        // Enter leaves the box with the next turn of the event loop.
        QTRY_VERIFY(QApplication::focusWidget() == griglia);
    }

  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }
    void init() {
        cartella_ = std::make_unique<prove::CartellaProva>();
        sessione_ = std::make_unique<Sessione>(Sessione{.percorso_programma = cartella_->percorso()});
        messaggi_ = std::make_unique<MessaggiDiProva>();
        schedine_.reset();
        form_ = std::make_unique<Form_Piramide>(*sessione_);
        form_->imposta_stampa_rapporto([this](QWidget*, Rapporto r) { schedine_ = std::move(r); });
        form_->apri(*trova_ricerca("piramide statistica"), archivio_);
        form_->show();
        QApplication::setActiveWindow(form_.get());
    }
    void cleanup() {
        messaggi_->risposta = true;
        form_.reset();
        messaggi_.reset();
    }

    void ogni_controllo_ha_il_suo_nome() {
        for (const char* nome : {"OptionP_0", "OptionP_3", "txtnumpir_0", "txtnumpir_1", "CmdAvviaRicerca",
                                 "cmdstampa", "cmdSchedine", "Cmdesci", "FramePiramide", "Frameschedine",
                                 "MSHFlexGrid1", "Checksch_0", "Checksch_9", "cmdframesch_0", "cmdframesch_1",
                                 "lbltitolo_0", "lbltitolo_9", "IMGNumeri_0", "IMGNumeri_54"})
            QVERIFY2(controllo<QWidget>(nome) != nullptr, nome);
        QCOMPARE(controllo<QLabel>("lbltitolo_7")->text(),
                 QStringLiteral("Ottina per Ambo, Terno e Quaterna"));
        // No grid, nothing to filter.
        QVERIFY(!controllo<QPushButton>("cmdFiltra")->isVisible());
    }

    void come_l_ultima_volta() {
        clic("OptionP_3");
        controllo<QLineEdit>("txtnumpir_1")->setText(QStringLiteral("7"));
        clic("CmdAvviaRicerca");
        QCOMPARE(numero(0), QStringLiteral("07"));
        auto* testi = controllo<QListWidget>("List1");
        QCOMPARE(testi->count(), 55);
        for (int i = 0; i < testi->count(); ++i) QCOMPARE(testi->item(i)->text(), numero(i));
        form_->close();
        form_ = std::make_unique<Form_Piramide>(*sessione_);
        form_->apri(*trova_ricerca("piramide statistica"), archivio_);
        form_->show();
        QVERIFY(controllo<QRadioButton>("OptionP_1")->isChecked());
        form_->come_l_ultima_volta();
        QVERIFY(controllo<QRadioButton>("OptionP_3")->isChecked());
        QCOMPARE(controllo<QLineEdit>("txtnumpir_1")->text(), QStringLiteral("7"));
        QVERIFY(controllo<QLineEdit>("txtnumpir_0")->text().isEmpty());
    }

    void una_ruota_alla_volta() {
        clic("CheckRuota_1");
        QVERIFY(controllo<QCheckBox>("CheckRuota_1")->isChecked());
        QVERIFY(!controllo<QCheckBox>("CheckRuota_0")->isChecked());
        clic("CheckRuota_10");
        QVERIFY(controllo<QCheckBox>("CheckRuota_10")->isChecked());
        QVERIFY(!controllo<QCheckBox>("CheckRuota_1")->isChecked());
    }

    void il_triangolo() {
        // The most frequent: 3, 4 and 5 came three times, the lowest wins.
        clic("OptionP_2");
        clic("CmdAvviaRicerca");
        QCOMPARE(numero(0), QStringLiteral("03"));
        QCOMPARE(numero(1), QStringLiteral("03"));
        QVERIFY(!numero(54).isEmpty());
        QCOMPARE(
            controllo<QLabel>("lblpiede")->text(),
            QStringLiteral("Piramide generata per frequenza ottenuta a partire dal numero più frequente"));
        clic("OptionP_1");
        QCOMPARE(numero(0), QString{});
    }

    void un_numero_tuo() {
        QTest::keyClicks(controllo<QLineEdit>("txtnumpir_1"), QStringLiteral("90"));
        QVERIFY(controllo<QRadioButton>("OptionP_3")->isChecked());
        QTest::keyClick(form_.get(), Qt::Key_F5);
        QCOMPARE(numero(0), QStringLiteral("90"));
        QCOMPARE(numero(54), QStringLiteral("27"));
        controllo<QLineEdit>("txtnumpir_1")->clear();
        clic("OptionP_2");
        clic("OptionP_3");
        clic("CmdAvviaRicerca");
        // An empty box: nothing happens, nothing is said.
        QCOMPARE(numero(0), QString{});
        QVERIFY(messaggi_->detti.isEmpty());
    }

    void le_poste_si_cambiano_e_si_salvano() {
        voce("mnuparametri");
        QVERIFY(controllo<QFrame>("Frameschedine")->isVisible());
        QVERIFY(byte("impir.dat").starts_with("5,0,0,0,0,1\r\n"));
        GrigliaPoste* g = form_->poste();
        QCOMPARE(g->item(3, 1)->text(), QStringLiteral("2,50"));
        QCOMPARE(g->item(3, 5)->text(), QStringLiteral("€ 4,00"));
        scrivi(0, 0, QStringLiteral("1234,57"));
        QCOMPARE(g->item(0, 0)->text(), QStringLiteral("1.234,50"));
        QCOMPARE(g->item(0, 5)->text(), QStringLiteral("€ 1.234,50"));
        scrivi(0, 1, QStringLiteral("0,03"));
        QCOMPARE(g->item(0, 1)->text(), QStringLiteral("0,00"));
        // Letters and signs do not get in.
        scrivi(0, 2, QStringLiteral("-2x5"));
        QCOMPARE(g->item(0, 2)->text(), QStringLiteral("25,00"));
        QVERIFY(g->modificate());
        clic("cmdframesch_1");
        QVERIFY(byte("impir.dat").starts_with("1234.50,0,25.00,0,0,1\r\n"));
        QVERIFY(!g->modificate());
        clic("cmdframesch_0");
        QVERIFY(messaggi_->detti.isEmpty());
        QVERIFY(!form_->sulle_schedine());
    }

    void uscire_senza_salvare_si_chiede() {
        voce("mnuparametri");
        const std::string prima = byte("impir.dat");
        QTest::mouseClick(controllo<QCheckBox>("Checksch_0"), Qt::LeftButton);
        messaggi_->risposta = false;
        clic("cmdframesch_0");
        QCOMPARE(messaggi_->detti.back().testo, QStringLiteral("Uscire senza salvare le modifiche?"));
        QCOMPARE(messaggi_->detti.back().titolo, QStringLiteral("Sortimetra"));
        QVERIFY(form_->sulle_schedine());
        QVERIFY(!form_->close());
        messaggi_->risposta = true;
        QTest::keyClick(form_.get(), Qt::Key_Escape);
        QVERIFY(!form_->sulle_schedine());
        QCOMPARE(byte("impir.dat"), prima);
    }

    void le_schedine_si_stampano_dal_file() {
        QVERIFY(!controllo<QAction>("mnustampa")->isEnabled());
        clic("CmdAvviaRicerca");
        QVERIFY(controllo<QAction>("mnustampa")->isEnabled());
        voce("mnustampa");
        QVERIFY(schedine_.has_value());
        QCOMPARE(schedine_->pagine, 10);
        QVERIFY(byte("tarlo").ends_with("1,3\r\n"));
        QVERIFY(byte("impir.dat").starts_with("5,0,0,0,0,1\r\n"));
    }

    void i_file_rovinati_si_dicono_e_restano() {
        QVERIFY(scrivi_file(cartella_->percorso() / "impir.dat", "5,0,0\r\n").has_value());
        voce("mnuparametri");
        QVERIFY(messaggi_->detti.back().testo.contains(QStringLiteral("riga 1")));
        QVERIFY(!form_->sulle_schedine());
        QCOMPARE(byte("impir.dat"), std::string{"5,0,0\r\n"});
        std::filesystem::remove(cartella_->percorso() / "impir.dat");
        QVERIFY(scrivi_file(cartella_->percorso() / "tarlo", "x").has_value());
        clic("CmdAvviaRicerca");
        voce("mnustampa");
        QVERIFY(!schedine_.has_value());
        QCOMPARE(byte("tarlo"), std::string{"x"});
    }
};

QTEST_MAIN(TestFormPiramide)
#include "test_form_piramide.moc"
