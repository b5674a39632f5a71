#include "catalogue/ricerche.h"
#include "results/risultato.h"
#include "screens/fumetto.h"
#include "screens/griglia_risultati.h"
#include "screens/manuale.h"
#include "screens/schermi.h"
#include "screens/tema.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextBrowser>
#include <QTextFragment>
#include <QToolButton>
#include <QToolTip>
#include <QVBoxLayout>
#include <QtTest>

using namespace sortimetra;

namespace {

std::shared_ptr<const Tabella> misure() {
    auto t = std::make_shared<Tabella>();
    t->titoli = {{"Numeri", "Frequenza", "Ritardo", "Ritardo Storico"}};
    t->colonne = {ColonnaInteri{{67, 12}}, ColonnaInteri{{250, 260}}, ColonnaInteri{{152, 3}},
                  ColonnaInteri{{123, 90}}};
    return t;
}

FinestraManuale* manuale_aperto() {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (auto* m = qobject_cast<FinestraManuale*>(w); m != nullptr && m->isVisible()) return m;
    return nullptr;
}

template <class Oggetto>
Oggetto* figlio(const QWidget* di, const char* nome) {
    return di->findChild<Oggetto*>(QString::fromLatin1(nome));
}

}  // namespace

class TestManuale : public QObject {
    Q_OBJECT

  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }

    void ogni_rimando_porta_a_un_capitolo() {
        const FinestraManuale m;
        const QStringList capitoli = m.capitoli();
        QVERIFY(capitoli.size() > 20);
        QCOMPARE(QSet<QString>(capitoli.begin(), capitoli.end()).size(), capitoli.size());
        int rimandi = 0;
        const auto* testo = figlio<QTextBrowser>(&m, "txtmanuale");
        for (QTextBlock b = testo->document()->begin(); b.isValid(); b = b.next())
            for (auto i = b.begin(); !i.atEnd(); ++i) {
                const QString verso = i.fragment().charFormat().anchorHref();
                if (verso.isEmpty()) continue;
                ++rimandi;
                QVERIFY2(verso.startsWith(QLatin1Char{'#'}) && capitoli.contains(verso.mid(1)),
                         qPrintable(verso));
            }
        QVERIFY(rimandi > 20);
        // What is written for the next chapter's writer is not for the reader.
        QVERIFY(!testo->toPlainText().contains(QStringLiteral("<!--")));
    }

    void ogni_ricerca_ha_il_suo_capitolo() {
        const FinestraManuale m;
        for (const Ricerca& r : ricerche())
            QVERIFY2(m.capitoli().contains(QString::fromLatin1(capitolo_di(r))), capitolo_di(r));
        for (const char* altro : {"il-catalogo", "le-misure", "il-caso", "stampare", "la-storia-di-una-riga"})
            QVERIFY2(m.capitoli().contains(QString::fromLatin1(altro)), altro);
    }

    void si_apre_al_capitolo_e_i_rimandi_tornano_indietro() {
        FinestraManuale m;
        m.resize(920, 660);
        m.show();
        m.vai_a(QStringLiteral("il-caso"));
        QCOMPARE(m.capitolo(), QStringLiteral("il-caso"));
        auto* indietro = figlio<QToolButton>(&m, "cmdIndietro");
        QVERIFY(!indietro->isEnabled());
        auto* lista = figlio<QListWidget>(&m, "lstcapitoli");
        QCOMPARE(lista->currentItem()->text(), QStringLiteral("Il caso"));
        const auto voci = lista->findItems(QStringLiteral("Stampare"), Qt::MatchExactly);
        QCOMPARE(voci.size(), 1);
        lista->scrollToItem(voci[0]);
        QTest::mouseClick(lista->viewport(), Qt::LeftButton, {}, lista->visualItemRect(voci[0]).center());
        QCOMPARE(m.capitolo(), QStringLiteral("stampare"));
        QTest::mouseClick(indietro, Qt::LeftButton);
        QCOMPARE(m.capitolo(), QStringLiteral("il-caso"));
        QVERIFY(!indietro->isEnabled());
        // The last one cannot come to the top of the window: it is the one on show all the same.
        m.vai_a(QStringLiteral("i-tasti"));
        QCOMPARE(m.capitolo(), QStringLiteral("i-tasti"));
        QCOMPARE(lista->currentItem()->text(), QStringLiteral("I tasti"));
        m.vai_a(QStringLiteral("capitolo-che-non-c-e"));
        QCOMPARE(m.capitolo(), m.capitoli().front());
    }

    void trova_avanti_e_indietro_e_dice_quando_non_c_e() {
        FinestraManuale m;
        m.show();
        QVERIFY(QTest::qWaitForWindowActive(&m));
        auto* casella = figlio<QLineEdit>(&m, "txttrovamanuale");
        const auto* testo = figlio<QTextBrowser>(&m, "txtmanuale");
        QTest::keyClick(&m, Qt::Key_F, Qt::ControlModifier);
        QTRY_COMPARE(m.focusWidget(), casella);
        QTest::keyClicks(casella, QStringLiteral("novanta"));
        QCOMPARE(testo->textCursor().selectedText().toLower(), QStringLiteral("novanta"));
        const int primo = testo->textCursor().selectionStart();
        QTest::keyClick(casella, Qt::Key_Return);
        QVERIFY(testo->textCursor().selectionStart() > primo);
        QTest::keyClick(casella, Qt::Key_Return, Qt::ShiftModifier);
        QCOMPARE(testo->textCursor().selectionStart(), primo);
        casella->setText(QStringLiteral("zzz"));
        QCOMPARE(figlio<QLabel>(&m, "lblesitomanuale")->text(), QStringLiteral("Non c'è"));
        QTest::keyClick(casella, Qt::Key_Escape);
        QVERIFY(!m.isVisible());
    }

    void sta_in_una_finestra_stretta_senza_indice() {
        FinestraManuale m;
        m.resize(960, 540);
        m.show();
        QVERIFY(figlio<QListWidget>(&m, "lstcapitoli")->isVisible());
        QVERIFY(m.minimumSizeHint().width() <= 960 && m.minimumSizeHint().height() <= 540);
        m.resize(600, 540);
        QTRY_VERIFY(!figlio<QListWidget>(&m, "lstcapitoli")->isVisible());
        QTRY_COMPARE(figlio<QTextBrowser>(&m, "txtmanuale")->horizontalScrollBar()->maximum(), 0);
    }

    void prende_i_colori_di_ogni_aspetto() {
        FinestraManuale m;
        m.show();
        const auto* testo = figlio<QTextBrowser>(&m, "txtmanuale");
        for (int i = kNumeroSkin; i >= 1; --i) {
            applica_tema(*qApp, i);
            bool trovato = false;
            for (QTextBlock b = testo->document()->begin(); b.isValid() && !trovato; b = b.next())
                for (auto f = b.begin(); !f.atEnd() && !trovato; ++f)
                    if (f.fragment().charFormat().isAnchor()) {
                        trovato = true;
                        QCOMPARE(f.fragment().charFormat().foreground().color().rgb(), skin_in_uso().accento);
                        QVERIFY(contrasto(skin_in_uso().accento, skin_in_uso().superficie) >= 4.5);
                    }
            QVERIFY(trovato);
        }
    }

    void f1_apre_il_capitolo_della_finestra_anche_sopra_una_modale() {
        QWidget finestra;
        auto* casella = new QLineEdit{&finestra};
        assegna_capitolo(&finestra, "lunghette");
        ascolta_f1(Sessione{});
        finestra.show();
        QTest::keyClick(casella, Qt::Key_F1);
        QVERIFY(manuale_aperto() != nullptr);
        QCOMPARE(manuale_aperto()->capitolo(), QStringLiteral("lunghette"));
        // Within the manual F1 leaves it where it is.
        manuale_aperto()->vai_a(QStringLiteral("esportare"));
        QTest::keyClick(manuale_aperto(), Qt::Key_F1);
        QCOMPARE(manuale_aperto()->capitolo(), QStringLiteral("esportare"));
        QTest::keyClick(manuale_aperto(), Qt::Key_Escape);
        QCOMPARE(manuale_aperto(), nullptr);

        QDialog modale{&finestra};
        modale.setModal(true);
        assegna_capitolo(&modale, "stampare");
        modale.show();
        QTest::keyClick(&modale, Qt::Key_F1);
        QVERIFY(manuale_aperto() != nullptr);
        QCOMPARE(manuale_aperto()->parentWidget(), &modale);
        QCOMPARE(manuale_aperto()->capitolo(), QStringLiteral("stampare"));
    }

    void un_titolo_si_spiega_sotto_il_puntatore() {
        GrigliaRisultati g;
        g.resize(700, 300);
        g.mostra(misure());
        g.show();
        QWidget* testata = figlio<QPushButton>(&g, "cmdcol_3")->parentWidget();
        const int x = g.vista()->columnViewportPosition(3) + g.vista()->columnWidth(3) / 2;
        QTest::mouseMove(testata, {x, testata->height() - 8});
        QTRY_VERIFY(testata->toolTip().contains(QStringLiteral("Ritardo Storico")));
        QVERIFY(testata->toolTip().contains(QStringLiteral("Per esempio 67: la sua attesa più lunga")));
        // Sorted the other way, the example is of the row that is on top now.
        g.ordina_colonna(2, Verso::crescente);
        QTest::mouseMove(testata, {g.vista()->columnViewportPosition(2) + 20, testata->height() - 8});
        QTest::mouseMove(testata, {x, testata->height() - 8});
        QTRY_VERIFY(testata->toolTip().contains(QStringLiteral("Per esempio 12")));
        // The first column is no measure: its title says what a click does.
        QTest::mouseMove(testata, {g.vista()->columnViewportPosition(0) + 8, testata->height() - 8});
        QTRY_VERIFY(testata->toolTip().startsWith(QStringLiteral("Ordina")));
    }

    void f1_sul_titolo_lo_spiega_e_altrove_apre_il_manuale() {
        QWidget finestra;
        assegna_capitolo(&finestra, "numeri-ambi-e-terni");
        ascolta_f1(Sessione{});
        auto* colonna = new QVBoxLayout{&finestra};
        auto* g = new GrigliaRisultati;
        colonna->addWidget(g);
        finestra.resize(700, 300);
        g->mostra(misure());
        finestra.show();
        auto* pulsante = figlio<QPushButton>(&finestra, "cmdcol_3");
        QTest::keyClick(pulsante, Qt::Key_F1);
        auto* fumetto = finestra.findChild<Fumetto*>();
        QVERIFY(fumetto != nullptr && fumetto->isVisible());
        QVERIFY(figlio<QLabel>(fumetto, "lblfumetto")
                    ->text()
                    .contains(QStringLiteral("più lunga è stata di 123")));
        QCOMPARE(manuale_aperto(), nullptr);
        QTest::keyClick(fumetto, Qt::Key_Escape);
        QTRY_VERIFY(finestra.findChild<Fumetto*>() == nullptr);

        // Shift+F1 asks about the column of a cell.
        g->vista()->setCurrentIndex(g->modello()->index(1, 2));
        QTest::keyClick(g->vista(), Qt::Key_F1, Qt::ShiftModifier);
        fumetto = finestra.findChild<Fumetto*>();
        QVERIFY(fumetto != nullptr);
        QCOMPARE(fumetto->accessibleName(), QStringLiteral("Ritardo"));
        // Its link goes on to the manual.
        emit figlio<QLabel>(fumetto, "lblfumetto")->linkActivated(QStringLiteral("manuale"));
        QVERIFY(manuale_aperto() != nullptr);
        QCOMPARE(manuale_aperto()->capitolo(), QStringLiteral("le-misure"));
        manuale_aperto()->close();

        QTest::keyClick(g->vista(), Qt::Key_F1);
        QVERIFY(manuale_aperto() != nullptr);
        QCOMPARE(manuale_aperto()->capitolo(), QStringLiteral("numeri-ambi-e-terni"));
        manuale_aperto()->close();
    }

    void il_pulsante_di_un_titolo_dice_anche_che_cosa_vuol_dire() {
        GrigliaRisultati g;
        g.resize(700, 300);
        g.mostra(misure());
        g.show();
        auto* pulsante = figlio<QPushButton>(&g, "cmdcol_1");
        QHelpEvent aiuto{QEvent::ToolTip, pulsante->rect().center(),
                         pulsante->mapToGlobal(pulsante->rect().center())};
        QApplication::sendEvent(pulsante, &aiuto);
        QVERIFY(QToolTip::text().contains(QStringLiteral("Per esempio 67: è uscito 250 volte.")));
        QVERIFY(QToolTip::text().contains(QStringLiteral("Ordina per questa colonna")));
        QToolTip::hideText();
    }
};

QTEST_MAIN(TestManuale)
#include "test_manuale.moc"
