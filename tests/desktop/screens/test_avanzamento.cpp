#include "screens/freccia.h"
#include "screens/pannello_avanzamento.h"
#include "screens/tema.h"

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>
#include <QtTest>

using namespace sortimetra;

namespace {

struct Schermo {
    QWidget finestra;
    QWidget* corpo = new QWidget{&finestra};
    QLineEdit* casella = new QLineEdit{corpo};
    QWidget* griglia = new QWidget{corpo};
    PannelloAvanzamento* pannello = new PannelloAvanzamento{&finestra};

    Schermo() {
        finestra.resize(800, 600);
        corpo->setGeometry(0, 0, 800, 600);
        griglia->setGeometry(300, 100, 480, 400);
        finestra.show();
    }
};

/// Keeps the processor busy, as a search does between two reports.
void lavora(int millisecondi) {
    QElapsedTimer orologio;
    orologio.start();
    while (orologio.elapsed() < millisecondi) {
    }
}

}  // namespace

class TestAvanzamento : public QObject {
    Q_OBJECT
  private slots:
    void initTestCase() { applica_tema(*qApp, 1); }

    void i_controlli_hanno_il_loro_nome();
    void una_ricerca_breve_non_mostra_nulla();
    void una_ricerca_lunga_mostra_il_pannello_sulla_griglia();
    void gli_eventi_girano_sessanta_volte_al_secondo_al_massimo();
    void durante_la_corsa_lo_schermo_e_disabilitato();
    void annulla_ferma_la_ricerca();
    void la_barra_segue_la_parte_fatta();
    void le_frecce_si_accendono_una_alla_volta_e_si_fermano();
    void senza_animazioni_le_frecce_stanno_ferme();
};

void TestAvanzamento::i_controlli_hanno_il_loro_nome() {
    Schermo s;
    QCOMPARE(s.pannello->objectName(), QStringLiteral("FramePro"));
    QVERIFY(s.pannello->findChild<QFrame*>(QStringLiteral("PicEst")) != nullptr);
    QVERIFY(s.pannello->findChild<QFrame*>(QStringLiteral("PicINT")) != nullptr);
    QCOMPARE(s.pannello->findChild<QLabel*>(QStringLiteral("lblprogress"))->text(),
             QStringLiteral("Analisi archivio in corso"));
}

void TestAvanzamento::una_ricerca_breve_non_mostra_nulla() {
    Schermo s;
    int giri = 0;
    // Bound to the screen of this test: what is still waiting when it ends is forgotten with it.
    QTimer::singleShot(0, s.corpo, [&giri] { ++giri; });
    // A machine that stalls makes any search long: then it is tried again.
    for (int volta = 0; volta < 10; ++volta) {
        CorsaRicerca corsa{s.corpo, s.pannello, s.griglia};
        for (int i = 0; i < 1000; ++i) QVERIFY(corsa.procedi(static_cast<std::size_t>(i), 1000));
        if (corsa.trascorsi() >= 150) continue;
        QVERIFY(!s.pannello->isVisible());
        QCOMPARE(giri, 0);
        return;
    }
    QSKIP("the machine is too busy to tell");
}

void TestAvanzamento::una_ricerca_lunga_mostra_il_pannello_sulla_griglia() {
    Schermo s;
    {
        CorsaRicerca corsa{s.corpo, s.pannello, s.griglia};
        lavora(100);
        corsa.procedi(1, 4);
        if (corsa.trascorsi() < 150) QVERIFY(!s.pannello->isVisible());
        lavora(80);
        corsa.procedi(2, 4);
        QVERIFY(s.pannello->isVisible());
        const QPoint centro = s.griglia->geometry().center() - s.pannello->geometry().center();
        QVERIFY(centro.manhattanLength() <= 2);
        QCOMPARE(s.pannello->parte(), 0.5);
    }
    QVERIFY(!s.pannello->isVisible());
}

void TestAvanzamento::gli_eventi_girano_sessanta_volte_al_secondo_al_massimo() {
    Schermo s;
    int giri = 0;
    QTimer orologio;
    connect(&orologio, &QTimer::timeout, this, [&giri] { ++giri; });
    orologio.start(0);  // once per turn of the event loop
    double trascorsi = 0;
    {
        CorsaRicerca corsa{s.corpo, s.pannello, s.griglia};
        std::size_t fatto = 0;
        // A slow machine takes longer for its turns; none takes them closer together.
        while (giri < 12 && corsa.trascorsi() < 60'000) corsa.procedi(fatto++, 100'000'000);
        trascorsi = corsa.trascorsi();
    }
    QVERIFY(giri >= 12);
    // The first turn comes after 150 ms, each other one 16 ms after the one before. Whole milliseconds are
    // counted, which may cost one of them each time.
    QVERIFY2(trascorsi >= 150 + 11 * 15, qPrintable(QString::number(trascorsi)));
}

void TestAvanzamento::durante_la_corsa_lo_schermo_e_disabilitato() {
    Schermo s;
    QVERIFY(QTest::qWaitForWindowActive(&s.finestra));
    s.casella->setFocus();
    QTRY_VERIFY(s.casella->hasFocus());
    {
        CorsaRicerca corsa{s.corpo, s.pannello, s.griglia};
        QVERIFY(!s.casella->isEnabled());
        QCOMPARE(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
        QTest::keyClicks(s.casella, QStringLiteral("7"));
        QCOMPARE(s.casella->text(), QString{});
    }
    QVERIFY(s.casella->isEnabled());
    QVERIFY(QApplication::overrideCursor() == nullptr);
    QVERIFY(s.casella->hasFocus());
}

void TestAvanzamento::annulla_ferma_la_ricerca() {
    Schermo s;
    s.pannello->imposta_annullabile(true);
    auto* annulla = s.pannello->findChild<QPushButton*>(QStringLiteral("cmdAnnulla"));
    QCOMPARE(annulla->text(), QStringLiteral("Annulla Ricerca"));
    bool premuto = false;
    QTimer premi;
    connect(&premi, &QTimer::timeout, this, [&] {
        if (!annulla->isVisible() || premuto) return;
        QTest::mouseClick(annulla, Qt::LeftButton);
        premuto = true;
    });
    premi.start(5);
    CorsaRicerca corsa{s.corpo, s.pannello, s.griglia};
    QElapsedTimer durata;
    durata.start();
    bool avanti = true;
    while (avanti && durata.elapsed() < 5000) avanti = corsa.procedi(1, 2);
    QVERIFY(premuto);
    QVERIFY(!avanti);
    QVERIFY(corsa.annullata());
}

void TestAvanzamento::la_barra_segue_la_parte_fatta() {
    Schermo s;
    s.pannello->mostra_su(s.griglia);
    auto* esterna = s.pannello->findChild<QFrame*>(QStringLiteral("PicEst"));
    auto* interna = s.pannello->findChild<QFrame*>(QStringLiteral("PicINT"));
    s.pannello->imposta(0);
    QCOMPARE(interna->width(), 0);
    s.pannello->imposta(0.25);
    QVERIFY(std::abs(interna->width() - esterna->width() / 4) <= 1);
    s.pannello->imposta(7);
    QCOMPARE(interna->width(), esterna->width());
}

void TestAvanzamento::le_frecce_si_accendono_una_alla_volta_e_si_fermano() {
    FrecciaAnimata f;
    f.show();
    f.avvia();
    QCOMPARE(f.accesa(), 0);
    QVERIFY(f.in_moto());
    auto* orologio = f.findChild<QTimer*>(QStringLiteral("Timer1"));
    orologio->setInterval(1);
    QList<int> viste{0};
    connect(orologio, &QTimer::timeout, this, [&] {
        if (f.in_moto()) viste << f.accesa();
    });
    QTRY_VERIFY(!f.in_moto());
    QCOMPARE(viste.size(), 25);  // five passes of five
    for (qsizetype i = 0; i < viste.size(); ++i) QCOMPARE(viste[i], static_cast<int>(i % 5));
    QCOMPARE(f.accesa(), 4);  // the arrows stay as they are
}

void TestAvanzamento::senza_animazioni_le_frecce_stanno_ferme() {
    FrecciaAnimata f;
    f.imposta_animata(false);
    f.show();
    f.avvia();
    QVERIFY(!f.in_moto());
    QCOMPARE(f.accesa(), -1);
    for (int i = 0; i < 5; ++i) QVERIFY(f.findChild<QLabel*>(QStringLiteral("Image1_%1").arg(i)) != nullptr);
}

QTEST_MAIN(TestAvanzamento)
#include "test_avanzamento.moc"
