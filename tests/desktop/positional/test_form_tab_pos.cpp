#include "catalogue/rapporti.h"
#include "positional/form_tab_pos.h"
#include "positional/form_tab_pos2.h"
#include "positional/form_tab_pos_dieci.h"
#include "positional/form_tab_pos_scelta.h"
#include "positional/form_tab_pos_wfl.h"
#include "positional/migliori_ritardi.h"
#include "positional/parametri.h"
#include "qt_testi.h"
#include "screens/area_parametri.h"
#include "screens/griglia_risultati.h"
#include "screens/messaggi.h"
#include "screens/tema.h"
#include "support/archivi.h"
#include "support/superficie_registrata.h"

#include <QApplication>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QTableView>
#include <QtTest>
#include <filesystem>
#include <memory>
#include <set>

using namespace sortimetra;

namespace {

constexpr const char* kTabellone = "tabellone posizionale";
constexpr const char* kDieciNumeri = "i 10 numeri più in ritardo su ogni ruota";
constexpr const char* kPrimi = "tabellone posizionale primi estratti";
constexpr const char* kSestina = "tabellone posizionale sestina superenalotto";
constexpr const char* kDieciELotto = "tabellone posizionale combinazione 10 e lotto";
constexpr const char* kWfl = "tabellone posizionale combinazione win for life";
constexpr const char* kMigliori = "tabellone migliori ritardi";

/// In place of the printer: keeps the picture of a page.
auto tieni(QImage& dove) {
    return [&dove](QWidget*, const QImage& immagine) { dove = immagine; };
}

/// 1000 draws: wheel w has five numbers that move on by one a draw, so that every number of 1 to 90 is on
/// every wheel within 90 draws. SuperEnalotto from 402 on, Nazionale from 600 on.
ArchivioEstrazioni archivio_di_prova() {
    std::string lotto;
    std::string superenalotto;
    std::string wfl;
    const auto numeri = [](int da, int quanti, int passo, int massimo) {
        std::string t;
        for (int i = 0; i < quanti; ++i) t += " " + std::to_string((da + i * passo) % massimo + 1);
        return t;
    };
    for (int c = 1; c <= 1000; ++c) {
        for (int w = 0; w < kRuote; ++w)
            lotto += std::to_string(c) + " " + std::string{kNomiRuote[static_cast<std::size_t>(w)].codice} +
                     numeri(c + 7 * w, 5, 18, 90) + "\n";
        if (c >= 600) lotto += std::to_string(c) + " NZ" + numeri(c, 5, 11, 90) + "\n";
        if (c >= 402) superenalotto += std::to_string(c) + numeri(c, 6, 15, 90) + " 0 0\n";
        wfl += std::to_string(c) + " 9:00" + numeri(c, 10, 2, 20) + "\n";
    }
    return prove::da_testi(lotto, superenalotto, wfl);
}

}  // namespace

class TestTabelloni final : public QObject {
    Q_OBJECT

    prove::CartellaProva cartella_;
    Sessione sessione_{.percorso_programma = cartella_.percorso()};
    ArchivioEstrazioni archivio_ = archivio_di_prova();
    std::unique_ptr<SchermoConcorso> form_;

    template <class Form>
    Form& apri(const char* chiave) {
        form_ = std::make_unique<Form>(sessione_);
        form_->apri(*trova_ricerca(chiave), archivio_);
        form_->show();
        QApplication::setActiveWindow(form_.get());
        return static_cast<Form&>(*form_);
    }
    template <class Controllo>
    [[nodiscard]] Controllo* controllo(const char* nome) const {
        return form_->findChild<Controllo*>(QString::fromLatin1(nome));
    }
    [[nodiscard]] QString testo(const char* etichetta) const { return controllo<QLabel>(etichetta)->text(); }
    void clic(const char* nome) const {
        auto* b = controllo<QPushButton>(nome);
        QVERIFY2(b != nullptr && b->isVisible(), nome);
        QTest::mouseClick(b, Qt::LeftButton);
    }
    [[nodiscard]] QLineEdit* txtconc() const { return controllo<QLineEdit>("txtconc"); }
    [[nodiscard]] CasellaTabellone* updown() const { return form_->scelta()->casella(); }
    void scrivi(const QString& t) const {
        txtconc()->setFocus();
        txtconc()->selectAll();
        QTest::keyClicks(txtconc(), t);
    }
    [[nodiscard]] bool visibile(const char* nome) const { return controllo<QWidget>(nome)->isVisible(); }

  private slots:
    void initTestCase() {
        applica_tema(*qApp, 1);
        std::filesystem::copy_file(std::filesystem::path{SORTIMETRA_RADICE} / "data" / "n90ridd.rid",
                                   cartella_.percorso() / "n90ridd.rid");
    }
    void init() { sessione_.indice_combo_rit = -1; }

    // ---- the chooser ----

    void la_scelta_comincia_dall_ultimo_concorso_data() {
        QTest::addColumn<QString>("chiave");
        QTest::addColumn<QString>("tag");
        QTest::addColumn<int>("passo");
        QTest::addColumn<int>("massimo");
        QTest::newRow("lotto") << kTabellone << "tabpos" << 1000 << 1000;
        QTest::newRow("dieci") << kDieciNumeri << "10num" << 1000 << 1000;
        QTest::newRow("primi estratti") << kPrimi << "tabpos_s" << 599 << 1000;
        QTest::newRow("sestina") << kSestina << "tabpos_s6" << 599 << 599;
        QTest::newRow("10 e lotto") << kDieciELotto << "tabpos_10" << 599 << 599;
    }
    void la_scelta_comincia_dall_ultimo_concorso() {
        QFETCH(QString, chiave);
        QFETCH(QString, tag);
        QFETCH(int, passo);
        QFETCH(int, massimo);
        apri<form_tab_pos>(chiave.toUtf8().constData());
        QVERIFY(visibile("Frame1"));
        QCOMPARE(form_->property("Tag").toString(), tag);
        // The text shows the last concorso, whatever the stepper stands at.
        QCOMPARE(txtconc()->text(), QStringLiteral("1000"));
        QCOMPARE(testo("lbldata"), QStringLiteral("26/09/2002"));
        QCOMPARE(updown()->passo(), passo);
        QVERIFY(!updown()->scritto().has_value());
        QVERIFY(!visibile("lblmessaggio"));
        QStringList scritte;
        for (const QLabel* l : form_->scelta()->findChildren<QLabel*>()) scritte << l->text();
        QVERIFY(scritte.contains(
            QStringLiteral("Tabellone posizionale dei numeri ritardatari all'estrazione del ...")));
        QTest::keyClick(updown(), Qt::Key_Down);
        QCOMPARE(txtconc()->text(), QString::number(passo - 1));
        for (int i = 0; i < 3; ++i) QTest::keyClick(updown(), Qt::Key_Up);
        QCOMPARE(txtconc()->text(), QString::number(std::min(passo + 2, massimo)));
    }

    void la_casella_prende_le_sole_cifre() {
        apri<form_tab_pos>(kTabellone);
        scrivi(QStringLiteral("7a:5 -0"));
        QCOMPARE(txtconc()->text(), QStringLiteral("750"));
        QCOMPARE(testo("lbldata"), QStringLiteral("19/01/2002"));
        QCOMPARE(updown()->passo(), 750);
        QCOMPARE(updown()->scritto().value(), 750);
    }

    void lasciandola_torna_nei_limiti_data() {
        QTest::addColumn<QString>("chiave");
        QTest::addColumn<QString>("scritto");
        QTest::addColumn<QString>("riportato");
        QTest::newRow("sotto") << kTabellone << "12" << "500";
        QTest::newRow("sopra") << kTabellone << "99999" << "1000";
        QTest::newRow("dentro") << kTabellone << "777" << "777";
        QTest::newRow("10 e lotto, sopra") << kDieciELotto << "1000" << "599";
    }
    void lasciandola_torna_nei_limiti() {
        QFETCH(QString, chiave);
        QFETCH(QString, scritto);
        QFETCH(QString, riportato);
        apri<form_tab_pos>(chiave.toUtf8().constData());
        const QString prima = testo("lbllimiti");
        scrivi(scritto);
        QTest::keyClick(txtconc(), Qt::Key_Tab);
        QCOMPARE(txtconc()->text(), riportato);
        // The screen says so where it happened.
        QCOMPARE(testo("lbllimiti") != prima, scritto != riportato);
    }

    void vuota_diventa_il_limite_inferiore() {
        apri<form_tab_pos>(kTabellone);
        txtconc()->setFocus();
        txtconc()->selectAll();
        QTest::keyClick(txtconc(), Qt::Key_Delete);
        QTest::keyClick(txtconc(), Qt::Key_Tab);
        QCOMPARE(txtconc()->text(), QStringLiteral("500"));
    }

    void senza_scrivere_nulla_vale_l_ultimo_non_riportato() {
        apri<form_tab_pos>(kDieciELotto);
        // Passing through the box is not typing.
        txtconc()->setFocus();
        QTest::keyClick(txtconc(), Qt::Key_Tab);
        QCOMPARE(txtconc()->text(), QStringLiteral("1000"));
        clic("cmdopzioni_1");
        QCOMPARE(form_->windowTitle(), QStringLiteral("Tabellone Posizionale (26/09/2002) - 10 e lotto"));
    }

    void esci_chiude() {
        apri<form_tab_pos>(kTabellone);
        QSignalSpy chiuso{form_.get(), &SchermoConcorso::chiuso};
        clic("cmdopzioni_0");
        QCOMPARE(chiuso.size(), 1);
        QVERIFY(!form_->isVisible());
    }

    void durante_il_lavoro_prega_di_attendere() {
        apri<form_tab_pos>(kTabellone);
        // The word is there when the work begins, and the chooser is left behind without it.
        struct Spia final : QObject {
            int viste = 0;
            bool eventFilter(QObject*, QEvent* e) override {
                if (e->type() == QEvent::Show) ++viste;
                return false;
            }
        } spia;
        auto* parola = controllo<QLabel>("lblmessaggio");
        QCOMPARE(parola->text(), QStringLiteral("Attendere Prego"));
        parola->installEventFilter(&spia);
        clic("cmdopzioni_1");
        QCOMPARE(spia.viste, 1);
        QVERIFY(parola->isHidden());
    }

    void un_concorso_che_non_c_e_non_ha_data() {
        apri<form_tab_pos>(kTabellone);
        scrivi(QStringLiteral("5000"));
        QCOMPARE(testo("lbldata"), QString{});
        scrivi(QStringLiteral("501"));
        QCOMPARE(testo("lbldata"), QStringLiteral("15/05/2001"));
        // The name of a label would be read in place of its text.
        QCOMPARE(controllo<QLabel>("lbldata")->accessibleName(), QString{});
    }

    // ---- the boards ----

    void il_tabellone_sta_tutto_nella_finestra() {
        apri<form_tab_pos>(kTabellone);
        form_->resize(1180, 720);
        clic("cmdopzioni_1");
        auto* griglia = controllo<QTableView>("MSFlexGrid1");
        QTRY_COMPARE(griglia->horizontalScrollBar()->maximum(), 0);
        const QFontMetrics misure{griglia->font()};
        for (int c = 1; c < 56; ++c)
            QVERIFY(griglia->columnWidth(c) >= misure.horizontalAdvance(QStringLiteral("88")) + 2);
        // In a smaller one the delays stay in sight while the wheels move past.
        form_->resize(1024, 640);
        QTRY_VERIFY(griglia->horizontalScrollBar()->maximum() > 0);
        griglia->horizontalScrollBar()->setValue(griglia->horizontalScrollBar()->maximum());
        auto* ferma = griglia->findChild<QTableView*>(QStringLiteral("MSHFlexGrid1_prima_colonna"));
        QVERIFY(ferma->isVisible());
        QCOMPARE(ferma->columnAt(5), 0);
    }

    void la_riga_sotto_il_puntatore_si_segna() {
        apri<form_tab_pos>(kTabellone);
        form_->resize(1180, 720);
        clic("cmdopzioni_1");
        auto* griglia = controllo<QTableView>("MSFlexGrid1");
        griglia->setCurrentIndex({});
        const auto colore = [&](int riga, int colonna) {
            const QRect cella = griglia->visualRect(griglia->model()->index(riga, colonna));
            return griglia->viewport()->grab().toImage().pixel(cella.left() + 1, cella.top() + 1);
        };
        const QRgb prima = colore(3, 6);
        QCOMPARE(prima, qRgb(0xD2, 0xD7, 0xF2));
        const QPointF dove = griglia->visualRect(griglia->model()->index(3, 40)).center();
        QMouseEvent passa{QEvent::MouseMove, dove,         griglia->viewport()->mapToGlobal(dove),
                          Qt::NoButton,      Qt::NoButton, Qt::NoModifier};
        QApplication::sendEvent(griglia->viewport(), &passa);
        // The whole row, from one end to the other, and no other row.
        QVERIFY(colore(3, 6) != prima);
        QCOMPARE(colore(4, 6), prima);
        QEvent via{QEvent::Leave};
        QApplication::sendEvent(griglia->viewport(), &via);
        QCOMPARE(colore(3, 6), prima);
    }

    void la_tabulazione_segue_la_lettura() {
        auto& tabellone = apri<form_tab_pos>(kTabellone);
        tabellone.imposta_stampa([](const LavoroStampa&) {});
        clic("cmdopzioni_1");
        QCOMPARE(giro("MSFlexGrid1", 5),
                 (QStringList{"MSFlexGrid1", "Command7", "Command2", "Es&porta…", "Command1"}));
        auto& migliori = apri<form_tab_pos2>(kMigliori);
        clic("cmdopzioni_1");
        migliori.imposta_stampa([](const LavoroStampa&) {});
        migliori.imposta_stampa_immagine([](QWidget*, const QImage&) {});
        clic("Command8");
        QCOMPARE(giro("Command8", 7), (QStringList{"Command8", "Image1", "MSFlexGrid4", "Command6",
                                                   "cmdImmagine_1", "Es&porta…", "Command5"}));
    }

    void il_tabellone_del_lotto() {
        auto& form = apri<form_tab_pos>(kTabellone);
        scrivi(QStringLiteral("800"));
        clic("cmdopzioni_1");
        QVERIFY(!visibile("Frame1"));
        QCOMPARE(form.windowTitle(),
                 QStringLiteral("La Posizione dei 90 numeri dopo l'estrazione del 10/03/2002 - Lotto"));
        auto* griglia = controllo<QTableView>("MSFlexGrid1");
        QVERIFY(griglia->isVisible());
        QVERIFY(!controllo<QTableView>("MSFlexGrid2")->isVisible());
        QCOMPARE(griglia->model()->columnCount(), 56);
        // From the greatest delay down to the draw itself.
        const int righe = griglia->model()->rowCount();
        QCOMPARE(griglia->model()->index(righe - 1, 0).data().toString(), QStringLiteral("0"));
        QCOMPARE(griglia->model()->index(righe - 1, 1).data().toString(),
                 QString::number(archivio_.lotto().numeri[799][0]));
        // The wheels' tints as they are told, a readable text on them.
        const auto fondo = [&](int c) {
            return griglia->model()->index(0, c).data(Qt::BackgroundRole).value<QBrush>().color().rgb();
        };
        QCOMPARE(fondo(1), qRgb(0xFF, 0xFF, 0xC0));
        QCOMPARE(fondo(6), qRgb(0xD2, 0xD7, 0xF2));
        QCOMPARE(fondo(55), fondo(1));
        // No sorting on a board.
        QVERIFY(form.findChild<QPushButton*>(QStringLiteral("cmdcol_0")) == nullptr);
    }

    void si_legge_con_ogni_skin() {
        apri<form_tab_pos>(kTabellone);
        clic("cmdopzioni_1");
        auto* modello = controllo<QTableView>("MSFlexGrid1")->model();
        auto* dieci = controllo<QTableView>("MSFlexGrid4")->model();
        clic("Command7");
        for (int s = 1; s <= kNumeroSkin; ++s) {
            applica_tema(*qApp, s);
            for (const auto& [m, r, c] : {std::tuple{modello, 0, 1}, std::tuple{modello, 0, 6},
                                          std::tuple{dieci, 2, 16}, std::tuple{dieci, 2, 1}}) {
                const QModelIndex i = m->index(r, c);
                const auto colore = [&](int ruolo) { return i.data(ruolo).value<QBrush>().color().rgb(); };
                QVERIFY(contrasto(colore(Qt::ForegroundRole), colore(Qt::BackgroundRole)) >= 4.5);
            }
        }
        applica_tema(*qApp, 1);
    }

    void la_terza_griglia_c_e_ma_nessuno_la_mostra() {
        auto& form = apri<form_tab_pos>(kTabellone);
        clic("cmdopzioni_1");
        auto* stampa = controllo<QPushButton>("Command6");
        auto* esci = controllo<QPushButton>("Command5");
        QVERIFY(!stampa->isVisible() && !esci->isVisible());
        const QString titolo = form.windowTitle();
        stampa->click();
        QCOMPARE(form.windowTitle(), titolo);
        QVERIFY(form.findChild<QDialog*>() == nullptr);
        esci->click();
        QVERIFY(!form.isVisible());
    }

    void il_numero_sotto_il_puntatore() {
        apri<form_tab_pos>(kTabellone);
        clic("cmdopzioni_1");
        auto* griglia = controllo<QTableView>("MSFlexGrid1");
        auto* pagina = controllo<PaginaTabellone>("FrameTabellone");
        auto* stato = pagina->findChild<QLabel*>(QStringLiteral("lblstato"));
        const QString riposo = stato->text();
        const int ultima = griglia->model()->rowCount() - 1;
        // Cagliari's second number of the last draw.
        const QModelIndex cella = griglia->model()->index(ultima, 7);
        griglia->scrollTo(cella);
        const QPointF dove = griglia->visualRect(cella).center();
        QMouseEvent passa{QEvent::MouseMove, dove,         griglia->viewport()->mapToGlobal(dove),
                          Qt::NoButton,      Qt::NoButton, Qt::NoModifier};
        QApplication::sendEvent(griglia->viewport(), &passa);
        const QString attesa =
            QStringLiteral(
                "Numero %1  ·  Cagliari, 2° estratto  ·  ritardo 0  ·  concorso 1000 del 26/09/2002")
                .arg(archivio_.lotto().numeri[999][6]);
        QCOMPARE(stato->text(), attesa);
        QCOMPARE(pagina->spiegazione(ultima, 7), attesa);
        QVERIFY(stato->text() != riposo);
        // The delay's own column tells its draw; Nazionale counts its own.
        QCOMPARE(pagina->spiegazione(ultima, 0),
                 QStringLiteral("ritardo 0  ·  concorso 1000 del 26/09/2002"));
        QVERIFY(pagina->spiegazione(ultima, 53).contains(QStringLiteral("Nazionale, 3° estratto")));
        QCOMPARE(pagina->spiegazione(-1, 3), QString{});
        // The arrows tell the same without a mouse.
        griglia->setFocus();
        griglia->setCurrentIndex(cella);
        QTest::keyClick(griglia, Qt::Key_Left);
        QVERIFY(stato->text().contains(QStringLiteral("Cagliari, 1° estratto")));
    }

    void ctrl_f_trova_il_numero_intero() {
        auto& form = apri<form_tab_pos>(kTabellone);
        clic("cmdopzioni_1");
        QTest::keyClick(&form, Qt::Key_F, Qt::ControlModifier);
        auto* trova = controllo<QWidget>("FrameTabellone")->findChild<QLineEdit*>(QStringLiteral("txttrova"));
        QVERIFY(trova->isVisible());
        QTest::keyClicks(trova, QStringLiteral("7"));
        const QModelIndex cella = controllo<QTableView>("MSFlexGrid1")->currentIndex();
        QCOMPARE(cella.data().toString(), QStringLiteral("7"));
    }

    void gli_altri_tabelloni_data() {
        QTest::addColumn<QString>("chiave");
        QTest::addColumn<QString>("titolo");
        QTest::addColumn<QString>("etichetta");
        QTest::addColumn<int>("colonne");
        QTest::addColumn<int>("righe_titoli");
        QTest::newRow("primi") << kPrimi << "SuperEnalotto"
                               << "Tabellone posizionale rispetto ai primi estratti" << 7 << 1;
        QTest::newRow("sestina") << kSestina << "SuperEnalotto"
                                 << "Tabellone posizionale rispetto alla sestina SuperEnalotto" << 7 << 1;
        QTest::newRow("10 e lotto") << kDieciELotto << "10 e lotto"
                                    << "Tabellone posizionale rispetto alla combinazione 10 e lotto" << 21
                                    << 2;
    }
    void gli_altri_tabelloni() {
        QFETCH(QString, chiave);
        QFETCH(QString, titolo);
        QFETCH(QString, etichetta);
        QFETCH(int, colonne);
        QFETCH(int, righe_titoli);
        apri<form_tab_pos>(chiave.toUtf8().constData());
        QTest::keyClick(form_.get(), Qt::Key_F5);
        QVERIFY(visibile("MSFlexGrid2"));
        QCOMPARE(form_->windowTitle(), QStringLiteral("Tabellone Posizionale (26/09/2002) - ") + titolo);
        QCOMPARE(testo("Label5"), etichetta);
        auto* pagina = controllo<PaginaTabellone>("FrameTabellone2");
        QCOMPARE(pagina->griglia()->modello()->columnCount(), colonne);
        QCOMPARE(static_cast<int>(pagina->griglia()->modello()->tabella()->titoli.size()), righe_titoli);
        QVERIFY(pagina->griglia()->modello()->rowCount() > 0);
    }

    void win_for_life() {
        apri<form_tab_posWFL>(kWfl);
        QCOMPARE(form_->property("Tag").toString(), QStringLiteral("tabpos_10"));
        QCOMPARE(txtconc()->text(), QStringLiteral("1000"));
        QCOMPARE(updown()->passo(), 599);
        scrivi(QStringLiteral("500"));
        QTest::keyClick(txtconc(), Qt::Key_Return);
        QCOMPARE(form_->windowTitle(), QStringLiteral("Tabellone Posizionale (14/05/2001) - Win for Life"));
        QCOMPARE(testo("Label5"),
                 QStringLiteral("Tabellone posizionale rispetto alla combinazione win for life"));
        const auto* modello = controllo<QTableView>("MSFlexGrid2")->model();
        QCOMPARE(modello->columnCount(), 11);
        std::set<QString> numeri;
        for (int r = 0; r < modello->rowCount(); ++r)
            for (int c = 1; c < 11; ++c) numeri.insert(modello->index(r, c).data().toString());
        numeri.erase(QString{});
        QCOMPARE(numeri.size(), std::size_t{20});
        QVERIFY(form_->findChild<QPushButton*>(QStringLiteral("Command7")) == nullptr);
    }

    void esci_e_esc_chiudono() {
        apri<form_tab_pos>(kTabellone);
        clic("cmdopzioni_1");
        clic("Command1");
        QVERIFY(!form_->isVisible());
        apri<form_tab_pos>(kPrimi);
        clic("cmdopzioni_1");
        clic("Command4");
        QVERIFY(!form_->isVisible());
        apri<form_tab_pos>(kTabellone);
        clic("cmdopzioni_1");
        QTest::keyClick(controllo<QTableView>("MSFlexGrid1"), Qt::Key_Escape);
        QVERIFY(!form_->isVisible());
    }

    void riaperto_torna_alla_scelta() {
        auto& form = apri<form_tab_pos>(kTabellone);
        scrivi(QStringLiteral("800"));
        clic("cmdopzioni_1");
        form.close();
        form.apri(*trova_ricerca(kPrimi), archivio_);
        form.show();
        QVERIFY(visibile("Frame1"));
        QCOMPARE(txtconc()->text(), QStringLiteral("1000"));
        QCOMPARE(form.windowTitle(), QStringLiteral("Tabellone Posizionale primi estratti"));
        clic("cmdopzioni_1");
        QVERIFY(visibile("MSFlexGrid2"));
    }

    void un_archivio_senza_estrazioni_lo_dice() {
        MessaggiDiProva detti;
        const ArchivioEstrazioni nessuna;
        form_ = std::make_unique<form_tab_pos>(sessione_);
        form_->apri(*trova_ricerca(kTabellone), nessuna);
        form_->show();
        clic("cmdopzioni_1");
        QCOMPARE(detti.detti.size(), 1);
        QCOMPARE(detti.detti[0].testo, QStringLiteral("Non ci sono estrazioni per l'intervallo selezionato"));
        QVERIFY(visibile("Frame1"));
    }

    // ---- the ten most delayed ----

    void i_dieci_dal_tabellone_e_ritorno() {
        auto& form = apri<form_tab_pos>(kTabellone);
        scrivi(QStringLiteral("800"));
        clic("cmdopzioni_1");
        QCOMPARE(controllo<QPushButton>("Command7")->text().remove('&'),
                 QStringLiteral("Visualizzazione dei 10 numeri più in ritardo per ogni ruota"));
        clic("Command7");
        auto* griglia = controllo<QTableView>("MSFlexGrid4");
        QVERIFY(griglia->isVisible());
        QCOMPARE(form.windowTitle(),
                 QStringLiteral("I 10 Numeri più in ritardo per ogni Ruota (10/03/2002)"));
        QCOMPARE(griglia->model()->rowCount(), 25);
        QCOMPARE(griglia->model()->columnCount(), 19);
        QCOMPARE(griglia->columnSpan(0, 1), 2);
        SenzaAvanzamento nessuno;
        Domanda d = prove::domanda(kDieciNumeri);
        d.parametri.per<ParametriTabellone>().concorso = 800;
        const Risultato dieci = dieci_piu_in_ritardo(archivio_, d, nessuno);
        for (int p = 0; p < 10; ++p) {
            const auto r = static_cast<std::size_t>(p);
            QCOMPARE(griglia->model()->index(2 + p, 1).data().toString().toStdString(),
                     dieci.tabelle[0].testo(r, 2));
            QCOMPARE(griglia->model()->index(2 + p, 2).data().toString().toStdString(),
                     dieci.tabelle[0].testo(r, 3));
        }
        clic("Command9");
        QVERIFY(controllo<QTableView>("MSFlexGrid1")->isVisible());
        QVERIFY(form.windowTitle().startsWith(QStringLiteral("La Posizione")));
    }

    void dal_catalogo_i_dieci_vengono_subito() {
        apri<form_tab_pos>(kDieciNumeri);
        clic("cmdopzioni_1");
        QVERIFY(visibile("MSFlexGrid4"));
        clic("Command9");
        QVERIFY(visibile("MSFlexGrid1"));
        clic("Command7");
        clic("Command8");
        QVERIFY(!form_->isVisible());
    }

    /// What stands on the pages of a report, place by place.
    static QStringList pagine_di(const Risposta& risposta) {
        const Rapporto rapporto = prepara_rapporto(risposta);
        SuperficieRegistrata foglio;
        EasyPrint stampante{foglio, [](const std::string&, const std::string& t) { QFAIL(t.c_str()); }};
        SenzaAvanzamento nessuno;
        sortimetra::stampa(stampante, rapporto, {}, nessuno);
        QStringList segni{QString::number(rapporto.pagine)};
        for (const auto& t : foglio.testi())
            segni << QStringLiteral("%1 %2 %3 %4").arg(t.pagina).arg(t.x).arg(t.y).arg(testo_qt(t.testo));
        return segni;
    }
    /// The same for the search asked afresh: what the page ought to print.
    [[nodiscard]] QStringList pagine_di(const char* chiave, const Parametri& parametri = {}) const {
        Domanda d = prove::domanda(chiave);
        d.parametri = parametri;
        return pagine_di(prove::rispondi(d, archivio_, cartella_.percorso()));
    }

    void ogni_pagina_stampa_il_suo() {
        // From the board to the list and back, and the list first: each prints its own report.
        for (const char* chiave : {kTabellone, kDieciNumeri}) {
            auto& form = apri<form_tab_pos>(chiave);
            QStringList stampate;
            form.imposta_stampa([&](const LavoroStampa& l) { stampate = pagine_di(l.risposta); });
            clic("cmdopzioni_1");
            if (chiave == kTabellone) {
                clic("Command2");
                QCOMPARE(stampate, pagine_di(kTabellone));
                clic("Command7");
            }
            clic("Command10");
            QCOMPARE(stampate, pagine_di(kDieciNumeri));
            stampate.clear();
            QTest::keyClick(&form, Qt::Key_P, Qt::ControlModifier);
            QCOMPARE(stampate, pagine_di(kDieciNumeri));
            clic("Command9");
            clic("Command2");
            QCOMPARE(stampate, pagine_di(kTabellone));
        }
        QVERIFY(pagine_di(kTabellone) != pagine_di(kDieciNumeri));
        QStringList stampate;
        auto& altro = apri<form_tab_pos>(kSestina);
        altro.imposta_stampa([&](const LavoroStampa& l) { stampate = pagine_di(l.risposta); });
        clic("cmdopzioni_1");
        clic("Command3");
        QCOMPARE(stampate, pagine_di(kSestina));
    }

    // ---- the best delays ----

    void le_168_etichette_nelle_loro_pagine() {
        apri<form_tab_pos2>(kMigliori);
        auto* prima = controllo<QWidget>("Frame10rit");
        auto* seconda = controllo<QWidget>("Frame11rit");
        for (int i = 0; i < 168; ++i) {
            auto* l = controllo<QLabel>(qPrintable(QStringLiteral("lblDatiTab_%1").arg(i)));
            QVERIFY2(l != nullptr, qPrintable(QString::number(i)));
            QCOMPARE(prima->isAncestorOf(l), i < 94);
            QCOMPARE(seconda->isAncestorOf(l), i >= 94);
        }
    }

    void ogni_famiglia_ha_le_sue_etichette() {
        QString tutte;
        std::set<std::size_t> viste;
        for (const int pagina : {1, 2})
            for (const FamigliaMigliori& f : famiglie_migliori(pagina)) {
                const auto [carica, gruppi, ritardi] = etichette_di(f.carica);
                QCOMPARE(gruppi.size(), f.righe);
                QCOMPARE(ritardi.size(), f.righe);
                tutte += testo_qt(f.carica) + QStringLiteral(":");
                for (const auto* lista : {&gruppi, &ritardi}) {
                    for (const std::size_t i : *lista) {
                        QVERIFY2(viste.insert(i).second, qPrintable(QString::number(i)));
                        QCOMPARE(i >= kPrimaEtichettaPagina2, pagina == 2);
                        tutte += QStringLiteral(" %1").arg(i);
                    }
                    tutte += lista == &gruppi ? QStringLiteral(";") : QStringLiteral("\n");
                }
            }
        QCOMPARE(viste.size(), std::size_t{166});  // 0 to 167 without 112 and 115
        QVERIFY(!viste.contains(112) && !viste.contains(115));
        QCOMPARE(etichette_famiglie().size(), std::size_t{32});
        QCOMPARE(tutte, QString::fromUtf8("carica_vertibili: 0 1 2; 3 4 5\n"
                                          "carica_simmetrici: 6 7 8; 9 10 11\n"
                                          "carica_complementari: 12 13 14; 15 16 17\n"
                                          "carica_distanza45: 18 19 20; 21 22 23\n"
                                          "carica_consecutivi: 24 25 26; 27 28 29\n"
                                          "carica_terzine_coesione: 30 31 32; 33 34 35\n"
                                          "carica_tricifriche: 36 38 58; 37 39 59\n"
                                          "carica_sestine_circolari: 40 42 44; 41 43 45\n"
                                          "carica_sestine_esagonali: 46 48 50; 47 49 51\n"
                                          "carica_sestine_somma: 52 54 56; 53 55 57\n"
                                          "carica_decine: 60 61 62; 63 64 65\n"
                                          "carica_cadenze: 66 67 68; 69 70 71\n"
                                          "carica_figure: 72 73 74; 75 76 77\n"
                                          "carica_gemelli: 78 79 80; 81 82 83\n"
                                          "carica_cifre: 84 85 86; 87 88 89\n"
                                          "carica_radicali: 90 92; 91 93\n"
                                          "carica_cifra_composta: 94 96; 95 97\n"
                                          "carica_renard: 98 100; 99 101\n"
                                          "carica_decine_simmetriche: 102 104; 103 105\n"
                                          "carica_controfigure: 106 108 110; 107 109 111\n"
                                          "carica_sestine_consecutive: 113 116 118; 114 117 119\n"
                                          "carica_sestine_multiple: 120 122 124; 121 123 125\n"
                                          "carica_terzine_correlative: 126 128 130; 127 129 131\n"
                                          "carica_grattacielo: 132 134 136; 133 135 137\n"
                                          "carica_cinquine_dei90: 138 140 142; 139 141 143\n"
                                          "carica_cinquine_coesione: 144 146; 145 147\n"
                                          "Carica_cinquine_consecutive: 148 150; 149 151\n"
                                          "carica_cinquine_correlative: 152 154; 153 155\n"
                                          "carica_cinquine_dispari: 156; 157\n"
                                          "carica_cinquine_pari: 158; 159\n"
                                          "carica_cinquine_pentagonali: 160 162; 161 163\n"
                                          "carica_cinquine_sun: 164 166; 165 167\n"));
    }

    void le_due_pagine_dei_migliori_ritardi() {
        auto& form = apri<form_tab_pos2>(kMigliori);
        QCOMPARE(form.windowTitle(), QStringLiteral("I Migliori Ritardi Statistici"));
        QCOMPARE(form.property("Tag").toString(), QStringLiteral("10num"));
        scrivi(QStringLiteral("900"));
        clic("cmdopzioni_1");
        QCOMPARE(form.windowTitle(), QStringLiteral("Migliori Ritardi Statistici - Lotto"));
        QVERIFY(visibile("Frame10rit"));
        // The list of the ten stands on the first page from the beginning.
        QCOMPARE(controllo<QTableView>("MSFlexGrid4")->model()->rowCount(), 25);
        QCOMPARE(testo("lblDatiTab_0"), QString{});
        QTest::mouseClick(controllo<QCheckBox>("CheckRuota_2"), Qt::LeftButton);
        clic("Command8");
        confronta(1, 900, -1);
        QVERIFY(testo("lblambito_1").contains(QStringLiteral("900 del")));
        QVERIFY(testo("lblambito_1").contains(QStringLiteral("Bari, Firenze")));
        QCOMPARE(testo("lblDatiTab_94"), QString{});
        QVERIFY(!controllo<QWidget>("Command9")->isVisible());
        clic("Image1");
        QVERIFY(visibile("Frame11rit") && !visibile("Frame10rit"));
        clic("Command9");
        confronta(2, 900, -1);
        // Two labels exist that no family writes.
        for (const char* nome : {"lblDatiTab_112", "lblDatiTab_115"}) {
            QCOMPARE(testo(nome), QString{});
            QVERIFY(!visibile(nome));
        }
        clic("Image2");
        QVERIFY(visibile("Frame10rit"));
        // A page keeps its figures until its next run, under the wheels that they are about.
        const QString tenuto = testo("lblDatiTab_0");
        QTest::mouseClick(controllo<QCheckBox>("CheckRuota_11"), Qt::LeftButton);
        QCOMPARE(testo("lblDatiTab_0"), tenuto);
        QVERIFY(testo("lblambito_1").contains(QStringLiteral("Bari, Firenze")));
    }

    void la_soglia_viene_dalla_schermata_delle_statistiche() {
        apri<form_tab_pos2>(kMigliori);
        clic("cmdopzioni_1");
        clic("Image1");
        QTest::keyClick(form_.get(), Qt::Key_F5);
        const QString senza = testo("lblDatiTab_103");
        confronta(2, {}, -1);
        sessione_.indice_combo_rit = 1;
        QTest::keyClick(form_.get(), Qt::Key_F5);
        confronta(2, {}, 1);
        QVERIFY(testo("lblDatiTab_103") != senza);
    }

    void senza_il_file_delle_cinquine() {
        MessaggiDiProva detti;
        prove::CartellaProva altra;
        Sessione sessione{.percorso_programma = altra.percorso()};
        form_ = std::make_unique<form_tab_pos2>(sessione);
        form_->apri(*trova_ricerca(kMigliori), archivio_);
        form_->show();
        clic("cmdopzioni_1");
        clic("Image1");
        clic("Command9");
        QCOMPARE(detti.detti.size(), 1);
        QCOMPARE(detti.detti[0].testo,
                 QStringLiteral("File danneggiato! Impossibile effettuare Ricerca Statistica!"));
        QCOMPARE(testo("lblDatiTab_138"), QString{});
        QVERIFY(!testo("lblDatiTab_144").isEmpty());
    }

    /// "Stampa" is the report, that of the command line: cards and list as text.
    void la_pagina_si_stampa_come_rapporto() {
        auto& form = apri<form_tab_pos2>(kMigliori);
        QStringList stampate;
        std::size_t allegati = 0;
        form.imposta_stampa([&](const LavoroStampa& l) {
            stampate = pagine_di(l.risposta);
            allegati = l.risposta.risultato->allegati.size();
        });
        clic("cmdopzioni_1");
        QVERIFY(!controllo<QPushButton>("Command6")->isEnabled());
        clic("Command8");
        clic("Command6");
        QCOMPARE(stampate, pagine_di(kMigliori));
        QCOMPARE(allegati, std::size_t{1});
        stampate.clear();
        QTest::keyClick(&form, Qt::Key_P, Qt::ControlModifier);
        QCOMPARE(stampate, pagine_di(kMigliori));
    }

    void la_pagina_si_stampa_come_immagine() {
        auto& form = apri<form_tab_pos2>(kMigliori);
        QImage immagine;
        form.imposta_stampa_immagine(tieni(immagine));
        clic("cmdopzioni_1");
        QVERIFY(!controllo<QPushButton>("cmdImmagine_1")->isEnabled());
        clic("Command8");
        const QSize prima = controllo<QWidget>("Frame10rit")->size();
        clic("cmdImmagine_1");
        QVERIFY(!immagine.isNull());
        // 300 dots to the inch of the 190 mm between the margins.
        QVERIFY(qAbs(immagine.width() - 190 / 25.4 * 300) <= 1);
        QCOMPARE(testo("lblStampaIntestazione"),
                 QStringLiteral("I migliori ritardi statistici all'estrazione n°1000 del 26/09/2002"));
        QVERIFY(!visibile("lblStampaIntestazione"));
        QVERIFY(visibile("Command5") && visibile("Command6") && visibile("Image1"));
        QCOMPARE(controllo<QWidget>("Frame10rit")->size(), prima);
        clic("Command5");
        QVERIFY(!form.isVisible());
    }

    /// The picture is the same whatever the window's width: on white, whole, nothing to scroll in it.
    void l_immagine_non_dipende_dalla_finestra() {
        auto& form = apri<form_tab_pos2>(kMigliori);
        QImage immagine;
        form.imposta_stampa_immagine(tieni(immagine));
        clic("cmdopzioni_1");
        clic("Command8");
        auto* dieci = controllo<QTableView>("MSFlexGrid4");
        QImage prima;
        for (const QSize finestra : {QSize{1024, 640}, QSize{1600, 900}, QSize{1024, 500}}) {
            form.resize(finestra);
            QCoreApplication::processEvents();
            const int colonna = dieci->columnWidth(1);
            clic("cmdImmagine_1");
            if (prima.isNull()) prima = immagine;
            QCOMPARE(immagine.size(), prima.size());
            QVERIFY(immagine == prima);
            QCoreApplication::processEvents();
            QCOMPARE(dieci->columnWidth(1), colonna);  // the window's own again
        }
        // White round the cards, and the whole list: its last row's ink stands above the foot of the picture.
        for (const QPoint angolo :
             {QPoint{0, 0}, QPoint{immagine.width() - 1, 0}, QPoint{0, immagine.height() - 1},
              QPoint{immagine.width() - 1, immagine.height() - 1}})
            QCOMPARE(immagine.pixel(angolo), qRgb(255, 255, 255));
        const auto scura = [&](int x, int y) { return qGray(immagine.pixel(x, y)) < 100; };
        int ultima_riga = 0;
        int ultima_colonna = 0;
        for (int y = 0; y < immagine.height(); ++y)
            for (int x = 0; x < immagine.width(); ++x)
                if (scura(x, y)) {
                    ultima_riga = y;
                    ultima_colonna = std::max(ultima_colonna, x);
                }
        QVERIFY(ultima_riga > immagine.height() * 9 / 10);
        QVERIFY(ultima_riga < immagine.height() - 5 && ultima_colonna < immagine.width() - 5);
    }

    void su_una_skin_scura_la_carta_resta_chiara() {
        auto& form = apri<form_tab_pos2>(kMigliori);
        QImage immagine;
        form.imposta_stampa_immagine(tieni(immagine));
        clic("cmdopzioni_1");
        clic("Command8");
        applica_tema(*qApp, 2);
        QVERIFY(skin_in_uso().scura);
        clic("cmdImmagine_1");
        QCOMPARE(indice_skin_in_uso(), 2);
        QVERIFY(qGray(immagine.pixel(immagine.width() - 1, immagine.height() / 4)) > 200);
        applica_tema(*qApp, 1);
    }

    void i_pannelli_e_i_titoli_delle_pagine() {
        auto& form = apri<form_tab_pos2>(kMigliori);
        clic("cmdopzioni_1");
        for (const char* nome : {"Frame3", "Frame6"}) {
            auto* pannello = form.findChild<QWidget*>(QString::fromLatin1(nome));
            QVERIFY(pannello != nullptr);
            QCOMPARE(pannello->findChild<QLabel*>(QStringLiteral("lblprogress"))->text(),
                     QStringLiteral("Elaborazione in corso..."));
        }
        // Captions as the families have them, one card for the two halves of pari/dispari.
        for (const int pagina : {1, 2}) {
            const auto* cornice = controllo<QWidget>(pagina == 1 ? "Frame10rit" : "Frame11rit");
            QStringList scritte;
            for (const QLabel* l : cornice->findChildren<QLabel*>()) scritte << l->text();
            for (const FamigliaMigliori& f : famiglie_migliori(pagina))
                QCOMPARE(scritte.count(
                             QString::fromUtf8(f.titolo.data(), static_cast<qsizetype>(f.titolo.size()))),
                         1);
        }
        QVERIFY(controllo<QLabel>("lblDatiTab_0")->accessibleName().isEmpty());
        QCOMPARE(controllo<QLabel>("lblDatiTab_4")->accessibleDescription(),
                 QStringLiteral("Ambi vertibili, ritardo 2"));
        QCOMPARE(controllo<QPushButton>("Command8")->text(), QStringLiteral("Avvia &Ricerca"));
        QCOMPARE(controllo<QPushButton>("Image1")->text().remove('&'), QStringLiteral("Pagina avanti"));
        QCOMPARE(controllo<QPushButton>("Image2")->text().remove('&'), QStringLiteral("Pagina indietro"));
    }

    void pagina_giu_scorre_le_schede() {
        auto& form = apri<form_tab_pos2>(kMigliori);
        form.resize(1024, 640);
        clic("cmdopzioni_1");
        auto* barra = controllo<QWidget>("Frame10rit")->findChild<QScrollArea*>()->verticalScrollBar();
        QTRY_VERIFY(barra->maximum() > 0);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageDown);
        QVERIFY(barra->value() > 0);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_PageUp);
        QCOMPARE(barra->value(), 0);
    }

    void le_quindici_schede_della_seconda_pagina_in_vista() {
        auto& form = apri<form_tab_pos2>(kMigliori);
        form.resize(1180, 720);
        clic("cmdopzioni_1");
        clic("Image1");
        clic("Command9");
        auto* scorri = controllo<QWidget>("Frame11rit")->findChild<QScrollArea*>();
        QTRY_COMPARE(scorri->verticalScrollBar()->maximum(), 0);
    }

    void le_schede_stanno_anche_in_una_finestra_stretta() {
        auto& form = apri<form_tab_pos2>(kMigliori);
        clic("cmdopzioni_1");
        clic("Command8");
        for (const int larghezza : {1024, 1600, 1180}) {
            form.resize(larghezza, 640);
            QCoreApplication::processEvents();
            for (const int i : {36, 37, 90, 91}) {
                auto* l = controllo<QLabel>(qPrintable(QStringLiteral("lblDatiTab_%1").arg(i)));
                QVERIFY2(l->width() >= l->fontMetrics().horizontalAdvance(l->text()),
                         qPrintable(QString::number(larghezza)));
            }
        }
    }

  private:
    /// The controls that the Tab key reaches from `primo` on, by name or, without one, by caption.
    [[nodiscard]] QStringList giro(const char* primo, int quanti) const {
        QWidget* w = controllo<QWidget>(primo);
        w->setFocus();
        QStringList nomi;
        for (int i = 0; i < quanti; ++i) {
            const auto* b = qobject_cast<QPushButton*>(w);
            nomi << (b != nullptr && b->objectName().isEmpty() ? b->text() : w->objectName());
            QTest::keyClick(w, Qt::Key_Tab);
            w = QApplication::focusWidget();
            if (w == nullptr) break;
        }
        return nomi;
    }

    /// The labels of a page against the search's own rows.
    void confronta(int pagina, std::optional<Concorso> concorso, int indice_combo) {
        Domanda d = prove::domanda(kMigliori);
        QVERIFY(carica_cinquine_migliori(cartella_.percorso(), d));
        d.parametri.per<ParametriTabellone>().pagina = pagina;
        d.parametri.per<ParametriTabellone>().concorso = concorso;
        d.parametri.per<ParametriTabellone>().indice_combo = indice_combo;
        d.ambito.ruote = form_->findChild<AreaParametri*>()->ruote();
        SenzaAvanzamento nessuno;
        const Tabella t = migliori_ritardi(archivio_, d, nessuno).tabelle[0];
        std::size_t riga = 0;
        for (const FamigliaMigliori& f : famiglie_migliori(pagina)) {
            const auto [carica, gruppi, ritardi] = etichette_di(f.carica);
            QCOMPARE(gruppi.size(), f.righe);
            for (std::size_t i = 0; i < gruppi.size(); ++i, ++riga) {
                QCOMPARE(testo(qPrintable(QStringLiteral("lblDatiTab_%1").arg(gruppi[i]))).toStdString(),
                         t.testo(riga, 1));
                QCOMPARE(testo(qPrintable(QStringLiteral("lblDatiTab_%1").arg(ritardi[i]))).toStdString(),
                         t.testo(riga, 2));
            }
        }
        QCOMPARE(riga, t.righe());
    }
};

QTEST_MAIN(TestTabelloni)
#include "test_form_tab_pos.moc"
