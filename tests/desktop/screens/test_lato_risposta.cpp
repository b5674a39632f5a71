#include "catalogue/ricerche.h"
#include "chance/caso.h"
#include "chance/risposta_estesa.h"
#include "screens/calore.h"
#include "screens/griglia_risultati.h"
#include "screens/lato_risposta.h"
#include "screens/messaggi.h"
#include "screens/pannello_storia.h"
#include "screens/tema.h"
#include "statistics/form_stat.h"
#include "support/archivi.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QToolButton>
#include <QtTest>
#include <algorithm>

using namespace sortimetra;

namespace {

/// Sixty draws of all ten wheels. On Bari the 90 comes at draws 5, 8 and 20: its delay of 40 is above its
/// longest closed one, 11. The 89 comes once.
ArchivioEstrazioni archivio_di_prova() {
    static constexpr const char* kCodici[]{"BA", "CA", "FI", "GE", "MI", "NA", "PA", "RM", "TO", "VE"};
    std::string lotto;
    for (int c = 1; c <= 60; ++c)
        for (int w = 0; w < 10; ++w) {
            const bool novanta = w == 0 && (c == 5 || c == 8 || c == 20);
            const bool ottantanove = w == 0 && c == 1;
            lotto += std::to_string(c) + " " + kCodici[w] + " " +
                     (novanta       ? "90"
                      : ottantanove ? "89"
                                    : std::to_string(w + 1)) +
                     " " + std::to_string(11 + w) + " " + std::to_string(21 + w) + " " +
                     std::to_string(31 + w) + " " + std::to_string(41 + (c + w) % 30) + "\n";
        }
    return prove::da_testi(lotto, "", "");
}

constexpr const char* kNovanta = "ritardo e frequenza dei 90 numeri";

}  // namespace

class TestLatoRisposta : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }
    void init() {
        cartella_ = std::make_unique<prove::CartellaProva>();
        sessione_.percorso_programma = cartella_->percorso();
        messaggi_ = std::make_unique<MessaggiDiProva>();
        form_ = std::make_unique<Form_stat>(sessione_);
    }
    void cleanup() {
        form_.reset();
        messaggi_.reset();
    }

    void il_caso_aggiunge_cinque_colonne_e_le_toglie();
    void il_caso_si_ordina_si_esporta_e_resta_acceso();
    void il_caso_non_c_e_dove_non_si_misura_un_evento();
    void un_ritardo_oltre_il_suo_storico_ha_un_segno();
    void le_frasi_sotto_la_griglia();
    void le_ruote_a_confronto_e_ritorno();
    void il_calore_si_legge_con_ogni_aspetto();
    void scegliere_una_riga_ne_apre_la_storia();
    void piu_righe_una_sopra_l_altra();
    void in_una_finestra_stretta_la_storia_e_un_cassetto();
    void la_storia_si_chiude_e_se_ne_ricorda();
    void ogni_griglia_con_un_evento_ha_la_sua_storia();
    void la_storia_si_salva_si_copia_e_si_stampa();
    void la_rotella_e_i_tasti_ingrandiscono();
    void sotto_il_puntatore_c_e_l_estrazione();
    void i_colori_della_storia_si_distinguono();
    void gli_interruttori_stanno_in_960_per_540();

  private:
    void apri(const char* chiave, QSize misura) {
        const Ricerca* r = trova_ricerca(chiave);
        QVERIFY2(r != nullptr, chiave);
        form_->apri(*r, archivio_);
        form_->show();
        form_->resize(misura);
        QVERIFY(QTest::qWaitForWindowActive(form_.get()));
        QTRY_COMPARE(form_->size(), misura);
    }
    template <class T>
    T* controllo(const char* nome) const {
        return form_->findChild<T*>(QString::fromLatin1(nome));
    }
    void premi(const char* nome) const { QTest::mouseClick(controllo<QPushButton>(nome), Qt::LeftButton); }
    [[nodiscard]] ModelloRisultato& modello() const { return *form_->griglia()->modello(); }
    [[nodiscard]] QStringList titoli() const {
        QStringList t;
        for (int i = 0; i < modello().columnCount(); ++i)
            t << modello().headerData(i, Qt::Horizontal).toString();
        return t;
    }
    void clic(int riga, Qt::KeyboardModifiers tasti = Qt::NoModifier) const {
        auto* vista = form_->griglia()->vista();
        vista->scrollTo(modello().index(riga, 0));
        QTest::mouseClick(vista->viewport(), Qt::LeftButton, tasti,
                          vista->visualRect(modello().index(riga, 0)).center());
    }
    [[nodiscard]] PannelloStoria* pannello() const { return form_->findChild<PannelloStoria*>(); }
    [[nodiscard]] bool si_vede() const { return pannello() != nullptr && pannello()->isVisible(); }

    ArchivioEstrazioni archivio_ = archivio_di_prova();
    std::unique_ptr<prove::CartellaProva> cartella_;
    Sessione sessione_;
    std::unique_ptr<Form_stat> form_;
    std::unique_ptr<MessaggiDiProva> messaggi_;
};

void TestLatoRisposta::il_caso_aggiunge_cinque_colonne_e_le_toglie() {
    apri(kNovanta, {1180, 720});
    premi("Command1");
    const QStringList proprie{"Numeri", "Frequenza", "Ritardo", "Ritardo Storico"};
    QCOMPARE(titoli(), proprie);
    premi("cmdCaso");
    QCOMPARE(titoli(),
             proprie + QStringList({"Attesa", "Scarto", "Probabilità", "In tabella", "Record atteso"}));
    // What the columns say is what the command line says, cell by cell.
    const auto& t = *modello().tabella();
    const Tabella caso = tabella_caso(t, {.righe = 60, .concorsi = 60});
    for (int r = 0; r < modello().rowCount(); ++r) {
        const auto riga = static_cast<std::size_t>(r);
        for (const auto& [mostrata, detta] : {std::pair{4, 1}, {5, 2}, {6, 4}, {7, 5}, {8, 6}})
            QCOMPARE(modello().testo(r, mostrata).toStdString(),
                     caso.testo(riga, static_cast<std::size_t>(detta)));
    }
    // Quiet ink, which is not the measures' own.
    const auto inchiostro = [this](int c) {
        return modello().index(0, c).data(Qt::ForegroundRole).value<QBrush>().color().rgb();
    };
    QCOMPARE(inchiostro(3), skin_in_uso().testo);
    QCOMPARE(inchiostro(4), skin_in_uso().testo_quieto);
    clic(3);
    premi("cmdCaso");
    QCOMPARE(titoli(), proprie);
    QCOMPARE(form_->griglia()->riga_scelta(), 3U);
}

void TestLatoRisposta::il_caso_si_ordina_si_esporta_e_resta_acceso() {
    apri(kNovanta, {1180, 720});
    premi("Command1");
    QTest::keyClick(form_.get(), Qt::Key_I, Qt::ControlModifier);
    QCOMPARE(modello().columnCount(), 9);
    QVERIFY(controllo<QPushButton>("cmdCaso")->isChecked());
    // By the values, not by their texts: the most improbable delay on top is the 90's or a later one's.
    form_->griglia()->ordina_colonna(6, Verso::crescente);
    QCOMPARE(modello().testo(0, 2), QStringLiteral("60"));
    const QString file = QString::fromStdString((cartella_->percorso() / "caso.csv").string());
    messaggi_->file = file;
    form_->esporta();
    QFile scritto{file};
    QVERIFY(scritto.open(QIODevice::ReadOnly));
    QVERIFY(scritto.readLine().contains("Record atteso"));
    // Another window of the same folder opens with it.
    Form_stat altra{sessione_};
    altra.apri(*trova_ricerca(kNovanta), archivio_);
    altra.show();
    altra.avvia();
    QCOMPARE(altra.griglia()->modello()->columnCount(), 9);
}

void TestLatoRisposta::il_caso_non_c_e_dove_non_si_misura_un_evento() {
    apri(kNovanta, {1180, 720});
    QVERIFY(controllo<QPushButton>("cmdCaso")->isVisible());
    for (const Ricerca& r : ricerche()) {
        if (r.un_evento || &r == form_->ricerca()) continue;
        // Any screen has the switch hidden for such a row: here the one at hand is set on it.
        if (r.gioco != Gioco::lotto || r.tabelle == 0 || r.famiglia == nullptr) continue;
        form_->apri(r, archivio_);
        QVERIFY2(!controllo<QPushButton>("cmdCaso")->isVisible(), r.chiave().data());
    }
}

void TestLatoRisposta::un_ritardo_oltre_il_suo_storico_ha_un_segno() {
    apri(kNovanta, {1180, 720});
    premi("Command1");
    const auto segnata = [this](int riga, int colonna) {
        return modello().index(riga, colonna).data(ModelloRisultato::kRuoloSegno).toBool();
    };
    QVERIFY(segnata(89, 2));
    QVERIFY(!segnata(89, 3) && !segnata(89, 0));
    QCOMPARE(modello().index(89, 2).data(Qt::ToolTipRole).toString(),
             QStringLiteral("Manca da 40 concorsi: più del suo ritardo storico, 11. Se uscisse ora il record "
                            "sarebbe questo."));
    QCOMPARE(modello().index(89, 2).data(Qt::AccessibleDescriptionRole),
             modello().index(89, 2).data(Qt::ToolTipRole));
    // A number that came once, or never, has no closed delay to be above of.
    QCOMPARE(modello().testo(88, 1), QStringLiteral("1"));
    QVERIFY(!segnata(88, 2) && !segnata(79, 2));
    QVERIFY(!segnata(0, 2));

    // A sign, not a colour alone: the cell's left has ink that the same cell without the mark has not.
    auto* vista = form_->griglia()->vista();
    form_->griglia()->ordina_colonna(1, Verso::crescente);
    const auto riga_di = [this](std::size_t numero) {
        for (int r = 0; r < modello().rowCount(); ++r)
            if (modello().riga_originale(r) == numero - 1) return r;
        return -1;
    };
    const auto sinistra = [&](std::size_t numero) {
        const QModelIndex i = modello().index(riga_di(numero), 2);
        vista->scrollTo(i);
        const QRect cella = vista->visualRect(i);
        const QImage foto = vista->viewport()
                                ->grab(QRect{cella.left() + 2, cella.top() + 2, 14, cella.height() - 4})
                                .toImage();
        QSet<QRgb> tinte;
        for (int y = 0; y < foto.height(); ++y)
            for (int x = 0; x < foto.width(); ++x) tinte.insert(foto.pixel(x, y));
        return tinte.size();
    };
    QVERIFY(sinistra(90) > 1);
    QCOMPARE(sinistra(89), 1);
}

void TestLatoRisposta::le_frasi_sotto_la_griglia() {
    apri(kNovanta, {1180, 720});
    const auto* frase = controllo<QLabel>("lblcaso");
    QVERIFY(!frase->isVisible());
    premi("Command1");
    QVERIFY(frase->isVisible());
    QVERIFY(frase->text().startsWith(QStringLiteral("Chi quadro: ")));
    QVERIFY(!frase->text().contains(QStringLiteral("manca da")));
    premi("cmdCaso");
    QVERIFY2(frase->text().contains(QStringLiteral(" manca da 60 concorsi: succede per caso ")),
             qPrintable(frase->text()));
    controllo<QCheckBox>("CheckRuota_3")->click();
    QVERIFY(!frase->isVisible());

    // A table that has not every number once has no such sentence.
    form_->apri(*trova_ricerca("ambi vertibili"), archivio_);
    premi("Command1");
    QVERIFY(frase->text().contains(QStringLiteral("manca da")));
    QVERIFY(!frase->text().contains(QStringLiteral("Chi quadro")));
}

void TestLatoRisposta::le_ruote_a_confronto_e_ritorno() {
    apri(kNovanta, {1180, 720});
    premi("Command1");
    // One wheel alone is no comparison.
    QVERIFY(!controllo<QPushButton>("cmdRuote")->isEnabled());
    controllo<QCheckBox>("CheckRuota_1")->click();
    premi("Command1");
    QVERIFY(controllo<QPushButton>("cmdRuote")->isEnabled());
    QTest::keyClick(form_.get(), Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(titoli(), (QStringList{"Numeri", "BA", "CA"}));
    QCOMPARE(modello().testo(89, 1), QStringLiteral("40"));
    QCOMPARE(modello().testo(1, 2), QStringLiteral("0"));
    auto* misura = controllo<QComboBox>("ComboMisura");
    QVERIFY(misura->isVisible());
    misura->setCurrentIndex(1);
    emit misura->activated(1);
    QCOMPARE(modello().testo(89, 1), QStringLiteral("3"));
    QCOMPARE(modello().testo(1, 2), QStringLiteral("60"));
    // The greatest value has the strongest ground, 0 none but the bands'.
    const auto fondo = [this](int r, int c) {
        return modello().index(r, c).data(Qt::BackgroundRole).value<QBrush>().color().rgb();
    };
    QCOMPARE(fondo(1, 2), calore(1));
    QVERIFY(fondo(89, 1) != fondo(1, 2));
    QCOMPARE(fondo(88, 2), skin_in_uso().tinta_a);
    QCOMPARE(fondo(88, 0), skin_in_uso().tinta_a);
    // Its rows tell their story as well.
    clic(1);
    QTRY_VERIFY(si_vede());
    QCOMPARE(pannello()->grafico().titolo, std::string{"Storia di 02"});
    premi("cmdRuote");
    QCOMPARE(titoli(), (QStringList{"Numeri", "Frequenza", "Ritardo", "Ritardo Storico"}));
    QVERIFY(!misura->isVisible());
}

void TestLatoRisposta::il_calore_si_legge_con_ogni_aspetto() {
    for (int i = kNumeroSkin; i >= 1; --i) {
        applica_tema(*qApp, i);
        const Skin& s = skin_in_uso();
        for (int parte = 0; parte <= 100; ++parte)
            QVERIFY2(contrasto(s.testo, calore(parte / 100.0)) >= 4.5, s.nome);
        // And it is seen: the ends are not the same ground.
        QVERIFY2(contrasto(calore(0), calore(1)) >= 1.25, s.nome);
    }
}

void TestLatoRisposta::scegliere_una_riga_ne_apre_la_storia() {
    apri(kNovanta, {1280, 720});
    premi("Command1");
    QTRY_VERIFY(si_vede());
    QVERIFY(pannello()->tela() == nullptr);  // nothing is drawn before a row is chosen
    const auto* frase = pannello()->findChild<QLabel*>(QStringLiteral("lblfrasestoria"));
    QVERIFY(frase->isVisible() && !frase->text().isEmpty());
    clic(89);
    QTRY_VERIFY(pannello()->tela() != nullptr && pannello()->tela()->isVisible());
    const Grafico& g = pannello()->grafico();
    QCOMPARE(g.serie.size(), 1U);
    QCOMPARE(g.serie[0].nome, std::string{"90"});
    QCOMPARE(g.serie[0].record, 11);
    QCOMPARE(g.serie[0].presente, 40);
    // The list of its hits: the newest on top.
    const ModelloRisultato& elenco = *pannello()->elenco()->modello();
    QCOMPARE(elenco.rowCount(), 3);
    QCOMPARE(elenco.columnCount(), 5);
    QCOMPARE(elenco.testo(0, 0), QStringLiteral("20"));
    QCOMPARE(elenco.testo(0, 2), QStringLiteral("11"));
    QCOMPARE(elenco.testo(0, 3), QStringLiteral("90"));
    QCOMPARE(elenco.testo(0, 4), QStringLiteral("Bari"));
    QCOMPARE(elenco.testo(2, 2), QStringLiteral("..."));
    // It stands beside the grid, which keeps all of its columns in sight.
    QVERIFY(pannello()->mapTo(form_.get(), QPoint{}).x() >=
            form_->griglia()->vista()->mapTo(form_.get(), QPoint{form_->griglia()->vista()->width(), 0}).x());
    QCOMPARE(form_->griglia()->vista()->horizontalScrollBar()->maximum(), 0);
    // The arrows go on to the next row.
    QTest::keyClick(form_->griglia()->vista(), Qt::Key_Up);
    QTRY_COMPARE(pannello()->grafico().titolo, std::string{"Storia di 89"});
    // Another scope: the story goes with the answer.
    controllo<QCheckBox>("CheckRuota_2")->click();
    QTRY_VERIFY(pannello()->grafico().serie.empty());
    QVERIFY(si_vede());
}

void TestLatoRisposta::piu_righe_una_sopra_l_altra() {
    apri(kNovanta, {1400, 800});
    premi("Command1");
    clic(10);
    clic(20, Qt::ControlModifier);
    clic(30, Qt::ControlModifier);
    QTRY_COMPARE(pannello() == nullptr ? 0U : pannello()->grafico().serie.size(), 3U);
    // The current row comes first.
    QCOMPARE(pannello()->grafico().serie[0].nome, std::string{"31"});
    form_->griglia()->vista()->selectAll();
    QTRY_COMPARE(pannello()->grafico().serie.size(), static_cast<std::size_t>(kSerieGrafico));
}

void TestLatoRisposta::in_una_finestra_stretta_la_storia_e_un_cassetto() {
    apri(kNovanta, {960, 540});
    premi("Command1");
    clic(85);
    QTest::qWait(20);
    QVERIFY(!si_vede());
    QTest::keyClick(form_.get(), Qt::Key_G, Qt::ControlModifier);
    QTRY_VERIFY(si_vede());
    QTRY_COMPARE(pannello()->grafico().titolo, std::string{"Storia di 86"});
    QCOMPARE(pannello()->parentWidget(), form_.get());
    QVERIFY(form_->rect().contains(pannello()->geometry()));
    QVERIFY(controllo<QPushButton>("cmdStoria")->isChecked());
    // Esc closes the drawer, and only then the screen.
    QTest::keyClick(form_.get(), Qt::Key_Escape);
    QVERIFY(!si_vede());
    QVERIFY(form_->isVisible());
    premi("cmdStoria");
    QTRY_VERIFY(si_vede());
    QTest::mouseClick(pannello()->findChild<QToolButton*>(QStringLiteral("cmdChiudiStoria")), Qt::LeftButton);
    QVERIFY(!si_vede());
    // The window grows: there is room beside the grid now.
    form_->resize(1400, 700);
    QTRY_VERIFY(si_vede());
    QVERIFY(pannello()->parentWidget() != form_.get());
    QTest::keyClick(form_.get(), Qt::Key_Escape);
    QVERIFY(!form_->isVisible());
}

void TestLatoRisposta::la_storia_si_chiude_e_se_ne_ricorda() {
    apri(kNovanta, {1280, 720});
    premi("Command1");
    clic(5);
    QTRY_VERIFY(si_vede());
    QTest::keyClick(form_.get(), Qt::Key_G, Qt::ControlModifier);
    QVERIFY(!si_vede());
    clic(6);
    QTest::qWait(20);
    QVERIFY(!si_vede());
    form_ = std::make_unique<Form_stat>(sessione_);
    apri(kNovanta, {1280, 720});
    premi("Command1");
    clic(5);
    QTest::qWait(20);
    QVERIFY(!si_vede());
    QTest::keyClick(form_.get(), Qt::Key_G, Qt::ControlModifier);
    QTRY_VERIFY(si_vede());
    QTRY_COMPARE(pannello()->grafico().titolo, std::string{"Storia di 06"});
}

void TestLatoRisposta::ogni_griglia_con_un_evento_ha_la_sua_storia() {
    for (const Ricerca& r : ricerche()) {
        if (!r.un_evento || r.gioco != Gioco::lotto || r.dove == Dove::solo_comandi) continue;
        form_->apri(r, archivio_);
        form_->show();
        form_->resize(1500, 700);
        form_->avvia();
        if (form_->griglia()->vuota()) continue;
        clic(0);
        const Tabella& t = *modello().tabella();
        if (!t.evento(0)) continue;
        QTRY_VERIFY2(
            si_vede() && pannello()->storie().size() == 1 && pannello()->storie()[0].evento == t.evento(0),
            r.chiave().data());
        // The measures of the story are those of the row.
        const auto colonne = colonne_misure(t);
        if (!colonne || pannello()->storie()[0].evento.conteggio != Conteggio::una_volta) continue;
        const Storia& s = pannello()->storie()[0];
        QVERIFY2(
            s.frequenza == intero_della_cella(t, 0, colonne->frequenza) &&
                s.ritardo == intero_della_cella(t, 0, colonne->ritardo),
            (std::string{r.chiave()} + ": " + std::to_string(s.frequenza) + " " + t.testo(0, 0)).c_str());
    }
}

void TestLatoRisposta::la_storia_si_salva_si_copia_e_si_stampa() {
    apri(kNovanta, {1280, 720});
    QImage stampata;
    form_->imposta_stampa_storia([&](QWidget*, const QImage& foglio) { stampata = foglio; });
    premi("Command1");
    clic(89);
    QTRY_VERIFY(si_vede() && pannello()->tela() != nullptr);
    for (const auto& [voce, nome, inizio] : {std::tuple{"mnuSalvaPNG", "storia.png", "\x89PNG"},
                                             {"mnuSalvaSVG", "storia.svg", "<?xml"},
                                             {"mnuSalvaPDF", "storia.pdf", "%PDF"}}) {
        const QString file = QString::fromStdString((cartella_->percorso() / nome).string());
        messaggi_->file = file;
        pannello()->findChild<QAction*>(QString::fromLatin1(voce))->trigger();
        QFile scritto{file};
        QVERIFY2(scritto.open(QIODevice::ReadOnly), nome);
        QVERIFY2(scritto.read(16).startsWith(inizio), nome);
        QVERIFY(messaggi_->proposto.contains(QStringLiteral("Storia di 90")));
    }
    QVERIFY(messaggi_->detti.isEmpty());
    messaggi_->file = QStringLiteral("/cartella/che/non/esiste/storia.png");
    pannello()->salva(FormatoGrafico::png);
    QCOMPARE(messaggi_->detti.size(), 1);

    QTest::keyClick(pannello()->tela(), Qt::Key_C, Qt::ControlModifier);
    const QStringList righe = QApplication::clipboard()->text().split(QLatin1Char{'\n'}, Qt::SkipEmptyParts);
    QCOMPARE(righe.size(), 4);
    QCOMPARE(righe[0], QStringLiteral("N.\tConcorso\tData\tRuote\tNumeri\tRitardo"));
    QVERIFY(righe[3].startsWith(QStringLiteral("3\t20\t")) &&
            righe[3].endsWith(QStringLiteral("Bari\t90\t11")));

    auto* stampa = pannello()->findChild<QToolButton*>(QStringLiteral("cmdStampaStoria"));
    QVERIFY(stampa->isVisible());
    QTest::mouseClick(stampa, Qt::LeftButton);
    QVERIFY(stampata.width() > 3000);
    int scuri = 0;
    for (int x = 0; x < stampata.width(); x += 7)
        for (int y = 0; y < stampata.height(); y += 7)
            if (qGray(stampata.pixel(x, y)) < 200) ++scuri;
    QVERIFY(scuri > 100);
}

void TestLatoRisposta::la_rotella_e_i_tasti_ingrandiscono() {
    apri(kNovanta, {1400, 800});
    premi("Command1");
    clic(0);
    QTRY_VERIFY(si_vede() && pannello()->tela() != nullptr);
    TelaStoria* tela = pannello()->tela();
    QTest::qWait(50);
    const auto intero = tela->tratto();
    const auto largo = [tela] { return tela->tratto().second - tela->tratto().first; };
    QTest::keyClick(tela, Qt::Key_Plus);
    QVERIFY(largo() < intero.second - intero.first);
    const auto vicino = tela->tratto();
    QTest::keyClick(tela, Qt::Key_Right);
    QVERIFY(tela->tratto().first > vicino.first);
    // No further than the last draw.
    for (int i = 0; i < 50; ++i) QTest::keyClick(tela, Qt::Key_Right);
    QVERIFY(tela->tratto().second <= intero.second + 0.001);
    QTest::keyClick(tela, Qt::Key_Home);
    QCOMPARE(tela->tratto(), intero);
    for (int i = 0; i < 50; ++i) QTest::keyClick(tela, Qt::Key_Minus);
    QCOMPARE(tela->tratto(), intero);
    QWidget* quadro = tela->findChild<QWidget*>();
    QVERIFY(quadro != nullptr);
    const QPointF dove{tela->width() / 2.0, tela->height() / 4.0};
    QWheelEvent rotella{dove,           tela->mapToGlobal(dove), {},   {0, 120}, Qt::NoButton,
                        Qt::NoModifier, Qt::NoScrollPhase,       false};
    QApplication::sendEvent(quadro, &rotella);
    QVERIFY(largo() < intero.second - intero.first);
}

void TestLatoRisposta::sotto_il_puntatore_c_e_l_estrazione() {
    apri(kNovanta, {1400, 800});
    premi("Command1");
    clic(89);
    QTRY_VERIFY(si_vede() && pannello()->tela() != nullptr);
    const TelaStoria* tela = pannello()->tela();
    QTest::qWait(100);
    QSet<QString> detti;
    for (int x = 0; x < tela->width(); x += 4)
        for (int y = 0; y < tela->height(); y += 4) detti.insert(tela->testo_a({x, y}));
    const auto detto = [&](const QString& cosa) {
        return std::any_of(detti.begin(), detti.end(), [&](const QString& d) { return d.contains(cosa); });
    };
    QVERIFY(detto(QStringLiteral("90, concorso 20 del ")));
    QVERIFY(detto(QStringLiteral(": ritardo 11")));
    QVERIFY(detto(QStringLiteral("oggi manca da 40")));
    QVERIFY(detto(QStringLiteral("90, ritardi di 2: 1 (il caso ")));
    QVERIFY(detto(QStringLiteral(" uscite (il caso ")));
}

void TestLatoRisposta::i_colori_della_storia_si_distinguono() {
    apri(kNovanta, {1400, 800});
    premi("Command1");
    clic(0);
    QTRY_VERIFY(si_vede() && pannello()->tela() != nullptr);
    for (int i = kNumeroSkin; i >= 1; --i) {
        applica_tema(*qApp, i);
        QTest::qWait(1);
        for (int a = 0; a < kSerieGrafico; ++a) {
            QVERIFY2(contrasto(pannello()->tela()->colore(a), skin_in_uso().superficie) >= 3,
                     skin_in_uso().nome);
            for (int b = 0; b < a; ++b)
                QVERIFY(pannello()->tela()->colore(a) != pannello()->tela()->colore(b));
        }
    }
}

void TestLatoRisposta::gli_interruttori_stanno_in_960_per_540() {
    apri(kNovanta, {960, 540});
    controllo<QCheckBox>("CheckRuota_10")->click();
    premi("Command1");
    premi("cmdRuote");
    QCOMPARE(form_->size(), (QSize{960, 540}));
    QVERIFY(form_->minimumSizeHint().width() <= 960);
    for (const char* nome : {"cmdStoria", "cmdCaso", "cmdRuote", "cmdFiltra"}) {
        const auto* b = controllo<QPushButton>(nome);
        QVERIFY2(b->isVisible() && b->width() >= b->sizeHint().width(), nome);
        QVERIFY2(form_->rect().contains(QRect{b->mapTo(form_.get(), QPoint{}), b->size()}), nome);
        QVERIFY2(!b->text().isEmpty() || !b->accessibleName().isEmpty(), nome);
    }
    // Narrower still the switches show their pictures alone, and tell their names to whoever asks.
    form_->resize(700, 500);
    QTRY_VERIFY(controllo<QPushButton>("cmdCaso")->text().isEmpty());
    QCOMPARE(controllo<QPushButton>("cmdCaso")->accessibleName(), QStringLiteral("Il caso"));
    form_->resize(1200, 500);
    QTRY_COMPARE(controllo<QPushButton>("cmdCaso")->text(), QStringLiteral("&Il caso"));
}

QTEST_MAIN(TestLatoRisposta)
#include "test_lato_risposta.moc"
