#include "catalogue/ricerche.h"
#include "lunghette/form_lunghette5.h"
#include "lunghette/parametri.h"
#include "screens/area_parametri.h"
#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/tema.h"
#include "statistics/form_stat2.h"
#include "statistics/pannello_gruppo.h"
#include "support/archivi.h"

#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>
#include <memory>

using namespace sortimetra;

class TestFormLunghette5 final : public QObject {
    Q_OBJECT

    prove::CartellaProva cartella_;
    Sessione sessione_{.percorso_programma = cartella_.percorso()};
    ArchivioEstrazioni archivio_ = prove::da_testi("", "",
                                                   "1 9:00 10 9 8 7 6 5 4 3 2 1\n"
                                                   "2 9:00 1 2 3 4 6 7 8 9 10 11\n"
                                                   "3 10:00 1 2 3 4 5 16 17 18 19 20\n"
                                                   "4 10:00 2 3 4 5 6 16 17 18 19 20\n");
    std::unique_ptr<Form_Lunghette5> form_;

    template <class T>
    T* controllo(const char* nome) const {
        T* c = form_->findChild<T*>(QString::fromLatin1(nome));
        if (c == nullptr) QTest::qFail(nome, __FILE__, __LINE__);
        return c;
    }
    void clic(const char* nome) const { QTest::mouseClick(controllo<QPushButton>(nome), Qt::LeftButton); }
    [[nodiscard]] int righe() const { return form_->griglia()->modello()->rowCount(); }
    [[nodiscard]] QString riga(int r) const {
        QStringList celle;
        for (int c = 0; c < 4; ++c) celle << form_->griglia()->modello()->testo(r, c);
        return celle.join(' ');
    }

  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }
    void init() {
        form_ = std::make_unique<Form_Lunghette5>(sessione_);
        form_->apri(*trova_ricerca("calcolo lunghette scomposte"), archivio_);
        form_->show();
        QVERIFY(QTest::qWaitForWindowActive(form_.get()));
    }
    void cleanup() { form_.reset(); }

    void come_l_ultima_volta() {
        controllo<QRadioButton>("Option2_1")->click();
        controllo<QRadioButton>("Option1_1")->click();
        clic("Command1");
        QCOMPARE(righe(), 3003);
        form_->close();
        init();
        QVERIFY(!controllo<QRadioButton>("Option2_1")->isChecked());
        form_->come_l_ultima_volta();
        QVERIFY(controllo<QRadioButton>("Option2_1")->isChecked());
        QVERIFY(controllo<QRadioButton>("Option1_1")->isChecked());
    }

    void si_apre_senza_meta_e_non_fa_nulla() {
        MessaggiDiProva messaggi;
        QCOMPARE(form_->windowTitle(), QStringLiteral("Calcolo lunghette scomposte  win for life"));
        QVERIFY(!controllo<QRadioButton>("Option2_0")->isChecked());
        QVERIFY(!controllo<QRadioButton>("Option2_1")->isChecked());
        QVERIFY(!controllo<QLabel>("lblmanca")->isVisible());
        // The hour has no effect and is not asked for.
        QVERIFY(!controllo<QComboBox>("ComboIntervallo")->isVisible());
        clic("Command1");
        QCOMPARE(righe(), 0);
        QVERIFY(controllo<QLabel>("lblmanca")->isVisible());
        QVERIFY(messaggi.detti.isEmpty());
        QCOMPARE(form_->griglia()->modello()->tabella()->titoli[0][3], std::string{"Ritardo Storico"});
    }

    void i_primi_e_gli_ultimi_con_i_tasti() {
        controllo<QRadioButton>("Option2_0")->setFocus();
        QTest::keyClick(controllo<QRadioButton>("Option2_0"), Qt::Key_Space);
        clic("Command1");
        QCOMPARE(righe(), 3003);
        QCOMPARE(riga(0), QStringLiteral("01-02-03-04-05 2 0 1"));
        // Another half is another question.
        QTest::keyClick(controllo<QRadioButton>("Option2_1"), Qt::Key_Space);
        QCOMPARE(righe(), 0);
        QTest::keyClick(controllo<QRadioButton>("Option1_1"), Qt::Key_Space);
        QTest::keyClick(form_.get(), Qt::Key_F5);
        QCOMPARE(righe(), 3003);
        QCOMPARE(riga(0), QStringLiteral("06-07-08-09-10 1 3 3"));
        // The column sort of every grid: the most frequent comes first.
        clic("cmdcol_1");
        QCOMPARE(riga(0), QStringLiteral("16-17-18-19-20 2 0 2"));
    }

    void senza_estrazioni_non_fa_nulla() {
        MessaggiDiProva messaggi;
        controllo<QRadioButton>("Option2_0")->click();
        form_->area()->findChild<QLineEdit*>("txtda")->setText("3");
        form_->area()->findChild<QLineEdit*>("txta")->setText("2");
        clic("Command1");
        QCOMPARE(righe(), 0);
        QVERIFY(messaggi.detti.isEmpty());
    }

    void il_capogioco_porta_all_analisi_di_gruppo() {
        MessaggiDiProva messaggi;
        auto* casella = controllo<QLineEdit>("txtcapogioco");
        QCOMPARE(casella->parentWidget()->objectName(), QStringLiteral("FrameCapogioco"));
        QCOMPARE(controllo<QPushButton>("Command3")->text(), QStringLiteral("Analisi Gruppo"));
        clic("Command3");
        QCOMPARE(messaggi.detti.size(), 1);
        QCOMPARE(messaggi.detti.front().testo, QStringLiteral("Capogioco specificato non valido"));
        QCOMPARE(form_->findChild<Form_stat2*>(), nullptr);

        casella->setFocus();
        QTest::keyClicks(casella, QStringLiteral("2"));
        QTest::keyClick(casella, Qt::Key_Return);
        auto* analisi = form_->findChild<Form_stat2*>();
        QVERIFY(analisi != nullptr && analisi->isVisible());
        QCOMPARE(analisi->windowTitle(), QStringLiteral("Analisi Gruppo - ambi del 2"));
        const auto* ambi = analisi->pannello()->lunghette()->modello();
        QCOMPARE(ambi->rowCount(), 19);
        // 2 and 1 came together in draws 1, 2 and 3.
        QCOMPARE(ambi->testo(0, 0) + ' ' + ambi->testo(0, 1), QStringLiteral("1 - 2 3"));
        // By the ambata each number of an ambo counts: 2 came in all four draws.
        controllo<QComboBox>("ComboRit")->setCurrentIndex(0);
        clic("Command3");
        QCOMPARE(ambi->testo(0, 1), QStringLiteral("4"));
        // The cinquine were not asked for.
        QCOMPARE(righe(), 0);
        form_->close();
        QVERIFY(!analisi->isVisible());
    }

    void l_analisi_si_stampa_se_c_e_chi_stampa() {
        QStringList stampati;
        form_->imposta_stampa([&](const LavoroStampa& l) {
            stampati << QString::fromStdString(std::string{l.risposta.titolo()});
        });
        controllo<QLineEdit>("txtcapogioco")->setText(QStringLiteral("20"));
        clic("Command3");
        auto* analisi = form_->findChild<Form_stat2*>();
        QVERIFY(analisi != nullptr);
        QTest::mouseClick(analisi->findChild<QPushButton*>(QStringLiteral("cmdStampa")), Qt::LeftButton);
        QCOMPARE(stampati, QStringList{QStringLiteral("Analisi Gruppo - ambi del 20")});
    }

    void si_puo_annullare() {
        auto* annulla = controllo<QPushButton>("cmdAnnulla");
        QCOMPARE(annulla->text(), QStringLiteral("Annulla Ricerca"));
        QVERIFY(!annulla->isHidden());
    }
};

QTEST_MAIN(TestFormLunghette5)
#include "test_form_lunghette5.moc"
