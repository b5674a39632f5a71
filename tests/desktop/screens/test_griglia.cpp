#include "catalogue/ricerche.h"
#include "results/risultato.h"
#include "screens/griglia_risultati.h"
#include "screens/schermi.h"
#include "screens/tema.h"

#include <QAbstractItemModelTester>
#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>
#include <QtTest>
#include <algorithm>
#include <array>
#include <limits>
#include <numeric>
#include <variant>
#include <vector>

using namespace sortimetra;

namespace {

std::shared_ptr<const Tabella> misure(std::vector<std::int32_t> frequenze) {
    auto t = std::make_shared<Tabella>();
    t->titoli = {{"Numeri", "Frequenza", "Ritardo"}};
    const std::size_t n = frequenze.size();
    ColonnaInteri numeri{std::vector<std::int32_t>(n)};
    std::iota(numeri.valori.begin(), numeri.valori.end(), 1);
    ColonnaInteri ritardi = numeri;
    std::reverse(ritardi.valori.begin(), ritardi.valori.end());
    t->colonne = {numeri, ColonnaInteri{std::move(frequenze)}, ritardi};
    return t;
}

/// The table of all terni: 117,480 rows of four columns.
std::shared_ptr<const Tabella> terni() {
    auto t = std::make_shared<Tabella>();
    t->titoli = {{"Numeri", "Frequenza", "Ritardo", "Ritardo Storico"}};
    ColonnaGruppi gruppi{.quanti = 3, .separatore = '-', .numeri = {}};
    std::array<ColonnaInteri, 3> altre;
    std::uint32_t seme = 7;
    for (int a = 1; a <= 88; ++a)
        for (int b = a + 1; b <= 89; ++b)
            for (int c = b + 1; c <= 90; ++c) {
                for (const int x : {a, b, c}) gruppi.numeri.push_back(static_cast<std::uint8_t>(x));
                for (ColonnaInteri& colonna : altre) {
                    seme = seme * 1664525U + 1013904223U;
                    colonna.valori.push_back(static_cast<std::int32_t>(seme >> 20U));
                }
            }
    t->colonne = {gruppi, altre[0], altre[1], altre[2]};
    return t;
}

QStringList colonna(const GrigliaRisultati& g, int c) {
    QStringList testi;
    for (int r = 0; r < g.modello()->rowCount(); ++r) testi << g.modello()->index(r, c).data().toString();
    return testi;
}

QPushButton* cmdcol(const GrigliaRisultati& g, int i) {
    return g.findChild<QPushButton*>(QStringLiteral("cmdcol_%1").arg(i));
}

QString freccia(const GrigliaRisultati& g, int i) {
    return cmdcol(g, i)->property("freccia").toString();
}

}  // namespace

class TestGriglia : public QObject {
    Q_OBJECT
  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }

    void il_modello_tiene_le_sue_promesse();
    void ogni_colonna_ha_il_suo_pulsante();
    void il_titolo_ordina_la_propria_colonna();
    void la_freccia_dice_colonna_e_verso_con_la_forma();
    void tab_esce_dalla_griglia();
    void le_colonne_restano_insieme();
    void un_tabellone_che_si_stringe_non_allarga_le_celle();
    void le_colonne_si_stringono_se_cosi_ci_stanno();
    void trova_capisce_i_numeri_data();
    void trova_capisce_i_numeri();
    void il_filtro_lascia_le_righe_che_rispondono();
    void i_numeri_stanno_a_destra();
    void le_righe_si_alternano();
    void i_colori_della_ricerca();
    void un_fondo_chiaro_si_smorza_su_una_skin_scura();
    void il_primo_clic_ordina_dal_piu_grande();
    void ogni_colonna_ha_il_proprio_verso();
    void i_versi_restano_quando_la_griglia_si_svuota();
    void per_tre_chiavi_il_secondo_pulsante_ordina_la_prima_colonna_data();
    void per_tre_chiavi_il_secondo_pulsante_ordina_la_prima_colonna();
    void dopo_l_ordinamento_si_torna_in_cima();
    void la_riga_scelta_e_quella_della_tabella();
    void centodiciassettemila_righe_si_ordinano();
    void copia_un_blocco();
    void copia_la_riga_di_una_cella();
    void copia_celle_sparse();
    void la_griglia_vuota_dice_che_cosa_fare();
    void trova_nel_risultato();
    void trova_vive_dopo_esc_e_un_altro_risultato();
    void il_puntatore_sulla_casella_non_tinge_righe();
    void il_menu_ordina_la_colonna_della_cella();
    void piu_righe_di_titoli();
    void la_prima_colonna_resta_in_vista();
    void le_larghezze_non_cambiano_con_l_ordinamento();
};

void TestGriglia::il_modello_tiene_le_sue_promesse() {
    ModelloRisultato m;
    QAbstractItemModelTester controllo{&m, QAbstractItemModelTester::FailureReportingMode::QtTest};
    m.mostra(misure({5, 9, 7}));
    const QPersistentModelIndex segnato{m.index(1, 1)};  // the 9
    m.ordina_per(1, Verso::decrescente);
    QCOMPARE(segnato.row(), 0);
    QCOMPARE(segnato.data().toString(), QStringLiteral("9"));
    m.ordina_per(1, Verso::crescente);
    QCOMPARE(segnato.row(), 2);
    m.svuota();
    QCOMPARE(m.rowCount(), 0);
    QCOMPARE(m.columnCount(), 3);
    QVERIFY(!segnato.isValid());
    m.mostra(misure({1}));
    m.mostra(nullptr);
    QCOMPARE(m.columnCount(), 0);
    m.ordina_per(0, Verso::crescente);
    m.svuota();
}

void TestGriglia::ogni_colonna_ha_il_suo_pulsante() {
    GrigliaRisultati g;
    g.inizializza({{"Numeri", "Frequenza", "Ritardo", "Ritardo Storico"}});
    QCOMPARE(cmdcol(g, 3)->accessibleName(), QStringLiteral("Ordina per Ritardo Storico"));
    QVERIFY(cmdcol(g, 4) == nullptr);
    g.mostra(misure({1, 2}));
    QCOMPARE(cmdcol(g, 2)->accessibleName(), QStringLiteral("Ordina per Ritardo"));
    QVERIFY(cmdcol(g, 3) == nullptr);
    g.resize(700, 300);
    g.show();
    QVERIFY(QTest::qWaitForWindowExposed(&g));
    for (int c = 0; c < 3; ++c) {
        // Each button stands within its column, and leaves most of it to the title.
        const int x = g.vista()->viewport()->mapTo(&g, QPoint{g.vista()->columnViewportPosition(c), 0}).x();
        const int bottone = cmdcol(g, c)->mapTo(&g, QPoint{}).x();
        QVERIFY(bottone >= x && bottone + cmdcol(g, c)->width() <= x + g.vista()->columnWidth(c));
        QVERIFY(2 * cmdcol(g, c)->width() < g.vista()->columnWidth(c));
    }
}

void TestGriglia::il_titolo_ordina_la_propria_colonna() {
    GrigliaRisultati g;
    g.imposta_pulsante_1(0);
    g.mostra(misure({5, 9, 7}));
    g.resize(700, 300);
    g.show();
    QVERIFY(QTest::qWaitForWindowExposed(&g));
    QWidget* testata = cmdcol(g, 0)->parentWidget();
    const auto titolo = [&](int c) {
        return QPoint{g.vista()->columnViewportPosition(c) + g.vista()->columnWidth(c) / 2 + 1,
                      testata->height() / 2};
    };
    QTest::mouseClick(testata, Qt::LeftButton, {}, titolo(1));
    QVERIFY(g.ordinamento() == std::pair(1, Verso::decrescente));
    QCOMPARE(colonna(g, 1), (QStringList{"9", "7", "5"}));
    QTest::mouseClick(testata, Qt::LeftButton, {}, titolo(1));
    QVERIFY(g.ordinamento() == std::pair(1, Verso::crescente));
    // The tag is the button's own: its first press sorts descending still.
    QCOMPARE(cmdcol(g, 1)->property("tag").toString(), QString{});
    QTest::mouseClick(testata, Qt::LeftButton, {}, titolo(0));
    QVERIFY(g.ordinamento() == std::pair(0, Verso::decrescente));
}

void TestGriglia::la_freccia_dice_colonna_e_verso_con_la_forma() {
    GrigliaRisultati g;
    g.mostra(misure({5, 9, 7}));
    g.show();
    const auto figura = [&g](int c) {
        // The shape alone: what is painted at all, whatever its colour.
        return cmdcol(g, c)->icon().pixmap(24, 24).toImage().convertToFormat(QImage::Format_Alpha8);
    };
    const QImage ferma = figura(1);
    g.ordina_colonna(1, Verso::decrescente);
    const QImage giu = figura(1);
    QCOMPARE(freccia(g, 1), QStringLiteral("ordinata_giu"));
    QCOMPARE(freccia(g, 0), QStringLiteral("ordina"));
    QVERIFY(!cmdcol(g, 1)->accessibleDescription().isEmpty());
    QVERIFY(cmdcol(g, 0)->accessibleDescription().isEmpty());
    g.ordina_colonna(1, Verso::crescente);
    QCOMPARE(freccia(g, 1), QStringLiteral("ordinata_su"));
    QVERIFY(ferma != giu);
    QVERIFY(figura(1) != giu);
    QVERIFY(figura(1) != ferma);
}

void TestGriglia::tab_esce_dalla_griglia() {
    QWidget finestra;
    QLineEdit prima{&finestra};
    GrigliaRisultati g{&finestra};
    QLineEdit dopo{&finestra};
    g.setGeometry(0, 40, 500, 300);
    dopo.move(0, 350);
    finestra.resize(600, 400);
    finestra.show();
    QVERIFY(QTest::qWaitForWindowActive(&finestra));
    g.mostra(misure({5, 9, 7}));
    const auto giro = [&](Qt::Key tasto, QWidget* inizio) {
        inizio->setFocus();
        QList<QWidget*> visti;
        for (int i = 0; i < 5; ++i) {
            QTest::keyClick(finestra.focusWidget(), tasto);
            visti << finestra.focusWidget();
        }
        return visti;
    };
    QCOMPARE(giro(Qt::Key_Tab, &prima),
             (QList<QWidget*>{cmdcol(g, 0), cmdcol(g, 1), cmdcol(g, 2), g.vista(), &dopo}));
    QCOMPARE(giro(Qt::Key_Backtab, &dopo),
             (QList<QWidget*>{g.vista(), cmdcol(g, 2), cmdcol(g, 1), cmdcol(g, 0), &prima}));
    // Who gives the grid the keyboard means its rows.
    g.setFocus();
    QCOMPARE(finestra.focusWidget(), g.vista());
}

void TestGriglia::le_colonne_restano_insieme() {
    GrigliaRisultati g;
    g.mostra(misure({5, 9, 7}));
    g.resize(1800, 300);
    g.show();
    QVERIFY(QTest::qWaitForWindowExposed(&g));
    const int larghe = g.vista()->horizontalHeader()->length();
    QVERIFY(larghe < 600);
    // Neither rows nor header go on to the right of the last column, but for the scroll bar's room.
    QTRY_VERIFY(g.vista()->width() < larghe + 40);
    QCOMPARE(cmdcol(g, 0)->parentWidget()->width(), g.vista()->width());
    QCOMPARE(g.vista()->x(), 0);
}

void TestGriglia::un_tabellone_che_si_stringe_non_allarga_le_celle() {
    auto t = std::make_shared<Tabella>();
    t->titoli = {{}, {}};
    for (int c = 0; c < 40; ++c) {
        for (auto& riga : t->titoli) riga.push_back(std::to_string(c));
        t->colonne.emplace_back(ColonnaInteri{{c, 90 - c}});
    }
    GrigliaRisultati g;
    g.imposta_tabellone(true);
    g.mostra(t);
    g.show();
    QVERIFY(QTest::qWaitForWindowExposed(&g));
    int prima = std::numeric_limits<int>::max();
    for (int larga = 2400; larga >= 400; larga -= 7) {
        g.resize(larga, 300);
        const int ora = g.vista()->horizontalHeader()->length();
        QVERIFY2(ora <= prima, qPrintable(QStringLiteral("%1: %2 dopo %3").arg(larga).arg(ora).arg(prima)));
        prima = ora;
    }
}

void TestGriglia::le_colonne_si_stringono_se_cosi_ci_stanno() {
    auto t = std::make_shared<Tabella>();
    t->titoli.emplace_back();
    for (const char* titolo : {"Numeri", "Frequenza", "Ritardo", "Ritardo Storico", "Attesa", "Scarto"}) {
        t->titoli.back().emplace_back(titolo);
        t->colonne.emplace_back(ColonnaInteri{{1, 2}});
    }
    GrigliaRisultati g;
    g.mostra(t);
    g.show();
    QVERIFY(QTest::qWaitForWindowExposed(&g));
    const QHeaderView* titoli = g.vista()->horizontalHeader();
    const auto larghe = [&](int finestra) {
        g.resize(finestra, 300);
        g.mostra(std::make_shared<Tabella>(*t));
        return titoli->length();
    };
    // Where nothing helps they keep their blanks, and the table scrolls.
    const int agiate = larghe(200);
    QVERIFY(agiate > 200);
    const int strette = larghe(agiate - 12);
    QVERIFY2(strette <= agiate - 12 && strette > agiate / 2, qPrintable(QString::number(strette)));
    QTRY_COMPARE(g.vista()->horizontalScrollBar()->maximum(), 0);
    // Each title stands beside its button.
    QFont grassetto = titoli->font();
    grassetto.setBold(true);
    for (int c = 0; c < titoli->count(); ++c) {
        const QString titolo = QString::fromStdString(t->titoli.back()[static_cast<std::size_t>(c)]);
        QVERIFY(titoli->sectionSize(c) >=
                QFontMetrics{grassetto}.horizontalAdvance(titolo) + cmdcol(g, c)->width());
    }
}

void TestGriglia::trova_capisce_i_numeri_data() {
    QTest::addColumn<QString>("scritto");
    QTest::addColumn<QList<int>>("righe");
    // Rows: 07-22 (253), 22-35 (53), 53-90 (7), 01-02 (722).
    QTest::newRow("prima il numero, poi il conto, poi chi lo contiene")
        << QStringLiteral("53") << QList<int>{2, 1, 0};
    QTest::newRow("zero davanti") << QStringLiteral("07") << QList<int>{0};
    QTest::newRow("due numeri") << QStringLiteral("7 22") << QList<int>{0};
    QTest::newRow("a rovescio") << QStringLiteral("22-07") << QList<int>{0};
    QTest::newRow("col punto") << QStringLiteral("7.22") << QList<int>{0};
    QTest::newRow("parte di un conto") << QStringLiteral("722") << QList<int>{3};
    QTest::newRow("nessuno") << QStringLiteral("7 90") << QList<int>{};
    QTest::newRow("parole") << QStringLiteral("VEN") << QList<int>{3};
}

void TestGriglia::trova_capisce_i_numeri() {
    QFETCH(QString, scritto);
    QFETCH(QList<int>, righe);
    auto t = std::make_shared<Tabella>();
    t->titoli = {{"Numeri", "Frequenza", "Ruota"}};
    t->colonne = {ColonnaGruppi{.quanti = 2, .separatore = '-', .numeri = {7, 22, 22, 35, 53, 90, 1, 2}},
                  ColonnaInteri{{253, 53, 7, 722}}, ColonnaTesti{{"Bari", "Roma", "Bari", "Venezia"}}};
    GrigliaRisultati g;
    g.mostra(t);
    g.show();
    g.apri_trova();
    auto* casella = g.findChild<QLineEdit*>(QStringLiteral("txttrova"));
    casella->setText(scritto);
    QList<int> trovate;
    for (int i = 0; i < righe.size(); ++i) {
        trovate << g.vista()->currentIndex().row();
        QTest::keyClick(casella, Qt::Key_Return);
    }
    if (scritto == QLatin1String{"07"}) {
        // The number 7 first, then the count 7 of another row.
        QCOMPARE(trovate[0], 0);
        return;
    }
    QCOMPARE(trovate, righe);
    if (righe.isEmpty()) QVERIFY(!g.vista()->currentIndex().isValid());
    // Round to the first.
    else
        QCOMPARE(g.vista()->currentIndex().row(), righe.front());
}

void TestGriglia::il_filtro_lascia_le_righe_che_rispondono() {
    GrigliaRisultati g;
    g.mostra(misure({5, 9, 7, 20}));
    g.show();
    QVERIFY(QTest::qWaitForWindowActive(&g));
    auto* casella = g.findChild<QLineEdit*>(QStringLiteral("txtfiltro"));
    auto* errore = g.findChild<QLabel*>(QStringLiteral("lblerrorefiltro"));
    QVERIFY(!casella->isVisible());
    g.apri_filtro();
    QVERIFY(casella->hasFocus());
    QTest::keyClicks(casella, QStringLiteral("frequenza >"));
    // Half an expression filters nothing, and is no error while one types.
    QCOMPARE(g.modello()->rowCount(), 4);
    QVERIFY(!errore->isVisible());
    casella->setText(QStringLiteral("pippo > 6"));
    QTest::keyClick(casella, Qt::Key_Return);
    QVERIFY(errore->isVisible());
    QVERIFY2(errore->text().contains(QStringLiteral("pippo")), qPrintable(errore->text()));
    QVERIFY(errore->y() > casella->y());
    QCOMPARE(g.modello()->rowCount(), 4);
    casella->setText(QStringLiteral("frequenza > 6"));
    QVERIFY(!errore->isVisible());
    QCOMPARE(colonna(g, 1), (QStringList{"9", "7", "20"}));
    QCOMPARE(g.findChild<QLabel*>(QStringLiteral("lblcontofiltro"))->text(), QStringLiteral("3 di 4 righe"));
    // The order goes on beneath it, and comes back with the other rows.
    g.ordina_colonna(1, Verso::decrescente);
    QCOMPARE(colonna(g, 1), (QStringList{"20", "9", "7"}));
    QCOMPARE(g.modello()->ordine(), (std::vector<std::uint32_t>{3, 1, 2}));
    g.mostra(misure({1, 50}));
    QCOMPARE(colonna(g, 1), QStringList{"50"});
    g.mostra(misure({1, 2}));
    QVERIFY(g.vuota());
    g.mostra(misure({5, 9, 7, 20}));
    g.ordina_colonna(1, Verso::decrescente);
    QTest::keyClick(casella, Qt::Key_Escape);
    QVERIFY(!casella->isVisible());
    QCOMPARE(colonna(g, 1), (QStringList{"20", "9", "7", "5"}));
}

void TestGriglia::i_numeri_stanno_a_destra() {
    auto t = std::make_shared<Tabella>();
    t->titoli = {{"Gruppo", "Ritardo", "Percentuale", "Nome", "Vuota"}};
    t->colonne = {ColonnaGruppi{.quanti = 2, .separatore = '-', .numeri = {1, 2, 3, 4}},
                  ColonnaInteri{{3, kCellaPuntini}}, ColonnaTesti{{"  12,50%", "1.443,33"}},
                  ColonnaTesti{{"12", "decina"}}, ColonnaTesti{{"", ""}}};
    ModelloRisultato m;
    m.mostra(t);
    const auto destra = [&m](int c) {
        return m.index(0, c).data(Qt::TextAlignmentRole).value<Qt::Alignment>().testFlag(Qt::AlignRight);
    };
    QCOMPARE((QList<bool>{destra(0), destra(1), destra(2), destra(3), destra(4)}),
             (QList<bool>{false, true, true, false, false}));
    QCOMPARE(m.index(0, 0).data().toString(), QStringLiteral("01-02"));
    QCOMPARE(m.index(1, 1).data().toString(), QStringLiteral("..."));
    QCOMPARE(m.index(0, 2).data().toString(), QStringLiteral("12,50%"));
    QCOMPARE(m.testo_piu_largo(2), QStringLiteral("12,50%"));
    QCOMPARE(m.testo_piu_largo(3), QStringLiteral("decina"));
}

void TestGriglia::le_righe_si_alternano() {
    ModelloRisultato m;
    m.mostra(misure({1, 2, 3}));
    const auto fondo = [&m](int r) { return m.index(r, 0).data(Qt::BackgroundRole).value<QBrush>().color(); };
    QCOMPARE(fondo(0).rgb(), skin_in_uso().tinta_a);
    QCOMPARE(fondo(1).rgb(), skin_in_uso().tinta_b);
    QCOMPARE(fondo(2), fondo(0));
    // The bands belong to the places, not to the rows that stand in them.
    m.ordina_per(0, Verso::decrescente);
    QCOMPARE(fondo(0).rgb(), skin_in_uso().tinta_a);
}

void TestGriglia::i_colori_della_ricerca() {
    auto t = std::make_shared<Tabella>(*misure({1, 2}));
    t->sfondi.assign(6, kNessunColore);
    t->primi_piani.assign(6, kNessunColore);
    t->sfondi[0] = 0x0000FF;       // 0xBBGGRR: pure red
    t->sfondi[1] = 65535;          // the yellow of a hit
    t->primi_piani[3] = 0xFF0000;  // pure blue
    ModelloRisultato m;
    m.mostra(t);
    const auto colore = [&m](int r, int c, int ruolo) {
        return m.index(r, c).data(ruolo).value<QBrush>().color().rgb();
    };
    QCOMPARE(colore(0, 0, Qt::BackgroundRole), qRgb(255, 0, 0));
    QCOMPARE(colore(0, 1, Qt::BackgroundRole), skin_in_uso().trovato);
    QCOMPARE(colore(0, 2, Qt::BackgroundRole), skin_in_uso().tinta_a);
    QCOMPARE(colore(1, 0, Qt::ForegroundRole), qRgb(0, 0, 255));
    // Sorting carries the colours along with their rows.
    m.ordina_per(0, Verso::decrescente);
    QCOMPARE(colore(1, 0, Qt::BackgroundRole), qRgb(255, 0, 0));
    // On every skin whatever the search paints stays readable.
    for (int i = 1; i <= kNumeroSkin; ++i) {
        applica_tema(*qApp, i);
        for (int r = 0; r < 2; ++r)
            for (int c = 0; c < 3; ++c)
                QVERIFY(contrasto(colore(r, c, Qt::ForegroundRole), colore(r, c, Qt::BackgroundRole)) >= 4.5);
    }
    applica_tema(*qApp, 1);
}

void TestGriglia::un_fondo_chiaro_si_smorza_su_una_skin_scura() {
    auto t = std::make_shared<Tabella>();
    t->titoli = {{"A", "B", "C", "D"}};
    for (int c = 0; c < 4; ++c) t->colonne.emplace_back(ColonnaInteri{{c}});
    t->sfondi = {0xC0FFFF, 15914962, 0x0000FF, 65535};
    ModelloRisultato m;
    m.mostra(t);
    const auto colore = [&](int c, Qt::ItemDataRole ruolo) {
        return m.index(0, c).data(ruolo).value<QBrush>().color();
    };
    const QColor chiaro = colore(0, Qt::BackgroundRole);
    QCOMPARE(chiaro.rgb(), qRgb(0xFF, 0xFF, 0xC0));
    applica_tema(*qApp, 2);
    QVERIFY(skin_in_uso().scura);
    for (int c : {0, 1}) {
        QVERIFY(colore(c, Qt::BackgroundRole).lightnessF() < 0.35F);
        QVERIFY(contrasto(colore(c, Qt::ForegroundRole).rgb(), colore(c, Qt::BackgroundRole).rgb()) >= 4.5);
    }
    // The two tints stay two, the first of them as yellow as it was.
    QVERIFY(colore(0, Qt::BackgroundRole) != colore(1, Qt::BackgroundRole));
    QVERIFY(std::abs(colore(0, Qt::BackgroundRole).hslHue() - chiaro.hslHue()) <= 2);
    // Strong colours and the hit's yellow are what they are.
    QCOMPARE(colore(2, Qt::BackgroundRole).rgb(), qRgb(0xFF, 0, 0));
    QCOMPARE(colore(3, Qt::BackgroundRole).rgb(), skin_in_uso().trovato);
    applica_tema(*qApp, 1);
}

void TestGriglia::il_primo_clic_ordina_dal_piu_grande() {
    GrigliaRisultati g;
    g.mostra(misure({5, 9, 7}));
    g.show();
    QTest::mouseClick(cmdcol(g, 1), Qt::LeftButton);
    QCOMPARE(colonna(g, 1), (QStringList{"9", "7", "5"}));
    QCOMPARE(cmdcol(g, 1)->property("tag").toString(), QStringLiteral("0"));
    QCOMPARE(freccia(g, 1), QStringLiteral("ordinata_giu"));
    QTest::mouseClick(cmdcol(g, 1), Qt::LeftButton);
    QCOMPARE(colonna(g, 1), (QStringList{"5", "7", "9"}));
    QCOMPARE(cmdcol(g, 1)->property("tag").toString(), QString{});
    QTest::keyClick(cmdcol(g, 1), Qt::Key_Space);
    QCOMPARE(colonna(g, 1), (QStringList{"9", "7", "5"}));
}

void TestGriglia::ogni_colonna_ha_il_proprio_verso() {
    GrigliaRisultati g;
    g.mostra(misure({5, 9, 7}));
    g.show();
    QTest::mouseClick(cmdcol(g, 1), Qt::LeftButton);  // descending, tag "0"
    QTest::mouseClick(cmdcol(g, 2), Qt::LeftButton);  // its own tag is empty: descending
    QCOMPARE(colonna(g, 2), (QStringList{"3", "2", "1"}));
    QCOMPARE(freccia(g, 1), QStringLiteral("ordina"));
    QCOMPARE(freccia(g, 2), QStringLiteral("ordinata_giu"));
    QTest::mouseClick(cmdcol(g, 1), Qt::LeftButton);  // comes back to its tag: ascending
    QCOMPARE(colonna(g, 1), (QStringList{"5", "7", "9"}));
}

void TestGriglia::i_versi_restano_quando_la_griglia_si_svuota() {
    GrigliaRisultati g;
    g.mostra(misure({5, 9, 7}));
    g.show();
    QTest::mouseClick(cmdcol(g, 1), Qt::LeftButton);
    g.svuota();
    QVERIFY(g.vuota());
    QCOMPARE(cmdcol(g, 1)->property("tag").toString(), QStringLiteral("0"));
    QCOMPARE(freccia(g, 1), QStringLiteral("ordina"));
    g.mostra(misure({5, 9, 7}));
    QCOMPARE(colonna(g, 1), (QStringList{"5", "9", "7"}));
    QTest::mouseClick(cmdcol(g, 1), Qt::LeftButton);
    QCOMPARE(colonna(g, 1), (QStringList{"5", "7", "9"}));
}

void TestGriglia::per_tre_chiavi_il_secondo_pulsante_ordina_la_prima_colonna_data() {
    QTest::addColumn<QString>("chiave");
    QTest::addColumn<int>("ordinata");
    QTest::newRow("ambi") << "ricerche su tutti gli ambi" << 0;
    QTest::newRow("ambata capogioco") << "ambata capogioco" << 0;
    QTest::newRow("ambo capogioco") << "ambo capogioco" << 0;
    QTest::newRow("terni") << "ricerche su tutti i terni" << 1;
    QTest::newRow("90 numeri") << "ritardo e frequenza dei 90 numeri" << 1;
}

void TestGriglia::per_tre_chiavi_il_secondo_pulsante_ordina_la_prima_colonna() {
    QFETCH(QString, chiave);
    QFETCH(int, ordinata);
    GrigliaRisultati g;
    const Ricerca* ricerca = trova_ricerca(chiave.toStdString());
    QVERIFY(ricerca != nullptr);
    QCOMPARE(colonna_del_pulsante_1(*ricerca), ordinata);
    g.imposta_pulsante_1(colonna_del_pulsante_1(*ricerca));
    g.mostra(misure({5, 9, 7}));
    g.show();
    QTest::mouseClick(cmdcol(g, 1), Qt::LeftButton);
    QVERIFY(g.ordinamento() == std::pair(ordinata, Verso::decrescente));
    QCOMPARE(colonna(g, 0), ordinata == 0 ? (QStringList{"3", "2", "1"}) : (QStringList{"2", "3", "1"}));
    // The button says what it does where that is not what one would think.
    QCOMPARE(cmdcol(g, 1)->toolTip().contains(QStringLiteral("Numeri")), ordinata == 0);
    QCOMPARE(cmdcol(g, 1)->accessibleName(),
             ordinata == 0 ? QStringLiteral("Ordina per Numeri") : QStringLiteral("Ordina per Frequenza"));
    // The tag is that of the button that was pressed, the arrow that of the column that is sorted.
    QCOMPARE(cmdcol(g, 1)->property("tag").toString(), QStringLiteral("0"));
    QCOMPARE(cmdcol(g, 0)->property("tag").toString(), QString{});
    QCOMPARE(freccia(g, ordinata), QStringLiteral("ordinata_giu"));
    QTest::mouseClick(cmdcol(g, 0), Qt::LeftButton);
    QVERIFY(g.ordinamento() == std::pair(0, Verso::decrescente));
}

void TestGriglia::dopo_l_ordinamento_si_torna_in_cima() {
    GrigliaRisultati g;
    std::vector<std::int32_t> molti(500);
    std::iota(molti.begin(), molti.end(), 0);
    g.mostra(misure(molti));
    g.resize(500, 300);
    g.show();
    QVERIFY(QTest::qWaitForWindowExposed(&g));
    g.vista()->scrollToBottom();
    QVERIFY(g.vista()->verticalScrollBar()->value() > 0);
    QTest::mouseClick(cmdcol(g, 2), Qt::LeftButton);
    QCOMPARE(g.vista()->verticalScrollBar()->value(), 0);
    QCOMPARE(g.vista()->rowAt(0), 0);
}

void TestGriglia::la_riga_scelta_e_quella_della_tabella() {
    GrigliaRisultati g;
    g.mostra(misure({5, 9, 7}));
    QVERIFY(!g.riga_scelta());
    g.vista()->setCurrentIndex(g.modello()->index(2, 0));
    QCOMPARE(*g.riga_scelta(), 2U);
    g.ordina_colonna(1, Verso::crescente);  // 5, 7, 9: the row goes with its number
    QCOMPARE(*g.riga_scelta(), 2U);
    QCOMPARE(g.vista()->currentIndex().row(), 1);
    g.svuota();
    QVERIFY(!g.riga_scelta());
}

void TestGriglia::centodiciassettemila_righe_si_ordinano() {
    constexpr int kTerni = 117480;
    const auto t = terni();
    GrigliaRisultati g;
    g.resize(900, 600);
    g.mostra(t);
    g.show();
    QVERIFY(QTest::qWaitForWindowExposed(&g));
    QCOMPARE(g.modello()->rowCount(), kTerni);
    QCOMPARE(g.modello()->index(0, 0).data().toString(), QStringLiteral("01-02-03"));
    QCOMPARE(g.modello()->index(kTerni - 1, 0).data().toString(), QStringLiteral("88-89-90"));

    // The terni are written in ascending order, so the row's number stands for the first column.
    const auto valore = [&t](int c, std::size_t riga) {
        return c == 0 ? static_cast<std::int32_t>(riga)
                      : std::get<ColonnaInteri>(t->colonne[static_cast<std::size_t>(c)]).valori[riga];
    };
    for (int c = 0; c < 4; ++c)
        for (const bool dal_piu_grande : {true, false}) {
            QTest::mouseClick(cmdcol(g, c), Qt::LeftButton);
            QCOMPARE(g.modello()->rowCount(), kTerni);
            std::vector<bool> vista(kTerni);
            int fuori_posto = 0;
            int doppie = 0;
            std::int32_t prima = 0;
            for (int r = 0; r < kTerni; ++r) {
                const auto riga = g.modello()->riga_originale(r);
                if (vista[riga]) ++doppie;
                vista[riga] = true;
                const std::int32_t questa = valore(c, riga);
                if (r > 0 && (dal_piu_grande ? questa > prima : questa < prima)) ++fuori_posto;
                prima = questa;
            }
            QCOMPARE(fuori_posto, 0);
            QCOMPARE(doppie, 0);
            // What is shown is that row, and the top of the list is in sight.
            const auto cima = g.modello()->riga_originale(0);
            QCOMPARE(g.modello()->index(0, 1).data().toInt(), valore(1, cima));
            QCOMPARE(g.vista()->rowAt(0), 0);
        }
}

void TestGriglia::copia_un_blocco() {
    GrigliaRisultati g;
    g.mostra(misure({5, 9, 7}));
    g.show();
    auto* scelta = g.vista()->selectionModel();
    scelta->select({g.modello()->index(0, 1), g.modello()->index(1, 2)}, QItemSelectionModel::ClearAndSelect);
    QApplication::clipboard()->clear();
    g.vista()->setFocus();
    QTest::keyClick(g.vista(), Qt::Key_C, Qt::ControlModifier);
    QTRY_COMPARE(QApplication::clipboard()->text(), QStringLiteral("5\t3\n9\t2\n"));
    // As sorted, not as written.
    g.ordina_colonna(1, Verso::decrescente);
    scelta->select({g.modello()->index(0, 0), g.modello()->index(2, 1)}, QItemSelectionModel::ClearAndSelect);
    QCOMPARE(g.testo_selezione(), QStringLiteral("2\t9\n3\t7\n1\t5\n"));
}

void TestGriglia::copia_la_riga_di_una_cella() {
    GrigliaRisultati g;
    g.mostra(misure({5, 9, 7}));
    QCOMPARE(g.testo_selezione(), QString{});
    g.vista()->setCurrentIndex(g.modello()->index(1, 2));
    QCOMPARE(g.testo_selezione(), QStringLiteral("2\t9\t2\n"));
}

void TestGriglia::copia_celle_sparse() {
    GrigliaRisultati g;
    g.mostra(misure({5, 9, 7}));
    auto* scelta = g.vista()->selectionModel();
    scelta->select(g.modello()->index(0, 0), QItemSelectionModel::Select);
    scelta->select(g.modello()->index(2, 1), QItemSelectionModel::Select);
    QCOMPARE(g.testo_selezione(), QStringLiteral("1\t\n\t7\n"));
}

void TestGriglia::la_griglia_vuota_dice_che_cosa_fare() {
    GrigliaRisultati g;
    g.imposta_frase_vuota(QStringLiteral("Premi Avvia"));
    g.inizializza({{"Numeri", "Frequenza"}});
    g.show();
    auto visibile = [&g] {
        for (const QLabel* l : g.vista()->findChildren<QLabel*>())
            if (l->text() == QLatin1String("Premi Avvia")) return l->isVisible();
        return false;
    };
    QVERIFY(visibile());
    g.mostra(misure({1}));
    QVERIFY(!visibile());
    g.svuota();
    QVERIFY(visibile());
}

void TestGriglia::trova_vive_dopo_esc_e_un_altro_risultato() {
    GrigliaRisultati g;
    g.resize(400, 300);
    g.show();
    g.mostra(misure({10, 200, 30, 201, 50}));
    auto* casella = g.findChild<QLineEdit*>(QStringLiteral("txttrova"));
    g.apri_trova();
    casella->setText(QStringLiteral("20"));
    QCOMPARE(g.vista()->currentIndex().row(), 1);
    const auto di_nuovo = [&] {
        QTest::keyClick(casella, Qt::Key_Escape);
        QVERIFY(!casella->isVisible());
        g.vista()->setCurrentIndex({});
    };

    // A new search.
    di_nuovo();
    g.mostra(misure({1, 2, 3, 4, 520, 6, 720}));
    g.apri_trova();
    QTest::keyClick(casella, Qt::Key_Return);
    QCOMPARE(g.vista()->currentIndex().row(), 4);
    QTest::keyClick(casella, Qt::Key_Return);
    QCOMPARE(g.vista()->currentIndex().row(), 6);
    QTest::keyClick(casella, Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(g.vista()->currentIndex().row(), 4);

    // Another order: 720, 520, 6, 4 …
    di_nuovo();
    g.ordina_colonna(1, Verso::decrescente);
    g.apri_trova();
    QTest::keyClick(casella, Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(g.vista()->currentIndex().row(), 1);
    QTest::keyClick(casella, Qt::Key_Return);
    QCOMPARE(g.vista()->currentIndex().row(), 0);

    // And a sort with the line open.
    g.ordina_colonna(1, Verso::crescente);
    QTest::keyClick(casella, Qt::Key_Return);
    QCOMPARE(g.vista()->currentIndex().row(), 5);
}

void TestGriglia::il_puntatore_sulla_casella_non_tinge_righe() {
    GrigliaRisultati g;
    g.imposta_tabellone(true);
    g.resize(400, 300);
    g.show();
    g.mostra(misure({10, 20, 30, 40, 50}));
    g.vista()->setCurrentIndex({});
    const auto terza = [&] {
        const QRect r = g.vista()->visualRect(g.modello()->index(2, 0));
        return g.vista()->viewport()->grab(r.adjusted(1, 1, 1 - r.width() / 2, -2)).toImage();
    };
    g.apri_trova();
    auto* casella = g.findChild<QLineEdit*>(QStringLiteral("txttrova"));
    casella->setMouseTracking(true);
    const QImage ferma = terza();
    const int y = g.vista()->rowViewportPosition(2) + 3;
    const auto muovi = [&](QWidget* su) {
        QMouseEvent e{QEvent::MouseMove, QPointF(5, y), su->mapToGlobal(QPointF(5, y)),
                      Qt::NoButton,      Qt::NoButton,  Qt::NoModifier};
        QApplication::sendEvent(su, &e);
    };
    muovi(casella);
    QCOMPARE(terza(), ferma);
    // Over the grid it does.
    muovi(g.vista()->viewport());
    QVERIFY(terza() != ferma);
}

void TestGriglia::trova_nel_risultato() {
    GrigliaRisultati g;
    g.mostra(misure({512, 9, 12}));
    g.show();
    auto* casella = g.findChild<QLineEdit*>(QStringLiteral("txttrova"));
    QVERIFY(!casella->isVisible());
    g.apri_trova();
    QVERIFY(casella->isVisible());
    QTest::keyClicks(casella, QStringLiteral("12"));
    QCOMPARE(g.vista()->currentIndex(), g.modello()->index(2, 1));  // 12 itself before 512
    QTest::keyClick(casella, Qt::Key_Return);
    QCOMPARE(g.vista()->currentIndex(), g.modello()->index(0, 1));
    QTest::keyClick(casella, Qt::Key_Return);  // round to the first
    QCOMPARE(g.vista()->currentIndex(), g.modello()->index(2, 1));
    QTest::keyClick(casella, Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(g.vista()->currentIndex(), g.modello()->index(0, 1));
    QTest::keyClicks(casella, QStringLiteral("x"));
    QTest::keyClick(casella, Qt::Key_Return);  // nothing found: nothing moves
    QCOMPARE(g.vista()->currentIndex(), g.modello()->index(0, 1));
    QTest::keyClick(casella, Qt::Key_Escape);
    QVERIFY(!casella->isVisible());
}

void TestGriglia::il_menu_ordina_la_colonna_della_cella() {
    GrigliaRisultati g;
    g.imposta_pulsante_1(0);
    g.mostra(misure({5, 9, 7}));
    g.show();
    g.vista()->setCurrentIndex(g.modello()->index(0, 1));
    bool visto = false;
    QTimer::singleShot(0, this, [&visto] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr) return;
        for (QAction* a : menu->actions())
            if (a->text().contains(QStringLiteral("Ordina"))) {
                visto = true;
                menu->setActiveAction(a);
                QTest::keyClick(menu, Qt::Key_Return);
                return;
            }
        menu->close();
    });
    emit g.vista()->customContextMenuRequested(QPoint{5, 5});
    QVERIFY(visto);
    QCOMPARE(colonna(g, 1), (QStringList{"9", "7", "5"}));
}

void TestGriglia::piu_righe_di_titoli() {
    auto t = std::make_shared<Tabella>();
    t->titoli = {{"Num.", "Posizione", "", "", ""}, {"", "1", "", "2", ""}, {"", "F", "R", "F", "R"}};
    for (int c = 0; c < 5; ++c) t->colonne.emplace_back(ColonnaInteri{{c, 10 - c, 3 * c}});
    GrigliaRisultati g;
    g.mostra(t);
    g.resize(600, 300);
    g.show();
    QVERIFY(QTest::qWaitForWindowExposed(&g));
    QCOMPARE(cmdcol(g, 1)->text(), QString{});
    QVERIFY(!cmdcol(g, 1)->accessibleName().isEmpty());
    QTest::mouseClick(cmdcol(g, 2), Qt::LeftButton);
    QCOMPARE(colonna(g, 2), (QStringList{"8", "6", "2"}));
    // A press on the last row of titles sorts too: ascending first, and back on the second press.
    QWidget* testata = cmdcol(g, 0)->parentWidget();
    const QPoint titolo{cmdcol(g, 2)->geometry().center().x(), testata->height() - 6};
    QTest::mouseClick(testata, Qt::LeftButton, {}, titolo);
    QVERIFY(g.ordinamento() == std::pair(2, Verso::crescente));
    QTest::mouseClick(testata, Qt::LeftButton, {}, titolo);
    QVERIFY(g.ordinamento() == std::pair(2, Verso::decrescente));
    QTest::mouseClick(testata, Qt::LeftButton, {}, titolo);
    QVERIFY(g.ordinamento() == std::pair(2, Verso::crescente));
    // The rows of titles above it are no button.
    QTest::mouseClick(testata, Qt::LeftButton, {},
                      QPoint{cmdcol(g, 1)->geometry().center().x(), cmdcol(g, 1)->height() + 4});
    QVERIFY(g.ordinamento() == std::pair(2, Verso::crescente));
}

void TestGriglia::la_prima_colonna_resta_in_vista() {
    auto t = std::make_shared<Tabella>();
    t->titoli.emplace_back();
    for (int c = 0; c < 30; ++c) {
        t->titoli[0].push_back("Colonna");
        t->colonne.emplace_back(ColonnaInteri{{c, c + 1}});
    }
    GrigliaRisultati g;
    g.blocca_prima_colonna(true);
    g.mostra(t);
    g.resize(600, 300);
    g.show();
    QVERIFY(QTest::qWaitForWindowExposed(&g));
    auto* ferma = g.findChild<QTableView*>(QStringLiteral("MSHFlexGrid1_prima_colonna"));
    QTRY_VERIFY(ferma->isVisible());
    g.vista()->horizontalScrollBar()->setValue(500);
    QCOMPARE(ferma->x(), g.vista()->viewport()->x());
    QVERIFY(cmdcol(g, 0)->x() >= g.vista()->viewport()->x());
    QVERIFY(cmdcol(g, 0)->geometry().right() <= ferma->geometry().right());
    QVERIFY(cmdcol(g, 1)->x() < 0);
    QCOMPARE(ferma->indexAt(QPoint{3, 3}), g.modello()->index(0, 0));
    g.resize(6000, 300);
    QTRY_VERIFY(!ferma->isVisible());
}

void TestGriglia::le_larghezze_non_cambiano_con_l_ordinamento() {
    GrigliaRisultati g;
    g.mostra(misure({5, 100000, 7}));
    g.resize(600, 300);
    g.show();
    QVERIFY(QTest::qWaitForWindowExposed(&g));
    QList<int> prima;
    for (int c = 0; c < 3; ++c) prima << g.vista()->columnWidth(c);
    for (int c = 0; c < 3; ++c) g.premi(c);
    g.resize(900, 300);
    QList<int> dopo;
    for (int c = 0; c < 3; ++c) dopo << g.vista()->columnWidth(c);
    QCOMPARE(dopo, prima);
}

QTEST_MAIN(TestGriglia)
#include "test_griglia.moc"
