#include "screens/area_parametri.h"
#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/tema.h"
#include "support/archivi.h"
#include "systems/form_ultimi.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollArea>
#include <QtTest>
#include <memory>

using namespace sortimetra;

class TestFormUltimi final : public QObject {
    Q_OBJECT

    prove::CartellaProva cartella_;
    Sessione sessione_{.percorso_programma = cartella_.percorso()};
    ArchivioEstrazioni archivio_ =
        prove::da_testi("1 BA 10 20 30 40 50\n2 BA 12 2 90 45 46\n3 BA 1 2 3 4 5\n",
                        "1 6 5 4 3 2 1 90 0\n3 11 12 13 14 15 16 90 0\n",
                        "1 9:00 1 2 3 4 5 6 7 8 9 10\n2 10:00 2 4 6 8 10 12 14 16 18 20\n");
    std::unique_ptr<Form_Ultimi> form_;

    void apri() {
        form_ = std::make_unique<Form_Ultimi>(sessione_);
        form_->apri(*trova_ricerca("ultimi 20 concorsi"), archivio_);
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
    [[nodiscard]] QString cella(const QString& misura, int colonna) const {
        const ModelloRisultato* m = form_->tabella()->modello();
        for (int r = 0; r < m->rowCount(); ++r)
            if (m->testo(r, 0) == misura) return m->testo(r, colonna);
        return QStringLiteral("(manca)");
    }
    [[nodiscard]] QString lista(int riga, int colonna) const {
        return form_->lista()->modello()->testo(riga, colonna);
    }

  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }

    void ogni_controllo_ha_il_suo_nome() {
        apri();
        QCOMPARE(form_->windowTitle(), QStringLiteral("Ultimi 20 Concorsi"));
        const QStringList titoli{"Sistemi Lotto", "Sistemi SuperEnalotto", "Sistemi 10 e Lotto",
                                 "Sistemi Win for Life"};
        for (int i = 0; i < 4; ++i)
            QCOMPARE(trova<QCheckBox>(QStringLiteral("CheckSistema_%1").arg(i))->text(), titoli[i]);
        for (const char* nome :
             {"CheckRuota_0", "ComboIntervallo", "txtda", "txta", "cmdavviaRicerca", "Command2", "cmdesci",
              "FrameSceltaPosizioni10elotto", "chkPosizioni10elotto_20", "cmdProcediPos10elotto",
              "frameSceltaNumeriWFL", "Option1_2", "txtNumeriScelti_9", "cmbNumeriPosizione_9",
              "cmdProcediPosWFL"})
            QVERIFY2(form_->findChild<QWidget*>(QString::fromLatin1(nome)) != nullptr, nome);
    }

    void il_piu_nuovo_si_trova_primo() {
        apri();
        QTest::keyClick(form_.get(), Qt::Key_F5);
        QCOMPARE(form_->tabella()->modello()->rowCount(), 54);
        QCOMPARE(form_->tabella()->modello()->columnCount(), 21);
        QCOMPARE(form_->lista()->modello()->rowCount(), 20);
        QCOMPARE(lista(0, 0), QStringLiteral("3"));
        QCOMPARE(lista(1, 1), QStringLiteral("12 - 02 - 90 - 45 - 46"));
        QCOMPARE(cella("Casella 1", 1), QStringLiteral("1"));
        QCOMPARE(cella("Casella 1", 2), QStringLiteral("12"));
        QCOMPARE(cella("Cadenza 2", 2), QStringLiteral("2"));
        QCOMPARE(cella("Casella 1", 4), QString{});
        // Each column says whose it is.
        QCOMPARE(form_->tabella()->modello()->tabella()->titoli[0][1], std::string{"3"});
        QVERIFY(trova<QPushButton>("cmdEsporta")->isEnabled());
    }

    void un_altro_gioco_svuota() {
        apri();
        QTest::keyClick(form_.get(), Qt::Key_F5);
        clic("CheckSistema_1");
        QCOMPARE(form_->tabella()->modello()->rowCount(), 0);
        QCOMPARE(form_->lista()->modello()->rowCount(), 0);
        clic("cmdavviaRicerca");
        QCOMPARE(form_->tabella()->modello()->rowCount(), 56);
        QCOMPARE(lista(1, 1), QStringLiteral("01 - 02 - 03 - 04 - 05 - 06"));
        trova<QComboBox>("ComboIntervallo")->setCurrentIndex(1);
        QCOMPARE(form_->tabella()->modello()->rowCount(), 0);
    }

    void dieci_posizioni() {
        apri();
        clic("CheckSistema_2");
        clic("cmdavviaRicerca");
        QVERIFY(trova<QWidget>("FrameSceltaPosizioni10elotto")->isVisible());
        for (int i = 11; i <= 20; ++i) clic(QStringLiteral("chkPosizioni10elotto_%1").arg(i));
        clic("cmdProcediPos10elotto");
        QCOMPARE(form_->tabella()->modello()->rowCount(), 64);
        QCOMPARE(lista(0, 0), QStringLiteral("3"));
    }

    void win_for_life_passa_oltre() {
        const MessaggiDiProva detti;
        apri();
        clic("CheckSistema_3");
        clic("cmdavviaRicerca");
        QTest::keyClick(trova<QRadioButton>("Option1_1"), Qt::Key_Space);
        QTest::keyClicks(trova<QLineEdit>("txtNumeriScelti_0"), "1");
        clic("cmdProcediPosWFL");
        QCOMPARE(lista(0, 0), QStringLiteral("1"));
        QCOMPARE(lista(1, 0), QString{});
        QVERIFY(detti.detti.isEmpty());
    }

    void senza_estrazioni_il_messaggio() {
        MessaggiDiProva detti;
        apri();
        trova<QLineEdit>("txtda")->setText("3");
        trova<QLineEdit>("txta")->setText("2");
        clic("cmdavviaRicerca");
        QCOMPARE(detti.detti.size(), 1);
        QCOMPARE(detti.detti[0].testo, QStringLiteral("Non ci sono estrazioni per l'intervallo selezionato"));
    }

    void la_stampa_riceve_quel_che_si_vede() {
        apri();
        LavoroStampa stampato;
        form_->imposta_stampa([&](const LavoroStampa& l) { stampato = l; });
        QTest::keyClick(form_.get(), Qt::Key_F5);
        clic("Command2");
        QVERIFY(stampato.risposta.risultato != nullptr);
        QCOMPARE(stampato.risposta.risultato->tabelle.size(), std::size_t{2});
    }

    void sta_anche_in_una_finestra_piccola() {
        apri();
        // Under the title bar of a screen of 960 x 540.
        QVERIFY2(form_->minimumSizeHint().width() <= 960,
                 qPrintable(QString::number(form_->minimumSizeHint().width())));
        QVERIFY2(form_->minimumSizeHint().height() <= 500,
                 qPrintable(QString::number(form_->minimumSizeHint().height())));
    }
};

QTEST_MAIN(TestFormUltimi)
#include "test_form_ultimi.moc"
