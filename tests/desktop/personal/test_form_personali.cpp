#include "personal/form_personali.h"
#include "personal/frm_numeri_personali.h"
#include "personal/scelta_numeri.h"
#include "screens/area_parametri.h"
#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/tema.h"
#include "statistics/form_stat.h"
#include "support/archivi.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QtTest>
#include <memory>

using namespace sortimetra;

namespace {

constexpr const char* kLotto = "ricerche su numeri personali";
constexpr const char* kSuper = "ricerche sui numeri personali";
constexpr const char* kWfl = "ricerche sui numeri personali (win for life)";

ArchivioEstrazioni archivio_piccolo() {
    return prove::da_testi(
        "1 BA 5 17 30 40 50\n1 CA 60 61 62 63 64\n2 BA 1 2 3 4 6\n2 CA 17 5 71 72 73\n"
        "3 BA 7 8 9 10 11\n3 CA 12 13 14 15 16\n4 BA 80 81 82 83 17\n4 CA 20 21 22 23 24\n",
        "1 60 50 40 30 20 10 7 0\n3 50 7 8 9 11 12 10 0\n",
        "1 9:00 1 2 3 4 5 6 7 8 9 10\n2 10:00 11 12 13 14 15 16 17 18 19 20\n");
}

}  // namespace

class TestFormPersonali final : public QObject {
    Q_OBJECT

    prove::CartellaProva cartella_;
    Sessione sessione_{.percorso_programma = cartella_.percorso()};
    ArchivioEstrazioni archivio_ = archivio_piccolo();
    std::unique_ptr<Form_Personali> form_;

    void apri(const char* chiave) {
        form_ = std::make_unique<Form_Personali>(sessione_);
        form_->apri(*trova_ricerca(chiave), archivio_);
        form_->show();
        QApplication::setActiveWindow(form_.get());
    }
    template <class T>
    [[nodiscard]] T* controllo(const char* nome) const {
        return form_->findChild<T*>(QString::fromLatin1(nome));
    }
    void clic(const char* nome) const {
        auto* b = controllo<QAbstractButton>(nome);
        QVERIFY2(b != nullptr, nome);
        QTest::mouseClick(b, Qt::LeftButton);
    }
    [[nodiscard]] SceltaNumeri* scelta() const { return controllo<SceltaNumeri>("MSHFlexGrid1"); }
    void segna(int numero) const { trascina(numero, numero); }
    /// The rectangle from one number to another, as the mouse draws it.
    void trascina(int da, int a) const {
        const auto centro = [&](int n) { return scelta()->visualItemRect(scelta()->cella(n)).center(); };
        QTest::mousePress(scelta()->viewport(), Qt::LeftButton, {}, centro(da));
        QTest::mouseMove(scelta()->viewport(), centro(a));
        QTest::mouseRelease(scelta()->viewport(), Qt::LeftButton, {}, centro(a));
    }
    [[nodiscard]] static QString cella(const GrigliaRisultati* griglia, int riga, int colonna) {
        return griglia->modello()->testo(riga, colonna);
    }
    [[nodiscard]] static int righe(const GrigliaRisultati* griglia) { return griglia->modello()->rowCount(); }

  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }
    void cleanup() { form_.reset(); }

    void ogni_controllo_ha_il_suo_nome() {
        apri(kLotto);
        for (const char* nome :
             {"MSHFlexGrid1", "MSHFlexGrid2", "MSHFlexGrid3", "lblnumeri", "cmbEstratto", "Check1",
              "cmdRicerca", "Cmdannulla", "Command1", "cmdChiudi", "CmdScomposizione_0", "CmdScomposizione_4",
              "FrameParametri", "txtda", "txta"})
            QVERIFY2(controllo<QWidget>(nome) != nullptr, nome);
        QCOMPARE(controllo<QPushButton>("cmdRicerca")->text(), QStringLiteral("&Avvia Ricerca"));
        QCOMPARE(controllo<QCheckBox>("Check1")->text(), QStringLiteral("FINO A CHIUSURA SERIE"));
        QCOMPARE(controllo<QComboBox>("cmbEstratto")->count(), 6);
        QCOMPARE(form_->property("Tag").toString(), QStringLiteral("lotto"));
    }

    void come_l_ultima_volta() {
        apri(kLotto);
        segna(5);
        segna(77);
        controllo<QComboBox>("cmbEstratto")->setCurrentIndex(2);
        clic("cmdRicerca");
        form_->close();
        apri(kLotto);
        QCOMPARE(scelta()->numeri(), std::vector<int>{});
        form_->come_l_ultima_volta();
        QCOMPARE(scelta()->numeri(), (std::vector<int>{5, 77}));
        QCOMPARE(controllo<QComboBox>("cmbEstratto")->currentIndex(), 2);
        QVERIFY(!controllo<QCheckBox>("Check1")->isChecked());
    }

    void si_segna_con_il_mouse_e_con_la_tastiera() {
        apri(kLotto);
        QCOMPARE(controllo<QLabel>("lblnumeri")->text(), QStringLiteral("Numeri Selezionati: 0"));
        segna(5);
        QCOMPARE(scelta()->numeri(), std::vector<int>{5});
        // A rectangle drawn upwards turns over what stands in it: 5 goes, the others come.
        trascina(16, 4);
        QCOMPARE(scelta()->numeri(), (std::vector<int>{4, 6, 14, 15, 16}));
        QCOMPARE(controllo<QLabel>("lblnumeri")->text(), QStringLiteral("Numeri Selezionati: 5"));
        clic("Cmdannulla");
        QCOMPARE(scelta()->numeri(), std::vector<int>{});
        scelta()->setFocus();
        scelta()->setCurrentCell(0, 0);
        QTest::keyClick(scelta(), Qt::Key_Space);
        QTest::keyClick(scelta(), Qt::Key_Right);
        QTest::keyClick(scelta(), Qt::Key_Down);
        QTest::keyClick(scelta(), Qt::Key_Space);
        QCOMPARE(scelta()->numeri(), (std::vector<int>{1, 12}));
        QTest::keyPress(scelta(), Qt::Key_Right, Qt::ShiftModifier);
        QTest::keyPress(scelta(), Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyRelease(scelta(), Qt::Key_Shift);
        QCOMPARE(scelta()->numeri(), (std::vector<int>{1, 13, 22, 23}));
    }

    void dove_sta_la_tastiera_si_vede() {
        apri(kLotto);
        const auto incorniciata = [this](int numero) {
            const QImage foto = scelta()->viewport()->grab().toImage();
            const QPoint angolo = scelta()->visualItemRect(scelta()->cella(numero)).topLeft();
            return foto.pixel((QPointF{angolo + QPoint{1, 1}} * foto.devicePixelRatio()).toPoint()) ==
                   skin_in_uso().accento;
        };
        controllo<QPushButton>("cmdRicerca")->setFocus();
        scelta()->setCurrentCell(0, 4);
        QVERIFY(!incorniciata(5));
        scelta()->setFocus();
        QTRY_VERIFY(incorniciata(5));
        QTest::keyClick(scelta(), Qt::Key_Down);
        QVERIFY(incorniciata(15));
        QVERIFY(!incorniciata(5));
    }

    void la_ricerca_riempie_le_tre_griglie() {
        apri(kLotto);
        QTest::mouseClick(controllo<QCheckBox>("CheckRuota_1"), Qt::LeftButton);
        segna(17);
        segna(5);
        clic("cmdRicerca");
        QCOMPARE(righe(form_->griglia()), 3);
        QCOMPARE(cella(form_->griglia(), 1, 2), QStringLiteral("Cagliari"));
        QCOMPARE(cella(form_->griglia(), 0, 8), QStringLiteral("2"));
        QCOMPARE(righe(form_->numeri()), 2);
        QCOMPARE(cella(form_->numeri(), 1, 1), QStringLiteral("3"));
        QCOMPARE(righe(form_->riepilogo()), 5);
        QCOMPARE(cella(form_->riepilogo(), 0, 4), QStringLiteral("Bari"));
        // The hit is yellow, its neighbour is not.
        const auto fondo = [&](int colonna) {
            return form_->griglia()
                ->modello()
                ->index(0, colonna)
                .data(Qt::BackgroundRole)
                .value<QBrush>()
                .color()
                .rgb();
        };
        QCOMPARE(fondo(3), skin_in_uso().trovato);
        QVERIFY(fondo(5) != skin_in_uso().trovato);
        // Another mark takes the answer away.
        segna(90);
        QCOMPARE(righe(form_->griglia()), 0);
        QCOMPARE(righe(form_->numeri()), 0);
        QTest::keyClick(form_.get(), Qt::Key_F5);
        QCOMPARE(righe(form_->numeri()), 3);
        controllo<QComboBox>("cmbEstratto")->setCurrentIndex(1);
        QCOMPARE(righe(form_->griglia()), 0);
        clic("cmdRicerca");
        QCOMPARE(righe(form_->griglia()), 2);
    }

    void senza_numeri_non_succede_niente() {
        prove::CartellaProva altra;
        MessaggiDiProva messaggi;
        apri(kLotto);
        clic("cmdRicerca");
        QCOMPARE(righe(form_->griglia()), 0);
        QVERIFY(messaggi.detti.isEmpty());
        QVERIFY(!controllo<QPushButton>("cmdEsporta")->isEnabled());
    }

    void la_serie_ha_la_sua_finestra() {
        apri(kLotto);
        QTest::mouseClick(controllo<QCheckBox>("CheckRuota_1"), Qt::LeftButton);
        segna(5);
        segna(17);
        controllo<QCheckBox>("Check1")->setChecked(true);
        LavoroStampa stampato;
        form_->imposta_stampa([&](const LavoroStampa& l) { stampato = l; });
        clic("cmdRicerca");
        QVERIFY(form_->serie() != nullptr);
        QVERIFY(form_->serie()->isVisible());
        QCOMPARE(righe(form_->serie()->griglia()), 2);
        QCOMPARE(righe(form_->griglia()), 2);
        QTest::mouseClick(form_->serie()->findChild<QPushButton*>(QStringLiteral("Command1")),
                          Qt::LeftButton);
        QVERIFY(stampato.risposta.risultato != nullptr);
        QCOMPARE(stampato.risposta.risultato->tabelle[0].nome, std::string{"serie"});
        QTest::keyClick(form_->serie(), Qt::Key_Escape);
        QVERIFY(!form_->serie()->isVisible());
    }

    void le_scomposizioni_seguono_quanti_numeri_ci_sono() {
        apri(kLotto);
        const auto accese = [&] {
            QString quali;
            for (int i = 0; i < 5; ++i)
                quali += controllo<QPushButton>(qPrintable(QStringLiteral("CmdScomposizione_%1").arg(i)))
                                 ->isEnabled()
                             ? u'1'
                             : u'0';
            return quali;
        };
        QCOMPARE(accese(), QStringLiteral("00000"));
        segna(1);
        QCOMPARE(accese(), QStringLiteral("10000"));
        trascina(2, 5);
        QCOMPARE(accese(), QStringLiteral("11111"));
        trascina(11, 40);
        QCOMPARE(scelta()->numeri().size(), std::size_t{35});
        QCOMPARE(accese(), QStringLiteral("11110"));
        trascina(41, 50);
        QCOMPARE(accese(), QStringLiteral("11100"));
        trascina(51, 60);
        QCOMPARE(accese(), QStringLiteral("11000"));
    }

    void la_scomposizione_apre_le_statistiche_con_questo_ambito() {
        apri(kLotto);
        QTest::mouseClick(controllo<QCheckBox>("CheckRuota_1"), Qt::LeftButton);
        segna(5);
        segna(17);
        segna(90);
        clic("CmdScomposizione_1");
        Form_stat* altra = form_->scomposizione();
        QVERIFY(altra != nullptr && altra->isVisible());
        QVERIFY(!form_->isVisible());
        QCOMPARE(altra->windowTitle(),
                 QStringLiteral("Scomposizione Gruppo relativi all'ambo (3 numeri = 3 ambo)"));
        QVERIFY(altra->findChild<QCheckBox*>(QStringLiteral("CheckRuota_1"))->isChecked());
        auto* combo = altra->findChild<QComboBox*>(QStringLiteral("ComboRit"));
        QCOMPARE(combo->itemText(2), QStringLiteral("al Terno"));
        QTest::mouseClick(altra->findChild<QPushButton*>(QStringLiteral("Command1")), Qt::LeftButton);
        QCOMPARE(righe(altra->griglia()), 3);
        QCOMPARE(cella(altra->griglia(), 0, 0), QStringLiteral("05.17"));
        altra->close();
        QVERIFY(form_->isVisible());
    }

    void gli_altri_giochi() {
        apri(kSuper);
        QVERIFY(!controllo<QCheckBox>("Check1")->isVisible());
        QVERIFY(!controllo<QPushButton>("CmdScomposizione_0")->isVisible());
        segna(10);
        segna(50);
        clic("cmdRicerca");
        QCOMPARE(righe(form_->griglia()), 2);
        QCOMPARE(cella(form_->griglia(), 1, 9), QStringLiteral("1 + J"));
        apri(kWfl);
        QCOMPARE(scelta()->rowCount(), 2);
        QCOMPARE(controllo<QComboBox>("ComboIntervallo")->itemText(1), QStringLiteral("8:00"));
        segna(20);
        clic("cmdRicerca");
        QCOMPARE(righe(form_->griglia()), 1);
        QCOMPARE(cella(form_->griglia(), 0, 1), QStringLiteral("02/01/00"));
    }

    void il_tasto_tab_gira_ovunque() {
        apri(kLotto);
        QSet<QWidget*> visti;
        QWidget* primo = QApplication::focusWidget();
        for (int i = 0; i < 80; ++i) {
            visti << QApplication::focusWidget();
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            if (QApplication::focusWidget() == primo) break;
        }
        for (const char* nome :
             {"MSHFlexGrid1", "Cmdannulla", "cmbEstratto", "Check1", "cmdRicerca", "cmdChiudi"})
            QVERIFY2(visti.contains(controllo<QWidget>(nome)), nome);
    }
};

QTEST_MAIN(TestFormPersonali)
#include "test_form_personali.moc"
