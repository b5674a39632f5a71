#include "files/file_sicuro.h"
#include "screens/area_parametri.h"
#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/tema.h"
#include "support/archivi.h"
#include "systems/form_filtri.h"
#include "systems/quadro_griglie.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QTableView>
#include <QTreeWidget>
#include <QtTest>
#include <memory>

using namespace sortimetra;

namespace {

constexpr const char* kFiltri = "filtri di condizionamento";
constexpr const char* kSistemi = "statistica relativa ai sistemi realizzati";

ArchivioEstrazioni archivio_piccolo() {
    const std::string lotto = "1 BA 10 20 31 33 90\n2 BA 1 2 3 4 5\n2 CA 6 7 8 9 10\n";
    return prove::da_testi(lotto, "1 1 2 3 4 5 6 90 0\n2 11 12 13 14 15 16 90 0\n",
                           "1 9:00 1 2 3 4 5 6 7 8 9 10\n2 10:00 2 4 6 8 10 12 14 16 18 20\n"
                           "3 11:00 1 3 5 7 9 11 13 15 17 19\n");
}

}  // namespace

class TestFormFiltri final : public QObject {
    Q_OBJECT

    prove::CartellaProva cartella_;
    Sessione sessione_{.percorso_programma = cartella_.percorso()};
    ArchivioEstrazioni archivio_ = archivio_piccolo();
    std::unique_ptr<Form_filtri> form_;

    void apri(const char* chiave) {
        form_ = std::make_unique<Form_filtri>(sessione_);
        form_->apri(*trova_ricerca(chiave), archivio_);
        form_->show();
        QApplication::setActiveWindow(form_.get());
    }
    template <class Controllo>
    [[nodiscard]] Controllo* trova(const QString& nome) const {
        auto* c = form_->findChild<Controllo*>(nome);
        if (c == nullptr) qFatal("manca %s", qPrintable(nome));
        return c;
    }
    /// A click where the control stands, which the question's column may have to scroll to.
    void clic(const QString& nome) const {
        auto* c = trova<QWidget>(nome);
        QApplication::processEvents();
        for (QWidget* w = c; w != nullptr; w = w->parentWidget())
            if (auto* scorre = qobject_cast<QScrollArea*>(w); scorre != nullptr)
                scorre->ensureWidgetVisible(c);
        QTest::mouseClick(c, Qt::LeftButton);
    }
    void sistema(int i) const { clic(QStringLiteral("CheckSistema_%1").arg(i)); }
    void statistica(Statistica s) const { trova<QComboBox>("Combo1")->setCurrentIndex(static_cast<int>(s)); }
    [[nodiscard]] ModelloRisultato* griglia(Statistica s, std::size_t g) const {
        return form_->quadro(s)->griglie().at(g)->modello();
    }
    /// All rows of a grid, cells joined by blanks.
    [[nodiscard]] QString righe(Statistica s, std::size_t g) const {
        const ModelloRisultato* m = griglia(s, g);
        QString testo;
        for (int r = 0; r < m->rowCount(); ++r) {
            QStringList celle;
            for (int c = 0; c < m->columnCount(); ++c) celle << m->testo(r, c);
            testo += celle.join(' ') + '\n';
        }
        return testo;
    }
    void scrivi(const char* nome, std::string_view testo) const {
        const auto file = cartella_.percorso() / nome;
        std::filesystem::create_directories(file.parent_path());
        QVERIFY(scrivi_file(file, testo).has_value());
    }

  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }

    void come_l_ultima_volta() {
        apri(kFiltri);
        sistema(4);
        statistica(Statistica::somme1);
        clic(QStringLiteral("cmdAvvia"));
        form_->close();
        apri(kFiltri);
        QVERIFY(trova<QCheckBox>("CheckSistema_0")->isChecked());
        form_->come_l_ultima_volta();
        QVERIFY(trova<QCheckBox>("CheckSistema_4")->isChecked());
        QVERIFY(!trova<QCheckBox>("CheckSistema_0")->isChecked());
        QCOMPARE(trova<QComboBox>("Combo1")->currentIndex(), static_cast<int>(Statistica::somme1));
        // Filled, not started.
        QVERIFY(righe(Statistica::somme1, 0).isEmpty());
    }

    void ogni_controllo_ha_il_suo_nome() {
        apri(kFiltri);
        QCOMPARE(form_->windowTitle(), QStringLiteral("Filtri di Condizionamento"));
        QCOMPARE(form_->property("Tag").toString(), QString::fromLatin1(kFiltri));
        const QStringList titoli{"Sistemi per Ambo",     "Sistemi per Terno",     "Sistemi per Quaterna",
                                 "Sistema per Cinquina", "Sistemi SuperEnalotto", "Sistemi Dieci e Lotto",
                                 "Sistemi Win for Life"};
        for (int i = 0; i < 7; ++i)
            QCOMPARE(trova<QCheckBox>(QStringLiteral("CheckSistema_%1").arg(i))->text(), titoli[i]);
        QStringList nomi{"Combo1",
                         "CheckRuota_11",
                         "ComboIntervallo",
                         "txtda",
                         "txta",
                         "UpDown1_0",
                         "UpDown1_1",
                         "lbldata1",
                         "lbldata2",
                         "FrameParametri",
                         "FrameSistemi",
                         "ListView1",
                         "cmdAvvia",
                         "cmdStampa",
                         "cmdEsci",
                         "cmdProcediPos10elotto",
                         "cmdProcediPosWFL",
                         "FramePosizioni",
                         "Framedistanza",
                         "FrameCondizioni",
                         "FrameSomme1",
                         "FrameSomme2",
                         "FrameConsecutività",
                         "FrameGruppi",
                         "FrameSceltaPosizioni10elotto",
                         "frameSceltaNumeriWFL",
                         "MSHFlexGrid1"};
        for (int i = 1; i <= 20; ++i) nomi << QStringLiteral("chkPosizioni10elotto_%1").arg(i);
        for (int i = 0; i < 10; ++i)
            nomi << QStringLiteral("txtNumeriScelti_%1").arg(i)
                 << QStringLiteral("cmbNumeriPosizione_%1").arg(i) << QStringLiteral("MSH_Distanza_%1").arg(i)
                 << QStringLiteral("MSH_Consec_%1").arg(i);
        for (int i = 0; i < 3; ++i)
            nomi << QStringLiteral("Option1_%1").arg(i) << QStringLiteral("MSH_Gruppi_%1").arg(i);
        for (int i = 0; i < 6; ++i) nomi << QStringLiteral("MSH_condizioni_%1").arg(i);
        for (int i = 0; i < 7; ++i) nomi << QStringLiteral("MSH_Somme1_%1").arg(i);
        // Buttons are told by three times the grid and the column.
        nomi << "cmdcol_0" << "cmdcolDistanza_0" << "cmdcolDistanza_29" << "cmdColCondizioni_17"
             << "cmdColSOMME_8" << "cmdColSOMME_9" << "cmdColSOMME_20" << "cmdcolConsec_29"
             << "cmdColGruppi_13";
        for (const QString& nome : nomi)
            QVERIFY2(form_->findChild<QWidget*>(nome) != nullptr, qPrintable(nome));
        QVERIFY(!trova<QWidget>("FrameSistemi")->isVisible());
        QVERIFY(trova<QWidget>("FrameParametri")->isVisible());
    }

    void un_sistema_alla_volta() {
        apri(kFiltri);
        sistema(3);
        for (int i = 0; i < 7; ++i)
            QCOMPARE(trova<QCheckBox>(QStringLiteral("CheckSistema_%1").arg(i))->isChecked(), i == 3);
        // A click on the one that is ticked leaves it.
        sistema(3);
        QVERIFY(trova<QCheckBox>("CheckSistema_3")->isChecked());
        QCOMPARE(form_->sistema(), 3);
    }

    void posizione_con_invio() {
        apri(kFiltri);
        sistema(3);
        trova<QPushButton>("cmdAvvia")->setFocus();
        QTest::keyClick(form_.get(), Qt::Key_Return);
        QVERIFY(trova<QWidget>("FramePosizioni")->isVisible());
        QCOMPARE(griglia(Statistica::posizione, 0)->rowCount(), 90);
        QCOMPARE(griglia(Statistica::posizione, 0)->columnCount(), 16);
        // 10 came first in the first of two draws.
        QCOMPARE(griglia(Statistica::posizione, 0)->testo(9, 1), QStringLiteral("1"));
        QCOMPARE(griglia(Statistica::posizione, 0)->testo(9, 2), QStringLiteral("1"));
        QCOMPARE(griglia(Statistica::posizione, 0)->testo(5, 1), QStringLiteral("..."));
        QVERIFY(trova<QPushButton>("cmdEsporta")->isEnabled());
    }

    void cambiare_statistica_cerca_subito_una_volta_sola() {
        apri(kFiltri);
        statistica(Statistica::distanza);
        QVERIFY(trova<QWidget>("Framedistanza")->isVisible());
        QVERIFY(!trova<QWidget>("FramePosizioni")->isVisible());
        // Two draws of five numbers: ten combinations each.
        int uscite = 0;
        for (int r = 0; r < griglia(Statistica::distanza, 0)->rowCount(); ++r)
            uscite += griglia(Statistica::distanza, 0)->testo(r, 1).toInt();
        QCOMPARE(uscite, 20);
        // The mark is set: coming back shows the same rows, in the order in which they were left.
        clic("cmdcolDistanza_1");
        const QString ordinate = righe(Statistica::distanza, 0);
        statistica(Statistica::posizione);
        statistica(Statistica::distanza);
        QCOMPARE(righe(Statistica::distanza, 0), ordinate);
        // Another wheel is another question: nothing stays.
        clic("CheckRuota_1");
        QCOMPARE(griglia(Statistica::distanza, 0)->rowCount(), 0);
        QCOMPARE(griglia(Statistica::posizione, 0)->rowCount(), 0);
        QVERIFY(!trova<QPushButton>("cmdEsporta")->isEnabled());
    }

    void i_pulsanti_ordinano_la_loro_griglia() {
        apri(kFiltri);
        sistema(3);
        statistica(Statistica::somme1);
        QCOMPARE(righe(Statistica::somme1, 0), QStringLiteral("15 1 50,00\n184 1 50,00\n"));
        QCOMPARE(righe(Statistica::somme1, 1), QStringLiteral("6 1 50,00\n61 1 50,00\n"));
        clic("cmdColSOMME_3");  // grid 1, column 0
        QCOMPARE(righe(Statistica::somme1, 1), QStringLiteral("61 1 50,00\n6 1 50,00\n"));
        QCOMPARE(righe(Statistica::somme1, 0), QStringLiteral("15 1 50,00\n184 1 50,00\n"));
        clic("cmdColSOMME_3");
        QCOMPARE(righe(Statistica::somme1, 1), QStringLiteral("6 1 50,00\n61 1 50,00\n"));
        // What goes to paper has each grid in its order.
        LavoroStampa stampato;
        form_->imposta_stampa([&](const LavoroStampa& l) { stampato = l; });
        clic("cmdColSOMME_3");
        clic("cmdStampa");
        QCOMPARE(QString::fromStdString(prove::righe(stampato.risposta.risultato->tabelle[1])),
                 QStringLiteral("61 1 50,00\n6 1 50,00\n"));
    }

    void di_un_ambo_restano_le_griglie_che_servono() {
        apri(kFiltri);
        statistica(Statistica::distanza);
        QVERIFY(trova<QWidget>("MSH_Distanza_0")->isVisible());
        for (int g = 1; g < 10; ++g)
            QVERIFY(!trova<QWidget>(QStringLiteral("MSH_Distanza_%1").arg(g))->isVisible());
        statistica(Statistica::somme2);
        QVERIFY(trova<QWidget>("MSH_Somme1_3")->isVisible());
        QVERIFY(!trova<QWidget>("MSH_Somme1_3")->isEnabled());
        QCOMPARE(trova<QLabel>("lbl_MSH_Somme1_4")->text(), QStringLiteral("Resto a 2"));
        sistema(4);
        QCOMPARE(trova<QLabel>("lbl_MSH_Somme1_4")->text(), QStringLiteral("Resto a 6"));
        QVERIFY(trova<QWidget>("MSH_Somme1_3")->isEnabled());
    }

    void i_giochi_senza_ruote() {
        apri(kFiltri);
        clic("CheckRuota_2");
        for (const int i : {4, 5, 6}) {
            sistema(i);
            for (int r = 0; r < 12; ++r) {
                const auto* c = trova<QCheckBox>(QStringLiteral("CheckRuota_%1").arg(r));
                QVERIFY(!c->isEnabled());
                QCOMPARE(c->isChecked(), r == 0);
            }
        }
        // Win for Life has its own bounds and hours.
        QCOMPARE(trova<QLineEdit>("txta")->text(), QStringLiteral("3"));
        QCOMPARE(trova<QComboBox>("ComboIntervallo")->count(), 16);
        sistema(0);
        QVERIFY(trova<QCheckBox>("CheckRuota_2")->isEnabled());
        QCOMPARE(trova<QLineEdit>("txta")->text(), QStringLiteral("2"));
        QCOMPARE(trova<QComboBox>("ComboIntervallo")->count(), 21);
    }

    void dieci_posizioni_ne_una_di_piu() {
        apri(kFiltri);
        sistema(5);
        statistica(Statistica::somme1);
        auto* frame = trova<QWidget>("FrameSceltaPosizioni10elotto");
        QVERIFY(frame->isVisible());
        QCOMPARE(griglia(Statistica::somme1, 0)->rowCount(), 0);
        auto* procedi = trova<QPushButton>("cmdProcediPos10elotto");
        for (int i = 1; i <= 9; ++i) clic(QStringLiteral("chkPosizioni10elotto_%1").arg(i));
        QVERIFY(!procedi->isEnabled());
        clic("chkPosizioni10elotto_20");
        QVERIFY(procedi->isEnabled());
        clic("chkPosizioni10elotto_15");
        QVERIFY(!trova<QCheckBox>("chkPosizioni10elotto_15")->isChecked());
        QVERIFY(procedi->isEnabled());
        clic("cmdProcediPos10elotto");
        QVERIFY(!frame->isVisible());
        QVERIFY(trova<QWidget>("FrameSomme1")->isVisible());
        QCOMPARE(griglia(Statistica::somme1, 0)->rowCount(), 2);
        // The next statistic asks again, with the same places ticked; Enter goes on.
        statistica(Statistica::distanza);
        QVERIFY(frame->isVisible());
        QTest::keyClick(form_.get(), Qt::Key_Return);
        QVERIFY(trova<QWidget>("Framedistanza")->isVisible());
        QVERIFY(trova<QPushButton>("cmdEsporta")->isEnabled());
        QCOMPARE(griglia(Statistica::somme1, 0)->rowCount(), 2);
        // Other places: what was counted with the first ones is gone.
        QTest::keyClick(form_.get(), Qt::Key_F5);
        clic("chkPosizioni10elotto_20");
        clic("chkPosizioni10elotto_10");
        clic("cmdProcediPos10elotto");
        QCOMPARE(griglia(Statistica::somme1, 0)->rowCount(), 0);
    }

    void annulla_lascia_la_scelta() {
        apri(kFiltri);
        sistema(5);
        QTest::keyClick(form_.get(), Qt::Key_F5);
        QVERIFY(trova<QWidget>("FrameSceltaPosizioni10elotto")->isVisible());
        QTest::mouseClick(
            trova<QWidget>("FrameSceltaPosizioni10elotto")->findChild<QPushButton*>("cmdAnnullaScelta"),
            Qt::LeftButton);
        QVERIFY(!trova<QWidget>("FrameSceltaPosizioni10elotto")->isVisible());
        QTest::keyClick(form_.get(), Qt::Key_F5);
        QTest::keyClick(form_.get(), Qt::Key_Escape);
        QVERIFY(form_->isVisible());
        QVERIFY(trova<QWidget>("FramePosizioni")->isVisible());
        QCOMPARE(griglia(Statistica::posizione, 0)->rowCount(), 0);
    }

    void i_numeri_di_win_for_life() {
        MessaggiDiProva detti;
        apri(kFiltri);
        sistema(6);
        statistica(Statistica::somme1);
        auto* frame = trova<QWidget>("frameSceltaNumeriWFL");
        QVERIFY(frame->isVisible());
        QVERIFY(!trova<QWidget>("txtNumeriScelti_0")->isEnabled());
        QVERIFY(!trova<QWidget>("cmbNumeriPosizione_0")->isEnabled());
        QTest::keyClick(trova<QRadioButton>("Option1_1"), Qt::Key_Space);
        QVERIFY(trova<QWidget>("txtNumeriScelti_0")->isEnabled());
        QVERIFY(!trova<QWidget>("cmbNumeriPosizione_0")->isEnabled());
        // Without a number the frame stays.
        clic("cmdProcediPosWFL");
        QCOMPARE(detti.detti.size(), 1);
        QCOMPARE(detti.detti[0].testo, QStringLiteral("inserire almeno un numero"));
        QVERIFY(frame->isVisible());
        QTest::keyClicks(trova<QLineEdit>("txtNumeriScelti_3"), "2a0");
        QCOMPARE(trova<QLineEdit>("txtNumeriScelti_3")->text(), QStringLiteral("20"));
        clic("cmdProcediPosWFL");
        QVERIFY(!frame->isVisible());
        QCOMPARE(righe(Statistica::somme1, 0), QStringLiteral("110 1 33,33\n"));
        // In their places: the third number is 5 in the third draw alone.
        trova<QPushButton>("cmdAvvia")->click();
        QTest::keyClick(trova<QRadioButton>("Option1_2"), Qt::Key_Space);
        QVERIFY(!trova<QWidget>("txtNumeriScelti_0")->isEnabled());
        QTest::keyClicks(trova<QComboBox>("cmbNumeriPosizione_2"), "5");
        QTest::keyClick(form_.get(), Qt::Key_F5);
        QCOMPARE(righe(Statistica::somme1, 0), QStringLiteral("100 1 33,33\n"));
    }

    void un_ambito_vuoto_lo_dice() {
        MessaggiDiProva detti;
        apri(kFiltri);
        auto* da = trova<QLineEdit>("txtda");
        da->setText("2");
        trova<QLineEdit>("txta")->setText("1");
        clic("cmdAvvia");
        QCOMPARE(detti.detti.size(), 1);
        QCOMPARE(detti.detti[0].testo, QStringLiteral("Non ci sono estrazioni per l'intervallo selezionato"));
        QCOMPARE(griglia(Statistica::posizione, 0)->rowCount(), 0);
    }

    void sistemi_salvati() {
        scrivi("terno/miosyb.txt", "1,2,3\r\n45,46,90\r\n");
        scrivi("terno/mionub.txt", "#2026-07-04#,\"\"\r\n1234,1234\r\n");
        scrivi("terno/altrosyb.txt", "7,8,9\r\n");
        scrivi("terno/ric_statsyb.txt", "1,2,3\r\n");
        scrivi("terno/ric_stat.nn", "");
        const MessaggiDiProva detti;
        apri(kSistemi);
        QVERIFY(trova<QWidget>("FrameSistemi")->isVisible());
        QVERIFY(!trova<QWidget>("FrameParametri")->isVisible());
        auto* elenco = trova<QTreeWidget>("ListView1");
        QCOMPARE(elenco->topLevelItemCount(), 0);
        sistema(1);
        QCOMPARE(elenco->topLevelItemCount(), 2);
        QCOMPARE(elenco->topLevelItem(0)->text(0), QStringLiteral("altro"));
        QCOMPARE(elenco->topLevelItem(0)->text(2), QString{});
        QCOMPARE(elenco->topLevelItem(1)->text(0), QStringLiteral("mio"));
        QCOMPARE(elenco->topLevelItem(1)->text(2), QStringLiteral("1.234"));
        // With nothing chosen "Avvia" does nothing.
        statistica(Statistica::somme1);
        clic("cmdAvvia");
        QCOMPARE(griglia(Statistica::somme1, 0)->rowCount(), 0);
        elenco->setFocus();
        QTest::keyClick(elenco, Qt::Key_Down);
        QTest::keyClick(elenco, Qt::Key_End);
        QCOMPARE(elenco->currentItem()->text(0), QStringLiteral("mio"));
        clic("cmdAvvia");
        QCOMPARE(righe(Statistica::somme1, 0), QStringLiteral("6 1 0,08\n181 1 0,08\n"));
        statistica(Statistica::posizione);
        QCOMPARE(griglia(Statistica::posizione, 0)->columnCount(), 7);
        QCOMPARE(griglia(Statistica::posizione, 0)->testo(0, 1), QStringLiteral("1"));
        // Groups have no statistic on systems; another system is another question.
        statistica(Statistica::gruppi);
        QCOMPARE(griglia(Statistica::gruppi, 2)->rowCount(), 0);
        elenco->setCurrentItem(elenco->topLevelItem(0));
        QCOMPARE(griglia(Statistica::posizione, 0)->rowCount(), 0);
        QVERIFY(detti.detti.isEmpty());
        // No choice of positions stands in the way.
        sistema(5);
        clic("cmdAvvia");
        QVERIFY(!trova<QWidget>("FrameSceltaPosizioni10elotto")->isVisible());
    }

    void un_sistema_danneggiato_si_dice_nella_finestra() {
        scrivi("quaterna/rottosyc.txt", "1,2,3,4\r\n1,due,3,4\r\n");
        const MessaggiDiProva detti;
        apri(kSistemi);
        sistema(2);
        auto* elenco = trova<QTreeWidget>("ListView1");
        elenco->setCurrentItem(elenco->topLevelItem(0));
        clic("cmdAvvia");
        QVERIFY(detti.detti.isEmpty());
        QVERIFY(trova<QLabel>("lblstato")->toolTip().contains("riga 2: trovato \"due\""));
    }

    void il_tab_fa_il_giro() {
        apri(kFiltri);
        QApplication::setActiveWindow(form_.get());
        auto* primo = trova<QPushButton>("cmdAvvia");
        primo->setFocus();
        QSet<QString> visti;
        for (int i = 0; i < 200; ++i) {
            QTest::keyClick(form_->focusWidget(), Qt::Key_Tab);
            if (form_->focusWidget() == primo) break;
            visti << form_->focusWidget()->objectName();
        }
        QCOMPARE(form_->focusWidget(), primo);
        for (const char* nome : {"CheckSistema_0", "CheckSistema_6", "Combo1", "cmdEsci", "ComboIntervallo"})
            QVERIFY2(visti.contains(QString::fromLatin1(nome)), nome);
    }

    void sta_anche_in_una_finestra_piccola() {
        apri(kFiltri);
        // Under the title bar of a screen of 960 x 540.
        QVERIFY2(form_->minimumSizeHint().width() <= 960,
                 qPrintable(QString::number(form_->minimumSizeHint().width())));
        QVERIFY2(form_->minimumSizeHint().height() <= 500,
                 qPrintable(QString::number(form_->minimumSizeHint().height())));
    }
};

QTEST_MAIN(TestFormFiltri)
#include "test_form_filtri.moc"
